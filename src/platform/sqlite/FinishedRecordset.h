#pragma once

#include "platform/sqlite/QueryRecordset.h"

#include <vector>

namespace norvane::dao {

/// A recordset whose rows were all read when it was opened: a forward-only one, or the one row of
/// counts.
class FinishedRecordset : public QueryRecordset
{
public:
    FinishedRecordset(std::shared_ptr<DatabaseCore> core, std::unique_ptr<SelectQuery> query,
                      bool forwardOnly);

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
    void requery() override;
    int recordCount() const override;
    void close() override;

private:
    void checkBothWays() const;
    void checkCurrent() const;
    void readAll();
    [[noreturn]] void raiseInvalid() const;

    bool m_forwardOnly;
    std::vector<QVariant> m_values; ///< row by row
    int m_rowCount = 0;
    int m_position = 0;
};

} // namespace norvane::dao
