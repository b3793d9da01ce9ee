#include "store/note_row.h"

#include "platform/RuntimeError.h"
#include "platform/errors.h"
#include "shell/numeric_prefix.h"
#include "store/NoteStore.h"

#include <cmath>
#include <limits>

namespace norvane {

namespace {

/// Twips as the whole number that a row holds.
int longTwips(double twips)
{
    if (!(std::abs(twips) < static_cast<double>(std::numeric_limits<int>::max())))
        throw RuntimeError(kErrorOverflow, QStringLiteral("Overflow"), QStringLiteral("SaveNote"));
    return static_cast<int>(roundHalfEven(twips));
}

std::unique_ptr<dao::Recordset> openRow(const NoteStore &store, const QString &columns, int ID)
{
    dao::Database *database = store.database();
    if (!database)
        throw RuntimeError(kErrorNothingThere, QStringLiteral("No note database is open."),
                           QStringLiteral("SaveNote"));
    return database->openRecordset(QStringLiteral("select %1 from Memos where ID=%2").arg(columns).arg(ID));
}

} // namespace

void SaveNoteRow(const NoteStore &store, int ID, const NoteRowValues &values)
{
    const std::unique_ptr<dao::Recordset> row = openRow(store, QStringLiteral("*"), ID);
    row->edit();
    row->setField(QStringLiteral("LastUpdate"), values.LastUpdate);
    row->setField(QStringLiteral("Wintop"), longTwips(values.place.top()));
    row->setField(QStringLiteral("winLeft"), longTwips(values.place.left()));
    row->setField(QStringLiteral("winWidth"), longTwips(values.place.width()));
    row->setField(QStringLiteral("winHeight"), longTwips(values.place.height()));
    row->setField(QStringLiteral("NoteText"), values.NoteText);
    row->update();
    row->close();
}

void SaveNoteText(const NoteStore &store, int ID, const QString &NoteText, const QDateTime &LastUpdate)
{
    const std::unique_ptr<dao::Recordset> row = openRow(store, QStringLiteral("ID,NoteText,LastUpdate"), ID);
    if (row->eof())
        return;
    row->edit();
    row->setField(QStringLiteral("NoteText"), NoteText);
    row->setField(QStringLiteral("LastUpdate"), LastUpdate);
    row->update();
    row->close();
}

} // namespace norvane
