#include "shell/FirstStartNotice.h"

#include "platform/Notifier.h"
#include "platform/SettingsStore.h"

namespace norvane {

namespace {

const QString kSection = QStringLiteral("Main");
const QString kKey = QStringLiteral("FirstStartNotice");
const QString kShown = QStringLiteral("1");

} // namespace

FirstStartNotice::FirstStartNotice(SettingsStore &settings, Notifier &notifier)
    : m_settings(settings), m_notifier(notifier)
{
}

void FirstStartNotice::show(const QString &attachKey, const QString &browserKey,
                            const std::function<void(const QString &)> &showOtherwise)
{
    if (m_settings.get(kSection, kKey, QString()) == kShown)
        return;
    // Before the answer: a person who ends the program at once has seen it all the same.
    m_settings.save(kSection, kKey, kShown);
    const QString title = QStringLiteral("Norvane is ready");
    const QString text = QStringLiteral("%1 attaches a note to the window you are working in.\n"
                                        "%2 opens the note browser.")
                             .arg(attachKey, browserKey);
    m_notifier.notify(title, text, [title, text, showOtherwise](bool shown) {
        if (!shown)
            showOtherwise(title + QStringLiteral("\n\n") + text);
    });
}

} // namespace norvane
