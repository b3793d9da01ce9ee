#pragma once

#include "controls/grid/GridCells.h"
#include "controls/grid/cShellSortTGridCells.h"

#include <QVector>

namespace norvane {

/// All of a cell that a host writes in one call.
struct CellContent
{
    QVariant text; ///< any text, number or date; invalid: unset
    qint16 align = kAlignLeft;
    qint32 icon = kNoGridIcon;
    qint32 backColor = kDefaultGridColor;
    qint32 foreColor = kDefaultGridColor;
    qint32 font = 0;   ///< in the grid's list of fonts; 0 is its own
    qint32 indent = 0; ///< pixels
    qint32 extraIcon = kNoGridIcon;
    QVariant itemData; ///< the host's own; with kShellIcon the path or extension whose icon is drawn
};

/// How a step to a cell changes the selection.
enum class GridSelect {
    Only,      ///< this one alone
    Toggle,    ///< this one too, or no more
    Extend,    ///< all from where the last one alone or toggled was
    AddExtend, ///< the same, and what was selected stays
    MoveOnly,  ///< the selection stays
};

/// Rows, columns, cells and selection of a grid: all of it that needs no window.
///
/// Rows and columns count from 1. A number of a row or column that is not there raises 9.
class GridModel
{
public:
    virtual ~GridModel() = default;

    // Rows.

    int Rows() const { return m_cells.rows(); }
    /// New rows come at the end, empty, with the default height.
    void setRows(int rows);
    /// Adds a row before @p row, or at the end with a number below 1 or while there are no rows.
    /// @param height pixels; negative: DefaultRowHeight
    void AddRow(int row = -1, const QString &key = {}, bool visible = true, int height = -1,
                bool isGroup = false, int groupStartColumn = 0);
    void RemoveRow(int row);
    /// Takes away all rows, and the columns too if told. No row is selected then.
    void Clear(bool removeColumns = false);
    const QString &RowKey(int row) const { return rowRecord(row).key; }
    bool RowVisible(int row) const { return rowRecord(row).visible; }
    void setRowVisible(int row, bool visible);
    /// Pixels.
    int RowHeight(int row) const { return rowRecord(row).height; }
    void setRowHeight(int row, int height);
    bool RowIsGroup(int row) const { return rowRecord(row).isGroup; }
    void setRowIsGroup(int row, bool isGroup);
    /// The column whose text runs to the end of a group row.
    int RowGroupStartColumn(int row) const { return rowRecord(row).groupStartColumn; }
    void setRowGroupStartColumn(int row, int column);
    /// Of rows that are added, in pixels.
    int DefaultRowHeight() const { return m_defaultRowHeight; }
    void setDefaultRowHeight(int height);

    // Columns.

    int Columns() const { return m_cells.columns(); }
    /// Adds a column at the end and returns its number.
    int AddColumn(const QString &key, const QString &header = {}, qint16 align = kAlignLeft,
                  qint32 image = kNoGridIcon, int width = 64, bool visible = true);
    void RemoveColumn(int column);
    /// The number of the first column of that key, without regard to case; 0 when there is none.
    int ColumnIndex(const QString &key) const;
    const QString &ColumnKey(int column) const { return columnRecord(column).key; }
    void setColumnKey(int column, const QString &key) { changedColumn(column).key = key; }
    const QVariant &ColumnTag(int column) const { return columnRecord(column).tag; }
    void setColumnTag(int column, const QVariant &tag) { changedColumn(column).tag = tag; }
    const QString &ColumnHeader(int column) const { return columnRecord(column).header; }
    void setColumnHeader(int column, const QString &header);
    /// Pixels; never negative.
    int ColumnWidth(int column) const { return columnRecord(column).width; }
    void setColumnWidth(int column, int width);
    bool ColumnVisible(int column) const { return columnRecord(column).visible; }
    void setColumnVisible(int column, bool visible);
    /// Icon of the header, in the header's image list.
    qint32 ColumnImage(int column) const { return columnRecord(column).image; }
    void setColumnImage(int column, qint32 image);
    bool ColumnImageOnRight(int column) const { return columnRecord(column).imageOnRight; }
    void setColumnImageOnRight(int column, bool onRight);
    /// Of the header; the cells have their own.
    qint16 ColumnAlign(int column) const { return columnRecord(column).align; }
    void setColumnAlign(int column, qint16 align);
    /// Place on the screen, from 1, hidden columns counted. Setting it moves the others.
    int ColumnOrder(int column) const { return columnRecord(column).order; }
    void setColumnOrder(int column, int order);
    /// The host's own; the sort goes by SortObject().
    qint32 ColumnSortType(int column) const { return columnRecord(column).sortType; }
    void setColumnSortType(int column, qint32 type) { changedColumn(column).sortType = type; }
    /// What the arrow of the header shows, a GridSortOrder.
    qint32 ColumnSortOrder(int column) const { return columnRecord(column).sortOrder; }
    void setColumnSortOrder(int column, qint32 order);
    const QString &ColumnFormatString(int column) const { return columnRecord(column).format; }
    void setColumnFormatString(int column, const QString &format);
    /// Where typed letters are searched. Only a column before the last one can be searched.
    int KeySearchColumn() const { return m_keySearchColumn; }
    void setKeySearchColumn(int column) { m_keySearchColumn = column; }

    // Cells.

    QVariant CellText(int row, int column) const { return variantOf(m_cells.value(row, column)); }
    void setCellText(int row, int column, const QVariant &text);
    /// The value by the column's format; empty when it is unset.
    QString CellFormattedText(int row, int column) const;
    qint16 CellTextAlign(int row, int column) const { return field(&GridCellColumn::align, row, column); }
    void setCellTextAlign(int row, int column, qint16 align)
    {
        setField(&GridCellColumn::align, row, column, align);
    }
    qint32 CellIcon(int row, int column) const { return field(&GridCellColumn::icon, row, column); }
    void setCellIcon(int row, int column, qint32 icon) { setField(&GridCellColumn::icon, row, column, icon); }
    qint32 CellExtraIcon(int row, int column) const { return field(&GridCellColumn::extraIcon, row, column); }
    void setCellExtraIcon(int row, int column, qint32 icon)
    {
        setField(&GridCellColumn::extraIcon, row, column, icon);
    }
    qint32 CellBackColor(int row, int column) const { return field(&GridCellColumn::backColor, row, column); }
    void setCellBackColor(int row, int column, qint32 color)
    {
        setField(&GridCellColumn::backColor, row, column, color);
    }
    qint32 CellForeColor(int row, int column) const { return field(&GridCellColumn::foreColor, row, column); }
    void setCellForeColor(int row, int column, qint32 color)
    {
        setField(&GridCellColumn::foreColor, row, column, color);
    }
    static qint32 CellDefaultBackColor() { return kDefaultGridColor; }
    static qint32 CellDefaultForeColor() { return kDefaultGridColor; }
    /// Pixels.
    qint32 CellIndent(int row, int column) const { return field(&GridCellColumn::indent, row, column); }
    void setCellIndent(int row, int column, qint32 indent)
    {
        setField(&GridCellColumn::indent, row, column, indent);
    }
    const QVariant &CellItemData(int row, int column) const;
    void setCellItemData(int row, int column, const QVariant &data)
    {
        setField(&GridCellColumn::itemData, row, column, data);
    }
    bool CellSelected(int row, int column) const
    {
        return field(&GridCellColumn::selected, row, column) != 0;
    }
    void setCellSelected(int row, int column, bool selected);
    CellContent cellContent(int row, int column) const;
    /// A row beyond the present ones first raises their number. Whether the cell is selected stays.
    void setCellContent(int row, int column, const CellContent &content);

    // Selection. One row is the selected one, which commands act on; with MultiSelect more may be
    // marked as selected, cell by cell, and in row mode all cells of a row together.

    /// 0 when none is.
    int SelectedRow() const { return m_selectedRow; }
    int SelectedCol() const { return m_selectedCol; }
    /// Selects it alone; 0 selects none. Without a column so far, the first one becomes the selected one.
    void setSelectedRow(int row);
    void setSelectedCol(int column);
    bool MultiSelect() const { return m_multiSelect; }
    void setMultiSelect(bool on);
    bool RowMode() const { return m_rowMode; }
    void setRowMode(bool on);
    /// No cell is selected any more, and no row or column the selected one.
    void ClearSelection();
    void selectAll();
    /// A step of the mouse or the keyboard.
    void select(int row, int column, GridSelect how);
    bool isRowSelected(int row) const;

    // Sort and search.

    /// Where the sort keys are stated before Sort().
    cShellSortTGridCells &SortObject() { return m_sort; }
    /// The selected row stays the selected one wherever it goes. Raises as SortItems() does; the rows
    /// stand as they were then.
    /// @param from as of SortItems()
    void Sort(const std::vector<qint32> &from = {});
    /// The first row behind the selected one whose text in KeySearchColumn begins with @p search, which is
    /// expected in upper case; 0 when there is none.
    /// @param wrap then from the first row on
    int FindSearchMatchRow(const QString &search, bool wrap = true, bool includeHidden = false) const;

    // Places, in pixels from the top of the first row.

    int rowTop(int row) const;
    int rowsHeight() const;
    /// The visible row there; 0 when there is none.
    int rowAt(int y) const;
    /// The next visible row from there, itself counted; 0 when there is none.
    /// @param step 1 or -1
    int visibleRow(int from, int step) const;
    /// The visible columns in the order of the screen.
    QVector<int> visibleColumns() const;

protected:
    enum class Change { Cell, Rows, Columns, Width, Header, Selection };
    /// Called after each change; row and column are 0 unless it is of one cell.
    virtual void changed(Change change, int row, int column) = 0;

    qint32 cellFont(int row, int column) const { return field(&GridCellColumn::font, row, column); }
    void setCellFontIndex(int row, int column, qint32 font)
    {
        setField(&GridCellColumn::font, row, column, font);
    }

private:
    template <class T> T field(LazyArray<T> GridCellColumn::*member, int row, int column) const
    {
        const std::size_t at = m_cells.place(row, column);
        return (m_cells.column(column).*member).at(at);
    }
    template <class T> void setField(LazyArray<T> GridCellColumn::*member, int row, int column, T value)
    {
        const std::size_t at = m_cells.place(row, column);
        (m_cells.column(column).*member).set(at, std::move(value));
        changed(Change::Cell, row, column);
    }

    const GridRow &rowRecord(int row) const;
    GridRow &rowRecord(int row);
    const GridColumn &columnRecord(int column) const;
    GridColumn &changedColumn(int column);
    void movePositions(int fromRow);
    void updatePositions() const;
    void mark(int firstRow, int lastRow, int firstColumn, int lastColumn, bool selected);
    void unmarkAll();

    GridCells m_cells;
    mutable QVector<GridRow> m_rows;
    mutable int m_firstUnplaced = 1; ///< rows from there on have no start position yet
    QVector<GridColumn> m_columns;
    cShellSortTGridCells m_sort;
    int m_defaultRowHeight = 20;
    int m_keySearchColumn = 0;
    int m_selectedRow = 0;
    int m_selectedCol = 0;
    int m_anchorRow = 0;
    int m_anchorCol = 0;
    bool m_multiSelect = false;
    bool m_rowMode = false;
};

} // namespace norvane
