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

} // namespace

QStringList trackedClasses(const SettingsStore &settings)
{
    QStringList classes = builtInClasses();
    const int items = numericPrefixInt16(settings::read(settings, settings::kClassExItems));
    for (int i = 1; i <= items; ++i) {
        const QString extra = settings.get(settings::kClassExItems.section.toString(),
                                           QStringLiteral("%1").arg(i, 2, 10, QChar(u'0')), QString());
        if (!extra.isEmpty())
            classes.append(extra);
    }
    return classes;
}

} // namespace norvane
