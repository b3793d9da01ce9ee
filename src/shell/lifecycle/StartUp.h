#pragma once

#include "shell/Twips.h"

#include <QStringList>

namespace norvane {

class EventLoop;
class InstanceLock;
class Prompts;
class SettingsStore;
class Shell;
class ShellWindows;
class StartUpWindows;
class WatchTimer;
class WindowLookup;
class WindowSystem;
struct SharedState;

/// What start-up works with. Everything outlives it.
struct StartUpParts
{
    SharedState &state;
    InstanceLock &instanceLock;
    const SettingsStore &settings;
    const Shell &shell;
    Prompts &prompts;
    EventLoop &events;
    WindowSystem &windowSystem;
    ShellWindows &shellWindows;
    bool shellWindowsAvailable; ///< whether this desktop can tell the locations of windows at all
    WindowLookup &windowLookup;
    WatchTimer &timer;
    StartUpWindows &windows;
    Twips twips;
};

/// The start of the program: settles where the notes are, makes and opens the database, fills the
/// shared state, loads the frame and the browser, starts the watch timer.
class StartUp
{
public:
    explicit StartUp(const StartUpParts &parts);

    enum class Result {
        Running,        ///< go on with the event loop
        AlreadyRunning, ///< another process is there; end without a word
        Failed,         ///< the error has been shown; end at once
    };
    /// @param arguments the command line without the program's name
    Result run(const QStringList &arguments);

private:
    void start(const QStringList &arguments);
    void readCommandLine(const QStringList &arguments);
    void findDatabaseFolder();
    QString customFolder(const QString &setting);
    QString defaultFolder();
    void makeDatabaseIfMissing();
    void avoidLockedDatabase();
    void writeDefaultSound();
    void askPassword();
    void showSplash();
    void openDatabase();
    void fillWatchSettings();
    void makeTaskList();
    void loadFrame();
    void placeFrame();
    void loadBrowser();
    void restoreCategory();
    void startWatching();

    StartUpParts m_parts;
    SharedState &m_state;
};

} // namespace norvane
