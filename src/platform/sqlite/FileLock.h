#pragma once

#include <QString>
#include <memory>

namespace norvane::dao {

/// A lock on a database by means of a hidden side file, held by an open file description, so that
/// it is independent of SQLite's own locks and conflicts between two databases of one process too.
/// Shared while a database is open; alone for compacting and for a change of password.
class FileLock
{
public:
    enum class Kind { Shared, Alone };

    /// Waits a moment for other holders. Raises 3356 when they stay, 75 when the side file cannot
    /// be made. With @p optional no side file is made, and where there is none that can be locked
    /// nullptr comes back: where nobody has made one, nobody has the database open.
    static std::unique_ptr<FileLock> take(const QString &database, Kind kind, bool optional = false);
    ~FileLock();
    FileLock(const FileLock &) = delete;
    FileLock &operator=(const FileLock &) = delete;

    /// Raises 3356 when others hold the lock, and keeps the one that it had.
    void change(Kind kind);
    /// Lets others in again.
    void share();

    /// Whether someone holds a lock on the database. Looks at the side file only.
    static bool isHeld(const QString &database);

private:
    explicit FileLock(int descriptor) : m_descriptor(descriptor) {}

    int m_descriptor;
};

} // namespace norvane::dao
