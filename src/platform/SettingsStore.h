#pragma once

#include <QString>
#include <QStringList>

namespace norvane {

/// The user's settings: text values by section and key, of the application "Norvane".
///
/// Values are flat strings; a missing key gives the caller's default. A value that cannot be
/// written is lost without an error: settings are never worth a user's work.
class SettingsStore
{
public:
    virtual ~SettingsStore();

    virtual QString get(const QString &section, const QString &key, const QString &defaultValue) const = 0;
    virtual void save(const QString &section, const QString &key, const QString &value) = 0;
    /// The keys of a section, sorted.
    virtual QStringList list(const QString &section) const = 0;
};

} // namespace norvane
