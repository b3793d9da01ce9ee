#pragma once

#include "platform/linux/AccessibleFrames.h"
#include "platform/linux/LocationProvider.h"

namespace norvane {

/// The addresses of the pages in a web browser's windows, by the accessibility bus.
class BrowserProvider final : public LocationProvider
{
public:
    explicit BrowserProvider(const DesktopBuses &buses);

    LookUpResult find(const LookUpRequest &request) override;
    void forget(WindowHandle window) override;

private:
    LookUpResult ask(const LookUpRequest &request, ProgramCalls &calls);
    QString shownAddress(const LookUpRequest &request, const AccessibleObject &frame, ProgramCalls &calls);

    const DesktopBuses &m_buses;
    AccessibleFrames m_frames;
    QHash<WindowHandle, AccessibleObject> m_addressBars;
    QString m_attribute; ///< the one that this browser tells the address by
};

} // namespace norvane
