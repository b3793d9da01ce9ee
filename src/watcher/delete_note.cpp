#include "watcher/delete_note.h"

#include "platform/FileSystem.h"
#include "store/NoteStore.h"

namespace norvane {

void deleteNoteRow(NoteStore &store, int ID)
{
    store.checkOpen();
    dao::Recordset *notes = store.NoteSet();
    const QString condition = QStringLiteral("ID=%1").arg(ID);
    notes->findFirst(condition);
    if (notes->noMatch()) {
        store.requeryNoteSet();
        notes->findFirst(condition);
    }
    if (!notes->noMatch())
        notes->remove();
}

void deleteNoteBody(const NoteStore &store, int ID)
{
    const QString body = store.bodyFile(ID);
    if (store.files().exists(body))
        store.files().remove(body);
}

} // namespace norvane
