#pragma once

#include "platform/SettingsStore.h"

#include <QStringList>

namespace norvane::settings {

/// The texts of the keys "Name1", "Name2", … up to @p count; empty for one that is missing.
inline QStringList readNumbered(const SettingsStore &store, QStringView section, const QString &name,
                                int count)
{
    QStringList texts;
    for (int number = 1; number <= count; ++number)
        texts.append(store.get(section.toString(), name + QString::number(number), {}));
    return texts;
}

/// Saves texts in as many of those keys.
inline void saveNumbered(SettingsStore &store, QStringView section, const QString &name,
                         const QStringList &texts)
{
    for (int number = 1; number <= texts.size(); ++number)
        store.save(section.toString(), name + QString::number(number), texts.at(number - 1));
}

} // namespace norvane::settings
