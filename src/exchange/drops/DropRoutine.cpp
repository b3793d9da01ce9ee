#include "exchange/drops/DropRoutine.h"

#include "exchange/drops/NewNoteForms.h"
#include "exchange/drops/dropped_texts.h"
#include "platform/EventLoop.h"
#include "platform/FileSystem.h"
#include "platform/RuntimeError.h"
#include "shell/Forms.h"
#include "watcher/NoteGridView.h"

#include <QScopeGuard>
#include <QScopedValueRollback>

namespace norvane {

void DropRoutine::run(const QStringList &files, const QString &text)
{
    if (!m_isRunning && !m_parts.forms.FormIsLoaded(QStringLiteral("frmNewNote"))) {
        const QScopedValueRollback<bool> running(m_isRunning, true);
        try {
            makeNotes(files, text);
        } catch (const RuntimeError &) {
            // What was made until then is to be seen all the same.
        }
    }
    m_parts.browser.Refresh_Grid();
    m_parts.browser.refreshAround();
}

void DropRoutine::makeNotes(const QStringList &files, QString text)
{
    if (!files.isEmpty()) {
        makeNotesOf(files);
    } else if (IsLocationText(text, m_parts.files)) {
        NewNoteDrop drop;
        m_parts.dialogs.show({.name = text, .location = text}, drop);
    }
}

void DropRoutine::makeNotesOf(const QStringList &files)
{
    NewNoteForms &dialogs = m_parts.dialogs;
    NewNoteDrop drop;
    const auto ready = qScopeGuard([&dialogs] { dialogs.setBusy(false); });
    for (const QString &file : files) {
        dialogs.setBusy(true);
        if (!m_parts.files.exists(file))
            continue;
        const NewNoteForms::Contents contents{noteNameOf(file), file, files.size() >= 2};
        if (drop.applyToAll) {
            dialogs.pressOk(contents, drop);
            m_parts.events.yield(); // many files take some time
            continue;
        }
        dialogs.setBusy(false);
        dialogs.show(contents, drop);
        if (drop.newNoteCancelled && drop.applyToAll)
            break;
    }
}

} // namespace norvane
