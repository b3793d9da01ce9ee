#include "shell/AccessibilityOffer.h"

#include "platform/Prompts.h"
#include "platform/ShellWindows.h"
#include "shell/internal_error.h"
#include "shell/settings_keys.h"

namespace norvane {

namespace {

const QString kAccepted = QStringLiteral("1");
const QString kDeclined = QStringLiteral("0");

} // namespace

AccessibilityOffer::AccessibilityOffer(SettingsStore &settings, Prompts &prompts, ShellWindows &shellWindows,
                                       QObject *parent)
    : QObject(parent), m_settings(settings), m_prompts(prompts), m_shellWindows(shellWindows)
{
}

void AccessibilityOffer::noticeBrowserWithoutLocation()
{
    if (m_done || !m_shellWindows.needsAccessibility())
        return;
    m_done = true;
    // The caller may be in the middle of a watch pass, where no question may stand open.
    QMetaObject::invokeMethod(this, &AccessibilityOffer::offer, Qt::QueuedConnection);
}

void AccessibilityOffer::offer()
{
    QString answer = settings::read(m_settings, settings::kAccessibilityOffer);
    if (answer.isEmpty()) {
        const QString question = tr("Norvane can attach notes to single web pages, but your desktop keeps "
                                    "the addresses of browser "
                                    "windows to itself as long as its accessibility support is off.") +
                                 QStringLiteral("\n\n") +
                                 tr("Do you want to turn accessibility support on? A browser that is already "
                                    "running may have to be "
                                    "started again.");
        answer = ask(m_prompts, question, Prompts::kQuestion) ? kAccepted : kDeclined;
        settings::save(m_settings, settings::kAccessibilityOffer, answer);
    }
    if (answer == kAccepted)
        m_shellWindows.enableAccessibility();
}

} // namespace norvane
