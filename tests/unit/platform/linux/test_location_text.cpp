#include "platform/linux/location_text.h"

#include <gtest/gtest.h>

using namespace norvane;
using namespace Qt::StringLiterals;

namespace {

const QString kHome = u"/home/ann"_s;

struct TextRow
{
    const char *text;
    const char *expected; ///< nullptr: nothing
};

std::string shown(const std::optional<QString> &text)
{
    return text ? text->toStdString() : "(nothing)";
}

std::string expectation(const TextRow &row)
{
    return row.expected != nullptr ? row.expected : "(nothing)";
}

} // namespace

TEST(FolderFromEntryText, TakesPathsAndAddresses)
{
    const TextRow rows[] = {
        {"/usr/share/", "/usr/share"},
        {"/", "/"},
        {"//", "/"},
        {"/a/100%20 sure", "/a/100%20 sure"},
        {"~", "/home/ann"},
        {"~/Bücher/", "/home/ann/Bücher"},
        {"file:///a%20b/c%23d/", "/a b/c#d"},
        {"trash:///", "trash:///"},
        {"sftp://host/a%20b", "sftp://host/a%20b"},
        {"", nullptr},
        {"search words", nullptr},
        {"~bob/x", nullptr},
        {"relative/path", nullptr},
    };
    for (const TextRow &row : rows)
        EXPECT_EQ(shown(folderFromEntryText(QString::fromUtf8(row.text), kHome)), expectation(row))
            << row.text;
}

TEST(FolderFromCaption, TakesOnlyAFullPath)
{
    const TextRow rows[] = {
        {"/usr/share - Thunar", "/usr/share"}, {"/a - b/c — Dolphin", "/a - b/c"}, {"/", "/"},
        {"~/x - Thunar", "/home/ann/x"},       {"share - Thunar", nullptr},        {"", nullptr},
    };
    for (const TextRow &row : rows)
        EXPECT_EQ(shown(folderFromCaption(QString::fromUtf8(row.text), kHome)), expectation(row)) << row.text;
}

TEST(CaptionNamesFolder, ComparesTheWholeName)
{
    const auto names = [](const char16_t *caption, const char16_t *folder) {
        return captionNamesFolder(QString::fromUtf16(caption), QString::fromUtf16(folder), kHome);
    };
    EXPECT_TRUE(names(u"share - Thunar", u"/usr/share"));
    EXPECT_TRUE(names(u"share", u"/usr/share"));
    EXPECT_TRUE(names(u"/usr/share — Dolphin", u"/usr/share"));
    EXPECT_TRUE(names(u"Home", u"/home/ann"));
    EXPECT_FALSE(names(u"shared - Thunar", u"/usr/share"));
    EXPECT_FALSE(names(u"lib - Thunar", u"/usr/share"));
    EXPECT_FALSE(names(u"Home", u"/usr/share"));
    EXPECT_FALSE(names(u"anything", u""));
}

TEST(FolderOfTabs, PrefersTheTabThatTheCaptionNames)
{
    const QStringList tabs{u"file:///usr/share"_s, u"file:///home/ann/a%20b"_s, u"file:///opt/a%20b"_s};
    const auto folder = [&](const char16_t *caption, const char16_t *last) {
        return folderOfTabs(tabs, QString::fromUtf16(caption), QString::fromUtf16(last), kHome).toStdString();
    };
    EXPECT_EQ(folder(u"a b", u""), "/home/ann/a b");
    EXPECT_EQ(folder(u"a b", u"/opt/a b"), "/opt/a b");
    EXPECT_EQ(folder(u"share", u"/opt/a b"), "/usr/share");
    EXPECT_EQ(folder(u"Other", u"/opt/a b"), "/opt/a b");
    EXPECT_EQ(folderOfTabs({}, u"x"_s, {}, kHome), QString());
}

TEST(PageAddress, FollowsTheAddressBarWithinThePagesSite)
{
    struct
    {
        const char *uri;
        const char *shown;
        const char *expected;
    } const rows[] = {
        // The bar shows what the document tells.
        {"https://www.example.com/a", "example.com/a", "https://www.example.com/a"},
        {"https://example.com/", "example.com", "https://example.com/"},
        {"https://example.com/a%20b", "example.com/a b", "https://example.com/a%20b"},
        {"http://127.0.0.1:80/a", "", "http://127.0.0.1:80/a"},
        // A script has changed it.
        {"https://example.com/a", "example.com/b?c=d", "https://example.com/b?c=d"},
        {"https://www.example.com/a", "example.com/b", "https://www.example.com/b"},
        {"http://127.0.0.1:80/a", "127.0.0.1:80/a b", "http://127.0.0.1:80/a%20b"},
        {"https://example.com/a", "https://example.com/b", "https://example.com/b"},
        // The user types.
        {"https://example.com/a", "other.org/b", "https://example.com/a"},
        {"https://example.com/a", "example.com.evil.org/b", "https://example.com/a"},
        {"https://example.com/a", "example.com:8080/b", "https://example.com/a"},
        {"https://example.com/a", "words to search", "https://example.com/a"},
        // Pages without a site.
        {"about:blank", "x", "about:blank"},
        {"file:///home/a.html", "/home/b.html", "file:///home/a.html"},
    };
    for (const auto &row : rows)
        EXPECT_EQ(pageAddress(QString::fromUtf8(row.uri), QString::fromUtf8(row.shown)).toStdString(),
                  row.expected)
            << row.uri << " " << row.shown;
}
