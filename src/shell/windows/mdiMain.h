#pragma once

#include "shell/Forms.h"
#include "shell/Twips.h"

#include <QMainWindow>

class QMdiArea;
class QMdiSubWindow;

namespace norvane {

class Clock;
class SettingsStore;
class StatusPanel;

/// The frame: holds the note browser, a tool bar and a status bar. It is hidden while the program
/// rests in the tray; minimising it hides it, so that it never stands in the task bar unseen.
///
/// Closing it is the end of the program and is left to shutDownRequested(): the frame stays until
/// the shut-down unloads it.
class mdiMain : public QMainWindow, public Form
{
    Q_OBJECT

public:
    /// Adds itself to @p forms; all three must outlive it.
    mdiMain(FormList &forms, SettingsStore &settings, const Clock &clock, Twips twips);
    ~mdiMain() override;

    QString formName() const override;
    WindowHandle hWnd() const override;
    void unload() override;

    /// Shows @p folder in the panel "DBNAME".
    void setDatabaseFolder(const QString &folder);
    /// Places the frame, in twips. It appears there when it is restored, moved as far as it must be
    /// to stay within reach on the screen.
    void Move(double left, double top, double width, double height);

    bool isFrameVisible() const { return isVisible(); }
    /// Hides the frame; while it is hidden nothing of it is in the task bar.
    void minimize();
    /// Shows the frame again as it was and asks the desktop to bring it to the front.
    void restore();

    /// The command of a tool bar button: "NOTEBROWSER", "WINDOWLIST", "SETTINGS", "SEARCH", "RUN" or "EXIT";
    /// nullptr for another key.
    QAction *command(const QString &key) const;

    /// Adds a child window to the frame; it comes up when it is shown. The frame owns it.
    QMdiSubWindow *addChild(QWidget *child);

signals:
    /// A button other than "EXIT" was pressed.
    void commandTriggered(const QString &key);
    /// The user wants the program to end: close button, "EXIT".
    void shutDownRequested();
    /// Files or a text were dropped on it, or on what takes no drops in it: as DropTarget tells them.
    void dropped(const QStringList &files, const QString &text);
    /// The frame has become the active window.
    void activated();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void moveEvent(QMoveEvent *event) override;
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    void makeCommands();
    void makeToolBar();
    void makeMenus();
    void makeStatusBar();
    /// The keys that close the active child window.
    void makeCloseKeys();
    void styleChildArea();
    void showDate();
    void Form_Resize();
    void keepWithinReach();
    void showAbout();

    FormList &m_forms;
    SettingsStore &m_settings;
    const Clock &m_clock;
    Twips m_twips;
    QMdiArea *m_area;
    StatusPanel *m_datePanel = nullptr;
    StatusPanel *m_databasePanel = nullptr;
    bool m_settling = false; ///< placed anew; the window manager's frame comes a little later
};

} // namespace norvane
