#include "browser/dialogs/new_note.h"

#include "platform/Clock.h"
#include "store/NoteStore.h"
#include "store/note_row.h"

namespace norvane {

void addNote(NoteStore &store, const Clock &clock, const NewNote &note)
{
    const QDateTime now = clock.now();
    const std::unique_ptr<dao::Recordset> row = openNoteRows(store, QStringLiteral("false"));
    row->addNew();
    row->setField(QStringLiteral("WindowName"), QStringLiteral(""));
    row->setField(QStringLiteral("LocationName"), QStringLiteral("Norvane Manager"));
    row->setField(QStringLiteral("ACTIVE"), note.ACTIVE);
    row->setField(QStringLiteral("URL"), note.URL);
    row->setField(QStringLiteral("ClassName"), QStringLiteral("Norvane"));
    row->setField(QStringLiteral("FriendlyName"), note.FriendlyName);
    row->setField(QStringLiteral("DateCreated"), now);
    row->setField(QStringLiteral("LastUpdate"), now);
    row->setField(QStringLiteral("CAT_ID"), note.CAT_ID);
    row->setField(QStringLiteral("AutoSave"), true);
    row->update();
    row->close();
    store.requeryNoteIndex();
    store.requeryNoteSet();
}

} // namespace norvane
