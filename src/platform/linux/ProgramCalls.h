#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDeadlineTimer>
#include <QRect>
#include <QVector>
#include <stop_token>

namespace norvane {

struct LookUpRequest;

/// An object of a program on the accessibility bus.
struct AccessibleObject
{
    QString service;
    QString path;

    bool isNull() const { return path.isEmpty() || path == u"/org/a11y/atspi/null"; }
};

/// Calls to one program during one look-up. Each waits a little while; after the first that gets
/// no answer in time, or when the asker has gone, the others fail at once.
///
/// A program may answer with anything: an answer of another shape than expected is as none.
class ProgramCalls
{
public:
    ProgramCalls(QDBusConnection bus, const LookUpRequest &request);

    /// Whether the program did not answer in time, or there was no time left.
    bool ranOut() const { return m_ranOut; }

    /// An error message when there is no answer.
    QDBusMessage call(const QString &service, const QString &path, const QString &interface,
                      const QString &method, const QVariantList &arguments = {});
    QVariant property(const QString &service, const QString &path, const QString &interface,
                      const QString &name);

    /// The members below ask on the accessibility bus; all give empty values when there is nothing.
    QString name(const AccessibleObject &object);
    QVector<AccessibleObject> children(const AccessibleObject &object);
    /// The object of the program's page that the frame shows now.
    AccessibleObject embeddedDocument(const AccessibleObject &frame);
    QString documentAttribute(const AccessibleObject &document, const QString &attribute);
    QRect extents(const AccessibleObject &object);
    /// Bits of the object's state, by number.
    quint64 state(const AccessibleObject &object);
    QString text(const AccessibleObject &object);
    /// The first @p most objects below @p object of one of the roles, in the program's order.
    QVector<AccessibleObject> matches(const AccessibleObject &object, const QVector<int> &roles, int most);

    enum State { kStateActive = 1, kStateFocused = 12 };
    enum Role { kRoleText = 61, kRoleEntry = 79 };

private:
    QDBusConnection m_bus;
    QDeadlineTimer m_deadline;
    std::stop_token m_stop;
    bool m_ranOut = false;
};

} // namespace norvane
