#include "platform/sqlite/LocalDates.h"

namespace norvane::dao {

namespace {

/// The user may travel.
constexpr qint64 kMostMilliseconds = 60'000;

} // namespace

QDateTime LocalDates::operator()(QDate day, QTime time)
{
    if (!m_age.isValid() || m_age.hasExpired(kMostMilliseconds)) {
        m_offsets.clear();
        m_age.start();
    }
    auto found = m_offsets.constFind(day);
    if (found == m_offsets.constEnd()) {
        const int morning = QDateTime(day, QTime(0, 0)).offsetFromUtc();
        const int evening = QDateTime(day, QTime(23, 59, 59)).offsetFromUtc();
        found = m_offsets.insert(day, morning == evening ? std::optional(morning) : std::nullopt);
    }
    if (*found)
        return {day, time, Qt::OffsetFromUTC, **found};
    const QDateTime local(day, time);
    // A time that the clock skips is none of this zone, but may be one of the zone that it was written in.
    return local.isValid() ? local : QDateTime(day, time, Qt::OffsetFromUTC, local.offsetFromUtc());
}

} // namespace norvane::dao
