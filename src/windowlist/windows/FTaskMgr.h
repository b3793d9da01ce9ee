#pragma once

#include "shell/windows/FormWindow.h"

#include <QTimer>
#include <QWidget>

class QPushButton;

namespace norvane {

class TaskImages;
class TaskToolBar;
class TaskViews;
struct WindowListServices;

/// The Window List: the running windows, to attach a note to one or detach it, to switch to one, or to
/// start a new task. It follows the desktop each second. Closing it ends it and keeps its place and view.
class FTaskMgr : public FormWindow<QWidget>
{
    Q_OBJECT

public:
    /// Adds itself to the forms.
    explicit FTaskMgr(const WindowListServices &services);

    /// Brings the window to the front and gives the list the keyboard.
    void bringUp();

protected:
    void unloading() override;
    void showEvent(QShowEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void arrange();
    void connectControls();
    void Form_Activate();
    void focusMoved(const QWindow *window);
    void refreshList();

    void command(const QString &key);
    void attach();
    void detach();
    void switchTo(int row);
    void run();
    void showView(int view);
    void setOnTop(bool on);
    /// The window of the selected row; without one kNoWindow, after a notice that asks for it.
    WindowHandle selectedWindow();

    const WindowListServices &m_services;
    TaskImages *m_rows;
    TaskToolBar *m_toolBar;
    TaskViews *m_list;    ///< `ListView1`
    QPushButton *m_close; ///< `cmdExit`
    QTimer m_timer{this}; ///< `Timer1`
    int m_lastListView = 0;
    bool m_wasActive = false;
    bool m_wasInAnother = false; ///< the keyboard, in another window of the program
};

/// Shows the Window List: the one that is loaded, or a new one.
void ShowWindowList(const WindowListServices &services);
/// Unloads the Window List if it is loaded, else shows it.
void ToggleWindowList(const WindowListServices &services);

} // namespace norvane
