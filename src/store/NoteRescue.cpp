#include "store/NoteRescue.h"

#include "platform/Clock.h"
#include "platform/Prompts.h"
#include "platform/RuntimeError.h"
#include "shell/internal_error.h"
#include "shell/path_rules.h"
#include "store/NoteStore.h"
#include "store/rescue_file.h"

#include <utility>

namespace norvane {

NoteRescue::NoteRescue(const NoteStore &store, FileSystem &files, const Clock &clock, Prompts &prompts)
    : m_store(store), m_files(files), m_clock(clock), m_prompts(prompts)
{
}

QString NoteRescue::rescue(const QString &title, const QByteArray &rtf)
{
    try {
        const QString path = writeRescueFile(m_files, m_store.DatabaseFolder, title, m_clock.now(), rtf);
        // Before the box: events that run while it stands may bring the next note.
        const bool first = !std::exchange(m_told, true);
        if (first)
            tell(QStringLiteral("The note '%1' could not be saved in the note database.\n"
                                "It was written as a document into the folder '%2', where it can be opened "
                                "with any word processor.")
                     .arg(title, withoutSeparator(folderOf(path))),
                 Prompts::kExclamation);
        return path;
    } catch (const RuntimeError &error) {
        tell(QStringLiteral("The note '%1' could not be saved, and its last changes are lost.\n%2")
                 .arg(title, error.description()),
             Prompts::kCritical);
        return {};
    }
}

void NoteRescue::tell(const QString &text, int icon)
{
    if (!m_silent)
        m_prompts.messageBox(text, icon, kApplicationTitle.toString());
}

} // namespace norvane
