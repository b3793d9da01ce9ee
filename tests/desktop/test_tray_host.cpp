#include "harness/NotificationService.h"
#include "harness/VirtualDesktop.h"
#include "platform/linux/DBusNotifier.h"
#include "platform/linux/LinuxTrayHost.h"

#include <QDBusConnection>
#include <QObject>
#include <QSignalSpy>
#include <QThread>
#include <gtest/gtest.h>

using namespace norvane;
using norvane::test::NotificationService;
using norvane::test::VirtualDesktop;
using norvane::test::waitFor;
using Kind = TrayHost::Kind;

namespace {

/// The bus side of a panel: watcher of status notifiers.
class Watcher : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ hasHost)

public:
    bool hasHost() const { return m_hasHost; }
    void registerHost()
    {
        m_hasHost = true;
        emit StatusNotifierHostRegistered();
    }

signals:
    void StatusNotifierHostRegistered();

private:
    bool m_hasHost = false;
};

/// A service on a connection and thread of its own: the program asks it while it waits.
template <typename Object> class Service
{
public:
    Service(const QString &bus, const QString &name, const QString &path)
    {
        m_thread.start();
        m_object->moveToThread(&m_thread);
        call([&](Object *object) {
            QDBusConnection connection = QDBusConnection::connectToBus(bus, name);
            connection.registerObject(path, object, QDBusConnection::ExportAllContents);
            EXPECT_TRUE(connection.registerService(name));
        });
    }
    ~Service()
    {
        m_object->deleteLater();
        m_thread.quit();
        m_thread.wait();
    }
    Service(const Service &) = delete;
    Service &operator=(const Service &) = delete;

    template <typename Function> void call(const Function &function)
    {
        QMetaObject::invokeMethod(
            m_object, [&] { function(m_object); }, Qt::BlockingQueuedConnection);
    }

private:
    QThread m_thread;
    Object *m_object = new Object;
};

} // namespace

// One desktop for both: a process has one session bus for its life.
TEST(DesktopServices, AreFoundWheneverTheyCome)
{
    VirtualDesktop desktop;
    ASSERT_TRUE(desktop.start({.accessibility = false})) << desktop.error().toStdString();
    const QString bus = desktop.sessionBus();
    qputenv("DISPLAY", desktop.display().toLocal8Bit());
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus.toLocal8Bit());

    DBusNotifier notifier;
    int answers = 0;
    bool taken = true;
    const auto done = [&](bool shown) {
        ++answers;
        taken = shown;
    };
    notifier.notify(QStringLiteral("Title"), QStringLiteral("a < b"), done);
    EXPECT_EQ(answers, 0) << "the answer comes from the event loop";
    ASSERT_TRUE(waitFor([&] { return answers == 1; }));
    EXPECT_FALSE(taken);

    const NotificationService notifications(bus);
    notifier.notify(QStringLiteral("Title"), QStringLiteral("a < b"), done);
    ASSERT_TRUE(waitFor([&] { return answers == 2; }));
    EXPECT_TRUE(taken);
    EXPECT_EQ(notifications.texts(), QStringList(QStringLiteral("a &lt; b")));

    LinuxTrayHost late;
    QSignalSpy lateAppeared(&late, &TrayHost::appeared);
    EXPECT_EQ(late.kind(), Kind::None);
    QProcess *tray = desktop.run(QStringLiteral("trayer"));
    ASSERT_NE(tray, nullptr);
    EXPECT_TRUE(waitFor([&] { return late.kind() == Kind::Clicks; }));
    EXPECT_EQ(lateAppeared.size(), 1);
    EXPECT_EQ(LinuxTrayHost().kind(), Kind::Clicks);

    desktop.end(tray);
    LinuxTrayHost notified;
    QSignalSpy notifiedAppeared(&notified, &TrayHost::appeared);
    EXPECT_EQ(notified.kind(), Kind::None);
    Service<Watcher> watcher(bus, QStringLiteral("org.kde.StatusNotifierWatcher"),
                             QStringLiteral("/StatusNotifierWatcher"));
    EXPECT_FALSE(waitFor([&] { return notified.kind() != Kind::None; }, 300)) << "a watcher is no host yet";
    watcher.call([](Watcher *object) { object->registerHost(); });
    EXPECT_TRUE(waitFor([&] { return notified.kind() == Kind::Activates; }));
    EXPECT_EQ(notifiedAppeared.size(), 1);
    EXPECT_EQ(lateAppeared.size(), 1) << "told once";
}

#include "test_tray_host.moc"
