#include "browser/grid/NoteRows.h"

#include "browser/grid/note_columns.h"
#include "controls/gridview/vbalGrid.h"
#include "platform/dao.h"
#include "store/categories.h"

namespace norvane {

namespace {

constexpr qint32 kWhite = 0xFFFFFF;
constexpr qint32 kNavy = 0x800000; // blue-green-red

} // namespace

NoteRows::NoteRows(vbalGrid &grid, const NoteStore &store, const Shell &shell)
    : m_grid(grid), m_dates(QLocale::system()), m_types(shell)
{
    for (const Category &category : readCategories(store))
        m_categories.insert(category.ID, category.Name);
}

void NoteRows::add(const dao::Recordset &note)
{
    m_grid.AddRow(-1, note.field(QStringLiteral("ID")).toString());
    write(m_grid.Rows(), note);
}

void NoteRows::write(int row, const dao::Recordset &note)
{
    const QVariant id = note.field(QStringLiteral("ID"));
    const bool isActive = note.field(QStringLiteral("Active")).toBool();
    const QVariant title = note.field(QStringLiteral("FriendlyName"));
    const QVariant created = note.field(QStringLiteral("DateCreated"));
    const QVariant updated = note.field(QStringLiteral("LastUpdate"));
    const QString location = note.field(QStringLiteral("URL")).toString();
    const int category = note.field(QStringLiteral("Cat_ID")).toInt();

    m_grid.CellDetails(row, kColumnActive, {});
    if (isActive)
        showActive(m_grid, row, true);
    m_grid.CellDetails(row, kColumnTitle, title, kAlignLeft, kNoGridIcon, kDefaultGridColor, kNavy);
    m_grid.CellDetails(row, kColumnDateCreated, m_dates(created.toDateTime()), kAlignLeft, kNoGridIcon,
                       kDefaultGridColor, kDefaultGridColor, {}, 0, kNoGridIcon,
                       wholeNumberOf(created.toDateTime()));
    m_grid.CellDetails(row, kColumnLastUpdate, m_dates(updated.toDateTime()));
    m_grid.CellDetails(row, kColumnLocation, location);
    m_grid.CellDetails(row, kColumnCategory, m_categories.value(category));
    m_grid.CellDetails(row, kColumnID, id);
    m_grid.CellDetails(row, kColumnDC, created);
    m_grid.CellDetails(row, kColumnLU, updated);
    const NoteType type = m_types(location);
    if (type.shellKey.isEmpty())
        m_grid.CellDetails(row, kColumnType, type.text, kAlignLeft, type.icon);
    else
        m_grid.CellDetails(row, kColumnType, type.text, kAlignLeft, kNoGridIcon, kDefaultGridColor,
                           kDefaultGridColor, {}, 0, kShellIcon, type.shellKey);
}

void showActive(vbalGrid &grid, int row, bool isActive)
{
    grid.CellDetails(row, kColumnActive, {}, kAlignCenter, isActive ? int(kIconActive) : int(kNoGridIcon),
                     kWhite);
}

} // namespace norvane
