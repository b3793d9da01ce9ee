#include "exchange/import/ImportSource.h"

#include <QHash>

namespace norvane {

namespace {

QHash<int, QString> categoryNames(dao::Database &database)
{
    QHash<int, QString> names;
    const auto categories = database.openRecordset(
        QStringLiteral("select ID,Name from Category order by Name"), dao::RecordsetType::ForwardOnly);
    for (; !categories->eof(); categories->moveNext())
        names.insert(categories->field(QStringLiteral("ID")).toInt(),
                     categories->field(QStringLiteral("Name")).toString());
    return names;
}

} // namespace

ImportSource::ImportSource(dao::Engine &engine, const QString &Path, const QString &Pwd)
    : m_workspace(engine.workspace(0)),
      m_database(m_workspace->openDatabase(Path, true, true, QStringLiteral(";Pwd=") + Pwd))
{
}

QVector<ImportRow> ImportSource::rows() const
{
    const auto notes = m_database->openRecordset(
        QStringLiteral("select ID,FriendlyName,CAT_ID,URL,DateCreated,LastUpdate from Memos "
                       "order by FriendlyName"),
        dao::RecordsetType::ForwardOnly);
    const QHash<int, QString> categories = categoryNames(*m_database);
    QVector<ImportRow> rows;
    rows.reserve(notes->recordCount());
    for (; !notes->eof(); notes->moveNext())
        rows.append({.ID = notes->field(QStringLiteral("ID")).toInt(),
                     .FriendlyName = notes->field(QStringLiteral("FriendlyName")).toString(),
                     .category = categories.value(notes->field(QStringLiteral("CAT_ID")).toInt()),
                     .URL = notes->field(QStringLiteral("URL")).toString(),
                     .DateCreated = notes->field(QStringLiteral("DateCreated")).toDateTime(),
                     .LastUpdate = notes->field(QStringLiteral("LastUpdate")).toDateTime()});
    return rows;
}

} // namespace norvane
