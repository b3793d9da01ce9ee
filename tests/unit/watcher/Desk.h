#pragma once

#include "fakes/FakeClock.h"
#include "fakes/FakeEventLoop.h"
#include "fakes/FakeFileSystem.h"
#include "fakes/FakeProcesses.h"
#include "fakes/FakeShell.h"
#include "fakes/FakeShellWindows.h"
#include "fakes/FakeSound.h"
#include "fakes/FakeStickyNote.h"
#include "fakes/FakeWindowSystem.h"
#include "fakes/ManualTimer.h"
#include "shell/Forms.h"
#include "store/NoteStore.h"
#include "watcher/WatchCycle.h"
#include "watcher/WatchSettings.h"
#include "watcher/clsClips.h"
#include "watcher/clsWindows.h"
#include "watcher/window_location.h"
#include "windowlist/CTaskList.h"

#include <QMap>
#include <QTemporaryDir>
#include <memory>
#include <vector>

namespace norvane::tests {

/// A whole watcher over a scripted desktop, with a database of its own in a real file.
class Desk
{
public:
    /// @param factory makes the notes; fake ones where there is none
    explicit Desk(StickyFactory *factory = nullptr);
    ~Desk();

    /// A browser window that shows a page.
    WindowHandle openPage(const QString &title, const QString &url);
    /// The browser window goes on to another page.
    void goTo(WindowHandle window, const QString &title, const QString &url);
    WindowHandle openFolder(const QString &title, const QString &path);
    /// A window that is known by its program.
    WindowHandle openDocument(const QString &title, const QString &program);

    /// Adds a note, active and for that location; @p values override or add columns. Requeries.
    int addNote(const QString &title, const QString &url, const QMap<QString, QVariant> &values = {});
    QVariant noteField(int id, const QString &column) const;
    int noteCount() const;

    /// The interval of the timer is over, @p times times.
    void tick(int times = 1);
    /// IDs of the notes that are open, in the order in which they opened.
    std::vector<int> openNotes() const;
    fakes::FakeStickyNote *note(int id) const;
    quint64 statements() const { return store.database()->statementCount(); }

    QTemporaryDir folder;
    fakes::FakeWindowSystem windows;
    fakes::FakeShellWindows shellWindows;
    fakes::FakeProcesses processes;
    fakes::FakeShell shell;
    fakes::FakeSound sound;
    fakes::FakeClock clock;
    fakes::FakeEventLoop events;
    fakes::FakeFileSystem files;
    fakes::ManualTimer timer;
    std::unique_ptr<dao::Engine> engine;
    NoteStore store;
    WatchSettings settings;
    WindowLocation location;
    CTaskList tasks;
    clsWindows LiveWindows;
    clsClips Clips;
    FormList forms;
    fakes::FakeStickyFactory stickies;
    WatchParts parts;
    WatchCycle cycle;
};

} // namespace norvane::tests
