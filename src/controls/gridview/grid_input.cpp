// What the mouse and the keyboard do to a grid.

#include "controls/gridview/vbalGrid.h"
#include "controls/plain_tool_tip.h"

#include <QApplication>
#include <QHelpEvent>
#include <QInputMethodEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyle>
#include <QToolTip>

namespace norvane {

namespace {

constexpr int kRowsPerNotch = 3;
constexpr int kNotch = 120; // a wheel's unit
constexpr int kLongestTip = 500;

GridSelect selectBy(Qt::KeyboardModifiers modifiers, GridSelect withControl)
{
    const bool control = modifiers.testFlag(Qt::ControlModifier);
    if (modifiers.testFlag(Qt::ShiftModifier))
        return control ? GridSelect::AddExtend : GridSelect::Extend;
    return control ? withControl : GridSelect::Only;
}

} // namespace

void vbalGrid::focusInEvent(QFocusEvent *event)
{
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
    tellSelection();
}

void vbalGrid::focusOutEvent(QFocusEvent *event)
{
    QAbstractScrollArea::focusOutEvent(event);
    m_search.clear();
    viewport()->update();
}

void vbalGrid::mousePressEvent(QMouseEvent *event)
{
    m_search.clear();
    const auto [row, column] = CellFromPoint(event->position().toPoint());
    const bool isRight = event->button() == Qt::RightButton;
    const Qt::KeyboardModifiers modifiers = event->modifiers();
    const bool selects = (event->button() == Qt::LeftButton || isRight) && !(modifiers & Qt::AltModifier);
    if (selects && row != 0) {
        const int to = column != 0 ? column : std::max(1, SelectedCol());
        // The menu of several selected rows must not lose them.
        if (isRight && isRowSelected(row) && (RowMode() || CellSelected(row, to)))
            select(row, to, GridSelect::MoveOnly);
        else
            select(row, to, isRight ? GridSelect::Only : selectBy(modifiers, GridSelect::Toggle));
        EnsureVisible(row, RowMode() ? 0 : to);
    } else if (selects && SelectedRow() != 0 && !(modifiers & (Qt::ControlModifier | Qt::ShiftModifier))) {
        // Beside the rows: of several selected ones the one that commands act on remains.
        select(SelectedRow(), std::max(1, SelectedCol()), GridSelect::Only);
    }
    emit MouseDown(event);
}

void vbalGrid::mouseReleaseEvent(QMouseEvent *event)
{
    emit MouseUp(event);
}

void vbalGrid::mouseDoubleClickEvent(QMouseEvent *event)
{
    const auto [row, column] = CellFromPoint(event->position().toPoint());
    if (event->button() != Qt::LeftButton || row == 0 || event->modifiers() != Qt::NoModifier) {
        mousePressEvent(event);
        return;
    }
    emit DblClick(row, column);
}

void vbalGrid::contextMenuEvent(QContextMenuEvent *event)
{
    if (event->reason() != QContextMenuEvent::Keyboard) {
        event->accept(); // the button's release is the host's signal
        return;
    }
    QPoint place;
    if (SelectedRow() != 0) {
        EnsureVisible(SelectedRow(), 0);
        for (const Place &first : places()) {
            const QRect cell = CellBoundary(SelectedRow(), first.column);
            place = {std::clamp(isRightToLeft() ? cell.right() : cell.left(), 0, viewport()->width() - 1),
                     cell.bottom()};
            break;
        }
    }
    emit MenuKey(place);
}

bool vbalGrid::viewportEvent(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QAbstractScrollArea::viewportEvent(event);
    showTip(static_cast<QHelpEvent *>(event)->pos());
    return true;
}

/// Of a cell that is cut off: all that it says.
void vbalGrid::showTip(QPoint point) const
{
    const auto [row, column] = CellFromPoint(point);
    const QRect cell = row != 0 && column != 0 ? CellBoundary(row, column) : QRect();
    const QRect shown = cell & viewport()->rect();
    const bool isCut = !shown.isEmpty() && EvaluateTextWidth(row, column) > shown.width();
    const QString text = isCut ? CellFormattedText(row, column).left(kLongestTip) : QString();
    QToolTip::showText(viewport()->mapToGlobal(point), plainToolTip(text), viewport(), shown);
}

void vbalGrid::wheelEvent(QWheelEvent *event)
{
    const bool isVertical = std::abs(event->angleDelta().y()) >= std::abs(event->angleDelta().x());
    QScrollBar *const bar = isVertical ? verticalScrollBar() : horizontalScrollBar();
    const bool isSideways = isVertical && event->modifiers().testFlag(Qt::ShiftModifier);
    if (!isVertical || isSideways || bar->minimum() == bar->maximum()) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    event->accept();
    if (!event->pixelDelta().isNull()) {
        m_scrolling.stop();
        bar->setValue(bar->value() - event->pixelDelta().y());
        return;
    }
    // A turn while the last one still runs goes on from where that one ends.
    const bool runs = m_scrolling.state() == QAbstractAnimation::Running;
    const int from = runs ? m_scrolling.endValue().toInt() : bar->value();
    const int step = event->angleDelta().y() * kRowsPerNotch * DefaultRowHeight() / kNotch;
    const int to = std::clamp(from - step, bar->minimum(), bar->maximum());
    m_scrolling.stop();
    if (style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) == 0) {
        bar->setValue(to);
        return;
    }
    m_scrolling.setStartValue(bar->value());
    m_scrolling.setEndValue(to);
    m_scrolling.start();
}

bool vbalGrid::isSearching() const
{
    return !m_search.isEmpty() && m_sinceLetter.isValid() &&
           m_sinceLetter.elapsed() < QApplication::keyboardInputInterval();
}

void vbalGrid::keyPressEvent(QKeyEvent *event)
{
    event->ignore();
    emit KeyDown(event);
    if (event->isAccepted())
        return;
    event->accept();
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
    const bool isControl = modifiers.testFlag(Qt::ControlModifier);
    if (event->matches(QKeySequence::SelectAll)) {
        selectAll();
        return;
    }
    if (event->key() == Qt::Key_Space && !(isSearching() && modifiers == Qt::NoModifier)) {
        if (SelectedRow() != 0)
            select(SelectedRow(), std::max(1, SelectedCol()), selectBy(modifiers, GridSelect::Toggle));
        return;
    }
    if (moveByKey(event)) {
        m_search.clear();
        return;
    }
    const QString text = event->text();
    const bool isLetter = !text.isEmpty() && text[0].isPrint() && !isControl &&
                          !(modifiers & (Qt::AltModifier | Qt::MetaModifier));
    if (isLetter)
        searchKey(text);
    else
        event->ignore();
}

void vbalGrid::inputMethodEvent(QInputMethodEvent *event)
{
    if (!event->commitString().isEmpty())
        searchKey(event->commitString());
    event->accept();
}

bool vbalGrid::moveByKey(QKeyEvent *event)
{
    if (event->modifiers() & (Qt::AltModifier | Qt::MetaModifier))
        return false;
    const int row = SelectedRow();
    const int first = visibleRow(1, 1);
    const int last = visibleRow(Rows(), -1);
    const int forward = isRightToLeft() ? -1 : 1;
    int to = 0;
    switch (event->key()) {
    case Qt::Key_Up:
        to = row == 0 ? first : visibleRow(row - 1, -1);
        break;
    case Qt::Key_Down:
        to = row == 0 ? first : visibleRow(row + 1, 1);
        break;
    case Qt::Key_Home:
        to = first;
        break;
    case Qt::Key_End:
        to = last;
        break;
    case Qt::Key_PageUp:
        to = row == 0 ? first : pageRow(row, -1);
        break;
    case Qt::Key_PageDown:
        to = row == 0 ? first : pageRow(row, 1);
        break;
    case Qt::Key_Left:
    case Qt::Key_Right: {
        const int step = event->key() == Qt::Key_Right ? forward : -forward;
        if (RowMode()) {
            horizontalScrollBar()->setValue(horizontalScrollBar()->value() + step * DefaultRowHeight());
            return true;
        }
        const auto &columns = places();
        for (qsizetype i = 0; i < columns.size(); ++i) {
            if (columns[i].column == SelectedCol() && i + step >= 0 && i + step < columns.size() &&
                row != 0) {
                const int column = columns[i + step].column;
                select(row, column, selectBy(event->modifiers(), GridSelect::MoveOnly));
                EnsureVisible(row, column);
                break;
            }
        }
        return true;
    }
    default:
        return false;
    }
    // At an end the key still selects the row that it stands on.
    stepTo(to != 0 ? to : row, event->modifiers());
    return true;
}

/// The row about a page away.
int vbalGrid::pageRow(int from, int step) const
{
    const int page = std::max(1, viewport()->height() - RowHeight(from));
    const int y = std::clamp(rowTop(from) + step * page, 0, std::max(0, rowsHeight() - 1));
    const int row = rowAt(y);
    return row == from ? visibleRow(from + step, step) : row;
}

void vbalGrid::stepTo(int row, Qt::KeyboardModifiers modifiers)
{
    if (row == 0)
        return;
    select(row, std::max(1, SelectedCol()), selectBy(modifiers, GridSelect::MoveOnly));
    EnsureVisible(row, RowMode() ? 0 : SelectedCol());
}

/// Letters typed in a row are one word; a letter that is typed again goes on to the next such row.
void vbalGrid::searchKey(const QString &text)
{
    const QString upper = text.toUpper();
    if (!isSearching())
        m_search.clear();
    m_search += upper;
    m_sinceLetter.start();
    const int row = SelectedRow();
    const auto fits = [this, row](const QString &search) {
        return row != 0 && KeySearchColumn() >= 1 && KeySearchColumn() < Columns() &&
               CellFormattedText(row, KeySearchColumn()).toUpper().startsWith(search);
    };
    // A word that is still being typed may go on to fit the row where it stands.
    int found = m_search.size() > upper.size() && fits(m_search) ? row : FindSearchMatchRow(m_search);
    if (found == 0 && m_search == upper.repeated(m_search.size() / upper.size()))
        found = FindSearchMatchRow(upper);
    if (found != 0)
        stepTo(found, Qt::NoModifier);
}

} // namespace norvane
