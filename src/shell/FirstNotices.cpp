#include "shell/FirstNotices.h"

#include "platform/Notifier.h"

#include <utility>

namespace norvane {

namespace {

const QString kSaid = QStringLiteral("1");

} // namespace

FirstNotices::FirstNotices(SettingsStore &settings, Notifier &notifier, ShowOtherwise showOtherwise)
    : m_settings(settings), m_notifier(notifier), m_showOtherwise(std::move(showOtherwise))
{
}

void FirstNotices::tellKeys(const QString &attachKey, const QString &browserKey)
{
    tell(settings::kFirstStartNotice, kSaid, QStringLiteral("Norvane is ready"),
         QStringLiteral("%1 attaches a note to the window you are working in.\n"
                        "%2 opens the note browser.")
             .arg(attachKey, browserKey));
}

void FirstNotices::tellOnlyX()
{
    tell(settings::kOnlyXNotice, kSaid, QStringLiteral("Norvane sees only X programs here"),
         QStringLiteral("This desktop runs on Wayland. Notes can be attached to the windows of programs that "
                        "use X (XWayland); the windows of all others stay out of Norvane's sight."));
}

void FirstNotices::tellRefused(const QStringList &keys)
{
    if (keys.isEmpty())
        return;
    const QString names = keys.join(QStringLiteral(", "));
    tell(settings::kRefusedKeysNotice, names, QStringLiteral("Keys without effect"),
         QStringLiteral("Another program has %1. Choose other keys under Options, page \"Hotkeys\".")
             .arg(names));
}

/// @param what is kept when it has been told
void FirstNotices::tell(const settings::Key &said, const QString &what, const QString &title,
                        const QString &text)
{
    if (settings::read(m_settings, said) == what)
        return;
    // Before the answer: a person who ends the program at once has seen it all the same.
    settings::save(m_settings, said, what);
    m_notifier.notify(title, text, [this, said, title, text](bool shown) {
        if (!shown && !m_showOtherwise(title + QStringLiteral("\n\n") + text))
            settings::save(m_settings, said, QString());
    });
}

} // namespace norvane
