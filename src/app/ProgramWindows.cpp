#include "app/ProgramWindows.h"

#include "platform/WindowSystem.h"
#include "shell/windows/TrayIcon.h"
#include "shell/windows/frmLogo.h"
#include "shell/windows/frmMain.h"
#include "shell/windows/frmMessage.h"
#include "shell/windows/frmPassword.h"
#include "shell/windows/mdiMain.h"
#include "store/NoteStore.h"

#include <QCoreApplication>
#include <QVersionNumber>

namespace norvane {

namespace {

constexpr int kAllCategories = 0;

} // namespace

ProgramWindows::ProgramWindows(const Parts &parts) : m_parts(parts) {}

ProgramWindows::~ProgramWindows()
{
    delete m_frame; // and the browser in it
}

mdiMain *ProgramWindows::frame() const
{
    return m_frame;
}

frmMain *ProgramWindows::browser() const
{
    return m_browser;
}

void ProgramWindows::toggleBrowser()
{
    if (!m_frame || m_parts.forms.FormIsLoaded(QStringLiteral("frmSetting")))
        return;
    if (m_frame->isFrameVisible()) {
        m_frame->minimize();
        return;
    }
    m_frame->restore();
    if (m_browser)
        m_browser->bringUp();
    m_parts.windows.setForegroundWindow(m_frame->hWnd());
    Refresh_Grid();
    showRow();
}

// ---- Start-up ----

void ProgramWindows::askPassword(PasswordDialogModel &model)
{
    auto *dialog = new frmPassword(m_parts.forms, model);
    dialog->exec();
    dialog->unload();
}

void ProgramWindows::showSplash()
{
    m_splash = new frmLogo(m_parts.forms, QVersionNumber::fromString(QCoreApplication::applicationVersion()),
                           m_parts.twips);
    m_splash->show();
}

void ProgramWindows::unloadSplash()
{
    if (m_splash)
        m_splash->unload();
}

WindowHandle ProgramWindows::loadFrame()
{
    m_frame = new mdiMain(m_parts.forms, m_parts.settings, m_parts.clock, m_parts.twips);
    m_frame->setDatabaseFolder(m_parts.store.DatabaseFolder);
    return m_frame->hWnd();
}

void ProgramWindows::moveFrame(const QRectF &place)
{
    m_frame->Move(place.x(), place.y(), place.width(), place.height());
}

void ProgramWindows::minimiseFrame()
{
    m_frame->minimize();
}

void ProgramWindows::showBrowser()
{
    m_browser = new frmMain(m_parts.forms, m_parts.settings, *m_frame, m_parts.trayHost, m_parts.twips);
    m_browser->bringUp();
}

void ProgramWindows::Refresh_tbCAT()
{
    if (!m_browser)
        return;
    QVector<CategoryTab> tabs{
        {QCoreApplication::translate("frmMain", "(All Categories)"), QStringLiteral("K0")}};
    if (dao::Recordset *categories = m_parts.store.CategorySet();
        categories && categories->recordCount() > 0) {
        for (categories->moveFirst(); !categories->eof(); categories->moveNext()) {
            QString caption = categories->field(QStringLiteral("Name")).toString();
            caption.replace(QLatin1Char('&'), QStringLiteral("&&"));
            tabs.append({caption, QLatin1Char('K') + categories->field(QStringLiteral("ID")).toString()});
        }
    }
    tabs.append({QCoreApplication::translate("frmMain", "(No Category)"), QStringLiteral("K-1")});
    m_browser->setCategoryTabs(tabs);
}

int ProgramWindows::categoryTabCount() const
{
    return m_browser ? m_browser->categoryTabCount() : 0;
}

void ProgramWindows::selectCategoryTab(int number)
{
    if (m_browser)
        m_browser->selectCategoryTab(number);
}

void ProgramWindows::pressPreviewButton()
{
    // The button comes with the preview.
}

// ---- Notices ----

void ProgramWindows::showStandingText()
{
    if (!m_parts.forms.FormIsLoaded(QStringLiteral("frmMessage")))
        (new frmMessage(m_parts.forms, m_parts.windows, m_parts.sound))->Show();
}

void ProgramWindows::show(const QString &text)
{
    if (m_parts.forms.FormIsLoaded(QStringLiteral("frmMessage")))
        return;
    auto *notice = new frmMessage(m_parts.forms, m_parts.windows, m_parts.sound);
    notice->setText(text);
    notice->Show();
}

void ProgramWindows::showFor(const QString &text, int milliseconds)
{
    auto *notice = new frmMessage(m_parts.forms, m_parts.windows, m_parts.sound);
    notice->setText(text);
    notice->setDuration(milliseconds);
    notice->Show();
}

// ---- The grid ----

void ProgramWindows::Refresh_Grid()
{
    if (m_browser)
        m_browser->trayIcon()->rebuildMenu();
}

int ProgramWindows::category() const
{
    return m_browser ? m_browser->selectedCategory() : kAllCategories;
}

void ProgramWindows::showRow()
{
    if (m_browser)
        m_browser->setRow(0, 0);
}

} // namespace norvane
