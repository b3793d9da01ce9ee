#include "browser/grid/NoteListing.h"

#include "browser/grid/NoteRows.h"
#include "browser/grid/note_columns.h"
#include "controls/gridview/vbalGrid.h"
#include "platform/RuntimeError.h"
#include "platform/dao.h"
#include "platform/errors.h"

#include <optional>
#include <utility>

namespace norvane {

NoteListing::NoteListing(vbalGrid &grid) : m_grid(grid) {}

NoteListing::~NoteListing() = default;

void NoteListing::forget()
{
    m_keys.clear();
    m_listed.reset();
}

void NoteListing::read(const Source &source, NoteRows &rows, const std::function<void()> &rowAdded)
{
    m_keys.clear();
    m_isAsRead = false;
    const auto addRows = [&](dao::Recordset &notes) {
        m_grid.Clear();
        for (; !notes.eof(); notes.moveNext()) {
            rows.add(notes);
            rowAdded();
        }
    };
    if (source.ready) {
        source.ready->requery();
        addRows(*source.ready);
    } else {
        if (!source.database)
            throw RuntimeError(kErrorNothingThere, QStringLiteral("The list of notes has no database."));
        m_statement = source.statement;
        m_listed = source.database->openRecordset(m_statement);
        addRows(*source.database->openRecordset(m_statement, dao::RecordsetType::ForwardOnly));
    }
    m_categoryNames = rows.categories();
    m_locale = QLocale::system();
    m_keys = (source.ready ? *source.ready : *m_listed).keys();
    sortAsRead({});
}

bool NoteListing::update(const Source &source, NoteRows &rows)
{
    dao::Recordset *notes = source.ready ? source.ready : m_listed.get();
    const bool isKnown =
        notes && !m_keys.empty() && m_keys.size() == static_cast<std::size_t>(m_grid.Rows()) &&
        (source.ready || m_statement == source.statement) && m_categoryNames == rows.categories() &&
        m_locale == QLocale::system() && m_grid.SortObject().LastSortIndex() != 0;
    if (!isKnown)
        return false;
    std::vector<int> before;
    before.swap(m_keys); // what fails half way is read anew the next time
    const std::optional<QSet<int>> changed = notes->requeryChanged();
    if (!changed)
        return false;
    m_grid.ClearSelection();
    const bool sameOrder = updateRows(rows, *notes, *changed);
    std::vector<int> keys = notes->keys();
    if (keys.size() != static_cast<std::size_t>(m_grid.Rows()))
        return false;
    if (!m_isAsRead || !sameOrder || keys != before)
        sortAsRead(keys);
    m_keys = std::move(keys);
    return true;
}

/// New rows come at the end. Whether no row came or went and no value that they are sorted by is another.
bool NoteListing::updateRows(NoteRows &rows, dao::Recordset &notes, QSet<int> changed)
{
    const auto isFound = [&notes](int ID) {
        notes.findFirst(QStringLiteral("ID=%1").arg(ID));
        return !notes.noMatch();
    };
    const int sortColumn = m_grid.SortObject().SortColumn(1);
    const auto sortedBy = [this, sortColumn](int row) {
        return std::pair(m_grid.CellText(row, sortColumn), m_grid.CellIcon(row, sortColumn));
    };
    bool sameOrder = true;
    for (int row = m_grid.Rows(); row >= 1 && !changed.isEmpty(); --row) {
        const int ID = idOfRow(row);
        if (!changed.remove(ID))
            continue;
        if (!isFound(ID)) {
            m_grid.RemoveRow(row);
            sameOrder = false;
            continue;
        }
        const auto before = sortedBy(row);
        rows.write(row, notes);
        sameOrder = sameOrder && sortedBy(row) == before;
    }
    for (const int ID : std::as_const(changed)) {
        if (isFound(ID)) {
            rows.add(notes);
            sameOrder = false;
        }
    }
    return sameOrder;
}

/// Sorts the rows as if they stood as they are read. A fault leaves them as they are.
/// @param keys the notes in the order of the reading; none where they stand so
void NoteListing::sortAsRead(const std::vector<int> &keys)
{
    m_isAsRead = false;
    QHash<int, qint32> rowOf;
    rowOf.reserve(static_cast<qsizetype>(keys.size()));
    for (int row = 1; row <= m_grid.Rows() && !keys.empty(); ++row)
        rowOf.insert(idOfRow(row), row - 1);
    std::vector<qint32> from;
    from.reserve(keys.size());
    for (const int ID : keys)
        from.push_back(rowOf.value(ID));
    try {
        if (m_grid.SortObject().LastSortIndex() != 0)
            m_grid.Sort(from);
        m_isAsRead = true;
    } catch (const RuntimeError &) {
        return;
    }
}

int NoteListing::idOfRow(int row) const
{
    return m_grid.CellText(row, kColumnID).toInt();
}

} // namespace norvane
