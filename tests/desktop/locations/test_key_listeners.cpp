#include "LocatedDesktop.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>

using namespace norvane::test;

namespace {

/// One of the keys that a listener asks for; here none is named, which stands for all.
struct ListenedKey
{
    int code = 0;
    int symbol = 0;
    QString name;
    int unused = 0;
};

QDBusArgument &operator<<(QDBusArgument &argument, const ListenedKey &key)
{
    argument.beginStructure();
    argument << key.code << key.symbol << key.name << key.unused;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, ListenedKey &key)
{
    argument.beginStructure();
    argument >> key.code >> key.symbol >> key.name >> key.unused;
    argument.endStructure();
    return argument;
}

class KeyListeners : public testing::Test, protected LocatedDesktop
{
protected:
    void SetUp() override { startDesktop(); }
    void TearDown() override
    {
        QDBusConnection::disconnectFromBus(kSession);
        QDBusConnection::disconnectFromBus(kAccessibility);
    }

    QString accessibilityBus() const
    {
        const QDBusMessage question =
            QDBusMessage::createMethodCall(QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
                                           QStringLiteral("org.a11y.Bus"), QStringLiteral("GetAddress"));
        const QDBusMessage answer =
            QDBusConnection::connectToBus(m_desktop.sessionBus(), kSession).call(question);
        return answer.arguments().value(0).toString();
    }
    /// Registers a listener to all keys, as a screen reader does when it starts, or takes it back.
    bool listen(bool on)
    {
        QDBusMessage message = QDBusMessage::createMethodCall(
            QStringLiteral("org.a11y.atspi.Registry"),
            QStringLiteral("/org/a11y/atspi/registry/deviceeventcontroller"),
            QStringLiteral("org.a11y.atspi.DeviceEventController"),
            on ? QStringLiteral("RegisterKeystrokeListener") : QStringLiteral("DeregisterKeystrokeListener"));
        constexpr uint kPressesAndReleases = 3;
        QVariantList arguments{QVariant::fromValue(QDBusObjectPath(QStringLiteral("/listener"))),
                               QVariant::fromValue(QList<ListenedKey>()), 0U, kPressesAndReleases};
        if (on) {
            QDBusArgument mode;
            mode.beginStructure();
            mode << true << false << true;
            mode.endStructure();
            arguments.append(QVariant::fromValue(mode));
        }
        message.setArguments(arguments);
        const QDBusConnection bus = QDBusConnection::connectToBus(accessibilityBus(), kAccessibility);
        return bus.call(message).type() == QDBusMessage::ReplyMessage;
    }

    const QString kSession = QStringLiteral("listener's session");
    const QString kAccessibility = QStringLiteral("listener's bus");
};

TEST_F(KeyListeners, AreSeenWhenTheyComeAndGo)
{
    qDBusRegisterMetaType<ListenedKey>();
    qDBusRegisterMetaType<QList<ListenedKey>>();
    EXPECT_FALSE(m_shell->keysAreListenedTo()) << "not known yet";
    ASSERT_TRUE(listen(true));
    m_shell->start();
    EXPECT_TRUE(waitFor([&] { return m_shell->keysAreListenedTo(); }));
    ASSERT_TRUE(listen(false));
    EXPECT_TRUE(waitFor([&] { return !m_shell->keysAreListenedTo(); }));
    ASSERT_TRUE(listen(true));
    EXPECT_TRUE(waitFor([&] { return m_shell->keysAreListenedTo(); }));

    ASSERT_TRUE(m_desktop.stopAccessibility());
    EXPECT_TRUE(waitFor([&] { return !m_shell->keysAreListenedTo(); })) << "nobody listens any more";
}

} // namespace
