#pragma once

#include "fakes/FakeClock.h"
#include "fakes/FakeEventLoop.h"
#include "fakes/FakeShell.h"
#include "fakes/FakeSound.h"
#include "fakes/FakeWindowSystem.h"
#include "fakes/ManualTimer.h"
#include "shell/Forms.h"
#include "ui/WindowParts.h"
#include "unit/store/StoreOnDisk.h"
#include "watcher/WatchSettings.h"

namespace norvane::tests {

using namespace Qt::StringLiterals;

/// A note store in real files, and a scripted desktop.
class StoreOnDesktop : public test::StoreOnDisk
{
public:
    FormList forms;
    fakes::FakeShell shell;
    fakes::FakeClock clock;
    fakes::FakeSound sound;
    fakes::FakeEventLoop events;
    fakes::FakeWindowSystem windows;
    fakes::ManualTimer timer;
    WatchSettings watch;
};

/// What the browser's windows work with, with an open note database.
class BrowserDesk : public StoreOnDesktop, public WindowParts
{
public:
    BrowserDesk() : WindowParts(files, shell, clock)
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

    BrowserServices services = browserServices<StoreOnDesktop>(*this, watch);
};

} // namespace norvane::tests
