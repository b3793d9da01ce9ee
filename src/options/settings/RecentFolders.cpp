#include "options/settings/RecentFolders.h"

#include "shell/numbered_settings.h"
#include "shell/settings_keys.h"

namespace norvane {

namespace {

constexpr int kFolders = 5;
const QString kName = QStringLiteral("MRU");

} // namespace

QStringList RecentFolders::list() const
{
    QStringList folders = settings::readNumbered(m_settings, settings::kDatabase.section, kName, kFolders);
    folders.removeAll({});
    return folders;
}

void RecentFolders::AddMRU(const QString &Path)
{
    QStringList stored = settings::readNumbered(m_settings, settings::kDatabase.section, kName, kFolders);
    if (stored.contains(Path, Qt::CaseInsensitive))
        return;
    stored.prepend(Path);
    settings::saveNumbered(m_settings, settings::kDatabase.section, kName, stored.mid(0, kFolders));
}

} // namespace norvane
