#pragma once

#include "controls/grid/GridModel.h"
#include "controls/gridview/cGridCell.h"
#include "controls/gridview/grid_colors.h"

#include <QAbstractScrollArea>
#include <QElapsedTimer>
#include <QIcon>
#include <QPixmap>
#include <QVariantAnimation>
#include <functional>

namespace norvane {

class GridHeader;
class ImageList;

/// A grid of rows and columns on the screen. Its rows, columns, cells and selection are GridModel's; only
/// what can be seen is drawn. Places and sizes are in device-independent pixels.
///
/// Colours of its look are 0xBBGGRR, -1 for the palette's. Inks that could not be read on their paper,
/// as on a dark desktop, are drawn lighter or darker, and cells that are told to be white are drawn in
/// the palette's paper.
class vbalGrid : public QAbstractScrollArea, public GridModel
{
    Q_OBJECT

public:
    /// A column as it stands on the screen.
    struct Place
    {
        int column = 0;
        int left = 0; ///< from the first column's leading edge, before scrolling
        int width = 0;
    };

    explicit vbalGrid(QWidget *parent = nullptr);
    ~vbalGrid() override;

    // Look.

    /// While off, nothing is drawn or measured: for many changes at a time.
    bool Redraw() const { return m_redraw; }
    void setRedraw(bool on);
    /// Draws all anew.
    void Draw() { viewport()->update(); }
    /// Where icons and extra icons come from; not owned, must outlive the grid; nullptr for none.
    const ImageList *imageList() const { return m_images; }
    void setImageList(const ImageList *images);
    /// The same for the headers.
    void setHeaderImageList(const ImageList *images) { setLook(m_headerImages, images); }
    const ImageList *headerImageList() const { return m_headerImages; }
    /// Gives the desktop's icon of a path or extension, for the extra icon kShellIcon. It is asked while
    /// the grid is drawn.
    void setShellIcons(std::function<QIcon(const QString &)> icons);
    bool GridLines() const { return m_gridLines; }
    void setGridLines(bool on) { setLook(m_gridLines, on); }
    /// Whether the icons of selected cells are drawn as selected.
    bool HighlightSelectedIcons() const { return m_highlightSelectedIcons; }
    void setHighlightSelectedIcons(bool on) { setLook(m_highlightSelectedIcons, on); }
    bool DrawFocusRectangle() const { return m_drawFocusRectangle; }
    void setDrawFocusRectangle(bool on) { setLook(m_drawFocusRectangle, on); }
    /// Whether icons are greyed while the grid is disabled.
    bool DisableIcons() const { return m_disableIcons; }
    void setDisableIcons(bool on) { setLook(m_disableIcons, on); }
    /// Tiled behind cells that have no colour of their own; the size 0 is the picture's.
    const QPixmap &BackgroundPicture() const { return m_background; }
    void setBackgroundPicture(const QPixmap &picture, int width = 0, int height = 0);
    int BackgroundPictureWidth() const { return m_background.isNull() ? 0 : m_backgroundSize.width(); }
    int BackgroundPictureHeight() const { return m_background.isNull() ? 0 : m_backgroundSize.height(); }
    qint32 BackColor() const { return m_backColor; }
    void setBackColor(qint32 color) { setLook(m_backColor, color); }
    qint32 ForeColor() const { return m_foreColor; }
    void setForeColor(qint32 color) { setLook(m_foreColor, color); }
    qint32 GridLineColor() const { return m_lineColor; }
    void setGridLineColor(qint32 color) { setLook(m_lineColor, color); }
    qint32 HighlightBackColor() const { return m_highlightBackColor; }
    void setHighlightBackColor(qint32 color) { setLook(m_highlightBackColor, color); }
    qint32 HighlightForeColor() const { return m_highlightForeColor; }
    void setHighlightForeColor(qint32 color) { setLook(m_highlightForeColor, color); }
    /// Whether there is a frame around it.
    bool BorderStyle() const { return frameStyle() != 0; }
    void setBorderStyle(bool on);

    // Header.

    bool Header() const { return m_hasHeader; }
    void setHeader(bool on);
    /// 0 is the style's.
    int HeaderHeight() const { return m_headerHeight; }
    void setHeaderHeight(int height);
    bool HeaderFlat() const { return m_headerFlat; }
    void setHeaderFlat(bool on) { setLook(m_headerFlat, on); }
    /// Whether headers can be clicked.
    bool HeaderButtons() const { return m_headerButtons; }
    void setHeaderButtons(bool on) { m_headerButtons = on; }
    bool HeaderHotTrack() const { return m_headerHotTrack; }
    void setHeaderHotTrack(bool on) { m_headerHotTrack = on; }
    bool HeaderDragReOrderColumns() const { return m_headerDragsColumns; }
    void setHeaderDragReOrderColumns(bool on) { m_headerDragsColumns = on; }
    QWidget *headerWidget() const;

    // Cells.

    /// Writes a whole cell; a row beyond the present ones first raises their number.
    void CellDetails(int row, int column, const QVariant &text = {}, qint16 textAlign = kAlignLeft,
                     qint32 iconIndex = kNoGridIcon, qint32 backColor = kDefaultGridColor,
                     qint32 foreColor = kDefaultGridColor, const std::optional<QFont> &font = {},
                     qint32 indent = 0, qint32 extraIcon = kNoGridIcon, const QVariant &itemData = {});
    cGridCell Cell(int row, int column) const;
    void setCell(int row, int column, const cGridCell &cell);
    cGridCell NewCellFormatObject() const;
    QFont CellFont(int row, int column) const;
    void setCellFont(int row, int column, const QFont &font);
    QFont CellDefaultFont() const { return font(); }

    // Places.

    /// Of the vertical scroll bar.
    int vScrollValue() const;
    void setVScrollValue(int value);
    /// Scrolls as little as it takes to show the cell; its start where it is too large.
    void EnsureVisible(int row, int column);
    /// Row and column of a point of the viewport; each 0 where there is none.
    std::pair<int, int> CellFromPoint(QPoint point) const;
    /// In the viewport; empty for a hidden cell.
    QRect CellBoundary(int row, int column) const;
    /// What a cell needs to show all that it holds.
    int EvaluateTextWidth(int row, int column) const;
    int EvaluateTextHeight(int row, int column) const;
    /// As wide as its header and its widest cell need.
    void AutoWidthColumn(int column);
    /// As high as its highest cell needs.
    void AutoHeightRow(int row, int minimumHeight = -1);

    const QVector<Place> &places() const;
    int columnsWidth() const;
    /// A rectangle from the leading edge, as it stands on a screen that may run from right to left.
    QRect onScreen(const QRect &logical) const;
    GridColors colors(bool isSelected) const;

    // For the header.

    void clickColumn(int column);
    /// Whether its width may be changed by hand.
    bool startsWidth(int column);
    void endWidth(int column);
    /// The user has dragged the column to that place on the screen.
    void dropColumn(int column, int order) { setColumnOrder(column, order); }

signals:
    void ColumnClick(int Column);
    /// A column's width is about to be changed by hand, or the pointer asks whether it may be.
    void ColumnWidthStart(int Column, bool &Cancel);
    /// Position counts the visible headers from 0; Width is in pixels.
    void ColumnWidthChanged(int Position, int Column, int Width);
    /// Before the grid acts on a key. The event comes ignored; accepting it leaves nothing to the grid.
    void KeyDown(QKeyEvent *Event);
    /// After the grid has acted on it; the position is the viewport's.
    void MouseDown(QMouseEvent *Event);
    void MouseUp(QMouseEvent *Event);
    /// On a row.
    void DblClick(int Row, int Column);
    /// The selected row or column, or the rows marked as selected, are others. Not raised where rows are
    /// taken away, cleared or sorted.
    void SelectionChange(int Row, int Column);
    /// The menu of the selected row is asked for by key; the position is the viewport's.
    void MenuKey(QPoint Position);
    /// Files or a text were dropped: as DropTarget tells them. Where nothing is connected to it, drops are
    /// refused.
    void Dropped(const QStringList &Files, const QString &Text);

protected:
    void changed(Change change, int row, int column) override;
    bool viewportEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void changeEvent(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    friend class GridPainter;

    // vbalGrid.cpp
    void layOut() const;
    void layOutLater();
    qint32 fontIndex(const QFont &font);
    QFont fontOf(qint32 index) const;

    // grid_look.cpp
    void fitRowHeights();
    void lookChanged();
    template <class T> void setLook(T &member, T value)
    {
        member = value;
        lookChanged();
    }

    // grid_input.cpp
    bool moveByKey(QKeyEvent *event);
    int pageRow(int from, int step) const;
    void stepTo(int row, Qt::KeyboardModifiers modifiers);
    void searchKey(const QString &text);
    void showTip(QPoint point) const;
    bool isSearching() const;

    // GridAccessible.cpp
    void tellSelection();
    void tellRows();

    GridHeader *m_header;
    const ImageList *m_images = nullptr;
    const ImageList *m_headerImages = nullptr;
    std::function<QIcon(const QString &)> m_shellIcons;
    QPixmap m_background;
    QSize m_backgroundSize;
    QVector<QFont> m_fonts; ///< of cells; font 1 is the first
    qint32 m_backColor = kDefaultGridColor;
    qint32 m_foreColor = kDefaultGridColor;
    qint32 m_lineColor = kDefaultGridColor;
    qint32 m_highlightBackColor = kDefaultGridColor;
    qint32 m_highlightForeColor = kDefaultGridColor;
    int m_headerHeight = 0;
    int m_ownRowHeight = 0; ///< the default height that fits font and icons
    bool m_redraw = true;
    bool m_gridLines = false;
    bool m_highlightSelectedIcons = true;
    bool m_drawFocusRectangle = true;
    bool m_disableIcons = true;
    bool m_hasHeader = true;
    bool m_headerFlat = false;
    bool m_headerButtons = true;
    bool m_headerHotTrack = true;
    bool m_headerDragsColumns = false;

    mutable QVector<Place> m_places;
    mutable bool m_isLaidOut = false;
    bool m_isLayOutQueued = false;

    QVariantAnimation m_scrolling; ///< of the wheel
    QString m_search;              ///< the letters typed so far, in upper case
    QElapsedTimer m_sinceLetter;
};

} // namespace norvane
