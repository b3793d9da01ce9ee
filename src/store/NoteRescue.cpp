#include "store/NoteRescue.h"

#include "platform/Clock.h"
#include "platform/Notifier.h"
#include "platform/RuntimeError.h"
#include "shell/internal_error.h"
#include "shell/path_rules.h"
#include "store/NoteStore.h"
#include "store/rescue_file.h"

#include <utility>

namespace norvane {

NoteRescue::NoteRescue(const NoteStore &store, FileSystem &files, const Clock &clock, Notifier &notifier,
                       std::function<void(const QString &)> showOtherwise)
    : m_store(store), m_files(files), m_clock(clock), m_notifier(notifier),
      m_showOtherwise(std::move(showOtherwise))
{
}

QString NoteRescue::rescue(const QString &title, const QByteArray &rtf)
{
    try {
        const QString path = writeRescueFile(m_files, m_store.DatabaseFolder, title, m_clock.now(), rtf);
        if (!std::exchange(m_told, true))
            tell(QStringLiteral("The note '%1' could not be saved in the note database.\n"
                                "It was written as a document into the folder '%2', where it can be opened "
                                "with any word processor.")
                     .arg(title, withoutSeparator(folderOf(path))));
        return path;
    } catch (const RuntimeError &error) {
        tell(QStringLiteral("The note '%1' could not be saved, and its last changes are lost.\n%2")
                 .arg(title, error.description()));
        return {};
    }
}

void NoteRescue::tell(const QString &text)
{
    m_notifier.notify(kApplicationTitle.toString(), text, [this, text](bool shown) {
        if (!shown)
            m_showOtherwise(text);
    });
}

} // namespace norvane
