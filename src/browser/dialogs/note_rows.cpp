#include "browser/dialogs/note_rows.h"

#include "platform/RuntimeError.h"
#include "platform/errors.h"
#include "store/NoteStore.h"

namespace norvane {

std::unique_ptr<dao::Recordset> openNoteRows(const NoteStore &store, const QString &condition)
{
    if (!store.database())
        throw RuntimeError(kErrorNothingThere, QStringLiteral("No note database is open."),
                           QStringLiteral("Memos"));
    return store.database()->openRecordset(QStringLiteral("select * from memos where ") + condition);
}

std::unique_ptr<dao::Recordset> openNoteRow(const NoteStore &store, int ID)
{
    return openNoteRows(store, QStringLiteral("ID=") + QString::number(ID));
}

} // namespace norvane
