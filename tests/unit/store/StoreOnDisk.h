#pragma once

#include "error_of.h"
#include "file_bytes.h"
#include "platform/linux/PosixFileSystem.h"
#include "platform/sqlite/SqliteEngine.h"
#include "store/NoteStore.h"
#include "store/note_schema.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace norvane::test {

using namespace Qt::StringLiterals;

/// A note store on real files in a folder of its own; nothing is made or opened yet.
class StoreOnDisk
{
public:
    StoreOnDisk()
    {
        store.DatabaseFolder = folder.path() + u'/';
        store.DatabaseFile = databaseFileIn(store.DatabaseFolder);
        store.programFolder = folder.path();
    }

    void makeDatabase(const QString &password = {})
    {
        makeNoteDatabase(*engine, files, store.DatabaseFile);
        if (!password.isEmpty())
            setPassword(store.DatabaseFile, password);
    }
    void setPassword(const QString &file, const QString &password)
    {
        engine->workspace(0)->openDatabase(file, false, false, {})->newPassword({}, password);
    }
    std::unique_ptr<dao::Recordset> notes(const QString &condition)
    {
        return store.database()->openRecordset(u"select * from Memos where "_s + condition);
    }
    /// @return the ID of the new note
    int addNote(const QString &friendlyName, const QVariant &url = {})
    {
        const auto row = notes(u"false"_s);
        row->addNew();
        row->setField(u"WindowName"_s, friendlyName);
        row->setField(u"FriendlyName"_s, friendlyName);
        row->setField(u"URL"_s, url);
        row->setField(u"CAT_ID"_s, 0);
        const int ID = row->field(u"ID"_s).toInt();
        row->update();
        return ID;
    }
    /// What stands in the database's file.
    QByteArray bytes() const { return bytesOf(store.DatabaseFile); }

    QTemporaryDir folder;
    PosixFileSystem files;
    std::unique_ptr<dao::Engine> engine = dao::makeSqliteEngine();
    NoteStore store{*engine, files};
};

} // namespace norvane::test
