#include "platform/linux/type_names.h"

#include <gmock/gmock.h>

using namespace norvane;

namespace {

struct TypeRow
{
    const char *path;
    const char *type;
};

class TypeNames : public testing::TestWithParam<TypeRow>
{
};

TEST_P(TypeNames, AreToldByTextAlone)
{
    EXPECT_EQ(typeNameOf(QString::fromUtf8(GetParam().path)).toStdString(), GetParam().type)
        << GetParam().path;
}

INSTANTIATE_TEST_SUITE_P(Addresses, TypeNames,
                         testing::Values(TypeRow{"http://example.com", "HTML document"},
                                         TypeRow{"https://example.com/item/42", "HTML document"},
                                         TypeRow{"https://example.com/paper.pdf", "HTML document"},
                                         TypeRow{"about:blank", "HTML document"},
                                         TypeRow{"file:///home/ann", "HTML document"},
                                         TypeRow{"www.example.com", "HTML document"}));

INSTANTIATE_TEST_SUITE_P(
    Paths, TypeNames,
    testing::Values(TypeRow{"", ""}, TypeRow{"/", "File Folder"}, TypeRow{"/home/ann", "File"},
                    TypeRow{"/home/ann/", "File"}, TypeRow{"/home/ann/.config", "File"},
                    TypeRow{"/home/ann/Makefile", "File"}, TypeRow{"/home/ann/Mr. Smith", "File"},
                    TypeRow{"/home/ann.d/file", "File"}, TypeRow{"/home/ann/dot.", "File"},
                    TypeRow{"/home/ann/a.txt", "Plain text document"},
                    TypeRow{"/home/ann/A.TXT", "Plain text document"},
                    TypeRow{"/home/ann/paper.pdf", "PDF document"},
                    TypeRow{"/home/ann/page.htm", "HTML document"},
                    TypeRow{"/home/ann/a.xyzzy", "XYZZY File"}, TypeRow{"C:\\a.xyzzy", "XYZZY File"},
                    TypeRow{"/home/ann/run.sh", "Shell script"}));

INSTANTIATE_TEST_SUITE_P(Programs, TypeNames,
                         testing::Values(TypeRow{"/usr/bin/mousepad", "Application"},
                                         TypeRow{"/usr/bin/run.sh", "Application"},
                                         TypeRow{"/usr/lib/libreoffice/program/soffice.bin", "Application"},
                                         TypeRow{"/usr/bin/python3.11", "Application"},
                                         TypeRow{"/opt/tool/bin/tool", "Application"},
                                         TypeRow{"/opt/tool/manual.pdf", "PDF document"},
                                         TypeRow{"/usr/bin", "File"}, TypeRow{"/opt/tool/", "File"},
                                         TypeRow{"/home/ann/.local/bin/tool", "Application"},
                                         TypeRow{"/home/ann/Tool.AppImage", "Application"},
                                         TypeRow{"/home/ann/setup.exe", "Application"}));

} // namespace
