// How a grid looks.

#include "controls/ImageList.h"
#include "controls/gridview/GridHeader.h"
#include "controls/gridview/vbalGrid.h"

#include <algorithm>

namespace norvane {

namespace {

constexpr int kRowPadding = 6;

} // namespace

/// Rows that have the height that fits the font go on to have it.
void vbalGrid::fitRowHeights()
{
    const int icons = m_images ? m_images->iconSize().height() + kRowPadding / 2 : 0;
    const int fitting = std::max(fontMetrics().height() + kRowPadding, icons);
    if (fitting == m_ownRowHeight || (m_ownRowHeight != 0 && DefaultRowHeight() != m_ownRowHeight))
        return;
    for (int row = 1; row <= Rows(); ++row) {
        if (RowHeight(row) == m_ownRowHeight)
            setRowHeight(row, fitting);
    }
    m_ownRowHeight = fitting;
    setDefaultRowHeight(fitting);
}

void vbalGrid::lookChanged()
{
    viewport()->update();
    m_header->update();
}

GridColors vbalGrid::colors(bool isSelected) const
{
    const QPalette &of = palette();
    GridColors colors;
    colors.back = cellColor(m_backColor, of.color(QPalette::Base));
    colors.ink = readableInk(cellColor(m_foreColor, of.color(QPalette::Text)), colors.back);
    if (!isEnabled())
        colors.ink = of.color(QPalette::Disabled, QPalette::Text);
    colors.line = cellColor(m_lineColor, mixed(colors.back, colors.ink, 0.14));
    if (!isSelected)
        return colors;
    colors.selectedBack = cellColor(m_highlightBackColor, of.color(QPalette::Active, QPalette::Highlight));
    colors.selectedInk =
        cellColor(m_highlightForeColor, of.color(QPalette::Active, QPalette::HighlightedText));
    // A grid without the keyboard shows its selection in a quieter colour.
    if (!hasFocus() || !isActiveWindow()) {
        colors.selectedBack = mixed(colors.back, colors.ink, 0.2);
        colors.selectedInk = colors.ink;
    }
    colors.selectedInk = readableInk(colors.selectedInk, colors.selectedBack, kLeastContrast);
    return colors;
}

void vbalGrid::setImageList(const ImageList *images)
{
    m_images = images;
    fitRowHeights();
    lookChanged();
}

void vbalGrid::setShellIcons(std::function<QIcon(const QString &)> icons)
{
    m_shellIcons = std::move(icons);
    lookChanged();
}

void vbalGrid::setBackgroundPicture(const QPixmap &picture, int width, int height)
{
    m_background = picture;
    const QSize own = picture.deviceIndependentSize().toSize();
    m_backgroundSize = {width > 0 ? width : own.width(), height > 0 ? height : own.height()};
    lookChanged();
}

void vbalGrid::setBorderStyle(bool on)
{
    setFrameStyle(on ? static_cast<int>(QFrame::StyledPanel) | QFrame::Sunken : QFrame::NoFrame);
}

void vbalGrid::setHeader(bool on)
{
    m_hasHeader = on;
    resizeEvent(nullptr);
    tellRows();
}

void vbalGrid::setHeaderHeight(int height)
{
    m_headerHeight = std::max(0, height);
    resizeEvent(nullptr);
}

QWidget *vbalGrid::headerWidget() const
{
    return m_header;
}

} // namespace norvane
