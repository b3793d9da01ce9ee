#pragma once

#include "platform/dao.h"

#include <QHash>
#include <QString>
#include <memory>

namespace norvane {

/// Finds the notes of a database by their location, without a look through all of them for each.
class KnownLocations
{
public:
    /// Reads the locations of all notes; to be made anew when somebody else has changed notes. Raises what
    /// the engine raises.
    /// @param database must outlive the object
    explicit KnownLocations(dao::Database &database);

    /// The notes with exactly that location, at least the first of them: what
    /// `select * from Memos where URL="..."` gives with the location put in as it stands. Raises what that
    /// raises, as for a location with a double quote.
    std::unique_ptr<dao::Recordset> notesWith(const QString &URL) const;
    /// A note was added.
    void add(const QString &URL, int ID);

private:
    std::unique_ptr<dao::Recordset> open(const QString &condition) const;

    dao::Database &m_database;
    QHash<QString, int> m_firstWith; ///< the lowest ID with each location
};

} // namespace norvane
