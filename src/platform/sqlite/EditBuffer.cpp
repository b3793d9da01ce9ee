#include "platform/sqlite/EditBuffer.h"

#include "platform/RuntimeError.h"
#include "platform/errors.h"
#include "platform/sqlite/Catalogue.h"
#include "platform/sqlite/DatabaseCore.h"
#include "platform/sqlite/values.h"

#include <limits>

namespace norvane::dao {

EditBuffer::EditBuffer(const SelectQuery &query) : m_query(query)
{
    for (const FieldDef &field : query.table().fields)
        m_cells.append({field, (field.attributes & kAutoIncrField) != 0 ? QVariant() : defaultOf(field)});
}

EditBuffer::EditBuffer(const SelectQuery &query, qint64 key, const QVector<QVariant> &row)
    : m_query(query), m_key(key)
{
    for (const FieldDef &field : query.table().fields)
        m_cells.append({field, {}});
    for (int i = 0; i < row.size(); ++i)
        cell(i).value = row[i];
}

EditBuffer::Cell &EditBuffer::cell(int column)
{
    const QString &name = m_query.columns()[column].field.name;
    for (Cell &each : m_cells)
        if (each.field.name == name)
            return each;
    throw RuntimeError(kErrorItemNotFound, QStringLiteral("There is no field '%1' here.").arg(name));
}

QVariant EditBuffer::value(int column, DatabaseCore &core)
{
    Cell &asked = cell(column);
    if (isNew() && (asked.field.attributes & kAutoIncrField) != 0 && !asked.value.isValid())
        asked.value = static_cast<int>(core.takeNumber(m_query.table().name));
    return asked.value;
}

void EditBuffer::setValue(int column, const QVariant &value)
{
    Cell &target = cell(column);
    if ((target.field.attributes & kAutoIncrField) != 0)
        throw RuntimeError(kErrorFieldNotUpdatable,
                           QStringLiteral("The field '%1' cannot be changed.").arg(target.field.name));
    const QVariant good = converted(target.field, value);
    checkText(target.field, good);
    target.value = good;
    target.changed = true;
}

qint64 EditBuffer::write(DatabaseCore &core)
{
    check();
    if (isNew())
        return insert(core);
    change(core);
    return *m_key;
}

void EditBuffer::check() const
{
    for (const Cell &each : m_cells) {
        if (!isNew() && !each.changed)
            continue;
        const bool counted = (each.field.attributes & kAutoIncrField) != 0;
        if (each.field.required && !counted && !each.value.isValid())
            throw RuntimeError(kErrorRequired,
                               QStringLiteral("The field '%1' must have a value.").arg(each.field.name));
        checkText(each.field, each.value);
    }
}

qint64 EditBuffer::insert(DatabaseCore &core) const
{
    QByteArray names;
    QByteArray places;
    QVector<QVariant> values;
    for (const Cell &each : m_cells) {
        names += (names.isEmpty() ? "" : ",") + quoted(each.field.name);
        places += places.isEmpty() ? "?" : ",?";
        values.append(each.value); // Null for the number lets the engine count
    }
    Connection &connection = core.connection();
    Transaction transaction(connection, Transaction::Kind::Write);
    connection.run("INSERT INTO " + m_query.source() + "(" + names + ") VALUES (" + places + ")", values);
    const qint64 key = connection.lastInsertId();
    if (key > std::numeric_limits<qint32>::max())
        throw RuntimeError(
            kErrorOverflow,
            QStringLiteral("Overflow: the numbers of '%1' are used up.").arg(m_query.table().name));
    transaction.commit();
    return key;
}

void EditBuffer::change(DatabaseCore &core) const
{
    QByteArray assignments;
    QVector<QVariant> values;
    for (const Cell &each : m_cells) {
        if (!each.changed)
            continue;
        assignments += (assignments.isEmpty() ? "" : ",") + quoted(each.field.name) + "=?";
        values.append(each.value);
    }
    if (assignments.isEmpty())
        return;
    values.append(static_cast<qlonglong>(*m_key));
    if (core.connection().run("UPDATE " + m_query.source() + " SET " + assignments + " WHERE rowid=?",
                              values) == 0)
        throw RuntimeError(kErrorRecordDeleted, QStringLiteral("The record is deleted."));
}

} // namespace norvane::dao
