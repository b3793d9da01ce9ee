#include "platform/linux/ProgramCalls.h"

#include "platform/linux/LocationProvider.h"

#include <QDBusArgument>
#include <QDBusError>
#include <QDBusVariant>

namespace norvane {

namespace {

/// Ample for a program that works: the slowest answers take a few milliseconds.
constexpr qint64 kCallTimeoutMs = 300;
constexpr qint64 kShortestCallMs = 10;

constexpr uint kRelationEmbeds = 13;
constexpr uint kCoordinatesOfScreen = 0;

const QString kAccessible = QStringLiteral("org.a11y.atspi.Accessible");

bool hasShape(const QDBusMessage &reply, QLatin1StringView signature)
{
    return reply.type() == QDBusMessage::ReplyMessage && reply.signature() == signature;
}

AccessibleObject readObject(const QDBusArgument &argument)
{
    AccessibleObject object;
    QDBusObjectPath path;
    argument.beginStructure();
    argument >> object.service >> path;
    argument.endStructure();
    object.path = path.path();
    return object;
}

QVector<AccessibleObject> readObjects(const QDBusArgument &argument)
{
    QVector<AccessibleObject> objects;
    argument.beginArray();
    while (!argument.atEnd())
        objects.append(readObject(argument));
    argument.endArray();
    return objects;
}

/// A rule of org.a11y.atspi.Collection: any of the roles, whatever else.
QVariant roleRule(const QVector<int> &roles)
{
    enum { kAll = 1, kAny = 2 };
    QList<int> roleBits{0, 0, 0, 0};
    for (const int role : roles)
        roleBits[role / 32] |= static_cast<int>(1U << (role % 32));
    QDBusArgument rule;
    rule.beginStructure();
    rule << QList<int>{0, 0} << int(kAll);
    rule << QMap<QString, QString>() << int(kAll);
    rule << roleBits << int(kAny);
    rule << QStringList() << int(kAll) << false;
    rule.endStructure();
    return QVariant::fromValue(rule);
}

} // namespace

ProgramCalls::ProgramCalls(QDBusConnection bus, const LookUpRequest &request)
    : m_bus(std::move(bus)), m_deadline(request.deadline), m_stop(request.stop)
{
}

QDBusMessage ProgramCalls::call(const QString &service, const QString &path, const QString &interface,
                                const QString &method, const QVariantList &arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, method);
    const qint64 left =
        m_deadline.isForever() ? kCallTimeoutMs : qMin(kCallTimeoutMs, m_deadline.remainingTime());
    m_ranOut = m_ranOut || left < kShortestCallMs || m_stop.stop_requested();
    if (m_ranOut)
        return message.createErrorReply(QDBusError::TimedOut, QString());
    message.setArguments(arguments);
    message.setAutoStartService(false);
    QDBusMessage reply = m_bus.call(message, QDBus::Block, static_cast<int>(left));
    if (reply.type() == QDBusMessage::ErrorMessage) {
        const QDBusError::ErrorType error = QDBusError(reply).type();
        m_ranOut =
            error == QDBusError::NoReply || error == QDBusError::TimedOut || error == QDBusError::Timeout;
    }
    return reply;
}

QVariant ProgramCalls::property(const QString &service, const QString &path, const QString &interface,
                                const QString &name)
{
    const QDBusMessage reply = call(service, path, QStringLiteral("org.freedesktop.DBus.Properties"),
                                    QStringLiteral("Get"), {interface, name});
    return hasShape(reply, QLatin1StringView("v")) ? reply.arguments().at(0).value<QDBusVariant>().variant()
                                                   : QVariant();
}

QString ProgramCalls::name(const AccessibleObject &object)
{
    return property(object.service, object.path, kAccessible, QStringLiteral("Name")).toString();
}

QVector<AccessibleObject> ProgramCalls::children(const AccessibleObject &object)
{
    const QDBusMessage reply = call(object.service, object.path, kAccessible, QStringLiteral("GetChildren"));
    if (!hasShape(reply, QLatin1StringView("a(so)")))
        return {};
    return readObjects(reply.arguments().at(0).value<QDBusArgument>());
}

AccessibleObject ProgramCalls::embeddedDocument(const AccessibleObject &frame)
{
    const QDBusMessage reply = call(frame.service, frame.path, kAccessible, QStringLiteral("GetRelationSet"));
    if (!hasShape(reply, QLatin1StringView("a(ua(so))")))
        return {};
    const auto relations = reply.arguments().at(0).value<QDBusArgument>();
    AccessibleObject document;
    relations.beginArray();
    while (!relations.atEnd()) {
        uint kind = 0;
        relations.beginStructure();
        relations >> kind;
        const QVector<AccessibleObject> targets = readObjects(relations);
        relations.endStructure();
        if (kind == kRelationEmbeds && !targets.isEmpty())
            document = targets.first();
    }
    relations.endArray();
    return document;
}

QString ProgramCalls::documentAttribute(const AccessibleObject &document, const QString &attribute)
{
    const QDBusMessage reply =
        call(document.service, document.path, QStringLiteral("org.a11y.atspi.Document"),
             QStringLiteral("GetAttributeValue"), {attribute});
    return hasShape(reply, QLatin1StringView("s")) ? reply.arguments().at(0).toString() : QString();
}

QRect ProgramCalls::extents(const AccessibleObject &object)
{
    const QDBusMessage reply = call(object.service, object.path, QStringLiteral("org.a11y.atspi.Component"),
                                    QStringLiteral("GetExtents"), {kCoordinatesOfScreen});
    if (!hasShape(reply, QLatin1StringView("(iiii)")))
        return {};
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    const auto extents = reply.arguments().at(0).value<QDBusArgument>();
    extents.beginStructure();
    extents >> x >> y >> width >> height;
    extents.endStructure();
    return QRect(x, y, qMax(0, width), qMax(0, height));
}

quint64 ProgramCalls::state(const AccessibleObject &object)
{
    const QDBusMessage reply = call(object.service, object.path, kAccessible, QStringLiteral("GetState"));
    if (!hasShape(reply, QLatin1StringView("au")))
        return 0;
    const auto words = qdbus_cast<QList<uint>>(reply.arguments().at(0));
    return words.value(0) | static_cast<quint64>(words.value(1)) << 32;
}

QString ProgramCalls::text(const AccessibleObject &object)
{
    const QDBusMessage reply = call(object.service, object.path, QStringLiteral("org.a11y.atspi.Text"),
                                    QStringLiteral("GetText"), {0, -1});
    return hasShape(reply, QLatin1StringView("s")) ? reply.arguments().at(0).toString() : QString();
}

QVector<AccessibleObject> ProgramCalls::matches(const AccessibleObject &object, const QVector<int> &roles,
                                                int most)
{
    constexpr uint kCanonicalOrder = 1;
    const QDBusMessage reply =
        call(object.service, object.path, QStringLiteral("org.a11y.atspi.Collection"),
             QStringLiteral("GetMatches"), {roleRule(roles), kCanonicalOrder, most, true});
    if (!hasShape(reply, QLatin1StringView("a(so)")))
        return {};
    return readObjects(reply.arguments().at(0).value<QDBusArgument>());
}

} // namespace norvane
