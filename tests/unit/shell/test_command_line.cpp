#include "platform/RuntimeError.h"
#include "platform/errors.h"
#include "shell/command_line.h"

#include <gtest/gtest.h>

using namespace norvane;

namespace {

struct Row
{
    QStringList arguments;
    bool noTimer = false;
    bool noShellWindows = false;
    bool hasInterval = false;
    int interval = 0;
};

TEST(CommandLine, findsItsOptionsAnywhereWhateverTheirCase)
{
    const QVector<Row> rows = {
        {{}},
        {{QStringLiteral("/NOTIMER")}, true},
        {{QStringLiteral("/notimer"), QStringLiteral("/NoIe")}, true, true},
        {{QStringLiteral("junk/NOIEjunk")}, false, true},
        {{QStringLiteral("/interval=50")}, false, false, true, 50},
        {{QStringLiteral("/NOTIMER"), QStringLiteral("/INTERVAL=900")}, true, false, true, 900},
        {{QStringLiteral("x=7"), QStringLiteral("/INTERVAL=250")}, false, false, true, 250},
        {{QStringLiteral("/INTERVAL=")}, false, false, true, 0},
        {{QStringLiteral("/INTERVAL=abc")}, false, false, true, 0},
        {{QStringLiteral("/INTERVAL=12x4")}, false, false, true, 12},
        {{QStringLiteral("/INTERVAL=1234567")}, false, false, true, 12345},
        {{QStringLiteral("/INTERVAL=32767")}, false, false, true, 32767},
        {{QStringLiteral("/INTERVAL=80"), QStringLiteral("/NOIE")}, false, true, true, 80},
        {{QStringLiteral("/INTERVAL"), QStringLiteral("900")}},
    };
    for (const Row &row : rows) {
        const CommandLine line(row.arguments);
        SCOPED_TRACE(line.text().toStdString());
        EXPECT_EQ(line.noTimer(), row.noTimer);
        EXPECT_EQ(line.noShellWindows(), row.noShellWindows);
        ASSERT_EQ(line.hasInterval(), row.hasInterval);
        if (row.hasInterval) {
            EXPECT_EQ(line.interval(), row.interval);
        }
    }
}

TEST(CommandLine, anIntervalAbove16BitsOverflows)
{
    for (const QString &argument : {QStringLiteral("/INTERVAL=32768"), QStringLiteral("/INTERVAL=9E9")}) {
        try {
            CommandLine({argument}).interval();
            ADD_FAILURE() << argument.toStdString();
        } catch (const RuntimeError &error) {
            EXPECT_EQ(error.number(), kErrorOverflow);
        }
    }
}

} // namespace
