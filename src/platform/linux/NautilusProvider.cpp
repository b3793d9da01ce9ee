#include "platform/linux/NautilusProvider.h"

#include "platform/linux/DesktopBuses.h"
#include "platform/linux/ProgramCalls.h"
#include "platform/linux/location_text.h"

#include <QDBusArgument>

namespace norvane {

NautilusProvider::NautilusProvider(const DesktopBuses &buses, QString display, QString home)
    : m_buses(buses), m_display(std::move(display)), m_home(std::move(home))
{
}

void NautilusProvider::forget(WindowHandle window)
{
    m_names.remove(window);
}

LookUpResult NautilusProvider::find(const LookUpRequest &request)
{
    using Outcome = LookUpResult::Outcome;
    const auto bus = m_buses.session();
    if (!bus)
        return {m_buses.settled() ? Outcome::None : Outcome::NotReady, {}};
    WindowBusNames &names = m_names[request.window];
    if (names.objectPath.isEmpty())
        names = readWindowBusNames(m_display, request.window);
    if (names.objectPath.isEmpty())
        return {Outcome::NotReady, {}};

    // The interface's own name on the bus belongs to whichever file manager took it first.
    const QString interface = QStringLiteral("org.freedesktop.FileManager1");
    ProgramCalls calls(*bus, request);
    const QVariant value = calls.property(names.service, QStringLiteral("/org/freedesktop/FileManager1"),
                                          interface, QStringLiteral("OpenWindowsWithLocations"));
    if (calls.ranOut())
        return {Outcome::NoAnswer, {}};
    const auto windows = value.value<QDBusArgument>();
    if (windows.currentSignature() != u"a{sas}")
        return {Outcome::NotReady, {}};
    const auto locations = qdbus_cast<QMap<QString, QStringList>>(windows);
    const QStringList tabs = locations.value(names.objectPath);
    if (tabs.isEmpty())
        return {Outcome::NotReady, {}};
    return {Outcome::Found, folderOfTabs(tabs, request.caption, request.lastLocation, m_home)};
}

} // namespace norvane
