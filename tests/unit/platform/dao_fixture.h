#pragma once

#include "error_of.h"
#include "platform/errors.h"
#include "platform/sqlite/SqliteEngine.h"
#include "store/note_schema.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace norvane::dao {

using namespace Qt::StringLiterals;

/// A database file of its own for each test.
class DaoTest : public testing::Test
{
protected:
    /// Makes the file with the program's two tables and keeps it open as `database`.
    void createNotes()
    {
        database = workspace->createDatabase(file, u";LANGID=0x0409;CP=1252;COUNTRY=0"_s);
        database->appendTable(categoryTable());
        database->appendTable(memosTable());
    }

    std::unique_ptr<Database> open(const QString &password = {}, bool readOnly = false,
                                   bool exclusive = false)
    {
        return workspace->openDatabase(file, exclusive, readOnly, u";pwd="_s + password);
    }

    std::unique_ptr<Recordset> rows(const QString &sql, RecordsetType type = RecordsetType::Dynaset)
    {
        return database->openRecordset(sql, type);
    }
    std::unique_ptr<Recordset> notes(const QString &condition = u"true"_s)
    {
        return rows(u"select * from Memos where "_s + condition);
    }

    /// Adds a note; returns its number.
    int add(const QString &windowName, const QString &url = u"u"_s, const QString &locationName = {})
    {
        const auto target = notes(u"false"_s);
        target->addNew();
        const int id = target->field(u"id"_s).toInt();
        target->setField(u"windowname"_s, windowName);
        target->setField(u"URL"_s, url);
        target->setField(u"LocationName"_s, locationName);
        target->setField(u"CAT_ID"_s, 0);
        target->update();
        return id;
    }
    void change(int id, const QString &field, const QVariant &value)
    {
        const auto note = notes(u"ID=%1"_s.arg(id));
        note->edit();
        note->setField(field, value);
        note->update();
    }
    void removeNote(int id) { notes(u"ID=%1"_s.arg(id))->remove(); }

    /// The IDs of the records from the current one on, with a blank after each.
    static QString ids(Recordset &set)
    {
        QString result;
        for (; !set.eof(); set.moveNext())
            result += set.field(u"ID"_s).toString() + u' ';
        return result;
    }
    QString ids(const QString &sql) { return ids(*rows(sql, RecordsetType::ForwardOnly)); }
    QString idsWhere(const QString &condition) { return ids(u"select ID from Memos where "_s + condition); }

    /// In memory, where there is such a place: thousands of durable saves on a busy disk take minutes.
    static QString fastFolder()
    {
        const QString memory = u"/dev/shm"_s;
        return QFileInfo(memory).isWritable() ? memory : QDir::tempPath();
    }

    QTemporaryDir folder{fastFolder() + u"/norvane-dao-XXXXXX"_s};
    QString file = folder.filePath(u"Norvane.DAT"_s);
    std::unique_ptr<Engine> engine = makeSqliteEngine();
    std::shared_ptr<Workspace> workspace = engine->workspace(0);
    std::unique_ptr<Database> database;
};

} // namespace norvane::dao
