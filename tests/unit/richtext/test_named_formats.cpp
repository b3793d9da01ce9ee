#include "richtext/commands/named_formats.h"

#include <gtest/gtest.h>

using namespace norvane;

namespace {

std::string joined(const std::array<QString, 3> &texts)
{
    return QStringList(texts.begin(), texts.end()).join(u" | "_qs).toStdString();
}

} // namespace

TEST(NamedFormats, AreThoseOfTheLocaleExceptTheMediumOnes)
{
    const QDate date(2024, 3, 5);
    const QTime time(14, 5, 9);
    const QLocale american(QLocale::English, QLocale::UnitedStates);
    const QLocale german(QLocale::German, QLocale::Germany);
    const QLocale japanese(QLocale::Japanese, QLocale::Japan);
    const QLocale finnish(QLocale::Finnish, QLocale::Finland);
    EXPECT_EQ(joined(namedDates(date, american)), "3/5/24 | 05-Mar-24 | Tuesday, March 5, 2024");
    EXPECT_EQ(joined(namedDates(date, german)), "05.03.24 | 05-M\u00E4rz-24 | Dienstag, 5. M\u00E4rz 2024");
    EXPECT_EQ(joined(namedTimes(time, american)), "2:05 PM | 02:05 PM | 2:05:09 PM");
    EXPECT_EQ(joined(namedTimes(QTime(0, 0), american)), "12:00 AM | 12:00 AM | 12:00:00 AM");
    EXPECT_EQ(joined(namedTimes(time, german)), "14:05 | 02:05 PM | 14:05:09");
    EXPECT_EQ(joined(namedTimes(time, finnish)), "14.05 | 02:05 PM | 14.05.09");
    EXPECT_EQ(joined(namedTimes(time, japanese)), "14:05 | 02:05 PM | 14\u6642"
                                                  "05\u5206"
                                                  "09\u79D2");
}
