#pragma once

#include "platform/dao.h"

#include <QTemporaryDir>
#include <memory>

namespace norvane::dao {

class DatabaseCore;

class SqliteDatabase : public Database
{
public:
    /// Opens an existing database. @p path is as the caller knows it.
    SqliteDatabase(const QString &path, bool exclusive, bool readOnly, const QString &password);
    ~SqliteDatabase() override;

    QString path() const override { return m_path; }
    std::unique_ptr<Recordset> openRecordset(const QString &sql, RecordsetType type, bool readOnly) override;
    QVector<TableDef> tableDefs() const override;
    void appendTable(const TableDef &table) override;
    void setAllowZeroLength(const QString &table, const QString &field, bool allow) override;
    void newPassword(const QString &oldPassword, const QString &newPassword) override;
    void beginTrans() override;
    void commitTrans() override;
    void rollback() noexcept override;
    void reserveNumbers(const QString &table, int count) override;
    void setProgress(std::function<bool()> goOn) override;
    quint64 statementCount() const override;
    void close() override;

private:
    void checkWritable() const;

    QString m_path;
    QString m_password;
    bool m_exclusive;
    std::unique_ptr<QTemporaryDir> m_copy; ///< what is read where a save of the file was interrupted
    std::shared_ptr<DatabaseCore> m_core;
};

} // namespace norvane::dao
