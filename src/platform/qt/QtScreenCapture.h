#pragma once

#include "platform/ScreenCapture.h"

class QImage;
class QRect;

namespace norvane {

class WindowSystem;

/// Pictures of the screens as the toolkit sees them.
class QtScreenCapture : public ScreenCapture
{
public:
    /// @param windows  tells where a window is; must outlive this object
    /// @param mayLook  false on a desktop that shows programs nothing but their own windows
    QtScreenCapture(const WindowSystem &windows, bool mayLook) : m_windows(windows), m_mayLook(mayLook) {}

    bool captureDesktop() override;
    bool captureWindow(WindowHandle window) override;
    void clearClipboard() override;

private:
    const WindowSystem &m_windows;
    bool m_mayLook;
};

/// What the screens show of a rectangle of the desktop, in logical pixels; the picture has the
/// resolution of the sharpest of them. Null when no screen can be looked at.
QImage pictureOfScreens(const QRect &area);

} // namespace norvane
