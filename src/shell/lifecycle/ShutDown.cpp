#include "shell/lifecycle/ShutDown.h"

#include "platform/RuntimeError.h"
#include "platform/WatchTimer.h"
#include "shell/Forms.h"
#include "store/NoteStore.h"
#include "store/note_database.h"
#include "watcher/StickyNote.h"
#include "watcher/WatchSettings.h"

namespace norvane {

namespace {

constexpr QStringView kFrameName = u"mdiMain";

/// One step: an error in it ends the step and nothing else.
template <typename Step> void ignoringErrors(Step step)
{
    try {
        step();
    } catch (const RuntimeError &) {
        // The end of the program is no time for questions.
    }
}

} // namespace

void saveDirtyNotes(const FormList &forms)
{
    for (Form *form : forms.named(QStringLiteral("frmSticky"))) {
        if (auto *note = dynamic_cast<StickyNote *>(form))
            note->saveAtExit();
    }
}

ShutDown::ShutDown(ShutDownParts parts) : m_parts(std::move(parts)) {}

void ShutDown::run()
{
    if (m_begun)
        return;
    m_begun = true;
    if (m_parts.unloadPreview)
        ignoringErrors(m_parts.unloadPreview);
    saveAndClose();
    compact();
    unloadForms();
    unloadFrame();
    m_parts.endProcess();
}

void ShutDown::saveAndClose()
{
    m_begun = true;
    m_parts.watch.WatchInterval = 0;
    m_parts.timer.setInterval(0);
    // Notes are unloaded after the database is closed: this is their last chance to be saved.
    saveDirtyNotes(m_parts.forms);
    m_parts.store.close();
}

void ShutDown::compact()
{
    const NoteStore &store = m_parts.store;
    if (store.CompactOnExit)
        CompactNoteDatabase(store.engine(), store.files(), store.DatabaseFile, store.programFolder,
                            store.DatabasePassword);
}

void ShutDown::unloadForms()
{
    for (Form *form : m_parts.forms.all()) {
        if (m_parts.forms.contains(form) && form->formName().compare(kFrameName, Qt::CaseInsensitive) != 0)
            ignoringErrors([form] { form->unload(); });
    }
}

void ShutDown::unloadFrame()
{
    for (Form *form : m_parts.forms.named(kFrameName.toString())) {
        if (m_parts.forms.contains(form))
            ignoringErrors([form] { form->unload(); });
    }
}

} // namespace norvane
