#pragma once

#include "platform/RuntimeError.h"
#include "platform/linux/PosixFileSystem.h"
#include "platform/sqlite/SqliteEngine.h"
#include "store/NoteStore.h"
#include "store/note_schema.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace norvane::test {

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

    void makeDatabase() { makeNoteDatabase(*engine, files, store.DatabaseFile); }
    /// @return the ID of the new note
    int addNote(const QString &friendlyName, const QVariant &url = {})
    {
        const auto notes = store.database()->openRecordset(QStringLiteral("select * from Memos where false"));
        notes->addNew();
        notes->setField(QStringLiteral("WindowName"), friendlyName);
        notes->setField(QStringLiteral("FriendlyName"), friendlyName);
        notes->setField(QStringLiteral("URL"), url);
        notes->setField(QStringLiteral("CAT_ID"), 0);
        const int ID = notes->field(QStringLiteral("ID")).toInt();
        notes->update();
        store.requeryNoteIndex();
        return ID;
    }
    QByteArray bytes() const { return bytesOf(store.DatabaseFile); }
    static QByteArray bytesOf(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
    }
    void put(const QString &path, const QByteArray &bytes)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    void setPassword(const QString &password)
    {
        const auto database = engine->workspace(0)->openDatabase(store.DatabaseFile, false, false, QString());
        database->newPassword(QString(), password);
        database->close();
    }

    QTemporaryDir folder;
    PosixFileSystem files;
    std::unique_ptr<dao::Engine> engine = dao::makeSqliteEngine();
    NoteStore store{*engine, files};
};

/// The number of the run-time error that @p action raises; 0 when it raises none.
template <typename Action> int errorOf(Action action)
{
    try {
        action();
    } catch (const RuntimeError &error) {
        return error.number();
    }
    return 0;
}

} // namespace norvane::test
