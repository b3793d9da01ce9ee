#include "app/ProgramViews.h"

#include "shell/windows/ShellForms.h"
#include "shell/windows/TrayIcon.h"
#include "shell/windows/frmMain.h"

namespace norvane {

void ProgramViews::showStandingText()
{
    m_forms.showNotice();
}

void ProgramViews::show(const QString &text)
{
    m_forms.showNotice(text);
}

void ProgramViews::Refresh_Grid()
{
    if (frmMain *browser = m_forms.browser())
        browser->trayIcon()->noteChange();
}

int ProgramViews::category() const
{
    const frmMain *browser = m_forms.browser();
    return browser ? browser->selectedCategory() : 0;
}

} // namespace norvane
