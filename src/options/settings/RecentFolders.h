#pragma once

#include <QStringList>

namespace norvane {

class SettingsStore;

/// The folders of databases that were used lately, in five settings, the newest first.
class RecentFolders
{
public:
    /// @p settings must outlive it.
    explicit RecentFolders(SettingsStore &settings) : m_settings(settings) {}

    /// Those that are there.
    QStringList list() const;
    /// Puts a folder in front, and the last of five goes. One that is there in any case leaves all as it
    /// is, the order too.
    void AddMRU(const QString &Path);

private:
    SettingsStore &m_settings;
};

} // namespace norvane
