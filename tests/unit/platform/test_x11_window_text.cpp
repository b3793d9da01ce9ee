#include "platform/x11/program_families.h"
#include "platform/x11/window_facts.h"
#include "platform/x11/window_geometry.h"
#include "platform/x11/window_text.h"

#include <gmock/gmock.h>

using namespace norvane::x11;

namespace {

struct SuffixRow
{
    QString title;
    QString expected;
};

struct ClipRow
{
    QRect window;
    QRect expected;
};

} // namespace

TEST(X11WindowText, SuffixesOfProgramsGoOnceAtTheEnd)
{
    const SuffixRow rows[] = {
        {u"Second Page \u2014 Mozilla Firefox"_qs, u"Second Page"_qs},
        {u"Secret \u2014 Mozilla Firefox Private Browsing"_qs, u"Secret"_qs},
        {u"Hello Page - Docs - Chromium"_qs, u"Hello Page - Docs"_qs},
        {u"lib - Thunar"_qs, u"lib"_qs},
        {u"Mail - Work - Microsoft\u200b Edge"_qs, u"Mail - Work"_qs},
        {u"About Thunar - Thunar - Thunar"_qs, u"About Thunar - Thunar"_qs},
        {u"Chromium - a browser"_qs, u"Chromium - a browser"_qs},
        {u"Mozilla Firefox"_qs, u"Mozilla Firefox"_qs},
        {u" - Chromium"_qs, u" - Chromium"_qs},
        {QString(), QString()},
    };
    for (const SuffixRow &row : rows) {
        EXPECT_EQ(withoutProgramSuffix(row.title), row.expected) << row.title.toStdString();
    }
}

TEST(X11WindowText, CutsWithoutHalvingACharacter)
{
    const QString smile = u"\U0001F600"_qs;
    EXPECT_EQ(cutText(QString(253, u'a') + smile, kMaxCaption), QString(253, u'a'));
    EXPECT_EQ(cutText(QString(252, u'a') + smile, kMaxCaption), QString(252, u'a') + smile);
    EXPECT_EQ(cutText(QString(4000, u'\u05d0'), kMaxCaption), QString(254, u'\u05d0'));
    EXPECT_EQ(cutText(u"a\0b"_qs, kMaxCaption), u"a"_qs);
    // Cut bytes never show: the part that is read holds the longest caption in the widest encoding.
    const QByteArray wide = QString(4000, u'\uffe5').toUtf8().left(kCaptionLongs * 4);
    EXPECT_EQ(cutText(decodeText(wide, TextEncoding::Utf8), kMaxCaption), QString(254, u'\uffe5'));
    const QByteArray pairs = smile.repeated(200).toUtf8().left(kCaptionLongs * 4 - 1);
    EXPECT_EQ(cutText(decodeText(pairs, TextEncoding::Utf8), kMaxCaption), smile.repeated(127));
}

TEST(X11WindowText, DecodesOldNames)
{
    EXPECT_EQ(decodeText("caf\xe9", TextEncoding::Latin1), u"caf\u00e9"_qs);
    EXPECT_EQ(decodeText("caf\xe9", TextEncoding::Compound), u"caf\u00e9"_qs);
    EXPECT_EQ(decodeText("a \x1b%G\xe2\x82\xac\x1b%@ b", TextEncoding::Compound), u"a \u20ac b"_qs);
    EXPECT_EQ(decodeText("a \x1b%G\xe2\x82\xac", TextEncoding::Compound), u"a \u20ac"_qs);
    EXPECT_EQ(decodeText("a\x1b(Bc\x1b", TextEncoding::Compound), u"ac"_qs);
}

TEST(X11WindowGeometry, DevicePixelsBecomeLogicalOnes)
{
    const QVector<ScreenScale> screens = {{QRect(0, 0, 2000, 1000), 2.0}, {QRect(2000, 0, 1000, 1000), 1.0}};
    EXPECT_EQ(toLogical(QRect(100, 50, 400, 300), screens), QRect(50, 25, 200, 150));
    EXPECT_EQ(toLogical(QRect(2100, 50, 400, 300), screens), QRect(2100, 50, 400, 300));
    EXPECT_EQ(toLogical(QRect(-300, 10, 400, 300), screens), QRect(-150, 5, 200, 150)) << "touches the first";
    EXPECT_EQ(toLogical(QRect(9000, 10, 40, 30), screens), QRect(4500, 5, 20, 15)) << "on no screen";
    EXPECT_EQ(toLogical(QRect(1, 2, 3, 4), {}), QRect(1, 2, 3, 4));
    EXPECT_EQ(scaled(QRect(-5, 3, 7, 9), 1.5), QRect(-8, 5, 11, 14));
}

TEST(X11WindowGeometry, ClipsToTheTarget)
{
    const QRect target(100, 100, 200, 100);
    const ClipRow rows[] = {
        {QRect(110, 110, 50, 50), QRect()},
        {QRect(100, 100, 200, 100), QRect()},
        {QRect(90, 80, 50, 50), QRect(10, 20, 40, 30)},
        {QRect(280, 190, 50, 50), QRect(0, 0, 20, 10)},
        {QRect(0, 0, 500, 500), QRect(100, 100, 200, 100)},
        {QRect(300, 100, 50, 50), kNothingSeen},
    };
    for (const ClipRow &row : rows) {
        EXPECT_EQ(clipInside(row.window, target), row.expected) << row.window.x();
    }
}

TEST(X11WindowFacts, PropertiesMakeOnlyTheirFactsStale)
{
    EXPECT_EQ(factsToldBy(AtomName::NetWmName), quint32{kCaptionFact});
    EXPECT_EQ(factsToldBy(AtomName::WmName), quint32{kCaptionFact});
    EXPECT_EQ(factsToldBy(AtomName::WmState), factsToldBy(AtomName::NetWmState));
    EXPECT_EQ(factsToldBy(AtomName::NetClientList), 0U);
    // Whatever is read must also be read again when it changes.
    quint32 all = 0;
    for (int name = 0; name < static_cast<int>(AtomName::Count); ++name) {
        all |= factsToldBy(static_cast<AtomName>(name));
    }
    EXPECT_EQ(all, quint32{kAllFacts});
}
