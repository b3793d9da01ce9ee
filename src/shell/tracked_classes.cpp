#include "shell/tracked_classes.h"

#include "shell/numeric_prefix.h"
#include "shell/settings_keys.h"

namespace norvane {

namespace {

const QStringList &builtInClasses()
{
    static const QStringList classes = {
        QStringLiteral("IEFrame"),
        QStringLiteral("CabinetWClass"),
        QStringLiteral("ExploreWClass"),
        QStringLiteral("OpusApp"),
        QStringLiteral("MauiFrame"),
        QStringLiteral("XLMAIN"),
        QStringLiteral("Outlook Express Browser Class"),
        QStringLiteral("WordPadClass"),
        QStringLiteral("OMain"),
        QStringLiteral("Afx:400000:b:14"),
        QStringLiteral("Afx:400000:8:14"),
        QStringLiteral("Afx:400000:b:10008:"),
        QStringLiteral("Afx:400000:b:10011:"),
    };
    return classes;
}

/// The keys of the user's classes, "01" and on.
QStringList keys(const SettingsStore &settings)
{
    QStringList result;
    const int items = numericPrefixInt16(settings::read(settings, settings::kClassExItems));
    for (int i = 1; i <= items; ++i)
        result.append(QStringLiteral("%1").arg(i, 2, 10, QChar(u'0')));
    return result;
}

QString section()
{
    return settings::kClassExItems.section.toString();
}

} // namespace

QStringList trackedClasses(const SettingsStore &settings)
{
    return builtInClasses() + ownTrackedClasses(settings);
}

QStringList ownTrackedClasses(const SettingsStore &settings)
{
    QStringList classes;
    for (const QString &key : keys(settings)) {
        const QString extra = settings.get(section(), key, QString());
        if (!extra.isEmpty())
            classes.append(extra);
    }
    return classes;
}

void addTrackedClass(SettingsStore &settings, const QString &name)
{
    const QStringList used = keys(settings);
    for (const QString &key : used) {
        if (settings.get(section(), key, QString()).isEmpty()) {
            settings.save(section(), key, name);
            return;
        }
    }
    const QString items = QString::number(used.size() + 1);
    numericPrefixInt16(items); // raises before anything is written
    settings.save(section(), QStringLiteral("%1").arg(used.size() + 1, 2, 10, QChar(u'0')), name);
    settings::save(settings, settings::kClassExItems, items);
}

void removeTrackedClass(SettingsStore &settings, const QString &name)
{
    for (const QString &key : keys(settings)) {
        if (settings.get(section(), key, QString()) == name)
            settings.save(section(), key, QString());
    }
}

} // namespace norvane
