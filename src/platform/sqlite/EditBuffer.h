#pragma once

#include "platform/sqlite/SelectQuery.h"

#include <QVector>
#include <optional>

namespace norvane::dao {

class DatabaseCore;

/// The record that is being added or edited.
class EditBuffer
{
public:
    /// A new record with its defaults.
    explicit EditBuffer(const SelectQuery &query);
    /// The record @p key with these values of the selected columns.
    EditBuffer(const SelectQuery &query, qint64 key, const QVector<QVariant> &row);

    bool isNew() const { return !m_key; }
    /// The value of a selected column. The number of a new record is given out when it is first
    /// asked for, and belongs to it from then on.
    QVariant value(int column, DatabaseCore &core);
    /// Raises 13, 6, 3163, 3315 or 3164.
    void setValue(int column, const QVariant &value);
    /// Writes the record in one transaction; returns its key. Raises 3314 and what setValue raises.
    qint64 write(DatabaseCore &core);

private:
    struct Cell
    {
        FieldDef field;
        QVariant value;
        bool changed = false;
    };
    Cell &cell(int column);
    void check() const;
    qint64 insert(DatabaseCore &core) const;
    void change(DatabaseCore &core) const;

    const SelectQuery &m_query;
    std::optional<qint64> m_key;
    QVector<Cell> m_cells; ///< one for each field of the table
};

} // namespace norvane::dao
