#pragma once

#include "fakes/FakeEventLoop.h"
#include "fakes/FakePrompts.h"
#include "fakes/FakeShell.h"
#include "fakes/FakeShellWindows.h"
#include "fakes/FakeWindowSystem.h"
#include "fakes/ManualTimer.h"
#include "fakes/MemorySettings.h"
#include "file_bytes.h"
#include "platform/InstanceLock.h"
#include "platform/linux/PosixFileSystem.h"
#include "platform/sqlite/SqliteEngine.h"
#include "shell/lifecycle/SharedState.h"
#include "shell/lifecycle/StartUp.h"
#include "shell/lifecycle/StartUpWindows.h"
#include "store/PasswordDialogModel.h"
#include "store/note_schema.h"
#include "windowlist/WindowLookup.h"

#include <QDir>
#include <QTemporaryDir>
#include <functional>

namespace norvane::test {

using namespace Qt::StringLiterals;

struct FakeInstanceLock : InstanceLock
{
    bool free = true;
    bool acquire() override { return free; }
};

struct NoLookup : WindowLookup
{
    bool IsTrackedClass(const QString &) const override { return false; }
    std::optional<QString> GetWindowLocation(WindowHandle) override { return QString(); }
};

/// Keeps the order of what start-up does with the windows, and answers the password dialog.
class RecordingWindows : public StartUpWindows
{
public:
    explicit RecordingWindows(const SharedState &state) : m_state(state) {}

    QStringList log;
    QRectF framePlace;
    int passwordDialogs = 0;
    QString explanation; ///< what the last password dialog said of the file
    /// Uses the password dialog; without it the dialog is cancelled.
    std::function<void(PasswordDialogModel &)> usePasswordDialog;
    int browserFault = 0; ///< number of an error that showing the browser raises

    /// With a mark while the database is open.
    void add(const QString &what) { log.append(m_state.store.database() ? what + u'*' : what); }

    void askPassword(PasswordDialogModel &model) override
    {
        add(u"password"_s);
        ++passwordDialogs;
        explanation = model.explanation();
        if (usePasswordDialog)
            usePasswordDialog(model);
        else
            model.Command2_Click();
    }
    void showSplash() override { add(u"splash"_s); }
    void unloadSplash() override { add(u"unload splash"_s); }
    WindowHandle loadFrame() override
    {
        add(u"load frame"_s);
        return 77;
    }
    void moveFrame(const QRectF &place) override
    {
        add(u"move frame"_s);
        framePlace = place;
    }
    void minimiseFrame() override { add(u"minimise frame"_s); }
    void showBrowser() override
    {
        add(u"show browser"_s);
        if (browserFault != 0)
            throw RuntimeError(browserFault, u"fault"_s);
    }
    void Refresh_tbCAT() override { add(u"Refresh_tbCAT"_s); }
    int categoryTabCount() const override { return 3; }
    void selectCategoryTab(int number) override { add(u"tab %1"_s.arg(number)); }
    void pressPreviewButton() override { add(u"preview"_s); }

private:
    const SharedState &m_state;
};

struct RecordingWindowSystem : fakes::FakeWindowSystem
{
    RecordingWindows *windows = nullptr;
    void lockWindowUpdate(WindowHandle window) override { windows->add(u"lock %1"_s.arg(window)); }
};

struct RecordingTimer : fakes::ManualTimer
{
    RecordingWindows *windows = nullptr;
    void setInterval(int milliseconds) override
    {
        windows->add(u"interval %1"_s.arg(milliseconds));
        ManualTimer::setInterval(milliseconds);
    }
};

/// A start of the program in a folder of its own, with the real engine and the real file system.
class StartUpHarness
{
public:
    StartUpHarness()
    {
        windowSystem.windows = &windows;
        timer.windows = &windows;
        events.duringYield = [this] { windows.add(u"yield"_s); };
        shell.folder = folder.filePath(u"norvane"_s);
        QDir().mkpath(shell.folder);
    }

    StartUp::Result run(const QStringList &arguments = {})
    {
        StartUp startUp(StartUpParts{state, instanceLock, settings, shell, prompts, events, windowSystem,
                                     shellWindows, true, lookup, timer, windows, Twips()});
        return startUp.run(arguments);
    }

    QString programFile(const QString &name) const { return shell.folder + u'/' + name; }
    QString notesFolder() const { return programFile(u"Notes/"_s); }
    QString databaseFile() const { return databaseFileIn(notesFolder()); }
    /// The text of the last message box; empty when there was none.
    QString lastBox() const { return prompts.boxes.isEmpty() ? QString() : prompts.boxes.constLast().text; }
    /// Whether the last box reported an error of that number.
    bool reported(int number) const
    {
        const QString begin =
            u"Norvane Startup Failed.\r\nError Code: %1\r\nError Description: "_s.arg(number);
        return lastBox().startsWith(begin) && lastBox().size() > begin.size();
    }

    /// Makes a sound database in the default folder.
    void makeDatabase(const QString &password = {})
    {
        QDir().mkpath(notesFolder());
        makeNoteDatabase(*engine, files, databaseFile());
        if (!password.isEmpty())
            engine->workspace(0)->openDatabase(databaseFile(), false, false, {})->newPassword({}, password);
    }

    QTemporaryDir folder;
    PosixFileSystem files;
    std::unique_ptr<dao::Engine> engine = dao::makeSqliteEngine();
    SharedState state{*engine, files};
    FakeInstanceLock instanceLock;
    fakes::MemorySettings settings;
    fakes::FakeShell shell;
    fakes::FakePrompts prompts;
    fakes::FakeEventLoop events;
    RecordingWindows windows{state};
    RecordingWindowSystem windowSystem;
    fakes::FakeShellWindows shellWindows;
    NoLookup lookup;
    RecordingTimer timer;
};

} // namespace norvane::test
