#include "sticky/note_commands.h"

#include "platform/EventLoop.h"
#include "platform/Prompts.h"
#include "platform/RuntimeError.h"
#include "platform/ScreenCapture.h"
#include "platform/WindowSystem.h"
#include "richtext/NV_RTFEdit.h"
#include "richtext/commands/document_kind.h"
#include "shell/internal_error.h"
#include "shell/path_rules.h"
#include "sticky/StickyServices.h"
#include "sticky/frmSticky.h"
#include "sticky/note_menu.h"
#include "store/NoteStore.h"
#include "watcher/NoteGridView.h"
#include "watcher/NoteViews.h"
#include "watcher/delete_note.h"
#include "watcher/note_forms.h"

#include <QPointer>
#include <functional>

namespace norvane {

namespace {

/// One run of a command on a note, which may go on the way.
class NoteCommand
{
public:
    NoteCommand(frmSticky &note, const StickyServices &services)
        : m_note(&note), m_services(services), m_prompts(services.edit.prompts), m_id(note.fields.ID)
    {
    }

    void sendMail();
    void captureWindow();
    void captureDesktop();
    void clearDocument();
    void importNote();
    void importDocument() { m_note->Text1()->openDocument(); }
    void exportDocument();
    void deleteNote();
    void exportToOutlook() { m_services.views.exportToOutlook(m_note->Text1()->Text()); }
    void showProperties() { m_services.views.ShowPropertyPage(m_id); }
    void save() { m_note->SaveNote(); }
    void print() { m_note->Text1()->NV_Print(); }
    void close() { m_note->mnuFile_Close_Click(); }

private:
    /// A fault ends the step alone.
    static void step(const std::function<void()> &action)
    {
        try {
            action();
        } catch (const RuntimeError &) {
            return;
        }
    }
    void pastePicture(bool taken);

    QPointer<frmSticky> m_note;
    const StickyServices &m_services;
    Prompts &m_prompts;
    int m_id;
};

void NoteCommand::sendMail()
{
    if (m_note->isDirty()) {
        const QString question = frmSticky::tr("'%1' has not been saved?\r\nSave it now?");
        if (m_note->fields.AutoSave ||
            ask(m_prompts, question.arg(m_note->fields.FriendlyName), Prompts::kQuestion)) {
            if (m_note)
                m_note->SaveNote();
        }
    }
    if (m_note)
        m_services.views.SendNorvane(m_id);
}

void NoteCommand::captureWindow()
{
    const WindowHandle target = m_note->fields.ParentHwnd;
    m_note->hide();
    m_services.events.yield();
    m_services.windows.setForegroundWindow(target);
    const bool taken = m_services.capture.captureWindow(target);
    if (m_note) {
        m_note->showNote();
        m_services.events.yield();
        if (m_note) {
            m_services.windows.bringWindowToTop(m_note->hWnd());
            m_note->activateWindow(); // its menu was used: that is where the user is
        }
    }
    pastePicture(taken);
}

void NoteCommand::captureDesktop()
{
    const bool taken = m_services.capture.captureDesktop();
    m_services.events.yield();
    pastePicture(taken);
}

void NoteCommand::pastePicture(bool taken)
{
    if (!taken) {
        if (m_note)
            tell(m_prompts, frmSticky::tr("This desktop does not let programs take pictures of it."));
        return;
    }
    if (m_note)
        m_note->Text1()->Command_Pate();
    m_services.capture.clearClipboard();
}

void NoteCommand::clearDocument()
{
    if (!ask(m_prompts, frmSticky::tr("Are you sure?"), Prompts::kQuestion) || !m_note)
        return;
    NV_RTFEdit &text = *m_note->Text1();
    text.setText({});
    text.setFont(frmSticky::formFont());
    text.resetLook(frmSticky::formFont().pointSizeF());
}

void NoteCommand::importNote()
{
    m_services.views.showOpenNote(*m_note->Text1(), frmSticky::tr("Import into '%1'").arg(m_note->caption()));
}

void NoteCommand::exportDocument()
{
    const QString path = m_prompts.saveFile(
        frmSticky::tr("Save as"),
        frmSticky::tr("Rich Text Format (*.RTF)|*.rtf|Plain Text (*.TXT)|*.txt|All Files (*.*)|*.*",
                      "kinds of files"),
        QStringLiteral("RTF"), proposedFileName(m_note->caption()));
    if (path.isEmpty() || !m_note)
        return;
    const QString extension = documentExtension(path);
    const bool isRich = extension == u"RTF" || extension == u"DOC";
    try {
        m_note->Text1()->SaveFile(path, isRich ? RichTextBox::kRichText : RichTextBox::kPlainText);
    } catch (const RuntimeError &error) {
        tell(m_prompts, error.description());
    }
}

void NoteCommand::deleteNote()
{
    const QString question = frmSticky::tr("Are you sure you want to delete '%1'?").arg(m_note->caption());
    if (!ask(m_prompts, question, Prompts::kQuestion))
        return;
    // Whatever became of the window while the question stood, it is the note that is to go.
    NoteStore &store = m_services.store;
    try {
        deleteNoteRow(store, m_id);
    } catch (const RuntimeError &error) {
        tell(m_prompts, error.description()); // as long as the row is there, its text is
        return;
    }
    step([&] { store.requeryNoteIndex(); });
    step([&] { m_services.grid.Refresh_Grid(); });
    step([&] { deleteNoteBody(store, m_id); });
    if (StickyNote *open = noteOf(m_services.forms, m_id))
        open->unload();
}

} // namespace

void runNoteCommand(frmSticky &note, const StickyServices &services, const QString &key)
{
    using namespace note_menu;
    static const std::pair<QString, void (NoteCommand::*)()> kCommands[] = {
        {kMail, &NoteCommand::sendMail},
        {kCaptureWindow, &NoteCommand::captureWindow},
        {kCaptureDesktop, &NoteCommand::captureDesktop},
        {kNew, &NoteCommand::clearDocument},
        {kImportNote, &NoteCommand::importNote},
        {kOpen, &NoteCommand::importDocument},
        {kSave, &NoteCommand::save},
        {kDelete, &NoteCommand::deleteNote},
        {kPrint, &NoteCommand::print},
        {kExport, &NoteCommand::exportDocument},
        {kImport, &NoteCommand::importDocument},
        {kExportOutlook, &NoteCommand::exportToOutlook},
        {kProperties, &NoteCommand::showProperties},
        {kClose, &NoteCommand::close},
    };
    for (const auto &[ofKey, command] : kCommands) {
        if (ofKey == key) {
            NoteCommand run(note, services);
            (run.*command)();
            return;
        }
    }
}

} // namespace norvane
