#pragma once

#include "unit/store/StoreOnDisk.h"

#include "browser/BrowserServices.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeEventLoop.h"
#include "fakes/FakeNoteGridView.h"
#include "fakes/FakeNoteViews.h"
#include "fakes/FakeNotifier.h"
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
#include "store/NoteRescue.h"
#include "watcher/WatchSettings.h"

#include <QCoreApplication>
#include <QDir>
#include <QEvent>

namespace norvane::test {

/// What the browser's windows stand on: a real database with real body files, the rest scripted.
class EditorDesk : protected StoreOnDisk
{
protected:
    EditorDesk()
    {
        makeDatabase();
        store.open();
    }
    ~EditorDesk() { finishUnloading(); }

    static void finishUnloading() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
    static QByteArray richText(const QByteArray &text) { return "{\\rtf1\\ansi " + text + "}"; }

    int addNoteWithBody(const QString &title, const QByteArray &text)
    {
        const int ID = addNote(title);
        files.write(store.bodyFile(ID), richText(text));
        return ID;
    }
    QVariant field(int ID, const QString &name) { return notes(u"ID=%1"_s.arg(ID))->field(name); }
    void set(int ID, const QString &name, const QVariant &value)
    {
        const auto row = notes(u"ID=%1"_s.arg(ID));
        row->edit();
        row->setField(name, value);
        row->update();
    }
    void removeRow(int ID) { notes(u"ID=%1"_s.arg(ID))->remove(); }
    QStringList rescued() const { return QDir(folder.path() + u"/Rescued"_s).entryList(QDir::Files); }

    FormList forms;
    fakes::MemorySettings settings;
    fakes::FakeShell shell;
    fakes::FakeClock clock;
    fakes::FakeSound sound;
    fakes::FakeEventLoop events;
    fakes::FakeWindowSystem windows;
    fakes::ManualTimer timer;
    WatchSettings watch;
    fakes::FakePrompts prompts;
    fakes::FakePrinting printing;
    EditState editState;
    EditServices edit{files, shell, prompts, printing, clock, editState};
    fakes::FakeNoteGridView grid;
    fakes::FakeNoteViews views;
    bool isFrameVisible = false;
    BrowserServices services{
        store,        forms, settings, shell, clock, sound, events,
        windows,      timer, watch,    edit,  grid,  views, [this] { return isFrameVisible; },
        Twips(96, 96)};
    fakes::FakeNotifier notifier;
    NoteRescue rescue{store, files, clock, notifier, [](const QString &) {}};
};

} // namespace norvane::test
