#pragma once

#include "shell/settings_keys.h"

#include <QString>
#include <QStringList>
#include <functional>

namespace norvane {

class Notifier;

/// What the program tells by itself, each once: it has no window to learn these things from.
class FirstNotices
{
public:
    /// Shows a text where the desktop has no notifications; false when it cannot now: the notice is
    /// then given at the next start.
    using ShowOtherwise = std::function<bool(const QString &text)>;

    /// All must outlive it, and it must outlive the event loop's next turns: the desktop's answer
    /// comes later.
    FirstNotices(SettingsStore &settings, Notifier &notifier, ShowOtherwise showOtherwise);

    /// The two keys that a person needs, by their texts: "Ctrl+Alt+A".
    void tellKeys(const QString &attachKey, const QString &browserKey);
    /// That windows which are not those of X programs stay unseen on this desktop.
    void tellOnlyX();
    /// Which hot keys another program has, by their texts; nothing when there is none. Told again when they
    /// are others.
    void tellRefused(const QStringList &keys);

private:
    void tell(const settings::Key &said, const QString &what, const QString &title, const QString &text);

    SettingsStore &m_settings;
    Notifier &m_notifier;
    ShowOtherwise m_showOtherwise;
};

} // namespace norvane
