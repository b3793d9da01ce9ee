#pragma once

#include "platform/SettingsStore.h"

#include <QMap>

namespace norvane::fakes {

/// Settings in memory.
class MemorySettings : public SettingsStore
{
public:
    QMap<QString, QMap<QString, QString>> values; ///< section, key, value

    QString get(const QString &section, const QString &key, const QString &defaultValue) const override
    {
        return values.value(section).value(key, defaultValue);
    }
    void save(const QString &section, const QString &key, const QString &value) override
    {
        values[section].insert(key, value);
    }
    QStringList list(const QString &section) const override { return values.value(section).keys(); }
};

} // namespace norvane::fakes
