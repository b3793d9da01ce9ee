#include "exchange/import/KnownLocations.h"

namespace norvane {

namespace {

/// Behind that the engine itself is asked, whether it still takes such a statement.
constexpr qsizetype kLongestUsual = 10'000;

} // namespace

KnownLocations::KnownLocations(dao::Database &database) : m_database(database)
{
    const auto notes = database.openRecordset(QStringLiteral("select ID,URL from Memos order by ID"),
                                              dao::RecordsetType::ForwardOnly);
    for (; !notes->eof(); notes->moveNext())
        if (const QVariant URL = notes->field(QStringLiteral("URL")); URL.isValid())
            add(URL.toString(), notes->field(QStringLiteral("ID")).toInt());
}

void KnownLocations::add(const QString &URL, int ID)
{
    if (!m_firstWith.contains(URL))
        m_firstWith.insert(URL, ID);
}

std::unique_ptr<dao::Recordset> KnownLocations::notesWith(const QString &URL) const
{
    const QString statement = QStringLiteral("URL=\"") + URL + u'"';
    if (URL.contains(u'"') || URL.size() > kLongestUsual)
        return open(statement);
    const auto known = m_firstWith.constFind(URL);
    if (known == m_firstWith.constEnd())
        return open(QStringLiteral("false"));
    auto note = open(QStringLiteral("ID=%1").arg(*known));
    // Unless it was changed or deleted meanwhile.
    return !note->eof() && note->field(QStringLiteral("URL")) == URL ? std::move(note) : open(statement);
}

std::unique_ptr<dao::Recordset> KnownLocations::open(const QString &condition) const
{
    return m_database.openRecordset(QStringLiteral("select * from Memos where ") + condition);
}

} // namespace norvane
