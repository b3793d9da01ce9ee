#pragma once

#include <QStringList>

namespace norvane {

class SettingsStore;

/// The command lines that were started lately, in settings, the newest first.
class RunHistory
{
public:
    static constexpr int kLines = 20;

    /// @p settings must outlive it.
    explicit RunHistory(SettingsStore &settings) : m_settings(settings) {}

    QStringList list() const;
    /// Puts a line in front, from its old place if it has one. The oldest beyond kLines goes.
    void add(const QString &line);

private:
    SettingsStore &m_settings;
};

} // namespace norvane
