#include "ClientListWindows.h"

#include <iterator>

namespace norvane::test {

namespace {

constexpr int kReadMs = 5;

QString familyOf(const QString &wmClass)
{
    for (const QString &browser : {QStringLiteral("firefox"), QStringLiteral("chromium")}) {
        if (wmClass.contains(browser, Qt::CaseInsensitive))
            return QStringLiteral("IEFrame");
    }
    for (const QString &manager :
         {QStringLiteral("thunar"), QStringLiteral("pcmanfm"), QStringLiteral("caja"),
          QStringLiteral("nautilus"), QStringLiteral("dolphin")}) {
        if (wmClass.contains(manager, Qt::CaseInsensitive))
            return QStringLiteral("CabinetWClass");
    }
    return wmClass;
}

} // namespace

ClientListWindows::ClientListWindows(XClient &x) : m_x(x)
{
    read();
    QObject::connect(&m_timer, &QTimer::timeout, this, [this] { read(); });
    m_timer.start(kReadMs);
}

void ClientListWindows::read()
{
    bool different = false;
    const QVector<xcb_window_t> clients = m_x.clients();
    for (const xcb_window_t client : clients) {
        const auto known = m_windows.find(client);
        if (known == m_windows.end()) {
            m_windows.insert(client,
                             {familyOf(m_x.wmClass(client)), m_x.title(client), m_x.processId(client)});
            different = true;
        } else if (const QString title = m_x.title(client); title != known->caption) {
            known->caption = title;
            different = true;
        }
    }
    const QList<WindowHandle> windows = m_windows.keys();
    for (const WindowHandle window : windows) {
        if (clients.contains(static_cast<xcb_window_t>(window)))
            continue;
        m_windows.remove(window);
        different = true;
        emit windowDestroyed(window);
    }
    if (different) {
        ++m_changes;
        emit changed();
    }
}

QVector<WindowHandle> ClientListWindows::topLevelWindows() const
{
    const QVector<xcb_window_t> stacking = m_x.stacking();
    return QVector<WindowHandle>(std::make_reverse_iterator(stacking.end()),
                                 std::make_reverse_iterator(stacking.begin()));
}

QRect ClientListWindows::clientRect(WindowHandle window) const
{
    return m_x.geometry(static_cast<xcb_window_t>(window));
}

void ClientListWindows::setForegroundWindow(WindowHandle window)
{
    m_x.activate(static_cast<xcb_window_t>(window));
}

} // namespace norvane::test
