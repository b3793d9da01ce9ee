#include "platform/linux/DolphinProvider.h"

#include "platform/linux/DesktopBuses.h"
#include "platform/linux/ProgramCalls.h"
#include "platform/linux/folder_candidates.h"
#include "platform/linux/location_text.h"

#include <QRegularExpression>
#include <QUrl>

namespace norvane {

DolphinProvider::DolphinProvider(const DesktopBuses &buses, QString home)
    : m_buses(buses), m_home(std::move(home))
{
}

void DolphinProvider::forget(WindowHandle window)
{
    m_objects.remove(window);
}

QString DolphinProvider::objectOf(const LookUpRequest &request, const QString &service, ProgramCalls &calls)
{
    if (const auto kept = m_objects.constFind(request.window); kept != m_objects.cend())
        return *kept;
    static const QRegularExpression node(QStringLiteral("<node name=\"(Dolphin_[0-9]+)\""));
    const QString parent = QStringLiteral("/dolphin");
    const QDBusMessage reply = calls.call(
        service, parent, QStringLiteral("org.freedesktop.DBus.Introspectable"), QStringLiteral("Introspect"));
    auto nodes = node.globalMatch(reply.arguments().value(0).toString());
    while (nodes.hasNext()) {
        const QString object = parent + u'/' + nodes.next().captured(1);
        const QDBusMessage window =
            calls.call(service, object, QStringLiteral("org.kde.KMainWindow"), QStringLiteral("winId"));
        if (window.type() == QDBusMessage::ReplyMessage &&
            window.arguments().value(0).toULongLong() == request.window)
            return *m_objects.insert(request.window, object);
    }
    return {};
}

bool DolphinProvider::isOpen(const QString &folder, const QString &service, const QString &object,
                             ProgramCalls &calls)
{
    // It compares addresses as texts: one that was reached from below ends in a separator.
    const QString address = QUrl::fromLocalFile(folder).toString(QUrl::FullyEncoded);
    for (const QString &form : {address, address + u'/'}) {
        const QDBusMessage reply = calls.call(service, object, QStringLiteral("org.kde.dolphin.MainWindow"),
                                              QStringLiteral("isUrlOpen"), {form});
        if (reply.type() == QDBusMessage::ReplyMessage && reply.arguments().value(0).toBool())
            return true;
    }
    return false;
}

LookUpResult DolphinProvider::find(const LookUpRequest &request)
{
    using Outcome = LookUpResult::Outcome;
    const auto bus = m_buses.session();
    if (!bus)
        return {m_buses.settled() ? Outcome::None : Outcome::NotReady, {}};
    ProgramCalls calls(*bus, request);
    const QString service = QStringLiteral("org.kde.dolphin-%1").arg(request.processId);
    const QString object = objectOf(request, service, calls);
    if (!object.isEmpty()) {
        QStringList candidates = folderCandidates(request.caption, request.lastLocation, m_home);
        if (captionNamesFolder(request.caption, request.lastLocation, m_home))
            candidates.prepend(request.lastLocation);
        // These have names of their own in captions, in the user's language.
        candidates.append({m_home, QStringLiteral("/")});
        for (const QString &folder : std::as_const(candidates)) {
            if (isOpen(folder, service, object, calls))
                return {Outcome::Found, folder};
            if (calls.ranOut())
                break;
        }
    }
    return {calls.ranOut() ? Outcome::NoAnswer : Outcome::NotReady, {}};
}

} // namespace norvane
