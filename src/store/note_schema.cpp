#include "store/note_schema.h"

#include "platform/FileSystem.h"
#include "platform/RuntimeError.h"

namespace norvane {

namespace {

using dao::FieldDef;
using dao::FieldType;

constexpr int kFixed = dao::kFixedField;
constexpr int kVariable = dao::kVariableField;
constexpr int kCounter = dao::kFixedField | dao::kAutoIncrField;
constexpr int kMemoSize = 255;

/// A field with what all kinds have; numberFields() gives it its position.
FieldDef field(const QString &name, FieldType type, int size, int attributes,
               const QString &defaultValue = {})
{
    FieldDef field;
    field.name = name;
    field.type = type;
    field.size = size;
    field.attributes = attributes;
    field.defaultValue = defaultValue;
    return field;
}

FieldDef counter(const QString &name)
{
    return field(name, FieldType::Long, 4, kCounter);
}

FieldDef longField(const QString &name, const QString &defaultValue = {})
{
    return field(name, FieldType::Long, 4, kFixed, defaultValue);
}

FieldDef integerField(const QString &name, const QString &defaultValue)
{
    return field(name, FieldType::Integer, 2, kFixed, defaultValue);
}

FieldDef yesNo(const QString &name, const QString &defaultValue = {})
{
    return field(name, FieldType::Boolean, 1, kFixed, defaultValue);
}

FieldDef date(const QString &name)
{
    return field(name, FieldType::Date, 8, kFixed);
}

FieldDef text(const QString &name, int size, const QString &defaultValue = {})
{
    return field(name, FieldType::Text, size, kVariable, defaultValue);
}

FieldDef memo(const QString &name)
{
    return field(name, FieldType::Memo, kMemoSize, kVariable);
}

FieldDef required(FieldDef field)
{
    field.required = true;
    return field;
}

FieldDef zeroLength(FieldDef field)
{
    field.allowZeroLength = true;
    return field;
}

void numberFields(dao::TableDef &table, int skippedPosition)
{
    int position = 0;
    for (FieldDef &field : table.fields) {
        if (position == skippedPosition)
            ++position;
        field.ordinalPosition = position++;
    }
}

dao::IndexDef primaryKey(const QString &name, const QString &field)
{
    dao::IndexDef index;
    index.name = name;
    index.field = field;
    index.primary = true;
    index.unique = true;
    index.required = true;
    return index;
}

std::unique_ptr<dao::Database> makeFile(dao::Workspace &workspace, const QString &path)
{
    return workspace.createDatabase(path, QStringLiteral(";LANGID=0x0409;CP=1252;COUNTRY=0"));
}

/// Closes and removes a database that did not get its tables.
void discard(dao::Database &database, FileSystem &files, const QString &path)
{
    try {
        database.close();
        files.remove(path);
    } catch (const RuntimeError &) {
        // The error that brought us here is the one to be told.
    }
}

void makeTables(dao::Database &database, FileSystem &files, const QString &path)
{
    try {
        database.appendTable(categoryTable());
        database.appendTable(memosTable());
    } catch (const RuntimeError &) {
        discard(database, files, path);
        throw;
    }
    database.close();
}

} // namespace

QString databaseFileIn(const QString &folder)
{
    return folder + kDatabaseFileName.toString();
}

QString bodyFileIn(const QString &folder, int ID)
{
    return folder + QStringLiteral("Norvane_%1").arg(ID, 8, 10, QChar(u'0'));
}

dao::TableDef categoryTable()
{
    dao::TableDef table;
    table.name = QStringLiteral("Category");
    table.fields = {
        counter(QStringLiteral("ID")),
        required(text(QStringLiteral("Name"), 50, QStringLiteral("New Category"))),
        required(yesNo(QStringLiteral("isDefault"), QStringLiteral("0"))),
        integerField(QStringLiteral("Icon"), QStringLiteral("1")),
    };
    numberFields(table, -1);
    table.indexes = {primaryKey(QStringLiteral("ID"), QStringLiteral("ID"))};
    return table;
}

dao::TableDef memosTable()
{
    dao::TableDef table;
    table.name = QStringLiteral("Memos");
    table.fields = {
        counter(QStringLiteral("ID")),
        required(zeroLength(text(QStringLiteral("WindowName"), 255))),
        zeroLength(memo(QStringLiteral("URL"))),
        date(QStringLiteral("LastUpdate")),
        longField(QStringLiteral("winTop"), QStringLiteral("0")),
        longField(QStringLiteral("winLeft"), QStringLiteral("0")),
        longField(QStringLiteral("winWidth"), QStringLiteral("5100")),
        longField(QStringLiteral("winHeight"), QStringLiteral("3800")),
        required(yesNo(QStringLiteral("Active"), QStringLiteral("-1"))),
        yesNo(QStringLiteral("PlaySound"), QStringLiteral("0")),
        date(QStringLiteral("LastVisit")),
        date(QStringLiteral("LastTimeSpent")),
        zeroLength(text(QStringLiteral("FriendlyName"), 255)),
        zeroLength(text(QStringLiteral("ClassName"), 50)),
        // A pale yellow, C0FFFF in blue, green, red. The blank is in the files of earlier builds.
        longField(QStringLiteral("BackColor"), QStringLiteral("12648447 ")),
        yesNo(QStringLiteral("ShowToolbar"), QStringLiteral("0")),
        integerField(QStringLiteral("FormPosition"), QStringLiteral("0")),
        date(QStringLiteral("DateCreated")),
        yesNo(QStringLiteral("AutoSave")),
        zeroLength(text(QStringLiteral("WAVFileName"), 50)),
        required(longField(QStringLiteral("CAT_ID"))),
        yesNo(QStringLiteral("TypeEffect"), QStringLiteral("0")),
        zeroLength(text(QStringLiteral("LocationName"), 255)),
        yesNo(QStringLiteral("AutoURLDetect"), QStringLiteral("0")),
        zeroLength(text(QStringLiteral("KeyWords"), 255)),
        zeroLength(memo(QStringLiteral("NoteText"))),
    };
    numberFields(table, 21);
    dao::IndexDef plain;
    plain.name = QStringLiteral("ID");
    plain.field = QStringLiteral("ID");
    table.indexes = {plain, primaryKey(QStringLiteral("PrimaryKey"), QStringLiteral("ID"))};
    return table;
}

void makeNoteDatabase(dao::Engine &engine, FileSystem &files, const QString &path)
{
    const std::shared_ptr<dao::Workspace> workspace = engine.workspace(0);
    const std::unique_ptr<dao::Database> database = makeFile(*workspace, path);
    makeTables(*database, files, path);
    workspace->close();
}

bool CreateNoteDatabase(dao::Engine &engine, FileSystem &files, const QString &path)
{
    const std::shared_ptr<dao::Workspace> workspace = engine.workspace(0);
    std::unique_ptr<dao::Database> database;
    try {
        database = makeFile(*workspace, path);
    } catch (const RuntimeError &) {
        return false;
    }
    makeTables(*database, files, path);
    workspace->close();
    return true;
}

} // namespace norvane
