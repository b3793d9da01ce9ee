#include "richtext/rtf/limits.h"
#include "richtext/rtf/read.h"
#include "richtext/rtf/writer.h"
#include "sample_documents.h"

#include <QElapsedTimer>
#include <gtest/gtest.h>

using namespace norvane::rtf;

namespace {

/// Reads a damaged file and what is written of it: the second time nothing changes any more.
void expectStable(const QByteArray &rtf)
{
    const std::optional<Document> document = read(rtf);
    if (!document)
        return;
    const QByteArray once = write(*document);
    const std::optional<Document> again = read(once);
    ASSERT_TRUE(again);
    ASSERT_TRUE(again->plainText() == document->plainText()) << rtf.toStdString();
    ASSERT_TRUE(write(*again) == once) << rtf.toStdString();
}

} // namespace

TEST(RtfDamage, FilesCutAtEveryByte)
{
    // Small ones that have, together, lists, tables, links, fields, pictures and objects.
    for (const quint32 seed : {6U, 11U}) {
        const QByteArray whole = write(sampleDocument(seed));
        for (qsizetype length = 0; length < whole.size(); ++length)
            ASSERT_NO_FATAL_FAILURE(expectStable(whole.left(length))) << seed << ' ' << length;
    }
}

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
