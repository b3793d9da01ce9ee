// A note's window in the user's hand: how it is moved and sized.

#include "platform/WindowSystem.h"
#include "richtext/NV_RTFEdit.h"
#include "sticky/frmSticky.h"

#include <QMouseEvent>
#include <algorithm>

namespace norvane {

namespace {

Qt::CursorShape pointerOf(NoteGrip grip)
{
    switch (grip) {
    case NoteGrip::Left:
    case NoteGrip::Right:
        return Qt::SizeHorCursor;
    case NoteGrip::Top:
    case NoteGrip::Bottom:
        return Qt::SizeVerCursor;
    case NoteGrip::TopLeft:
    case NoteGrip::BottomRight:
        return Qt::SizeFDiagCursor;
    case NoteGrip::TopRight:
    case NoteGrip::BottomLeft:
        return Qt::SizeBDiagCursor;
    case NoteGrip::None:
    case NoteGrip::Move:
        break;
    }
    return Qt::ArrowCursor;
}

} // namespace

void frmSticky::mousePressEvent(QMouseEvent *event)
{
    const QPoint point = event->position().toPoint();
    // What the text and its tool bar have no use for comes here too, and takes hold of nothing.
    if (event->button() != Qt::LeftButton || m_text->geometry().contains(point))
        return;
    m_grip = noteGripAt(point, size());
    if (m_grip == NoteGrip::None)
        m_grip = NoteGrip::Move;
    m_dragStart = event->globalPosition().toPoint();
    m_dragRect = m_place;
    geometryEdited();
}

void frmSticky::mouseMoveEvent(QMouseEvent *event)
{
    if (m_grip == NoteGrip::None) {
        showGrip(noteGripAt(event->position().toPoint(), size()));
        return;
    }
    const QPoint pointer = insideTarget(event->globalPosition().toPoint());
    moveTo(draggedNote(m_dragRect, m_grip, pointer - m_dragStart));
}

/// The nearest point of the target: a note that was dragged out of it could never be seen again.
QPoint frmSticky::insideTarget(const QPoint &point) const
{
    const QRect target = m_services.windows.clientRect(fields.ParentHwnd);
    if (target.isEmpty())
        return point;
    return {std::clamp(point.x(), target.left(), target.right()),
            std::clamp(point.y(), target.top(), target.bottom())};
}

void frmSticky::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        m_grip = NoteGrip::None;
}

void frmSticky::leaveEvent(QEvent *)
{
    unsetCursor();
}

void frmSticky::showGrip(NoteGrip grip)
{
    setCursor(pointerOf(grip));
}

} // namespace norvane
