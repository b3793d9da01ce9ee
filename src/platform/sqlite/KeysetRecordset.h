#pragma once

#include "platform/sqlite/EditBuffer.h"
#include "platform/sqlite/QueryRecordset.h"
#include "platform/sqlite/RowSet.h"

#include <QHash>

namespace norvane::dao {

/// A dynaset or a snapshot.
class KeysetRecordset : public QueryRecordset
{
public:
    KeysetRecordset(std::shared_ptr<DatabaseCore> core, std::unique_ptr<SelectQuery> query,
                    RecordsetType type, bool readOnly, const RowSet *among = nullptr);

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
    void addNew() override;
    void edit() override;
    void setField(const QString &name, const QVariant &value) override;
    void update() override;
    void cancelUpdate() override;
    void remove() override;
    void requery() override;
    std::optional<QSet<int>> requeryChanged() override;
    std::vector<int> keys() const override;
    int recordCount() const override;
    void setCacheSize(int records) override;
    void fillCache() override;
    void close() override;

private:
    const RowSet *ownRows() const override { return m_rows.get(); }

    using Row = QVector<QVariant>;

    void checkCurrent() const;
    void checkNotEmpty() const;
    void moveTo(int position);
    void find(const QString &condition, int from);
    const Row &currentRow() const;
    void readAhead() const;

    std::unique_ptr<RowSet> m_rows; ///< nullptr when closed
    int m_position = 0;             ///< -1 before the first record, size() behind the last
    bool m_currentDeleted = false;  ///< the current record stood before the one at m_position
    bool m_noMatch = false;
    bool m_walking = false; ///< the last move was to the next record
    std::unique_ptr<EditBuffer> m_edit;
    int m_cacheSize;

    mutable QHash<qint64, Row> m_cache;
    mutable quint64 m_cacheChanges = 0; ///< changes of the connection when the cache was filled
    mutable int m_cacheGeneration = 0;
};

} // namespace norvane::dao
