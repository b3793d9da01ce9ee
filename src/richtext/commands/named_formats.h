#pragma once

#include <QDateTime>
#include <QLocale>
#include <array>

namespace norvane {

/// A date as "Short Date", "Medium Date" (05-Mar-24) and "Long Date".
std::array<QString, 3> namedDates(const QDate &date, const QLocale &locale);
/// A time as "Short Time", "Medium Time" (02:05 PM) and "Long Time", which has seconds and no zone.
std::array<QString, 3> namedTimes(const QTime &time, const QLocale &locale);

} // namespace norvane
