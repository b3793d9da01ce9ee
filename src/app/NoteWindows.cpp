#include "app/NoteWindows.h"

#include "app/ProgramOptions.h"
#include "browser/BrowserServices.h"
#include "browser/dialogs/frmNewNote.h"
#include "browser/dialogs/frmProperty.h"
#include "browser/editor/frmOpen.h"
#include "browser/editor/note_editors.h"
#include "browser/grid/NoteGrid.h"
#include "browser/grid/note_columns.h"
#include "exchange/outgoing/export_to_outlook.h"
#include "exchange/outgoing/frmMAPI.h"
#include "exchange/shortcuts/FavoriteDialog.h"
#include "exchange/shortcuts/shortcuts.h"
#include "platform/RuntimeError.h"
#include "richtext/EditServices.h"
#include "search/frmSearch.h"
#include "shell/forms/ShellForms.h"
#include "shell/internal_error.h"
#include "shell/windows/mdiMain.h"

#include <QApplication>

namespace norvane {

namespace {

/// The window that a dialog belongs to: that in which it was asked for.
QWidget *activeWindow()
{
    return QApplication::activeWindow();
}

} // namespace

NoteWindows::NoteWindows(const BrowserServices &services, NoteRescue &rescue, ShellForms &forms,
                         ProgramOptions &options, Mail &mail, OutlookNotes &outlook)
    : m_services(services), m_rescue(rescue), m_forms(forms), m_options(options), m_mail(mail),
      m_outlook(outlook), m_newNotes(services, [this]() -> QWidget * {
          mdiMain *frame = m_forms.frame();
          return frame && frame->isFrameVisible() ? frame : nullptr;
      })
{
}

void NoteWindows::showNewNote()
{
    (new frmNewNote(m_services, activeWindow()))->showModal();
}

void NoteWindows::showEditor(int ID, const QString &title, const QString &location)
{
    if (mdiMain *frame = m_forms.frame())
        ShowNoteEditor(m_services, m_rescue, *frame, ID, title, location);
}

void NoteWindows::ShowPropertyPage(int ID)
{
    frmProperty::ShowPropertyPage(m_services, ID, activeWindow());
}

void NoteWindows::ShowPropertyPage(NoteGrid &rows)
{
    QVector<int> IDs;
    for (const QString &ID : rows.selectedCells(kColumnID))
        IDs.append(ID.toInt());
    frmProperty::ShowPropertyPage(m_services, IDs, activeWindow());
}

void NoteWindows::showSearch(std::optional<int> category)
{
    ShowSearch(m_services, category);
}

void NoteWindows::showCategories()
{
    m_options.show(frmSetting::kCategories);
}

QStringList NoteWindows::chooseCategories()
{
    return m_options.chooseCategories();
}

void NoteWindows::AddToFavorites(const QString &title, const QString &location)
{
    Prompts &prompts = m_services.edit.prompts;
    FileSystem &files = m_services.edit.files;
    const auto choose = [&](const QString &name, const QString &folder) {
        return ChooseFavorite(files, prompts, name, folder, activeWindow());
    };
    try {
        norvane::AddToFavorites({.shell = m_services.shell, .files = files, .prompts = prompts}, choose,
                                title, location);
    } catch (const RuntimeError &error) {
        showRuntimeError(prompts, error);
    }
}

void NoteWindows::SendNorvane(int ID)
{
    frmMAPI(m_services.store, m_mail, m_services.edit.prompts).SendNorvane(ID);
}

void NoteWindows::exportToOutlook(const QString &text)
{
    ExportToOutlook(m_outlook, m_services.edit.prompts, text);
}

void NoteWindows::dropItems(const QStringList &files, const QString &text)
{
    if (!m_drops)
        m_drops.emplace(DropRoutine::Parts{.forms = m_services.forms,
                                           .files = m_services.edit.files,
                                           .events = m_services.events,
                                           .dialogs = m_newNotes,
                                           .browser = m_services.browser});
    m_drops->run(files, text);
}

void NoteWindows::showOpenNote(NV_RTFEdit &RTFObj, const QString &caption)
{
    ShowOpenNote(m_services, RTFObj, caption);
}

} // namespace norvane
