#include "platform/linux/type_names.h"

#include <QHash>
#include <QStringList>
#include <gtest/gtest.h>

using namespace norvane;

TEST(TypeNames, AreToldByTextAlone)
{
    const struct
    {
        const char *type;
        QStringList paths;
    } rows[] = {
        {"HTML document",
         {u"http://example.com"_qs, u"https://example.com/item/42"_qs, u"https://example.com/paper.pdf"_qs,
          u"about:blank"_qs, u"file:///home/ann"_qs, u"www.example.com"_qs, u"/home/ann/page.htm"_qs,
          u".HTM"_qs}},
        {"", {u""_qs}},
        {"File Folder", {u"/"_qs}},
        {"File",
         {u"/home/ann"_qs, u"/home/ann/"_qs, u"/home/ann/.config"_qs, u"/home/ann/Makefile"_qs,
          u"/home/ann/Mr. Smith"_qs, u"/home/ann.d/file"_qs, u"/home/ann/dot."_qs, u"/usr/bin"_qs,
          u"/opt/tool/"_qs}},
        {"Plain text document", {u"/home/ann/a.txt"_qs, u"/home/ann/A.TXT"_qs}},
        {"PDF document", {u"/home/ann/paper.pdf"_qs, u"/opt/tool/manual.pdf"_qs}},
        {"XYZZY File", {u"/home/ann/a.xyzzy"_qs, u"C:\\a.xyzzy"_qs}},
        {"Shell script", {u"/home/ann/run.sh"_qs}},
        {"Application",
         {u"/usr/bin/mousepad"_qs, u"/usr/bin/run.sh"_qs, u"/usr/lib/libreoffice/program/soffice.bin"_qs,
          u"/usr/bin/python3.11"_qs, u"/opt/tool/bin/tool"_qs, u"/home/ann/.local/bin/tool"_qs,
          u"/home/ann/Tool.AppImage"_qs, u"/home/ann/setup.exe"_qs}},
    };
    for (const auto &row : rows) {
        for (const QString &path : row.paths)
            EXPECT_EQ(typeNameOf(path).toStdString(), row.type) << path.toStdString();
    }
    // What has the same key has the same type, and icons go by the text, too.
    QHash<QString, QString> types;
    for (const auto &row : rows) {
        for (const QString &path : row.paths) {
            const QString key = typeKeyOf(path);
            EXPECT_EQ(types.value(key, QString::fromLatin1(row.type)).toStdString(), row.type)
                << path.toStdString();
            types.insert(key, QString::fromLatin1(row.type));
        }
    }
    EXPECT_EQ(typeKeyOf(u"/a/x.pdf"_qs), typeKeyOf(u"/b/y.pdf"_qs));
    EXPECT_NE(typeKeyOf(u"/a/x.tar.gz"_qs), typeKeyOf(u"/b/y.gz"_qs));
    EXPECT_NE(typeKeyOf(u"/a/CMakeLists.txt"_qs), typeKeyOf(u"/a/a.txt"_qs));
    EXPECT_EQ(iconNamesOf(u".HTM"_qs).constFirst(), u"text-html"_qs);
    EXPECT_EQ(iconNamesOf(u"/a/x.pdf"_qs), QStringList({u"application-pdf"_qs, u"x-office-document"_qs}));
    EXPECT_EQ(iconNamesOf(u"/usr/bin/mousepad"_qs).constFirst(), u"application-x-executable"_qs);
    EXPECT_EQ(iconNamesOf(u"/"_qs).constLast(), u"folder"_qs);
}
