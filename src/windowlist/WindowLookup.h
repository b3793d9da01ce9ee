#pragma once

#include "platform/WindowHandle.h"

#include <QString>
#include <optional>

namespace norvane {

/// What the table of windows asks about a window that the window system itself does not tell.
class WindowLookup
{
public:
    virtual ~WindowLookup() = default;

    /// Whether windows of that class are taken up.
    virtual bool IsTrackedClass(const QString &className) const = 0;
    /// What the window shows, for its present caption; nullopt while that is being found out (a
    /// signal of ShellWindows tells when it is known). Raises nothing.
    virtual std::optional<QString> GetWindowLocation(WindowHandle hWnd) = 0;
};

} // namespace norvane
