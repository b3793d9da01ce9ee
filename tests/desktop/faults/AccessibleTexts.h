#pragma once

#include <QDBusConnection>
#include <QString>
#include <QStringList>

namespace norvane::test {

/// What an assistive program finds on a desktop: the switch of its accessibility, and the texts in the
/// windows of a program.
class AccessibleTexts
{
public:
    /// @param sessionBus address of the session bus
    explicit AccessibleTexts(const QString &sessionBus);
    ~AccessibleTexts();
    AccessibleTexts(const AccessibleTexts &) = delete;
    AccessibleTexts &operator=(const AccessibleTexts &) = delete;

    bool isSwitchedOn() const;
    bool switchOn(bool on);

    /// The names of everything in a program's windows; for a label that is its text. Empty as long as
    /// the program does not tell.
    QStringList of(qint64 processId);

private:
    bool connectAccessibility();
    QString serviceOf(qint64 processId) const;
    void collect(const QString &service, const QString &path, int depth, QStringList &texts) const;

    QString m_name;
    QDBusConnection m_session;
    QDBusConnection m_accessibility{QString()};
};

} // namespace norvane::test
