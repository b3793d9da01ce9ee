#pragma once

#include "app/Backends.h"
#include "app/NoteWindows.h"
#include "app/ProgramOptions.h"
#include "app/ProgramViews.h"
#include "app/ProgramWindowList.h"
#include "browser/BrowserServices.h"
#include "controls/menuview/menu_images.h"
#include "options/HotKeyModel.h"
#include "richtext/EditServices.h"
#include "shell/AccessibilityOffer.h"
#include "shell/FirstNotices.h"
#include "shell/forms/ShellForms.h"
#include "shell/lifecycle/SharedState.h"
#include "shell/lifecycle/ShutDown.h"
#include "sticky/frmStickyFactory.h"
#include "store/NoteRescue.h"
#include "watcher/AttachWindow.h"
#include "watcher/NoteHotKeys.h"
#include "watcher/WatchCycle.h"
#include "watcher/window_location.h"

#include <memory>

namespace norvane {

class RuntimeError;
struct TrayMenuItem;

/// The running program: owns the backends, the shared state and the windows, and ties hot keys,
/// tray and frame to what they do.
class Program : public QObject
{
    Q_OBJECT

public:
    Program();
    ~Program() override;

    /// Starts, runs the event loop and ends. @return the exit code of the process
    int run(const QStringList &arguments);
    /// Shows an error that no routine has handled, and waits until it is read.
    void tellOf(const RuntimeError &error);
    /// Whether another program wants to know of each key, or that is not known.
    bool keysAreListenedTo() const { return m_backends.shellWindows.keysAreListenedTo(); }

    /// Makes the end that the session asks for the program's own.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// What watches the desktop; made when start-up is over.
    struct Watching
    {
        explicit Watching(Program &program);

        frmStickyFactory stickies;
        WatchCycle cycle;
        AttachWindow attach;
        NoteHotKeys noteKeys;
    };

    /// What watching works with; start-up must be over.
    WatchParts watchParts(StickyFactory &stickies);
    void connectWindows();
    void fillTray();
    void hotKeyPressed(int id);
    void openPage(int id);
    void offerAccessibility();
    void end();

    QVector<TrayMenuItem> trayItems() const;

    Backends m_backends;
    SharedState m_state;
    Twips m_twips;
    WindowLocation m_location;
    HotKeyModel m_hotKeys;
    // These know one another; they are used when all are made.
    EditServices m_edit;
    ProgramViews m_views;
    NoteWindows m_noteWindows;
    BrowserServices m_browser;
    ShellForms m_windows;
    ProgramOptions m_options;
    ProgramWindowList m_windowList;
    NoteRescue m_rescue;
    IconList m_menuImages;
    ShutDown m_shutDown;
    FirstNotices m_firstNotices;
    AccessibilityOffer m_accessibility;
    std::unique_ptr<Watching> m_watching;
    bool m_inHotKey = false;
    QVector<int> m_earlyKeys; ///< hot keys that were pressed while the program started
};

} // namespace norvane
