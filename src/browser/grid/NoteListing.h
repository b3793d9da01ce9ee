#pragma once

#include <QHash>
#include <QLocale>
#include <QSet>
#include <QString>
#include <functional>
#include <memory>
#include <vector>

namespace norvane {

class NoteRows;
class vbalGrid;

namespace dao {
class Database;
class Recordset;
} // namespace dao

/// Keeps the rows of a list of notes as a reading of its notes would leave them, sorted as the grid is. It
/// remembers what they were read from, so that a refresh changes only those that were written since.
class NoteListing
{
public:
    /// Where the notes come from: a ready result set, or else a statement. Not owned.
    struct Source
    {
        dao::Recordset *ready = nullptr;
        dao::Database *database = nullptr;
        QString statement;
    };

    /// @p grid must outlive the object.
    explicit NoteListing(vbalGrid &grid);
    ~NoteListing();

    /// The next refresh reads all notes.
    void forget();
    /// Somebody has sorted the rows: they do not stand as a reading leaves them any more.
    void sorted() { m_isAsRead = false; }

    /// Changes the rows that were written since all were read. Raises what the engine raises.
    /// @return false where all have to be read
    bool update(const Source &source, NoteRows &rows);
    /// Reads all notes. Raises what the engine raises, with the rows that were read until then, and 91
    /// without a database.
    /// @param rowAdded called behind each row
    void read(const Source &source, NoteRows &rows, const std::function<void()> &rowAdded);

private:
    bool updateRows(NoteRows &rows, dao::Recordset &notes, QSet<int> changed);
    void sortAsRead(const std::vector<int> &keys);
    int idOfRow(int row) const;

    vbalGrid &m_grid;
    std::unique_ptr<dao::Recordset> m_listed; ///< the rows of m_statement; not with a ready result set
    QString m_statement;
    QLocale m_locale;
    QHash<int, QString> m_categoryNames;
    std::vector<int> m_keys; ///< in the order of the reading; empty where that is not known
    bool m_isAsRead = false; ///< nobody has sorted since
};

} // namespace norvane
