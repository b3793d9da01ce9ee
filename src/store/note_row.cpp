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

} // namespace

std::unique_ptr<dao::Recordset> openNoteRows(const NoteStore &store, const QString &condition,
                                             const QString &columns, dao::RecordsetType type)
{
    store.checkOpen();
    return store.database()->openRecordset(
        QStringLiteral("select ") + columns + QStringLiteral(" from Memos where ") + condition, type);
}

std::unique_ptr<dao::Recordset> openNoteRow(const NoteStore &store, int ID, const QString &columns,
                                            dao::RecordsetType type)
{
    return openNoteRows(store, QStringLiteral("ID=") + QString::number(ID), columns, type);
}

void SaveNoteRow(const NoteStore &store, int ID, const NoteRowValues &values)
{
    const std::unique_ptr<dao::Recordset> row = openNoteRow(store, ID);
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
    const std::unique_ptr<dao::Recordset> row =
        openNoteRow(store, ID, QStringLiteral("ID,NoteText,LastUpdate"));
    if (row->eof())
        return;
    row->edit();
    row->setField(QStringLiteral("NoteText"), NoteText);
    row->setField(QStringLiteral("LastUpdate"), LastUpdate);
    row->update();
    row->close();
}

} // namespace norvane
