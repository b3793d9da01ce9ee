#include "store/offer_new_database.h"

#include "platform/Prompts.h"
#include "platform/RuntimeError.h"
#include "shell/internal_error.h"
#include "store/NoteStore.h"
#include "store/note_schema.h"

namespace norvane {

bool offerNewDatabase(const NoteStore &store, Prompts &prompts, const QString &path)
{
    if (!ask(prompts, QStringLiteral("Norvane database not found. Do you want to create a new database?"),
             Prompts::kQuestion))
        return false;
    try {
        makeNoteDatabase(store.engine(), store.files(), path);
        return true;
    } catch (const RuntimeError &error) {
        prompts.messageBox(QStringLiteral("The database could not be created.\n%1").arg(error.description()),
                           Prompts::kCritical, kApplicationTitle.toString());
        return false;
    }
}

} // namespace norvane
