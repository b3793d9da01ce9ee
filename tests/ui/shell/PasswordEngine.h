#pragma once

#include "platform/RuntimeError.h"
#include "platform/dao.h"
#include "platform/errors.h"

#include <QHash>

namespace norvane::fakes {

/// A database engine that knows files and their passwords, and nothing of what is in them.
class PasswordEngine : public dao::Engine
{
public:
    QHash<QString, QString> passwords; ///< by path; a path that is not in it is a foreign file

    std::shared_ptr<dao::Workspace> workspace(int) override { return std::make_shared<OneWorkspace>(*this); }
    void compactDatabase(const QString &, const QString &, const QString &) override {}
    void replaceDatabase(const QString &, const QString &) override {}
    bool isLocked(const QString &) const override { return false; }

private:
    class OpenDatabase : public dao::Database
    {
    public:
        QString path() const override { return {}; }
        std::unique_ptr<dao::Recordset> openRecordset(const QString &, dao::RecordsetType, bool) override
        {
            return {};
        }
        QVector<dao::TableDef> tableDefs() const override { return {}; }
        void appendTable(const dao::TableDef &) override {}
        void setAllowZeroLength(const QString &, const QString &, bool) override {}
        void newPassword(const QString &, const QString &) override {}
        quint64 statementCount() const override { return 0; }
        void close() override {}
    };

    class OneWorkspace : public dao::Workspace
    {
    public:
        explicit OneWorkspace(PasswordEngine &engine) : m_engine(engine) {}

        std::unique_ptr<dao::Database> createDatabase(const QString &path, const QString &) override
        {
            m_engine.passwords.insert(path, QString());
            return std::make_unique<OpenDatabase>();
        }
        std::unique_ptr<dao::Database> openDatabase(const QString &path, bool, bool,
                                                    const QString &connect) override
        {
            if (!m_engine.passwords.contains(path))
                throw RuntimeError(kErrorFormat, QStringLiteral("This file is no note database."));
            if (m_engine.passwords.value(path) != connect.mid(connect.indexOf(u'=') + 1))
                throw RuntimeError(kErrorNotAPassword, QStringLiteral("Not a valid password."));
            return std::make_unique<OpenDatabase>();
        }
        void close() override {}

    private:
        PasswordEngine &m_engine;
    };
};

} // namespace norvane::fakes
