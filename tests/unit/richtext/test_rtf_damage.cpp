#include "richtext/rtf/limits.h"
#include "richtext/rtf/read.h"
#include "sample_documents.h"

#include <QElapsedTimer>
#include <gtest/gtest.h>

using namespace norvane::rtf;

TEST(RtfDamage, DeepGroups)
{
    // As deep as real files go, all is there; far beyond, the rest is.
    const auto nested = [](int depth) {
        return "{\\rtf1 a" + QByteArray(depth, '{') + "\\b b" + QByteArray(depth, '}') + "c}";
    };
    EXPECT_EQ(read(nested(2'714))->plainText().toStdString(), "abc");
    EXPECT_EQ(read(nested(kMaximumDepth + 1))->plainText().toStdString(), "ac");
    EXPECT_EQ(read(nested(1'000'000))->plainText().toStdString(), "ac");
    EXPECT_EQ(read("{\\rtf1 a" + QByteArray(1'000'000, '{'))->plainText().toStdString(), "a");
}

TEST(RtfDamage, HugeTablesOfFontsAndColours)
{
    QByteArray rtf = "{\\rtf1{\\fonttbl{\\f0 A;}";
    for (int i = 1; i < kMaximumFonts + 1'000; ++i)
        rtf += "{\\f" + QByteArray::number(i) + " F;}";
    rtf += "}{\\colortbl" + QByteArray(1'000'000, ';') + "}\\f66500\\cf999999 x\\f2 y}";
    const std::optional<Document> document = read(rtf);
    EXPECT_EQ(describe(*document).toStdString(), "text \"x\" (A 24)\ntext \"y\" (F 24)\n");
}

TEST(RtfDamage, ManyOfEverythingInTimeThatGrowsWithTheSize)
{
    // Each is a second or less; were any of them quadratic, it would be minutes.
    QElapsedTimer timer;
    timer.start();
    QByteArray formats = "{\\rtf1 ";
    for (int i = 0; i < 50'000; ++i)
        formats +=
            "\\fs" + QByteArray::number(2 + i % 3000) + "\\li" + QByteArray::number(i % 20'000) + " x\\par";
    EXPECT_EQ(read(formats)->plainText().size(), 100'000);
    QByteArray tabs = "{\\rtf1 ";
    for (int i = 0; i < 100'000; ++i)
        tabs += "\\tx" + QByteArray::number(i);
    EXPECT_EQ(describe(*read(tabs + "\\par}")).count(u"tab0"), kMaximumTabs);
    QByteArray bytes = "{\\rtf1 ";
    for (int i = 0; i < 500'000; ++i)
        bytes += "\\'e9";
    EXPECT_EQ(read(bytes)->plainText().size(), 500'000);
    QByteArray picture = "{\\rtf1{\\pict\\pngblip ";
    for (int i = 0; i < 500'000; ++i)
        picture += "00\r\n";
    EXPECT_EQ(read(picture + "}}")->operations.size(), 1U);
    EXPECT_LT(timer.elapsed(), 60'000);
}
