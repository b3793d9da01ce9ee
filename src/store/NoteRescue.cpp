#include "store/NoteRescue.h"

#include "platform/Clock.h"
#include "platform/Prompts.h"
#include "platform/RuntimeError.h"
#include "shell/internal_error.h"
#include "shell/path_rules.h"
#include "store/NoteStore.h"
#include "store/rescue_file.h"

namespace norvane {

NoteRescue::NoteRescue(const NoteStore &store, FileSystem &files, const Clock &clock, Prompts &prompts)
    : m_store(store), m_files(files), m_clock(clock), m_prompts(prompts)
{
}

QString NoteRescue::rescue(const QString &title, const QByteArray &rtf)
{
    const QString applicationTitle = kApplicationTitle.toString();
    try {
        const QString path = writeRescueFile(m_files, m_store.DatabaseFolder, title, m_clock.now(), rtf);
        if (!m_told) {
            m_told = true;
            m_prompts.messageBox(
                QStringLiteral("The note '%1' could not be saved in the note database.\n"
                               "It was written as a document into the folder '%2', where it can be opened "
                               "with any word processor.")
                    .arg(title, withoutSeparator(folderOf(path))),
                Prompts::kExclamation, applicationTitle);
        }
        return path;
    } catch (const RuntimeError &error) {
        m_prompts.messageBox(
            QStringLiteral("The note '%1' could not be saved, and its last changes are lost.\n%2")
                .arg(title, error.description()),
            Prompts::kCritical, applicationTitle);
        return {};
    }
}

} // namespace norvane
