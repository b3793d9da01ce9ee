#pragma once

#include "shell/Twips.h"
#include "shell/lifecycle/StartUpWindows.h"
#include "watcher/NoteGridView.h"
#include "watcher/Notices.h"

#include <QPointer>

namespace norvane {

class FormList;
class NoteStore;
class SettingsStore;
class Sound;
class TrayHost;
class WindowSystem;
class Clock;
class frmLogo;
class frmMain;
class mdiMain;

/// The windows of the shell, as start-up, watcher and tray ask for them.
class ProgramWindows : public StartUpWindows, public Notices, public NoteGridView
{
public:
    /// Everything outlives this object.
    struct Parts
    {
        FormList &forms;
        NoteStore &store;
        SettingsStore &settings;
        const Clock &clock;
        WindowSystem &windows;
        Sound &sound;
        TrayHost &trayHost;
        Twips twips;
    };
    explicit ProgramWindows(const Parts &parts);
    ~ProgramWindows() override;

    /// nullptr before they are loaded and after they are unloaded.
    mdiMain *frame() const;
    frmMain *browser() const;

    /// What a double click on the tray icon does: hides the frame or brings it up.
    void toggleBrowser();
    /// The same notice as show(), for a text that takes longer to read.
    void showFor(const QString &text, int milliseconds);

    // StartUpWindows
    void askPassword(PasswordDialogModel &model) override;
    void showSplash() override;
    void unloadSplash() override;
    WindowHandle loadFrame() override;
    void moveFrame(const QRectF &place) override;
    void minimiseFrame() override;
    void showBrowser() override;
    void Refresh_tbCAT() override;
    int categoryTabCount() const override;
    void selectCategoryTab(int number) override;
    void pressPreviewButton() override;

    // Notices
    void showStandingText() override;
    void show(const QString &text) override;

    // NoteGridView
    void Refresh_Grid() override;
    int category() const override;

private:
    void showRow();

    Parts m_parts;
    QPointer<frmLogo> m_splash;
    QPointer<mdiMain> m_frame;
    QPointer<frmMain> m_browser;
};

} // namespace norvane
