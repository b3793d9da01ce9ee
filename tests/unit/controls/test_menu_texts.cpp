#include "controls/menu/MenuItem.h"
#include "controls/menu/caption_markers.h"
#include "controls/menu/shortcut_text.h"

#include <gtest/gtest.h>

using namespace norvane;
using namespace Qt::StringLiterals;

namespace {

struct CaptionCase
{
    QString caption;
    QString display;
    QString accessKey;
    QString shown;
    QString flags; ///< h header, | column break, ^ column break with a line
};

TEST(MenuCaption, GivesItsMarkersUp)
{
    const CaptionCase cases[] = {
        {u""_s, u""_s, u""_s, u""_s, u""_s},
        {u"E&xit && go"_s, u"E&xit && go"_s, u"X"_s, u"Exit & go"_s, u""_s},
        {u"Fish && &Chips"_s, u"Fish && &Chips"_s, u"C"_s, u"Fish & Chips"_s, u""_s},
        {u"end&"_s, u"end&"_s, u""_s, u"end"_s, u""_s},
        {u"&\u00e9t\u00e9"_s, u"&\u00e9t\u00e9"_s, u"\u00c9"_s, u"\u00e9t\u00e9"_s, u""_s},
        {u"&\U0001F600"_s, u"&\U0001F600"_s, u"\U0001F600"_s, u"\U0001F600"_s, u""_s},
        {u"-Format"_s, u"Format"_s, u""_s, u"Format"_s, u"h"_s},
        {u"--"_s, u"-"_s, u""_s, u"-"_s, u"h"_s},
        {u"Next^"_s, u"Next"_s, u""_s, u"Next"_s, u"^"_s},
        {u"a||b"_s, u"a|b"_s, u""_s, u"a|b"_s, u""_s},
        {u"a|||b^^"_s, u"a|b^"_s, u""_s, u"a|b^"_s, u"|"_s},
        {u"-|^"_s, u""_s, u""_s, u""_s, u"h|^"_s},
        {u"||"_s, u"|"_s, u""_s, u"|"_s, u""_s},
        {u"&"_s, u"&"_s, u""_s, u""_s, u""_s},
        {u"|-"_s, u"-"_s, u""_s, u"-"_s, u"|"_s},
        {u"\t"_s, u""_s, u""_s, u""_s, u""_s},
    };
    for (const CaptionCase &row : cases) {
        MenuItem item;
        item.Header = item.columnBreak = item.barColumnBreak = true; // of an earlier caption
        applyCaption(item, row.caption);
        EXPECT_EQ(item.caption, row.caption);
        EXPECT_EQ(item.displayCaption, row.display) << qPrintable(row.caption);
        EXPECT_EQ(item.accessKey, row.accessKey) << qPrintable(row.caption);
        EXPECT_EQ(shownText(item.displayCaption).text, row.shown) << qPrintable(row.caption);
        const QString flags = (item.Header ? u"h"_s : QString()) + (item.columnBreak ? u"|"_s : QString()) +
                              (item.barColumnBreak ? u"^"_s : QString());
        EXPECT_EQ(flags, row.flags) << qPrintable(row.caption);
    }
    EXPECT_EQ(shownText(u"Fish && &Chips"_s).underlined, 7);
}

TEST(MenuCaption, KeepsWhatStandsBehindTheFirstTabAsItIs)
{
    MenuItem item;
    applyCaption(item, u"C&lose|\tCtrl+|\t&X"_s);
    EXPECT_EQ(item.displayCaption, u"C&lose");
    EXPECT_EQ(item.shortcutText, u"Ctrl+|\t&X");
    EXPECT_EQ(item.accessKey, u"L");
    EXPECT_TRUE(item.columnBreak);
    applyCaption(item, u"Close\tCtrl+Alt+X"_s);
    EXPECT_EQ(item.shortcutShift, 6);
    EXPECT_EQ(item.shortcutKey, 'X');
    applyCaption(item, u"Close"_s);
    EXPECT_EQ(item.shortcutShift, 0);
    EXPECT_EQ(item.shortcutKey, 0);
}

TEST(ShortcutText, NamesAKeyAndItsShiftState)
{
    const std::pair<QString, ShortcutKey> cases[] = {
        {u"Ctrl+S"_s, {2, 83}},
        {u"Ctrl+Shift+Alt+s"_s, {7, 83}},
        {u"Left Arrow"_s, {0, 37}},
        {u"Ctrl+Break"_s, {2, 3}},
        {u"Del"_s, {0, 46}},
        {u"Enter"_s, {0, 13}},
        {u"Shift+F12"_s, {1, 123}},
        {u"F"_s, {0, 70}},
        {u"Ctrl++"_s, {2, 43}},
        {u"+"_s, {0, 43}},
        {u"Ctrl+"_s, {2, 0}},
        {u""_s, {0, 0}},
        {u"Ctrl+Scroll Lock"_s, {2, 0}},
        {u"F99"_s, {0, 0}},
        {u"Shift + Del"_s, {1, 46}},
    };
    for (const auto &[text, key] : cases)
        EXPECT_EQ(parseShortcutText(text), key) << qPrintable(text);
}

} // namespace
