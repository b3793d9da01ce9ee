#pragma once

#include "platform/WindowHandle.h"
#include "platform/linux/ProgramCalls.h"

#include <QHash>

namespace norvane {

class DesktopBuses;
struct LookUpRequest;

/// The frames of one program on the accessibility bus, by window.
class AccessibleFrames
{
public:
    explicit AccessibleFrames(const DesktopBuses &buses) : m_buses(buses) {}

    /// Whether the program is on the accessibility bus now.
    bool hasProgram(qint64 processId) const;
    /// The frame of the request's window; null when it cannot be told.
    AccessibleObject frameOf(const LookUpRequest &request, ProgramCalls &calls);
    /// Drops what was kept of a window.
    void forget(WindowHandle window) { m_pairs.remove(window); }

private:
    bool isTaken(const AccessibleObject &frame) const;

    const DesktopBuses &m_buses;
    QHash<WindowHandle, AccessibleObject> m_pairs; ///< pairs that hold as long as both are there
};

} // namespace norvane
