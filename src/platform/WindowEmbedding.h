#pragma once

#include "platform/WindowHandle.h"

#include <QObject>
#include <QRect>

namespace norvane {

/// Puts windows of our own into windows of other programs.
///
/// An embedded window follows its target, is clipped to its rectangle, is stacked and minimised
/// with it, keeps to its workspace, and never shows in a task bar. Positions are logical pixels
/// relative to the target's client area (windowRect() and clientRect() of WindowSystem tell both).
/// The embedded window stays owned by its creator; its native window never changes.
class WindowEmbedding : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;
    ~WindowEmbedding() override;

    /// Makes @p window a part of @p target; kNoWindow frees it again, hidden where it stands.
    virtual void setParent(WindowHandle window, WindowHandle target) = 0;
    /// kNoWindow when the window is not embedded.
    virtual WindowHandle parentOf(WindowHandle window) const = 0;
    /// Moves and sizes the window inside its target.
    virtual void moveWindow(WindowHandle window, const QRect &rect) = 0;
    /// Where the window is inside its target; empty when it is in none.
    virtual QRect windowRect(WindowHandle window) const = 0;

signals:
    /// The target of an embedded window was destroyed. The window has been freed and hidden, and
    /// is still there; its owner decides what becomes of it.
    void targetDestroyed(norvane::WindowHandle window);
    /// The window manager moved or sized the window by itself, as in a drag that it carries out;
    /// windowRect() is the new place. Never for following the target, clipping or moveWindow().
    void moved(norvane::WindowHandle window);
};

} // namespace norvane
