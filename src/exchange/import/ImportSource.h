#pragma once

#include "platform/dao.h"

#include <QDateTime>
#include <QString>
#include <QVector>
#include <memory>

namespace norvane {

/// A note of the source, as it is listed.
struct ImportRow
{
    int ID = 0; ///< in the source
    QString FriendlyName;
    QString category; ///< its name in the source; empty where there is none
    QString URL;
    QDateTime DateCreated; ///< invalid where there is none
    QDateTime LastUpdate;
};

/// The database that notes are imported from: open for reading alone, and for nobody else to write.
/// Neither the file nor its folder changes.
class ImportSource
{
public:
    /// Raises what the engine raises.
    /// @param Path of the file
    /// @param Pwd  empty where it has no password
    ImportSource(dao::Engine &engine, const QString &Path, const QString &Pwd);

    dao::Database &database() const { return *m_database; }
    /// All its notes by `FriendlyName`. Raises what the engine raises.
    QVector<ImportRow> rows() const;

private:
    std::shared_ptr<dao::Workspace> m_workspace;
    std::unique_ptr<dao::Database> m_database;
};

} // namespace norvane
