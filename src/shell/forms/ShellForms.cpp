#include "shell/forms/ShellForms.h"

#include "browser/frmMain.h"
#include "browser/grid/NoteGrid.h"
#include "options/HotKeyModel.h"
#include "platform/EventLoop.h"
#include "platform/WindowSystem.h"
#include "shell/Forms.h"
#include "shell/windows/TrayIcon.h"
#include "shell/windows/frmLogo.h"
#include "shell/windows/frmMessage.h"
#include "shell/windows/frmPassword.h"
#include "shell/windows/mdiMain.h"
#include "store/NoteStore.h"
#include "watcher/NoteViews.h"

namespace norvane {

namespace {

/// The first loaded form of a class, which is named as its class is.
template <typename FormClass> FormClass *loaded(const FormList &forms, const QString &name)
{
    const QVector<Form *> found = forms.named(name);
    return found.isEmpty() ? nullptr : dynamic_cast<FormClass *>(found.constFirst());
}

} // namespace

ShellForms::ShellForms(const ShellFormsParts &parts, QObject *parent)
    : QObject(parent), m_parts(parts), m_services(parts.services)
{
}

mdiMain *ShellForms::frame() const
{
    return loaded<mdiMain>(m_services.forms, QStringLiteral("mdiMain"));
}

frmMain *ShellForms::browser() const
{
    return loaded<frmMain>(m_services.forms, QStringLiteral("frmMain"));
}

void ShellForms::askPassword(PasswordDialogModel &model)
{
    frmPassword dialog(m_services.forms, model);
    dialog.exec();
}

void ShellForms::showSplash()
{
    auto *logo = new frmLogo(m_services.forms, m_parts.version, m_services.twips);
    logo->show();
}

void ShellForms::unloadSplash()
{
    if (auto *logo = loaded<frmLogo>(m_services.forms, QStringLiteral("frmLogo")))
        logo->unload();
}

WindowHandle ShellForms::loadFrame()
{
    auto *form = new mdiMain(m_services.forms, m_services.settings, m_services.clock, m_services.twips);
    form->setDatabaseFolder(m_services.store.DatabaseFolder);
    connect(form, &mdiMain::shutDownRequested, this, &ShellForms::shutDownRequested);
    connect(form, &mdiMain::commandTriggered, this, &ShellForms::toolBarCommand);
    connect(form, &mdiMain::dropped, this, [this](const QStringList &files, const QString &text) {
        m_services.views.dropItems(files, text);
    });
    connect(form, &mdiMain::activated, this, [this] {
        if (frmMain *child = browser())
            child->showRow();
    });
    return form->hWnd();
}

void ShellForms::moveFrame(const QRectF &place)
{
    if (mdiMain *form = frame())
        form->Move(place.left(), place.top(), place.width(), place.height());
}

void ShellForms::minimiseFrame()
{
    if (mdiMain *form = frame())
        form->minimize();
}

void ShellForms::showBrowser()
{
    auto *child = new frmMain(m_parts.services, *frame(), m_parts.trayHost);
    HotKeyModel &keys = m_parts.hotKeys;
    keys.records.load(m_services.settings);
    m_refusedKeys = keys.registerAll(child->hWnd());
    child->setAttachKey(keys.text(HotKeyId::Attach));
    TrayIcon *tray = child->trayIcon();
    connect(tray, &TrayIcon::activated, this, &ShellForms::ToggleBrowser);
    connect(tray, &TrayIcon::commandTriggered, this, &ShellForms::trayCommand);
    connect(tray, &TrayIcon::pageTriggered, this, &ShellForms::openPageRequested);
    child->bringUp();
    tray->show();
}

void ShellForms::Refresh_tbCAT()
{
    if (frmMain *child = browser())
        child->Refresh_tbCAT();
}

int ShellForms::categoryTabCount() const
{
    const frmMain *child = browser();
    return child == nullptr ? 0 : child->categoryTabCount();
}

void ShellForms::selectCategoryTab(int number)
{
    if (frmMain *child = browser())
        child->selectCategoryTab(number);
}

void ShellForms::pressPreviewButton()
{
    if (frmMain *child = browser())
        child->pressPreviewButton();
}

bool ShellForms::isFrameVisible() const
{
    const mdiMain *form = frame();
    return form != nullptr && form->isFrameVisible();
}

void ShellForms::unloadPreview()
{
    if (frmMain *child = browser())
        child->unloadPreview();
}

void ShellForms::ToggleBrowser()
{
    mdiMain *form = frame();
    if (form == nullptr || m_services.forms.FormIsLoaded(QStringLiteral("frmSetting")))
        return;
    if (form->isFrameVisible()) {
        form->minimize();
        return;
    }
    form->restore();
    m_services.windows.setForegroundWindow(form->hWnd());
    if (frmMain *child = browser()) {
        child->Refresh_Grid();
        child->GRD_Refresh(0);
        child->bringUp();
    }
}

bool ShellForms::showNotice(const QString &text, int durationMs, Qt::WindowModality modality)
{
    if (m_services.forms.FormIsLoaded(QStringLiteral("frmMessage")))
        return false;
    auto *notice = new frmMessage(m_services.forms, m_services.windows, m_services.sound);
    if (!text.isEmpty())
        notice->setText(text);
    if (durationMs > 0)
        notice->setDuration(durationMs);
    notice->setWindowModality(modality);
    notice->Show();
    return true;
}

void ShellForms::toolBarCommand(const QString &key)
{
    if (key != u"NOTEBROWSER") {
        emit commandTriggered(key);
        return;
    }
    m_services.events.yield();
    if (frmMain *child = browser())
        child->bringUp();
}

void ShellForms::trayCommand(const QString &name)
{
    if (name == u"mnu_ControlPanel")
        ToggleBrowser();
    else if (name == u"mnu_exit")
        emit shutDownRequested();
    else
        emit commandTriggered(name);
}

} // namespace norvane
