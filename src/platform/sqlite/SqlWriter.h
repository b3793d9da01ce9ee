#pragma once

#include "platform/dao.h"
#include "platform/sqlite/Expression.h"

#include <QByteArray>
#include <QVariant>
#include <QVector>

namespace norvane::dao {

/// A name as it stands in SQL.
QByteArray quoted(const QString &name);

/// The columns that a condition may name.
struct VisibleColumn
{
    QString name; ///< as statements call it
    FieldDef field;
};

/// The column with this name in any case; nullptr when there is none.
const VisibleColumn *findColumn(const QVector<VisibleColumn> &columns, const QString &name);

/// SQL with the values of its parameters.
struct SqlText
{
    QByteArray sql;
    QVector<QVariant> values;

    SqlText &operator+=(const SqlText &other)
    {
        sql += other.sql;
        values += other.values;
        return *this;
    }
};

/// Writes a condition as SQL in parentheses. All its texts, numbers and dates become parameters.
/// Raises 3265 for an unknown column, 3075 for an unknown function, 13 for operands that do not
/// suit each other.
SqlText sqlCondition(const Expression &condition, const QVector<VisibleColumn> &columns);

/// Writes what stands behind "order by": the columns in the order of texts, then the key.
QByteArray sqlOrder(const std::vector<OrderItem> &order, const QVector<VisibleColumn> &columns);

} // namespace norvane::dao
