#pragma once

#include "platform/TrayHost.h"

#include <memory>

class QDBusServiceWatcher;
class QSocketNotifier;
struct xcb_connection_t;

namespace norvane {

/// Looks for a tray in its two forms: a status notifier host on the session bus, which is taken
/// where both are there, and the owner of the X selection "_NET_SYSTEM_TRAY_Sn".
///
/// While there is none it listens to both and costs nothing.
class LinuxTrayHost : public TrayHost
{
    Q_OBJECT

public:
    /// Looks at once. Without a bus or an X server the respective form is never found.
    explicit LinuxTrayHost(QObject *parent = nullptr);
    ~LinuxTrayHost() override;

    Kind kind() const override { return m_kind; }

private slots:
    void look();

private:
    struct Selection;

    Kind find() const;
    void listen();
    void stopListening();

    Kind m_kind = Kind::None;
    std::unique_ptr<Selection> m_selection;
    QSocketNotifier *m_socket = nullptr;
    QDBusServiceWatcher *m_watcher = nullptr;
};

} // namespace norvane
