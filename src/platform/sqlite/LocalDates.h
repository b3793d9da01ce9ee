#pragma once

#include <QDateTime>
#include <QElapsedTimer>
#include <QHash>
#include <optional>

namespace norvane::dao {

/// Makes points in time of local days and times of day. The C library, which looks for the time zone's
/// file each time, is asked once for a day.
class LocalDates
{
public:
    /// Both are valid. Where the clock goes back the earlier time is meant; where it goes forward, the
    /// days and times that it skips are kept as they stand.
    QDateTime operator()(QDate day, QTime time);

private:
    QHash<QDate, std::optional<int>> m_offsets; ///< seconds east of Greenwich; none where it changes
    QElapsedTimer m_age;
};

} // namespace norvane::dao
