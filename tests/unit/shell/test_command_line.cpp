#include "error_of.h"
#include "platform/errors.h"
#include "shell/command_line.h"

#include <gtest/gtest.h>

using namespace norvane;
using namespace Qt::StringLiterals;

TEST(CommandLine, FindsItsOptionsAnywhereWhateverTheirCase)
{
    constexpr int kNone = -1;
    const struct
    {
        QStringList arguments;
        bool noTimer;
        bool noShellWindows;
        int interval;
    } rows[] = {
        {{}, false, false, kNone},
        {{u"/notimer"_s, u"/NoIe"_s}, true, true, kNone},
        {{u"junk/NOIEjunk"_s}, false, true, kNone},
        {{u"x=7"_s, u"/INTERVAL=250"_s}, false, false, 250},
        {{u"/INTERVAL="_s}, false, false, 0},
        {{u"/INTERVAL=12x4"_s}, false, false, 12},
        {{u"/INTERVAL=1234567"_s}, false, false, 12345},
        {{u"/INTERVAL=80"_s, u"/NOIE"_s}, false, true, 80},
        {{u"/INTERVAL"_s, u"900"_s}, false, false, kNone},
    };
    for (const auto &row : rows) {
        const CommandLine line(row.arguments);
        SCOPED_TRACE(line.text().toStdString());
        EXPECT_EQ(line.noTimer(), row.noTimer);
        EXPECT_EQ(line.noShellWindows(), row.noShellWindows);
        EXPECT_EQ(line.hasInterval() ? line.interval() : kNone, row.interval);
    }
}

TEST(CommandLine, AnIntervalAbove16BitsOverflows)
{
    EXPECT_EQ(CommandLine({u"/INTERVAL=32767"_s}).interval(), 32767);
    for (const QString &argument : {u"/INTERVAL=32768"_s, u"/INTERVAL=9E9"_s})
        EXPECT_EQ(errorOf([&] { (void)CommandLine({argument}).interval(); }), kErrorOverflow);
}
