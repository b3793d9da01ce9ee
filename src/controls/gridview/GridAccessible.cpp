#include "controls/gridview/GridAccessible.h"

#include "controls/gridview/GridHeader.h"
#include "controls/gridview/vbalGrid.h"

#include <QAccessibleWidget>
#include <QHash>
#include <QPointer>

namespace norvane {

namespace {

// Of a larger selection only the cells that are on the screen are given one by one.
constexpr int kMostSelectedCells = 1000;

/// A cell, or in row 0 a header. Nothing in it is kept: it asks the grid. Columns are counted as they
/// stand on the screen, from 0.
class GridCellAccessible : public QAccessibleInterface,
                           public QAccessibleTableCellInterface,
                           public QAccessibleActionInterface
{
public:
    GridCellAccessible(vbalGrid *grid, int row, int position) : m_grid(grid), m_row(row), m_position(position)
    {
    }

    bool isValid() const override
    {
        return m_grid && m_row <= m_grid->Rows() && m_position < m_grid->places().size();
    }
    QObject *object() const override { return nullptr; }
    QWindow *window() const override { return m_grid ? m_grid->window()->windowHandle() : nullptr; }
    QAccessibleInterface *parent() const override
    {
        return m_grid ? QAccessible::queryAccessibleInterface(m_grid.data()) : nullptr;
    }
    int childCount() const override { return 0; }
    QAccessibleInterface *child(int) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }

    QString text(QAccessible::Text kind) const override
    {
        if (!isValid() || kind != QAccessible::Name)
            return {};
        if (isHeader())
            return headerName();
        const QString text = m_grid->CellFormattedText(m_row, column());
        // A mark without a word says that the row is what its column is about.
        return text.isEmpty() && m_grid->CellIcon(m_row, column()) >= 0 ? headerName() : text;
    }
    void setText(QAccessible::Text, const QString &) override {}

    QRect rect() const override
    {
        if (!isValid())
            return {};
        const QWidget *within = isHeader() ? m_grid->headerWidget() : m_grid->viewport();
        const QRect place = isHeader() ? static_cast<GridHeader *>(m_grid->headerWidget())->section(column())
                                       : m_grid->CellBoundary(m_row, column());
        return {within->mapToGlobal(place.topLeft()), place.size()};
    }
    QAccessible::Role role() const override
    {
        return isHeader() ? QAccessible::ColumnHeader : QAccessible::Cell;
    }
    QAccessible::State state() const override
    {
        QAccessible::State state;
        if (!isValid()) {
            state.invalid = true;
            return state;
        }
        state.disabled = !m_grid->isEnabled();
        if (isHeader())
            return state;
        state.invisible = !m_grid->RowVisible(m_row);
        state.offscreen = !m_grid->CellBoundary(m_row, column()).intersects(m_grid->viewport()->rect());
        state.focusable = state.selectable = true;
        state.multiSelectable = m_grid->MultiSelect();
        state.selected = isSelected();
        state.focused = m_grid->hasFocus() && m_grid->SelectedRow() == m_row;
        return state;
    }
    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::TableCellInterface)
            return static_cast<QAccessibleTableCellInterface *>(this);
        if (type == QAccessible::ActionInterface)
            return static_cast<QAccessibleActionInterface *>(this);
        return nullptr;
    }

    bool isSelected() const override
    {
        return isValid() && !isHeader() && m_grid->CellSelected(m_row, column());
    }
    QList<QAccessibleInterface *> columnHeaderCells() const override
    {
        if (!isValid() || !m_grid->Header())
            return {};
        return {parent()->child(m_position)};
    }
    QList<QAccessibleInterface *> rowHeaderCells() const override { return {}; }
    int columnIndex() const override { return m_position; }
    int rowIndex() const override { return m_row - 1; }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface *table() const override { return parent(); }

    QStringList actionNames() const override { return {isHeader() ? pressAction() : setFocusAction()}; }
    void doAction(const QString &name) override
    {
        if (!isValid() || !actionNames().contains(name))
            return;
        if (isHeader()) {
            m_grid->clickColumn(column());
            return;
        }
        m_grid->setFocus();
        m_grid->select(m_row, column(), GridSelect::Only);
        m_grid->EnsureVisible(m_row, column());
    }
    QStringList keyBindingsForAction(const QString &) const override { return {}; }

private:
    bool isHeader() const { return m_row == 0; }
    int column() const { return m_grid->places().at(m_position).column; }
    QString headerName() const
    {
        const QString name = m_grid->ColumnHeader(column());
        return name.isEmpty() ? m_grid->ColumnKey(column()) : name;
    }

    QPointer<vbalGrid> m_grid;
    int m_row;
    int m_position;
};

class GridAccessible : public QAccessibleWidget, public QAccessibleTableInterface
{
public:
    explicit GridAccessible(vbalGrid *grid) : QAccessibleWidget(grid, QAccessible::Table) {}

    int childCount() const override { return (rowCount() + headerRows()) * columnCount(); }
    QAccessibleInterface *child(int index) const override
    {
        if (index < 0 || index >= childCount())
            return nullptr;
        return madeCell(index / columnCount() + 1 - headerRows(), index % columnCount());
    }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        const auto *cell = dynamic_cast<const GridCellAccessible *>(child);
        if (!cell || !cell->isValid())
            return -1;
        return (cell->rowIndex() + headerRows()) * columnCount() + cell->columnIndex();
    }
    QAccessibleInterface *childAt(int x, int y) const override
    {
        const auto [row, column] = grid()->CellFromPoint(grid()->viewport()->mapFromGlobal(QPoint(x, y)));
        return row != 0 && column != 0 ? madeCell(row, positionOf(column)) : nullptr;
    }
    QAccessibleInterface *focusChild() const override
    {
        if (!grid()->hasFocus() || grid()->SelectedRow() == 0 || columnCount() == 0)
            return nullptr;
        return madeCell(grid()->SelectedRow(), spokenPosition());
    }
    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::TableInterface)
            return static_cast<QAccessibleTableInterface *>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QAccessibleInterface *caption() const override { return nullptr; }
    QAccessibleInterface *summary() const override { return nullptr; }
    QAccessibleInterface *cellAt(int row, int column) const override
    {
        if (row < 0 || row >= rowCount() || column < 0 || column >= columnCount())
            return nullptr;
        return madeCell(row + 1, column);
    }
    int selectedCellCount() const override
    {
        int count = 0;
        for (int row = 1; row <= rowCount(); ++row) {
            for (const vbalGrid::Place &place : grid()->places())
                count += grid()->CellSelected(row, place.column) ? 1 : 0;
        }
        return count;
    }
    QList<QAccessibleInterface *> selectedCells() const override
    {
        const bool isLarge = selectedCellCount() > kMostSelectedCells;
        const int shown = grid()->rowAt(grid()->vScrollValue());
        const int first = isLarge && shown != 0 ? shown : 1;
        const int bottom = grid()->rowAt(grid()->vScrollValue() + grid()->viewport()->height());
        const int last = isLarge && bottom != 0 ? bottom : rowCount();
        QList<QAccessibleInterface *> cells;
        for (int row = first; row <= last; ++row) {
            for (int position = 0; position < columnCount(); ++position) {
                if (grid()->CellSelected(row, grid()->places().at(position).column))
                    cells.append(madeCell(row, position));
            }
        }
        return cells;
    }
    QString columnDescription(int column) const override
    {
        return column >= 0 && column < columnCount()
                   ? grid()->ColumnHeader(grid()->places().at(column).column)
                   : QString();
    }
    QString rowDescription(int) const override { return {}; }
    int selectedColumnCount() const override { return 0; }
    int selectedRowCount() const override { return static_cast<int>(selectedRows().size()); }
    int columnCount() const override { return static_cast<int>(grid()->places().size()); }
    int rowCount() const override { return grid()->Rows(); }
    QList<int> selectedColumns() const override { return {}; }
    QList<int> selectedRows() const override
    {
        QList<int> rows;
        for (int row = 1; row <= rowCount(); ++row) {
            if (isRowSelected(row - 1))
                rows.append(row - 1);
        }
        return rows;
    }
    bool isColumnSelected(int) const override { return false; }
    bool isRowSelected(int row) const override
    {
        return row >= 0 && row < rowCount() && grid()->isRowSelected(row + 1);
    }
    bool selectRow(int row) override { return mark(row, true); }
    bool unselectRow(int row) override { return mark(row, false); }
    bool selectColumn(int) override { return false; }
    bool unselectColumn(int) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent *) override { forget(); }

    /// The column that speaks for a row: the selected one, or else the first that has a text there.
    int spokenPosition() const
    {
        const int row = grid()->SelectedRow();
        const int selected = positionOf(grid()->SelectedCol());
        if (selected >= 0 && !grid()->CellFormattedText(row, grid()->SelectedCol()).isEmpty())
            return selected;
        for (int position = 0; position < columnCount(); ++position) {
            if (!grid()->CellFormattedText(row, grid()->places().at(position).column).isEmpty())
                return position;
        }
        return 0;
    }

protected:
    ~GridAccessible() override { forget(); }

private:
    vbalGrid *grid() const { return static_cast<vbalGrid *>(widget()); }
    int headerRows() const { return grid()->Header() ? 1 : 0; }
    int positionOf(int column) const
    {
        const auto &places = grid()->places();
        for (int position = 0; position < places.size(); ++position) {
            if (places[position].column == column)
                return position;
        }
        return -1;
    }
    bool mark(int row, bool selected)
    {
        if (row < 0 || row >= rowCount() || columnCount() == 0)
            return false;
        grid()->setCellSelected(row + 1, grid()->places().first().column, selected);
        return true;
    }
    QAccessibleInterface *madeCell(int row, int position) const
    {
        const quint64 place = quint64(row) << 32 | quint32(position);
        auto found = m_cells.constFind(place);
        if (found == m_cells.constEnd())
            found = m_cells.insert(place, QAccessible::registerAccessibleInterface(
                                              new GridCellAccessible(grid(), row, position)));
        return QAccessible::accessibleInterface(*found);
    }
    void forget()
    {
        for (const QAccessible::Id id : std::as_const(m_cells))
            QAccessible::deleteAccessibleInterface(id);
        m_cells.clear();
    }

    mutable QHash<quint64, QAccessible::Id> m_cells; ///< those that somebody asked for
};

QAccessibleInterface *makeGridAccessible(const QString &, QObject *object)
{
    auto *grid = qobject_cast<vbalGrid *>(object);
    return grid ? new GridAccessible(grid) : nullptr;
}

} // namespace

void installGridAccessibility()
{
    QAccessible::installFactory(makeGridAccessible); // once, however often it is called
}

void vbalGrid::tellSelection()
{
    if (!QAccessible::isActive() || !isVisible())
        return;
    QAccessibleEvent selection(this, QAccessible::SelectionWithin);
    QAccessible::updateAccessibility(&selection);
    QAccessibleInterface *of = QAccessible::queryAccessibleInterface(this);
    QAccessibleInterface *cell = of ? of->focusChild() : nullptr;
    if (!cell)
        return;
    QAccessibleEvent focus(this, QAccessible::Focus);
    focus.setChild(of->indexOfChild(cell));
    QAccessible::updateAccessibility(&focus);
}

void vbalGrid::tellRows()
{
    if (!QAccessible::isActive())
        return;
    QAccessibleTableModelChangeEvent event(this, QAccessibleTableModelChangeEvent::ModelReset);
    QAccessible::updateAccessibility(&event);
}

} // namespace norvane
