#pragma once

#include "platform/dao.h"
#include "platform/sqlite/SqlWriter.h"

#include <QStringList>

namespace norvane::dao {

class DatabaseCore;

/// A select statement, checked against the table that it reads.
class SelectQuery
{
public:
    /// Raises 3075, 3265 or 13.
    SelectQuery(DatabaseCore &core, const QString &sql);

    const TableDef &table() const { return m_table; }
    /// The selected columns, or the values of count, max and min.
    const QVector<VisibleColumn> &columns() const { return m_columns; }
    QStringList columnNames() const;
    /// The position of a column. Raises 3265.
    int columnIndex(const QString &name) const;
    /// Whether the statement gives one row of counts, largest or smallest values.
    bool isAggregate() const { return m_aggregate; }
    bool isOrdered() const { return !m_select.order.empty(); }
    const std::vector<OrderItem> &order() const { return m_select.order; }

    /// One more condition on the selected columns.
    void addFilter(const QString &condition);

    /// "main" and the table.
    QByteArray source() const;
    /// What stands between "select" and "from".
    QByteArray selectList() const { return m_selectList; }
    /// The selected columns and those that it is ordered by, each once, as the table names them.
    QVector<FieldDef> storedColumns() const;
    /// The filter that was added last, or the statement's own condition; "1" where there is none.
    SqlText lastCondition() const;
    /// " WHERE ..." of the statement and its filters, with "1" where there is none.
    SqlText where() const;
    QByteArray orderBy() const;
    /// What a row is ordered by, as a list of values, with its key at the end.
    QByteArray orderList() const;

private:
    void takeColumns();
    void takeAggregates();

    TableDef m_table; ///< a copy: definitions may be read anew
    SelectStatement m_select;
    QVector<VisibleColumn> m_tableColumns;
    QVector<VisibleColumn> m_columns;
    QByteArray m_selectList;
    bool m_aggregate = false;
    QVector<SqlText> m_conditions;
};

} // namespace norvane::dao
