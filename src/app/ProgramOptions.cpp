#include "app/ProgramOptions.h"

#include "browser/frmMain.h"
#include "options/HotKeyModel.h"
#include "options/settings/hot_key_choice.h"
#include "options/windows/frmAddCategory.h"
#include "richtext/EditServices.h"
#include "shell/forms/ShellForms.h"
#include "shell/lifecycle/SharedState.h"
#include "shell/windows/TrayIcon.h"
#include "shell/windows/mdiMain.h"

#include <QCoreApplication>

namespace norvane {

namespace {

constexpr int kNoticeMs = 10000;

} // namespace

ProgramOptions::ProgramOptions(SharedState &state, const BrowserServices &services, HotKeyModel &hotKeys,
                               ShellForms &forms, std::function<void()> endProgram)
    : m_state(state), m_services(services), m_hotKeys(hotKeys), m_forms(forms),
      m_databases(state.store, state.forms, services.edit.prompts,
                  {[this](const QString &) {
                       if (mdiMain *frame = m_forms.frame())
                           frame->setDatabaseFolder(m_state.store.DatabaseFolder);
                   },
                   std::move(endProgram)})
{
}

void ProgramOptions::show(frmSetting::Page page)
{
    if (!m_state.TaskList)
        return;
    if (!m_options)
        m_options = std::make_unique<OptionsServices>(
            OptionsServices{.browser = m_services,
                            .watch = m_state.watch,
                            .hotKeys = m_hotKeys,
                            .databases = m_databases,
                            .tasks = *m_state.TaskList,
                            .clips = m_state.Clips,
                            .host = *this,
                            .version = QVersionNumber::fromString(QCoreApplication::applicationVersion())});
    frmSetting::ShowOptions(*m_options, page, owner());
}

QStringList ProgramOptions::chooseCategories()
{
    return ChooseCategories(m_state.forms, owner());
}

/// Not the window in front: a change of the database takes most of them away.
QWidget *ProgramOptions::owner() const
{
    return m_forms.isFrameVisible() ? m_forms.frame() : nullptr;
}

WindowHandle ProgramOptions::hotKeyOwner() const
{
    const frmMain *browser = m_forms.browser();
    return browser ? browser->hWnd() : kNoWindow;
}

void ProgramOptions::databaseChanged()
{
    if (frmMain *browser = m_forms.browser())
        browser->followDatabase();
}

void ProgramOptions::Refresh_tbCAT()
{
    m_forms.Refresh_tbCAT();
}

void ProgramOptions::setShowCategoryBar(bool shown)
{
    if (frmMain *browser = m_forms.browser()) {
        browser->setShowCategoryBar(shown);
        browser->trayIcon()->noteChange();
    }
}

void ProgramOptions::hotKeysRegistered(const QVector<HotKeyId> &refused)
{
    frmMain *browser = m_forms.browser();
    if (!browser)
        return; // the program ends
    browser->setAttachKey(m_hotKeys.text(HotKeyId::Attach));
    browser->trayIcon()->noteChange();
    if (const QString notice = refusedNotice(refused, m_hotKeys); !notice.isEmpty())
        m_forms.showNotice(notice, kNoticeMs);
}

} // namespace norvane
