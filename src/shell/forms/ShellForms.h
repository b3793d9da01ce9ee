#pragma once

#include "browser/BrowserServices.h"
#include "options/HotKeyRecords.h"
#include "shell/lifecycle/StartUpWindows.h"

#include <QObject>
#include <QVector>
#include <QVersionNumber>

namespace norvane {

class HotKeyModel;
class TrayHost;
class frmLogo;
class frmMain;
class mdiMain;

/// What the windows of the shell work with. Everything outlives them.
struct ShellFormsParts
{
    const BrowserServices &services;
    TrayHost &trayHost;
    HotKeyModel &hotKeys;
    QVersionNumber version;
};

/// Makes the windows of the shell as start-up asks for them, and what they do together.
class ShellForms : public QObject, public StartUpWindows
{
    Q_OBJECT

public:
    explicit ShellForms(const ShellFormsParts &parts, QObject *parent = nullptr);

    /// nullptr before start-up has loaded it and after the shut-down has unloaded it.
    mdiMain *frame() const;
    frmMain *browser() const;

    void askPassword(PasswordDialogModel &model) override;
    void showSplash() override;
    void unloadSplash() override;
    WindowHandle loadFrame() override;
    void moveFrame(const QRectF &place) override;
    void minimiseFrame() override;
    /// The browser reads the hot keys and registers them on its window. Raises 6 when a stored number
    /// does not fit.
    void showBrowser() override;
    void Refresh_tbCAT() override;
    int categoryTabCount() const override;
    void selectCategoryTab(int number) override;
    void pressPreviewButton() override;

    /// Whether the frame is loaded and on the screen.
    bool isFrameVisible() const;
    /// Closes the preview if it is open.
    void unloadPreview();
    /// Double click on the tray icon, `mnu_ControlPanel`, hot key 1: hides the frame if it is
    /// visible, else brings it up. Nothing while the Options window is loaded.
    void ToggleBrowser();
    /// Shows `frmMessage`, unless one is loaded.
    /// @param text empty: the standing text
    /// @param durationMs how long it stands; 0: as long as it does by itself
    /// @param modality of the notice
    /// @return whether it is shown
    bool showNotice(const QString &text = {}, int durationMs = 0, Qt::WindowModality modality = Qt::NonModal);
    /// The hot keys that the browser did not get when it was loaded.
    const QVector<HotKeyId> &refusedKeys() const { return m_refusedKeys; }

signals:
    /// The user wants the program to end.
    void shutDownRequested();
    /// A tool bar button or tray command for which the shell has no window of its own: a tool bar
    /// key ("SEARCH") or the name of a menu item ("mnu_Search").
    void commandTriggered(const QString &name);
    /// An element of "Open Page" was chosen.
    void openPageRequested(int id);

private:
    void toolBarCommand(const QString &key);
    void trayCommand(const QString &name);

    ShellFormsParts m_parts;
    const BrowserServices &m_services;
    QVector<HotKeyId> m_refusedKeys;
};

} // namespace norvane
