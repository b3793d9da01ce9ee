#include "platform/linux/type_names.h"

#include <gmock/gmock.h>

using namespace norvane;

TEST(TypeNames, AreToldByTextAlone)
{
    const struct
    {
        const char *type;
        std::vector<const char *> paths;
    } rows[] = {
        {"HTML document",
         {"http://example.com", "https://example.com/item/42", "https://example.com/paper.pdf", "about:blank",
          "file:///home/ann", "www.example.com", "/home/ann/page.htm"}},
        {"", {""}},
        {"File Folder", {"/"}},
        {"File",
         {"/home/ann/", "/home/ann/.config", "/home/ann/Makefile", "/home/ann/Mr. Smith", "/home/ann.d/file",
          "/home/ann/dot.", "/usr/bin", "/opt/tool/"}},
        {"Plain text document", {"/home/ann/A.TXT"}},
        {"PDF document", {"/home/ann/paper.pdf", "/opt/tool/manual.pdf"}},
        {"XYZZY File", {"/home/ann/a.xyzzy", "C:\\a.xyzzy"}},
        {"Shell script", {"/home/ann/run.sh"}},
        {"Application",
         {"/usr/bin/mousepad", "/usr/bin/run.sh", "/usr/lib/libreoffice/program/soffice.bin",
          "/usr/bin/python3.11", "/opt/tool/bin/tool", "/home/ann/.local/bin/tool", "/home/ann/Tool.AppImage",
          "/home/ann/setup.exe"}},
    };
    for (const auto &row : rows) {
        for (const char *path : row.paths)
            EXPECT_EQ(typeNameOf(QString::fromUtf8(path)).toStdString(), row.type) << path;
    }
}
