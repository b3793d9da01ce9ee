#pragma once

#include "browser/BrowserServices.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeEventLoop.h"
#include "fakes/FakeNoteGridView.h"
#include "fakes/FakeNoteViews.h"
#include "fakes/FakePrinting.h"
#include "fakes/FakePrompts.h"
#include "fakes/FakeShell.h"
#include "fakes/FakeSound.h"
#include "fakes/FakeWindowSystem.h"
#include "fakes/ManualTimer.h"
#include "fakes/MemorySettings.h"
#include "richtext/EditServices.h"
#include "richtext/commands/EditState.h"
#include "shell/Forms.h"
#include "unit/store/StoreOnDisk.h"
#include "watcher/WatchSettings.h"

namespace norvane::tests {

using namespace Qt::StringLiterals;

/// What the browser's windows work with: a note database in a real file, and a scripted desktop.
class BrowserDesk : public test::StoreOnDisk
{
public:
    BrowserDesk()
    {
        makeDatabase();
        store.open();
    }

    /// @return the ID of the new category
    int addCategory(const QString &name)
    {
        dao::Recordset &categories = *store.CategorySet();
        categories.addNew();
        categories.setField(u"Name"_s, name);
        const int ID = categories.field(u"ID"_s).toInt();
        categories.update();
        categories.requery();
        return ID;
    }
    void setField(int note, const QString &column, const QVariant &value)
    {
        const auto row = notes(u"ID=%1"_s.arg(note));
        row->edit();
        row->setField(column, value);
        row->update();
        store.requeryNoteSet();
        store.requeryNoteIndex();
    }
    QVariant field(int note, const QString &column) { return notes(u"ID=%1"_s.arg(note))->field(column); }
    int noteCount() { return notes(u"true"_s)->recordCount(); }

    FormList forms;
    fakes::MemorySettings settings;
    fakes::FakeShell shell;
    fakes::FakePrompts prompts;
    fakes::FakePrinting printing;
    fakes::FakeClock clock;
    fakes::FakeSound sound;
    fakes::FakeEventLoop events;
    fakes::FakeWindowSystem windows;
    fakes::ManualTimer timer;
    WatchSettings watch;
    EditState editState;
    EditServices edit{files, shell, prompts, printing, clock, editState};
    fakes::FakeNoteGridView browserView;
    fakes::FakeNoteViews views;
    bool isFrameVisible = true;
    BrowserServices services{.store = store,
                             .forms = forms,
                             .settings = settings,
                             .shell = shell,
                             .clock = clock,
                             .sound = sound,
                             .events = events,
                             .windows = windows,
                             .timer = timer,
                             .watch = watch,
                             .edit = edit,
                             .browser = browserView,
                             .views = views,
                             .isFrameVisible = [this] { return isFrameVisible; },
                             .twips = Twips(96, 96)};
};

} // namespace norvane::tests
