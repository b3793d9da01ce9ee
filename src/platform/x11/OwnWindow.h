#pragma once

#include "platform/WindowHandle.h"

#include <QPointer>
#include <QRect>
#include <QWindow>
#include <memory>
#include <optional>

namespace norvane::x11 {

class DesktopConnection;

/// What window managers read of an embedded window before it is mapped.
struct EmbeddingHints
{
    WindowHandle target = kNoWindow;
    quint32 desktop = 0;   ///< workspace of the target
    bool isDialog = false; ///< else it is a tool window
};

/// A top-level window of this process, as its embedding works on it.
///
/// Properties go over the connection of the toolkit, behind its own requests: the server need not
/// have seen the window before.
class OwnWindow
{
public:
    /// @param handle the native window of a widget or QWindow of ours; must have been created
    explicit OwnWindow(WindowHandle handle);

    /// Empty when there is no such window or it has been deleted.
    QWindow *window() const { return m_window; }
    WindowHandle handle() const { return m_handle; }

    /// Device pixels in a logical one.
    qreal scale() const;
    /// Moves and sizes the window to device pixels of the desktop.
    /// @return what was asked of the window manager: a window has limits of size
    QRect setGeometry(const QRect &rect);
    /// In device pixels, as the toolkit has it.
    QRect geometry() const;
    bool isShown() const;
    void hide();

    /// Makes the target the window's transient parent. The foreign window behind it is kept as long
    /// as the window is in the target.
    void setTransientParent(WindowHandle target);
    /// Writes the properties that a window manager reads when the window is mapped.
    /// @param atoms tells the server's atoms; nothing is sent over it
    void writeHints(const DesktopConnection &atoms, const EmbeddingHints &hints);

    /// Shows only this part of the window, in device pixels of its own; a null rectangle shows it
    /// whole.
    void clip(const QRect &rect);
    /// Asks the window manager to give the keyboard to another window, after whatever was done to
    /// this one.
    void passKeyboard(const DesktopConnection &atoms, WindowHandle to);

private:
    void setLogicalGeometry(const QRect &rect);
    QRect logicalGeometry() const;

    WindowHandle m_handle;
    QPointer<QWindow> m_window;
    std::shared_ptr<QWindow> m_foreign;
    std::optional<QRect> m_clip;
};

} // namespace norvane::x11
