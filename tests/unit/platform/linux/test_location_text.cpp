#include "platform/linux/location_text.h"

#include <gtest/gtest.h>

using namespace norvane;

namespace {

const QString kHome = QStringLiteral("/home/ann");

std::string shown(const std::optional<QString> &text)
{
    return text ? text->toStdString() : "(nothing)";
}

} // namespace

TEST(LocationText, FoldersInEntriesAndCaptions)
{
    struct Row
    {
        const char *text;
        const char *folder;
    };
    const Row entries[] = {
        {"/usr/share/", "/usr/share"},
        {"/a/100%20 sure", "/a/100%20 sure"},
        {"~", "/home/ann"},
        {"~/Bücher/", "/home/ann/Bücher"},
        {"file:///a%20b/c%23d/", "/a b/c#d"},
        {"sftp://host/a%20b", "sftp://host/a%20b"},
        {"", "(nothing)"},
        {"~bob/x", "(nothing)"},
        {"relative/path", "(nothing)"},
    };
    for (const Row &row : entries)
        EXPECT_EQ(shown(folderFromEntryText(QString::fromUtf8(row.text), kHome)), row.folder) << row.text;
    const Row captions[] = {
        {"/usr/share - Thunar", "/usr/share"}, {"/a - b/c — Dolphin", "/a - b/c"}, {"/", "/"},
        {"~/x - Thunar", "/home/ann/x"},       {"share - Thunar", "(nothing)"},    {"", "(nothing)"},
    };
    for (const Row &row : captions)
        EXPECT_EQ(shown(folderFromCaption(QString::fromUtf8(row.text), kHome)), row.folder) << row.text;
}

TEST(LocationText, TheCaptionNamesTheFolderOfATab)
{
    const struct
    {
        QString caption;
        QString folder;
        bool named;
    } names[] = {
        {u"share - Thunar"_qs, u"/usr/share"_qs, true},
        {u"/usr/share — Dolphin"_qs, u"/usr/share"_qs, true},
        {u"Home"_qs, kHome, true},
        {u"shared - Thunar"_qs, u"/usr/share"_qs, false},
        {u"Home"_qs, u"/usr/share"_qs, false},
    };
    for (const auto &row : names)
        EXPECT_EQ(captionNamesFolder(row.caption, row.folder, kHome), row.named)
            << row.caption.toStdString() << " " << row.folder.toStdString();

    const QStringList tabs{u"file:///usr/share"_qs, u"file:///home/ann/a%20b"_qs, u"file:///opt/a%20b"_qs};
    EXPECT_EQ(folderOfTabs(tabs, u"a b"_qs, {}, kHome), u"/home/ann/a b"_qs);
    EXPECT_EQ(folderOfTabs(tabs, u"a b"_qs, u"/opt/a b"_qs, kHome), u"/opt/a b"_qs);
    EXPECT_EQ(folderOfTabs(tabs, u"share"_qs, u"/opt/a b"_qs, kHome), u"/usr/share"_qs);
    EXPECT_EQ(folderOfTabs(tabs, u"Other"_qs, u"/opt/a b"_qs, kHome), u"/opt/a b"_qs);
    EXPECT_EQ(folderOfTabs({}, u"x"_qs, {}, kHome), QString());
}

TEST(LocationText, PagesFollowTheAddressBarWithinTheirSite)
{
    const struct
    {
        const char *uri;
        const char *shown;
        const char *expected;
    } rows[] = {
        // The bar shows what the document tells.
        {"https://www.example.com/a", "example.com/a", "https://www.example.com/a"},
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
        // Pages without a site.
        {"about:blank", "x", "about:blank"},
        {"file:///home/a.html", "/home/b.html", "file:///home/a.html"},
    };
    for (const auto &row : rows)
        EXPECT_EQ(pageAddress(QString::fromUtf8(row.uri), QString::fromUtf8(row.shown)).toStdString(),
                  row.expected)
            << row.uri << " " << row.shown;
}
