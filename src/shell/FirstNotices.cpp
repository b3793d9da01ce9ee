#include "shell/FirstNotices.h"

#include "platform/Notifier.h"

#include <utility>

namespace norvane {

FirstNotices::FirstNotices(SettingsStore &settings, Notifier &notifier, ShowOtherwise showOtherwise)
    : m_settings(settings), m_notifier(notifier), m_showOtherwise(std::move(showOtherwise))
{
}

void FirstNotices::tellKeys(const QString &attachKey, const QString &browserKey)
{
    tell(settings::kFirstStartNotice, QStringLiteral("Norvane is ready"),
         QStringLiteral("%1 attaches a note to the window you are working in.\n"
                        "%2 opens the note browser.")
             .arg(attachKey, browserKey));
}

void FirstNotices::tellOnlyX()
{
    tell(settings::kOnlyXNotice, QStringLiteral("Norvane sees only X programs here"),
         QStringLiteral("This desktop runs on Wayland. Notes can be attached to the windows of programs that "
                        "use X (XWayland); the windows of all others stay out of Norvane's sight."));
}

void FirstNotices::tell(const settings::Key &said, const QString &title, const QString &text)
{
    const QString yes = QStringLiteral("1");
    if (settings::read(m_settings, said) == yes)
        return;
    // Before the answer: a person who ends the program at once has seen it all the same.
    settings::save(m_settings, said, yes);
    m_notifier.notify(title, text, [this, said, title, text](bool shown) {
        if (!shown && !m_showOtherwise(title + QStringLiteral("\n\n") + text))
            settings::save(m_settings, said, QString());
    });
}

} // namespace norvane
