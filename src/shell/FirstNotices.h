#pragma once

#include <QString>
#include <functional>

namespace norvane {

class Notifier;
class SettingsStore;

/// Tells, once ever, the two keys that a person needs: the program has no window to learn them from.
class FirstStartNotice
{
public:
    /// Both must outlive it, and it must outlive the event loop's next turns: the desktop's answer
    /// comes later.
    FirstStartNotice(SettingsStore &settings, Notifier &notifier);

    /// Shows the notice by the desktop's notifications, if it was never shown.
    /// @param attachKey, browserKey the texts of the keys, "Ctrl+Alt+A"
    /// @param showOtherwise called with the whole text when the desktop has no notifications
    void show(const QString &attachKey, const QString &browserKey,
              const std::function<void(const QString &)> &showOtherwise);

private:
    SettingsStore &m_settings;
    Notifier &m_notifier;
};

} // namespace norvane
