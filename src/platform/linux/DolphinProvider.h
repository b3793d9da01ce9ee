#pragma once

#include "platform/linux/LocationProvider.h"

#include <QHash>

namespace norvane {

class DesktopBuses;
class ProgramCalls;

/// The folders in Dolphin's windows. It tells no folder, but it says whether a given one is open.
class DolphinProvider final : public LocationProvider
{
public:
    /// @param home the home folder
    DolphinProvider(const DesktopBuses &buses, QString home);

    LookUpResult find(const LookUpRequest &request) override;
    void forget(WindowHandle window) override;

private:
    QString objectOf(const LookUpRequest &request, const QString &service, ProgramCalls &calls);

    static bool isOpen(const QString &folder, const QString &service, const QString &object,
                       ProgramCalls &calls);

    const DesktopBuses &m_buses;
    const QString m_home;
    QHash<WindowHandle, QString> m_objects;
};

} // namespace norvane
