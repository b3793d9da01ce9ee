#pragma once

#include "browser/grid/note_row_texts.h"

#include <QHash>

namespace norvane {

class NoteStore;
class Shell;
class vbalGrid;

namespace dao {
class Recordset;
}

/// Writes the rows of a list of notes, for one reading of it: what notes have in common is looked up once.
class NoteRows
{
public:
    /// Reads the categories. Raises what the engine raises.
    NoteRows(vbalGrid &grid, const NoteStore &store, const Shell &shell);

    /// Adds the current record at the end. Raises what the engine raises.
    void add(const dao::Recordset &note);
    /// Shows the current record in a row that shows it already. Raises what the engine raises.
    void write(int row, const dao::Recordset &note);
    /// The names of the categories, by `ID`.
    const QHash<int, QString> &categories() const { return m_categories; }

private:
    vbalGrid &m_grid;
    NoteDateTexts m_dates;
    NoteTypes m_types;
    QHash<int, QString> m_categories;
};

/// Shows in the row of a note whether it is active.
void showActive(vbalGrid &grid, int row, bool isActive);

} // namespace norvane
