#pragma once

#include "platform/RuntimeError.h"
#include "platform/dao.h"
#include "platform/errors.h"
#include "platform/sqlite/SqliteEngine.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace norvane::dao {

/// A table with every kind of field, as the note tables have them.
inline TableDef notesTable()
{
    const auto field = [](const char16_t *name, FieldType type, int size, const char16_t *standard,
                          bool required, bool zeroLength, int position) {
        FieldDef result;
        result.name = QStringView(name).toString();
        result.type = type;
        result.size = size;
        result.attributes = type == FieldType::Text || type == FieldType::Memo ? kVariableField : kFixedField;
        result.defaultValue = QStringView(standard).toString();
        result.required = required;
        result.allowZeroLength = zeroLength;
        result.ordinalPosition = position;
        return result;
    };
    TableDef table;
    table.name = QStringLiteral("Memos");
    table.fields = {
        field(u"ID", FieldType::Long, 4, u"", false, false, 0),
        field(u"WindowName", FieldType::Text, 255, u"", true, true, 1),
        field(u"URL", FieldType::Memo, 255, u"", false, true, 2),
        field(u"LastUpdate", FieldType::Date, 8, u"", false, false, 3),
        field(u"winWidth", FieldType::Long, 4, u"5100", false, false, 4),
        field(u"Active", FieldType::Boolean, 1, u"-1", true, false, 5),
        field(u"FriendlyName", FieldType::Text, 20, u"", false, false, 6),
        field(u"BackColor", FieldType::Long, 4, u"12648447 ", false, false, 7),
        field(u"FormPosition", FieldType::Integer, 2, u"0", false, false, 8),
        field(u"AutoSave", FieldType::Boolean, 1, u"", false, false, 9),
        field(u"CAT_ID", FieldType::Long, 4, u"", true, false, 12),
        field(u"LocationName", FieldType::Text, 255, u"New Note", false, true, 13),
    };
    table.fields[0].attributes = kFixedField | kAutoIncrField;
    IndexDef plain;
    plain.name = QStringLiteral("ID");
    plain.field = QStringLiteral("ID");
    IndexDef primary = plain;
    primary.name = QStringLiteral("PrimaryKey");
    primary.primary = primary.unique = primary.required = true;
    table.indexes = {plain, primary};
    return table;
}

/// The number of the error that the call raises, 0 when it raises none.
template <typename Call> int errorOf(Call call)
{
    try {
        call();
    } catch (const RuntimeError &error) {
        EXPECT_FALSE(error.description().isEmpty());
        return error.number();
    }
    return 0;
}

/// A database file of its own for each test.
class DaoTest : public testing::Test
{
protected:
    DaoTest()
        : folder(fastFolder() + QStringLiteral("/norvane-dao-XXXXXX")),
          file(folder.filePath(QStringLiteral("Norvane.DAT"))), engine(makeSqliteEngine()),
          workspace(engine->workspace(0))
    {
    }

    /// Makes the file with the table above and keeps it open as `database`.
    void createNotes()
    {
        database = workspace->createDatabase(file, QStringLiteral(";LANGID=0x0409;CP=1252;COUNTRY=0"));
        database->appendTable(notesTable());
    }

    std::unique_ptr<Database> open(const QString &password = {}, bool readOnly = false,
                                   bool exclusive = false)
    {
        return workspace->openDatabase(file, exclusive, readOnly, QStringLiteral(";pwd=") + password);
    }

    std::unique_ptr<Recordset> rows(const QString &sql, RecordsetType type = RecordsetType::Dynaset)
    {
        return database->openRecordset(sql, type);
    }

    /// Adds a note; returns its number.
    int add(const QString &windowName, const QString &url = QStringLiteral("u"),
            const QString &locationName = {})
    {
        const auto target = rows(QStringLiteral("select * from memos where false"));
        target->addNew();
        const int id = target->field(QStringLiteral("id")).toInt();
        target->setField(QStringLiteral("windowname"), windowName);
        target->setField(QStringLiteral("URL"), url);
        target->setField(QStringLiteral("LocationName"), locationName);
        target->setField(QStringLiteral("CAT_ID"), 0);
        target->update();
        return id;
    }

    /// The IDs that the statement gives, with a blank after each.
    QString ids(const QString &sql, RecordsetType type = RecordsetType::ForwardOnly)
    {
        return ids(*rows(sql, type));
    }
    static QString ids(Recordset &set)
    {
        QString result;
        for (; !set.eof(); set.moveNext())
            result += set.field(QStringLiteral("ID")).toString() + u' ';
        return result;
    }
    QString idsWhere(const QString &condition)
    {
        return ids(QStringLiteral("select ID from Memos where ") + condition);
    }

    /// In memory, where there is such a place: thousands of durable saves on a busy disk take minutes.
    static QString fastFolder()
    {
        const QString memory = QStringLiteral("/dev/shm");
        return QFileInfo(memory).isWritable() ? memory : QDir::tempPath();
    }

    QTemporaryDir folder;
    QString file;
    std::unique_ptr<Engine> engine;
    std::shared_ptr<Workspace> workspace;
    std::unique_ptr<Database> database;
};

} // namespace norvane::dao
