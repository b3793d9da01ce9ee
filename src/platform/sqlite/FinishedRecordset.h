#pragma once

#include "platform/sqlite/SelectQuery.h"

#include <memory>
#include <vector>

namespace norvane::dao {

class DatabaseCore;

/// A recordset whose rows were all read when it was opened: a forward-only one, or the one row of
/// counts.
class FinishedRecordset : public Recordset
{
public:
    FinishedRecordset(std::shared_ptr<DatabaseCore> core, std::unique_ptr<SelectQuery> query,
                      bool forwardOnly);
    ~FinishedRecordset() override;

    bool bof() const override;
    bool eof() const override;
    bool noMatch() const override;
    void moveFirst() override;
    void moveLast() override;
    void moveNext() override;
    void movePrevious() override;
    void findFirst(const QString &condition) override;
    void findNext(const QString &condition) override;
    QVariant field(const QString &name) const override;
    QStringList fieldNames() const override;
    void addNew() override;
    void edit() override;
    void setField(const QString &name, const QVariant &value) override;
    void update() override;
    void cancelUpdate() override;
    void remove() override;
    void requery() override;
    int recordCount() const override;
    void setCacheSize(int records) override;
    void fillCache() override;
    void setFilter(const QString &condition) override;
    QString filter() const override;
    std::unique_ptr<Recordset> openRecordset(RecordsetType type) override;
    void close() override;

private:
    void checkOpen() const;
    void checkBothWays() const;
    void checkCurrent() const;
    void readAll();
    [[noreturn]] void raiseReadOnly() const;
    [[noreturn]] void raiseInvalid() const;

    std::shared_ptr<DatabaseCore> m_core; ///< nullptr when closed
    std::unique_ptr<SelectQuery> m_query;
    bool m_forwardOnly;
    std::vector<QVariant> m_values; ///< row by row
    int m_rowCount = 0;
    int m_position = 0;
    QString m_filter;
};

} // namespace norvane::dao
