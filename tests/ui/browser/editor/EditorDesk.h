#pragma once

#include "fakes/FakeNotifier.h"
#include "store/NoteRescue.h"
#include "ui/browser/BrowserDesk.h"

#include <QCoreApplication>
#include <QDir>
#include <QEvent>

namespace norvane::test {

/// What editors and preview stand on: the browser's desk, with real body files.
class EditorDesk : protected tests::BrowserDesk
{
protected:
    EditorDesk() { isFrameVisible = false; }
    ~EditorDesk() { finishUnloading(); }

    static void finishUnloading() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
    static QByteArray richText(const QByteArray &text) { return "{\\rtf1\\ansi " + text + "}"; }

    int addNoteWithBody(const QString &title, const QByteArray &text)
    {
        const int ID = addNote(title);
        files.write(store.bodyFile(ID), richText(text));
        return ID;
    }
    void removeRow(int ID) { notes(u"ID=%1"_s.arg(ID))->remove(); }
    QStringList rescued() const { return QDir(folder.path() + u"/Rescued"_s).entryList(QDir::Files); }

    fakes::FakeNotifier notifier;
    NoteRescue rescue{store, files, clock, notifier, [](const QString &) {}};
};

} // namespace norvane::test
