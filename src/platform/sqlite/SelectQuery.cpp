#include "platform/sqlite/SelectQuery.h"

#include "platform/RuntimeError.h"
#include "platform/errors.h"
#include "platform/sqlite/DatabaseCore.h"
#include "platform/sqlite/Parser.h"

#include <algorithm>

namespace norvane::dao {

namespace {

[[noreturn]] void raiseNoField(const QString &name)
{
    throw RuntimeError(kErrorItemNotFound, QStringLiteral("There is no field '%1' here.").arg(name));
}

[[noreturn]] void raiseNotPossible(const QString &reason)
{
    throw RuntimeError(kErrorSyntax, QStringLiteral("The query cannot be run: %1.").arg(reason));
}

} // namespace

SelectQuery::SelectQuery(DatabaseCore &core, const QString &sql) : m_select(parseSelect(sql))
{
    m_table = core.table(m_select.table);
    for (const FieldDef &field : m_table.fields)
        m_tableColumns.append({field.name, field});
    m_aggregate = std::any_of(m_select.items.begin(), m_select.items.end(),
                              [](const SelectItem &item) { return !item.aggregate.isEmpty(); });
    if (m_aggregate)
        takeAggregates();
    else
        takeColumns();
    if (m_select.where)
        m_conditions.append(sqlCondition(*m_select.where, m_tableColumns));
    orderBy(); // raises for an unknown column
}

void SelectQuery::takeColumns()
{
    m_columns = m_select.items.empty() ? m_tableColumns : QVector<VisibleColumn>();
    for (const SelectItem &item : m_select.items) {
        const VisibleColumn *column = findColumn(m_tableColumns, item.column);
        if (!column)
            raiseNoField(item.column);
        m_columns.append({item.alias.isEmpty() ? column->name : item.alias, column->field});
    }
    for (const VisibleColumn &column : std::as_const(m_columns))
        m_selectList += (m_selectList.isEmpty() ? "" : ",") + quoted(column.field.name);
}

void SelectQuery::takeAggregates()
{
    if (isOrdered())
        raiseNotPossible(QStringLiteral("one row has no order"));
    int number = 1000;
    for (const SelectItem &item : m_select.items) {
        if (item.aggregate.isEmpty())
            raiseNotPossible(QStringLiteral("'%1' has many values").arg(item.column));
        VisibleColumn result;
        result.field.type = FieldType::Long;
        QByteArray argument = "*";
        if (!item.column.isEmpty()) {
            const VisibleColumn *column = findColumn(m_tableColumns, item.column);
            if (!column)
                raiseNoField(item.column);
            argument = quoted(column->field.name);
            if (item.aggregate != u"count") {
                result.field = column->field;
                if (result.field.type == FieldType::Text || result.field.type == FieldType::Memo)
                    raiseNotPossible(QStringLiteral("'%1' is a text").arg(item.column));
            }
        }
        result.name = item.alias.isEmpty() ? QStringLiteral("Expr%1").arg(number) : item.alias;
        ++number;
        m_columns.append(result);
        m_selectList +=
            (m_selectList.isEmpty() ? "" : ",") + item.aggregate.toLatin1() + "(" + argument + ")";
    }
}

QStringList SelectQuery::columnNames() const
{
    QStringList names;
    for (const VisibleColumn &column : m_columns)
        names.append(column.name);
    return names;
}

int SelectQuery::columnIndex(const QString &name) const
{
    for (int i = 0; i < m_columns.size(); ++i)
        if (m_columns[i].name.compare(name, Qt::CaseInsensitive) == 0)
            return i;
    raiseNoField(name);
}

void SelectQuery::addFilter(const QString &condition)
{
    if (m_aggregate)
        raiseNotPossible(QStringLiteral("one row has no filter"));
    m_conditions.append(sqlCondition(parseCondition(condition), m_columns));
}

QByteArray SelectQuery::source() const
{
    return "main." + quoted(m_table.name);
}

QVector<FieldDef> SelectQuery::storedColumns() const
{
    QVector<FieldDef> fields;
    const auto add = [&fields](const FieldDef &field) {
        if (std::none_of(fields.begin(), fields.end(),
                         [&](const FieldDef &each) { return each.name == field.name; }))
            fields.append(field);
    };
    for (const VisibleColumn &column : m_columns)
        add(column.field);
    for (const OrderItem &item : m_select.order)
        add(findColumn(m_tableColumns, item.column)->field);
    return fields;
}

SqlText SelectQuery::lastCondition() const
{
    return m_conditions.isEmpty() ? SqlText{"1", {}} : m_conditions.constLast();
}

SqlText SelectQuery::where() const
{
    SqlText result{" WHERE 1", {}};
    for (const SqlText &condition : m_conditions) {
        result.sql += " AND ";
        result += condition;
    }
    return result;
}

QByteArray SelectQuery::orderBy() const
{
    return " ORDER BY " + sqlOrder(m_select.order, m_tableColumns);
}

QByteArray SelectQuery::orderList() const
{
    std::vector<OrderItem> rising = m_select.order;
    for (OrderItem &item : rising)
        item.descending = false;
    return sqlOrder(rising, m_tableColumns);
}

} // namespace norvane::dao
