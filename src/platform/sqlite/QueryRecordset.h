#pragma once

#include "platform/sqlite/SelectQuery.h"

#include <memory>

namespace norvane::dao {

class DatabaseCore;
class RowSet;

/// What all recordsets of a statement have in common. They are read-only unless a derived class
/// says otherwise.
class QueryRecordset : public Recordset
{
public:
    ~QueryRecordset() override;

    QStringList fieldNames() const override;
    void addNew() override;
    void edit() override;
    void setField(const QString &name, const QVariant &value) override;
    void update() override;
    void cancelUpdate() override;
    void remove() override;
    std::optional<QSet<int>> requeryChanged() override;
    std::vector<int> keys() const override;
    void setCacheSize(int records) override;
    void fillCache() override;
    void setFilter(const QString &condition) override;
    QString filter() const override;
    std::unique_ptr<Recordset> openRecordset(RecordsetType type) override;
    void close() override;

protected:
    /// @param readOnly whether recordsets opened from this one are read-only, too
    QueryRecordset(std::shared_ptr<DatabaseCore> core, std::unique_ptr<SelectQuery> query, bool readOnly);

    DatabaseCore &core() const { return *m_core; }
    const std::shared_ptr<DatabaseCore> &sharedCore() const { return m_core; }
    const SelectQuery &query() const { return *m_query; }

    /// Raises 91 when the recordset or its database is closed.
    void checkOpen() const;
    /// Raises 3027 for a recordset that is read-only, 91 for a closed one.
    void checkUpdatable() const;
    /// The rows that recordsets opened from this one are among, where that is known.
    virtual const RowSet *ownRows() const { return nullptr; }
    [[noreturn]] static void raiseNoCurrentRecord();

private:
    std::shared_ptr<DatabaseCore> m_core;
    std::unique_ptr<SelectQuery> m_query;
    bool m_readOnly;
    bool m_open = true;
    QString m_filter;
};

} // namespace norvane::dao
