#include "platform/sqlite/Catalogue.h"

#include "platform/RuntimeError.h"
#include "platform/errors.h"
#include "platform/sqlite/Connection.h"
#include "platform/sqlite/SqlWriter.h"
#include "platform/sqlite/values.h"

#include <QSet>

namespace norvane::dao {

namespace {

[[noreturn]] void raiseBadDefinition(const QString &reason)
{
    throw RuntimeError(kErrorTypeMismatch, QStringLiteral("The table cannot be made: %1.").arg(reason));
}

QString literal(const QVariant &value)
{
    if (value.typeId() == QMetaType::Bool)
        return value.toBool() ? QStringLiteral("-1") : QStringLiteral("0");
    if (value.typeId() == QMetaType::Int)
        return value.toString();
    QString text = value.typeId() == QMetaType::QDateTime ? storedDate(value.toDateTime()) : value.toString();
    return u'\'' + text.replace(u'\'', QStringLiteral("''")) + u'\'';
}

bool isInteger(FieldType type)
{
    return type == FieldType::Boolean || type == FieldType::Integer || type == FieldType::Long;
}

QByteArray columnSql(const FieldDef &field, bool key)
{
    const QByteArray name = quoted(field.name);
    if (key)
        return name + " INTEGER PRIMARY KEY AUTOINCREMENT";
    QByteArray sql = name + (isInteger(field.type) ? " INTEGER" : " TEXT");
    if (field.required)
        sql += " NOT NULL";
    const QVariant standard = defaultOf(field);
    if (standard.isValid())
        sql += " DEFAULT " + literal(standard).toUtf8();
    return sql;
}

void checkNames(const TableDef &table)
{
    QSet<QString> names;
    if (table.name.isEmpty() || table.name.startsWith(u"sqlite_", Qt::CaseInsensitive) ||
        table.name.startsWith(u"norvane_", Qt::CaseInsensitive) || table.name.contains(QChar(0)))
        raiseBadDefinition(QStringLiteral("its name cannot be used"));
    if (table.fields.isEmpty())
        raiseBadDefinition(QStringLiteral("it has no field"));
    for (const FieldDef &field : table.fields) {
        const QString name = field.name.toCaseFolded();
        if (name.isEmpty() || name.contains(QChar(0)) || name == u"rowid" || name == u"oid" ||
            name == u"_rowid_" || names.contains(name))
            raiseBadDefinition(QStringLiteral("the field name '%1' cannot be used").arg(field.name));
        names.insert(name);
        if ((field.attributes & kAutoIncrField) != 0 && field.type != FieldType::Long)
            raiseBadDefinition(QStringLiteral("the field '%1' cannot count up").arg(field.name));
    }
    for (const IndexDef &index : table.indexes)
        if (!names.contains(index.field.toCaseFolded()))
            raiseBadDefinition(QStringLiteral("the index '%1' has no field").arg(index.name));
}

/// An index on the key is there by itself, any number of times.
void createIndex(Connection &connection, const TableDef &table, const IndexDef &index)
{
    const int key = autoIncrementField(table);
    if (key >= 0 && table.fields[key].name.compare(index.field, Qt::CaseInsensitive) == 0)
        return;
    for (const FieldDef &field : table.fields)
        if (field.name.compare(index.field, Qt::CaseInsensitive) == 0 && !isInteger(field.type) &&
            (index.unique || index.primary))
            raiseBadDefinition(QStringLiteral("only numbers can be unique"));
    connection.run((index.unique || index.primary ? "CREATE UNIQUE INDEX " : "CREATE INDEX ") +
                   quoted(table.name + u'_' + index.name) + " ON " + quoted(table.name) + "(" +
                   quoted(index.field) + ")");
}

void noteDefinition(Connection &connection, const TableDef &table)
{
    connection.run("INSERT INTO norvane_tables(name, attributes, connect, source_table, rule, rule_text)"
                   " VALUES (?,?,?,?,?,?)",
                   {table.name, table.attributes, table.connect, table.sourceTableName, table.validationRule,
                    table.validationText});
    int place = 0;
    for (const FieldDef &field : table.fields)
        connection.run("INSERT INTO norvane_fields VALUES (?,?,?,?,?,?,?,?,?,?,?,?)",
                       {table.name, place++, field.name, static_cast<int>(field.type), field.size,
                        field.attributes, field.defaultValue, field.ordinalPosition, field.required,
                        field.allowZeroLength, field.validationRule, field.validationText});
    place = 0;
    for (const IndexDef &index : table.indexes)
        connection.run("INSERT INTO norvane_indexes VALUES (?,?,?,?,?,?,?,?,?)",
                       {table.name, place++, index.name, index.field, index.primary, index.unique,
                        index.required, index.clustered, index.ignoreNulls});
}

} // namespace

void createCatalogue(Connection &connection)
{
    Transaction transaction(connection, Transaction::Kind::Write);
    connection.run("CREATE TABLE norvane_tables(number INTEGER PRIMARY KEY, name TEXT, attributes INTEGER,"
                   " connect TEXT, source_table TEXT, rule TEXT, rule_text TEXT)");
    connection.run(
        "CREATE TABLE norvane_fields(table_name TEXT, place INTEGER, name TEXT, type INTEGER, size INTEGER,"
        " attributes INTEGER, default_value TEXT, ordinal_position INTEGER, required INTEGER,"
        " allow_zero_length INTEGER, rule TEXT, rule_text TEXT)");
    connection.run("CREATE TABLE norvane_indexes(table_name TEXT, place INTEGER, name TEXT, field TEXT,"
                   " is_primary INTEGER, is_unique INTEGER, required INTEGER, clustered INTEGER,"
                   " ignore_nulls INTEGER)");
    connection.run("PRAGMA application_id=" + QByteArray::number(kApplicationId));
    connection.run("PRAGMA user_version=" + QByteArray::number(kSchemaVersion));
    transaction.commit();
}

QVector<TableDef> readTableDefs(Connection &connection)
{
    const Transaction transaction(connection, Transaction::Kind::Read);
    QVector<TableDef> tables;
    Statement tableRows = connection.prepare("SELECT name, attributes, connect, source_table, rule, rule_text"
                                             " FROM norvane_tables ORDER BY number");
    while (tableRows.step()) {
        TableDef table;
        table.name = tableRows.text(0);
        table.attributes = static_cast<int>(tableRows.integer(1));
        table.connect = tableRows.text(2);
        table.sourceTableName = tableRows.text(3);
        table.validationRule = tableRows.text(4);
        table.validationText = tableRows.text(5);

        Statement fields =
            connection.prepare("SELECT * FROM norvane_fields WHERE table_name=? ORDER BY place");
        fields.bind({table.name});
        while (fields.step()) {
            FieldDef field;
            field.name = fields.text(2);
            field.type = static_cast<FieldType>(fields.integer(3));
            field.size = static_cast<int>(fields.integer(4));
            field.attributes = static_cast<int>(fields.integer(5));
            field.defaultValue = fields.text(6);
            field.ordinalPosition = static_cast<int>(fields.integer(7));
            field.required = fields.integer(8) != 0;
            field.allowZeroLength = fields.integer(9) != 0;
            field.validationRule = fields.text(10);
            field.validationText = fields.text(11);
            table.fields.append(field);
        }
        Statement indexes =
            connection.prepare("SELECT * FROM norvane_indexes WHERE table_name=? ORDER BY place");
        indexes.bind({table.name});
        while (indexes.step()) {
            IndexDef index;
            index.name = indexes.text(2);
            index.field = indexes.text(3);
            index.primary = indexes.integer(4) != 0;
            index.unique = indexes.integer(5) != 0;
            index.required = indexes.integer(6) != 0;
            index.clustered = indexes.integer(7) != 0;
            index.ignoreNulls = indexes.integer(8) != 0;
            table.indexes.append(index);
        }
        tables.append(table);
    }
    return tables;
}

void appendTableDef(Connection &connection, const TableDef &table)
{
    checkNames(table);
    Transaction transaction(connection, Transaction::Kind::Write);
    if (connection.single("SELECT 1 FROM sqlite_schema WHERE lower(name)=lower(?)", {table.name}).isValid())
        throw RuntimeError(kErrorDuplicate, QStringLiteral("There is a table '%1' already.").arg(table.name));
    const int key = autoIncrementField(table);
    QByteArray columns;
    for (int i = 0; i < table.fields.size(); ++i)
        columns += (i > 0 ? ",\n  " : "\n  ") + columnSql(table.fields[i], i == key);
    connection.run("CREATE TABLE " + quoted(table.name) + "(" + columns + ")");
    for (const IndexDef &index : table.indexes)
        createIndex(connection, table, index);
    noteDefinition(connection, table);
    transaction.commit();
}

void writeAllowZeroLength(Connection &connection, const QString &table, const QString &field, bool allow)
{
    connection.run("UPDATE norvane_fields SET allow_zero_length=? WHERE table_name=? AND name=?",
                   {allow, table, field});
}

int autoIncrementField(const TableDef &table)
{
    for (int i = 0; i < table.fields.size(); ++i)
        if ((table.fields[i].attributes & kAutoIncrField) != 0)
            return i;
    return -1;
}

} // namespace norvane::dao
