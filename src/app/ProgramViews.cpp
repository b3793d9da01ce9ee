#include "app/ProgramViews.h"

#include "browser/frmMain.h"
#include "browser/grid/NoteGrid.h"
#include "shell/forms/ShellForms.h"
#include "shell/windows/TrayIcon.h"

namespace norvane {

void ProgramViews::showStandingText()
{
    m_forms.showNotice();
}

void ProgramViews::show(const QString &text)
{
    m_forms.showNotice(text);
}

void ProgramViews::showModal(const QString &text)
{
    m_forms.showNotice(text, 0, Qt::ApplicationModal);
}

void ProgramViews::Refresh_Grid()
{
    if (frmMain *browser = m_forms.browser()) {
        browser->trayIcon()->noteChange();
        browser->Refresh_Grid();
    }
}

void ProgramViews::refreshAround()
{
    if (frmMain *browser = m_forms.browser())
        browser->GRD_Refresh(0);
}

void ProgramViews::refreshPreview()
{
    frmMain *browser = m_forms.browser();
    if (browser && browser->PreviewOpen())
        browser->RefreshPreviewWindow(browser->grid()->Row());
}

int ProgramViews::category() const
{
    const frmMain *browser = m_forms.browser();
    return browser ? browser->grid()->FilterCategory : 0;
}

} // namespace norvane
