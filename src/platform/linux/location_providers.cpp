#include "platform/linux/location_providers.h"

#include "platform/linux/BrowserProvider.h"
#include "platform/linux/DolphinProvider.h"
#include "platform/linux/FolderEntryProvider.h"
#include "platform/linux/NautilusProvider.h"
#include "platform/linux/WatchedFolderProvider.h"

namespace norvane {

namespace {

enum class Source { Entry, Nautilus, Dolphin, Watches };

struct FileManager
{
    QLatin1StringView program;
    Source source;
};

constexpr FileManager kFileManagers[] = {
    {QLatin1StringView("thunar"), Source::Entry},
    {QLatin1StringView("caja"), Source::Entry},
    {QLatin1StringView("pcmanfm"), Source::Entry},
    {QLatin1StringView("nautilus"), Source::Nautilus},
    {QLatin1StringView("org.gnome.nautilus"), Source::Nautilus},
    {QLatin1StringView("dolphin"), Source::Dolphin},
    {QLatin1StringView("org.kde.dolphin"), Source::Dolphin},
    {QLatin1StringView("nemo"), Source::Watches},
    {QLatin1StringView("pcmanfm-qt"), Source::Watches},
};

} // namespace

std::unique_ptr<LocationProvider> makeLocationProvider(bool browser, const QString &program,
                                                       const DesktopBuses &buses, const QString &display,
                                                       const QString &home)
{
    if (browser)
        return std::make_unique<BrowserProvider>(buses);
    const QString name = program.mid(program.lastIndexOf(u'/') + 1);
    for (const FileManager &manager : kFileManagers) {
        if (name.compare(manager.program, Qt::CaseInsensitive) != 0)
            continue;
        switch (manager.source) {
        case Source::Entry:
            return std::make_unique<FolderEntryProvider>(buses, home);
        case Source::Nautilus:
            return std::make_unique<NautilusProvider>(buses, display, home);
        case Source::Dolphin:
            return std::make_unique<DolphinProvider>(buses, home);
        case Source::Watches:
            return std::make_unique<WatchedFolderProvider>(home);
        }
    }
    return nullptr;
}

} // namespace norvane
