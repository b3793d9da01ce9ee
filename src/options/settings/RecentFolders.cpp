#include "options/settings/RecentFolders.h"

#include "shell/settings_keys.h"

namespace norvane {

namespace {

constexpr int kFolders = 5;

QString keyOf(int number)
{
    return QStringLiteral("MRU%1").arg(number);
}

} // namespace

QStringList RecentFolders::list() const
{
    QStringList folders;
    for (int number = 1; number <= kFolders; ++number) {
        const QString folder = m_settings.get(settings::kDatabase.section.toString(), keyOf(number), {});
        if (!folder.isEmpty())
            folders.append(folder);
    }
    return folders;
}

void RecentFolders::AddMRU(const QString &Path)
{
    const QString section = settings::kDatabase.section.toString();
    QStringList stored;
    for (int number = 1; number <= kFolders; ++number) {
        stored.append(m_settings.get(section, keyOf(number), {}));
        if (stored.constLast().toUpper() == Path.toUpper())
            return;
    }
    stored.prepend(Path);
    for (int number = 1; number <= kFolders; ++number)
        m_settings.save(section, keyOf(number), stored.at(number - 1));
}

} // namespace norvane
