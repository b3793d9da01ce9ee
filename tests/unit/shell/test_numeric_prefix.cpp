#include "error_of.h"
#include "platform/errors.h"
#include "shell/numeric_prefix.h"

#include <gtest/gtest.h>

using namespace norvane;

TEST(NumericPrefix, TakesLeadingDigitsAndStops)
{
    const struct
    {
        const char *text;
        double number;
    } rows[] = {{"", 0},        {"abc", 0}, {"12", 12}, {"  7x", 7}, {"50 /NOIE", 50}, {"-3", -3}, {"+4", 4},
                {"1.5.2", 1.5}, {"x1", 0},  {"-", 0},   {"0x10", 0}, {"1e2z", 100},    {".5", 0.5}};
    for (const auto &row : rows)
        EXPECT_EQ(numericPrefix(QString::fromLatin1(row.text)), row.number) << row.text;
}

TEST(NumericPrefix, RoundsHalvesToEvenAndReportsOverflow)
{
    EXPECT_EQ(numericPrefixInt16(QStringLiteral("2.5")), 2);
    EXPECT_EQ(numericPrefixInt16(QStringLiteral("3.5")), 4);
    EXPECT_EQ(numericPrefixInt16(QStringLiteral("32767")), 32767);
    EXPECT_EQ(errorOf([] { (void)numericPrefixInt16(QStringLiteral("32768")); }), kErrorOverflow);
}
