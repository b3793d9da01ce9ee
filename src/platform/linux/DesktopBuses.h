#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QHash>
#include <QMutex>
#include <QObject>
#include <QStringList>
#include <QTimer>

#include <optional>

class QDBusServiceWatcher;

namespace norvane {

/// The session's message bus and its accessibility bus: connected, watched, connected again.
///
/// Lives in a thread of its own, since connecting waits. The members that are marked so may be
/// called from any thread; signals come from the object's thread.
class DesktopBuses : public QObject
{
    Q_OBJECT

public:
    /// @param sessionAddress of the session bus; empty: the one that the environment names
    explicit DesktopBuses(QString sessionAddress);
    ~DesktopBuses() override;

    /// Begins to connect. To be called in the object's thread.
    void start();
    /// Disconnects. To be called in the object's thread, before it ends.
    void stop();
    /// Sets the desktop's accessibility switch. To be called in the object's thread.
    void enableAccessibility();

    /// Any thread. Nothing when the bus is not there now.
    std::optional<QDBusConnection> session() const;
    std::optional<QDBusConnection> accessibility() const;
    /// Any thread. False while the first attempt to connect to the accessibility bus is under way.
    bool settled() const;
    /// Any thread. The desktop's accessibility switch; nothing when it cannot be read.
    std::optional<bool> accessibilityEnabled() const;
    /// Any thread. Names of the process's connections to the accessibility bus.
    QStringList servicesOf(qint64 processId) const;
    /// Any thread. Whether a program has asked the accessibility bus for the keys that others get; true, too,
    /// where the bus does not tell. Until the first answer it is false: a key that a listener misses is less
    /// than one that goes astray on its way through the bus.
    bool keysAreListenedTo() const;

signals:
    /// The accessibility bus came or went, or its switch was turned.
    void accessibilityChanged();
    /// The process has connected to the accessibility bus.
    void programAppeared(qint64 processId);
    /// The process has loaded a document, or opened, closed or activated a window.
    void documentOrWindowChanged(qint64 processId);
    /// The keyboard went to another element of the process.
    void focusChanged(qint64 processId);
    /// The process shows other folders than before.
    void foldersChanged(qint64 processId);

private slots:
    void accessibilityBusLost();
    void nameOwnerChanged(const QString &name, const QString &oldOwner, const QString &newOwner);
    void windowEvent(const QDBusMessage &event);
    void focusEvent(const QDBusMessage &event);
    void folderWindowsChanged(const QDBusMessage &event);
    void statusChanged(const QDBusMessage &event);
    void keyListenersChanged();

private:
    void connectSession();
    void askForAddress();
    void connectAccessibility(const QString &address);
    void retryLater();
    void readSwitch();
    void switchRead(std::optional<bool> enabled);
    void registerEvents(const QDBusConnection &bus);
    void registerEvent(const QDBusConnection &bus, const QString &event);
    void learnService(const QString &service);
    void setKeysAreListenedTo(bool listenedTo);
    void serviceLearned(const QString &service, qint64 processId);
    void settle();
    qint64 processOf(const QString &service) const;

    const QString m_sessionAddress;
    const QString m_connectionName; ///< prefix of the names of this object's connections
    int m_connections = 0;
    QString m_accessibilityName;
    QDBusServiceWatcher *m_launcherWatcher = nullptr;
    QTimer m_retry;
    int m_retryDelayMs;

    mutable QMutex m_mutex; ///< guards what follows
    std::optional<QDBusConnection> m_session;
    std::optional<QDBusConnection> m_accessibility;
    std::optional<bool> m_enabled;
    QHash<QString, qint64> m_processes; ///< by connection name
    bool m_settled = false;
    bool m_keysAreListenedTo = false;
};

} // namespace norvane
