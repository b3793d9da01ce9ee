#pragma once

#include "platform/ShellWindows.h"

#include <memory>

namespace norvane {

class WindowSystem;

/// The session whose windows are looked at.
struct DesktopSession
{
    QString busAddress;   ///< of the session bus; empty: the one that the environment names
    QString display;      ///< X display of the windows; empty: the one that the environment names
    QString home;         ///< the user's home folder; empty: the one that the environment names
    qreal pixelRatio = 1; ///< device pixels of the desktop per logical pixel
};

/// Locations of browser and folder windows on a Linux desktop.
///
/// Browsers and most file managers tell them on the accessibility bus, others on the session bus.
/// Each program is asked in a thread of its own. Buses that are missing are no error: the locations
/// are empty until they come. Until start() or the first browser or folder window, nothing of this
/// is started.
class LinuxShellWindows final : public ShellWindows
{
    Q_OBJECT

public:
    /// @param windows must outlive the object
    explicit LinuxShellWindows(WindowSystem &windows, const DesktopSession &session = {},
                               QObject *parent = nullptr);
    /// Waits for look-ups under way, a few tenths of a second at most.
    ~LinuxShellWindows() override;

    void start() override;
    Answer location(WindowHandle window) override;
    QString freshLocation(WindowHandle window, int timeoutMs) override;
    bool needsAccessibility() const override;
    void enableAccessibility() override;
    bool keysAreListenedTo() const override;

private:
    struct Private;
    std::unique_ptr<Private> m_d;
};

} // namespace norvane
