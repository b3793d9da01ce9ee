#pragma once

#include "platform/linux/LocationProvider.h"
#include "platform/linux/window_bus_names.h"

#include <QHash>

namespace norvane {

class DesktopBuses;

/// The folders in Nautilus's windows, by its list of open windows with their locations.
class NautilusProvider final : public LocationProvider
{
public:
    /// @param display X display of the windows; empty: the one that the environment names
    /// @param home    the home folder
    NautilusProvider(const DesktopBuses &buses, QString display, QString home);

    LookUpResult find(const LookUpRequest &request) override;
    void forget(WindowHandle window) override;

private:
    const DesktopBuses &m_buses;
    const QString m_display;
    const QString m_home;
    QHash<WindowHandle, WindowBusNames> m_names;
};

} // namespace norvane
