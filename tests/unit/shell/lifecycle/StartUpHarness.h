#pragma once

#include "fakes/FakeEventLoop.h"
#include "fakes/FakePrompts.h"
#include "fakes/FakeShell.h"
#include "fakes/FakeShellWindows.h"
#include "fakes/FakeWindowSystem.h"
#include "fakes/ManualTimer.h"
#include "fakes/MemorySettings.h"
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
#include <QFile>
#include <QTemporaryDir>
#include <functional>

namespace norvane::test {

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
    int tabs = 3;
    QRectF framePlace;
    int passwordDialogs = 0;
    QString explanation; ///< what the last password dialog said of the file
    /// Uses the password dialog; without it the dialog is cancelled.
    std::function<void(PasswordDialogModel &)> usePasswordDialog;
    static constexpr WindowHandle kFrame = 77;

    void add(const QString &what) { log.append(what); }

    void askPassword(PasswordDialogModel &model) override
    {
        add(QStringLiteral("password"));
        ++passwordDialogs;
        explanation = model.explanation();
        if (usePasswordDialog)
            usePasswordDialog(model);
        else
            model.Command2_Click();
    }
    void showSplash() override { add(QStringLiteral("splash, database ") + database()); }
    void unloadSplash() override { add(QStringLiteral("unload splash")); }
    WindowHandle loadFrame() override
    {
        add(QStringLiteral("load frame, database ") + database());
        return kFrame;
    }
    void moveFrame(const QRectF &place) override
    {
        add(QStringLiteral("move frame"));
        framePlace = place;
    }
    void minimiseFrame() override { add(QStringLiteral("minimise frame")); }
    void showBrowser() override { add(QStringLiteral("show browser")); }
    void Refresh_tbCAT() override { add(QStringLiteral("Refresh_tbCAT")); }
    int categoryTabCount() const override { return tabs; }
    void selectCategoryTab(int number) override { add(QStringLiteral("tab %1").arg(number)); }
    void pressPreviewButton() override { add(QStringLiteral("preview")); }

private:
    QString database() const
    {
        return m_state.store.database() ? QStringLiteral("open") : QStringLiteral("closed");
    }

    const SharedState &m_state;
};

struct RecordingWindowSystem : fakes::FakeWindowSystem
{
    RecordingWindows *windows = nullptr;
    void lockWindowUpdate(WindowHandle window) override
    {
        windows->add(QStringLiteral("lock %1").arg(window));
        FakeWindowSystem::lockWindowUpdate(window);
    }
};

struct RecordingTimer : fakes::ManualTimer
{
    RecordingWindows *windows = nullptr;
    void setInterval(int milliseconds) override
    {
        windows->add(QStringLiteral("interval %1").arg(milliseconds));
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
        events.duringYield = [this] { windows.add(QStringLiteral("yield")); };
        shell.folder = folder.filePath(QStringLiteral("norvane"));
        QDir().mkpath(shell.folder);
    }

    StartUp::Result run(const QStringList &arguments = {})
    {
        StartUp startUp(StartUpParts{state, instanceLock, settings, shell, prompts, events, windowSystem,
                                     shellWindows, true, lookup, timer, windows, Twips()});
        return startUp.run(arguments);
    }

    QString programFile(const QString &name) const { return shell.folder + u'/' + name; }
    QString notesFolder() const { return programFile(QStringLiteral("Notes/")); }
    QString databaseFile() const { return databaseFileIn(notesFolder()); }
    /// The text of the last message box; empty when there was none.
    QString lastBox() const { return prompts.boxes.isEmpty() ? QString() : prompts.boxes.constLast().text; }

    /// Puts a file where the database would be, before any start.
    void putDatabase(const QByteArray &bytes) const
    {
        QDir().mkpath(notesFolder());
        QFile file(databaseFile());
        if (file.open(QIODevice::WriteOnly))
            file.write(bytes);
    }
    static QByteArray bytesOf(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
    }
    /// Makes a sound database in the default folder.
    void makeDatabase(const QString &password = {})
    {
        QDir().mkpath(notesFolder());
        makeNoteDatabase(*engine, files, databaseFile());
        if (password.isEmpty())
            return;
        const auto database = engine->workspace(0)->openDatabase(databaseFile(), false, false, QString());
        database->newPassword(QString(), password);
        database->close();
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
