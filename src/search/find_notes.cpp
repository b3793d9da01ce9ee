#include "search/find_notes.h"

#include "platform/RuntimeError.h"
#include "store/NoteStore.h"

namespace norvane {

std::unique_ptr<dao::Recordset> findNotes(dao::Database &database, const SearchCriteria &criteria)
{
    const auto hits = database.openRecordset(searchStatement(criteria), dao::RecordsetType::Dynaset);
    hits->setFilter(searchFilter(criteria));
    auto result = hits->openRecordset(dao::RecordsetType::Dynaset);
    if (result->recordCount() > 0) {
        result->moveLast();
        result->moveFirst();
    }
    return result;
}

std::unique_ptr<dao::Recordset> findNothing(dao::Database &database)
{
    return database.openRecordset(QStringLiteral("Select * from Memos where false"));
}

void readDateSpan(const NoteStore &store, SearchDates &dates)
{
    if (!store.database())
        return;
    const std::pair<QString, QDate SearchDates::*> values[] = {
        {QStringLiteral("mincdate"), &SearchDates::createdFrom},
        {QStringLiteral("maxcdate"), &SearchDates::createdTo},
        {QStringLiteral("minldate"), &SearchDates::updatedFrom},
        {QStringLiteral("maxldate"), &SearchDates::updatedTo},
    };
    try {
        const auto span = store.database()->openRecordset(
            QStringLiteral(
                "Select Max(DateCreated) as MaxCdate,Min(DateCreated) as MinCdate ,Max(LastUpdate) as "
                "MaxLdate,Min(LastUpdate) as MinLdate from memos"),
            dao::RecordsetType::ForwardOnly);
        for (const auto &[field, date] : values) {
            const QVariant value = span->field(field);
            if (value.isNull())
                return;
            dates.*date = value.toDate();
        }
    } catch (const RuntimeError &) {
        return;
    }
}

} // namespace norvane
