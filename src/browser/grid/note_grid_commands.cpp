#include "browser/grid/note_grid_commands.h"

#include "browser/grid/NoteGrid.h"
#include "browser/grid/NoteRows.h"
#include "browser/grid/note_columns.h"
#include "browser/grid/note_grid_menu.h"
#include "browser/grid/note_row_texts.h"
#include "controls/BusyPointer.h"
#include "controls/gridview/vbalGrid.h"
#include "platform/EventLoop.h"
#include "platform/FileSystem.h"
#include "platform/Prompts.h"
#include "platform/RuntimeError.h"
#include "platform/WatchTimer.h"
#include "platform/dao.h"
#include "platform/errors.h"
#include "richtext/EditServices.h"
#include "shell/Forms.h"
#include "shell/internal_error.h"
#include "shell/path_rules.h"
#include "store/NoteStore.h"
#include "store/note_row.h"
#include "watcher/NoteViews.h"
#include "watcher/StickyNote.h"
#include "watcher/WatchSettings.h"
#include "watcher/delete_note.h"
#include "watcher/note_forms.h"
#include "watcher/open_location.h"

#include <QEventLoop>
#include <QPointer>
#include <QTimer>

namespace norvane {

namespace {

constexpr int kPauseMilliseconds = 150;

/// Spaces launches out, while input stays live. False when the program ends meanwhile.
bool pause()
{
    constexpr int kOver = 1;
    QEventLoop loop;
    QTimer::singleShot(kPauseMilliseconds, &loop, [&loop] { loop.exit(kOver); });
    return loop.exec() == kOver;
}

/// Keeps watch ticks off, as long as it lives.
class NoTicks
{
public:
    NoTicks(WatchTimer &timer, int interval) : m_timer(timer), m_interval(interval) { stop(); }
    ~NoTicks() { m_timer.setInterval(m_interval); }
    NoTicks(const NoTicks &) = delete;
    NoTicks &operator=(const NoTicks &) = delete;

    void stop() const { m_timer.setInterval(0); }

private:
    WatchTimer &m_timer;
    int m_interval; ///< afterwards
};

} // namespace

/// One run of a command on a list, which may go on the way.
class NoteGridCommand
{
public:
    NoteGridCommand(NoteGrid &list, const BrowserServices &services)
        : m_list(&list), m_services(services), m_row(list.Row()), m_id(cell(kColumnID)),
          m_title(cell(kColumnTitle)), m_location(cell(kColumnLocation)), m_selected(list.SelectedRows())
    {
    }

    bool hasRow() const { return m_row != 0; }
    /// Brings the list up to date when another program has taken the note away.
    void dropGoneRow();

    void openLocations();
    void toggleActive();
    void edit();
    void deleteNotes();
    void saveAs();
    void showProperties();
    void sendMail() { m_services.views.SendNorvane(m_id.toInt()); }
    void addToFavorites() { m_services.views.AddToFavorites(m_title, m_location); }
    void makeNote() { m_services.views.showNewNote(); }
    void search() { m_services.views.showSearch({}); }

private:
    QString cell(int column) const { return m_list->GetCelText(m_row, column); }
    bool ask(const QString &question, const QString &title, int icon)
    {
        return m_services.edit.prompts.messageBox(question, Prompts::kYesNo | icon, title) == Prompts::kYes;
    }
    void refresh()
    {
        if (m_list)
            m_list->Refresh_Grid();
    }
    void deleteRow(int ID);
    void closeNotes(int ID);
    void openSeveral();
    void deleteSeveral();

    QPointer<NoteGrid> m_list;
    const BrowserServices &m_services;
    const int m_row;
    const QString m_id;
    const QString m_title;
    const QString m_location;
    const int m_selected;
};

void NoteGridCommand::dropGoneRow()
{
    try {
        refresh();
    } catch (const RuntimeError &) {
        return;
    }
    if (m_list)
        emit m_list->Changed();
}

void NoteGridCommand::openLocations()
{
    if (m_selected >= 2)
        openSeveral();
    else
        OpenLocation(m_services.shell, m_location);
}

void NoteGridCommand::openSeveral()
{
    // What the user agrees to is what is selected now: a note that saves itself behind the question or on
    // the way has the list read anew, and then only one row is selected.
    const QStringList locations = m_list->selectedCells(kColumnLocation);
    if (!ask(NoteGrid::tr("You are going to open multiple windows and/or programs. Do you want to continue?"),
             NoteGrid::tr("Open Multiple Windows/Programs"), Prompts::kQuestion))
        return;
    const NoTicks noTicks(m_services.timer, m_services.watch.WatchInterval);
    m_services.events.yield();
    for (const QString &location : locations) {
        noTicks.stop(); // a note that closed meanwhile has set it going
        if (location.trimmed().isEmpty())
            continue;
        if (!pause())
            return;
        OpenLocation(m_services.shell, location);
        if (!pause())
            return;
    }
}

void NoteGridCommand::toggleActive()
{
    const auto note = openNoteRow(m_services.store, m_id.toInt(), QStringLiteral("ID,ACTIVE"));
    const QString active = QStringLiteral("ACTIVE");
    note->edit();
    const bool isActive = !note->field(active).toBool();
    note->setField(active, isActive);
    showActive(*m_list->grid(), m_row, isActive);
    try {
        note->update();
    } catch (const RuntimeError &) {
        showActive(*m_list->grid(), m_row, !isActive);
        throw;
    }
    m_services.store.requeryNoteIndex();
    refresh(); // which requeries a ready result set, too
    if (StickyNote *open = noteOf(m_services.forms, m_id.toInt()))
        open->mnuFile_Close_Click();
    if (m_list)
        emit m_list->Changed();
}

void NoteGridCommand::edit()
{
    {
        const BusyPointer busy;
        m_services.views.showEditor(m_id.toInt(), m_title, m_location);
    }
    if (m_list)
        emit m_list->Changed();
}

void NoteGridCommand::deleteNotes()
{
    if (m_selected >= 2) {
        deleteSeveral();
        return;
    }
    if (!ask(NoteGrid::tr("Are you sure you want to delete '%1'?").arg(m_title), NoteGrid::tr("Delete Note"),
             Prompts::kQuestion))
        return;
    const int id = m_id.toInt();
    deleteRow(id);
    refresh();
    closeNotes(id);
    deleteNoteBody(m_services.store, id);
    if (m_list)
        emit m_list->Changed();
}

void NoteGridCommand::deleteSeveral()
{
    // Those that the question is about: see openSeveral().
    const QStringList ids = m_list->selectedCells(kColumnID);
    if (!ask(NoteGrid::tr("Are you sure you want to delete %1 notes?").arg(m_selected),
             NoteGrid::tr("Delete Notes"), Prompts::kExclamation))
        return;
    for (const QString &text : ids) {
        const int id = text.toInt();
        deleteRow(id);
        closeNotes(id);
        deleteNoteBody(m_services.store, id);
    }
    refresh();
    if (m_list)
        emit m_list->Refresh(0);
}

void NoteGridCommand::deleteRow(int ID)
{
    deleteNoteRow(m_services.store, ID);
    m_services.store.requeryNoteIndex();
}

void NoteGridCommand::closeNotes(int ID)
{
    for (Form *form : m_services.forms.named(QStringLiteral("frmSticky"))) {
        const bool isThere = m_services.forms.contains(form); // one may take another along
        auto *note = isThere ? dynamic_cast<StickyNote *>(form) : nullptr;
        if (note && note->fields.ID == ID)
            note->unload();
    }
}

void NoteGridCommand::saveAs()
{
    FileSystem &files = m_services.store.files();
    Prompts &prompts = m_services.edit.prompts;
    const QString body = m_services.store.bodyFile(m_id.toInt());
    if (!files.exists(body)) {
        tell(prompts, NoteGrid::tr("Note is empty. There is nothing to save!"));
        return;
    }
    const QString path =
        prompts.saveFile(NoteGrid::tr("Save as"), NoteGrid::tr("Rich Text Format (*.RTF)|*.rtf"),
                         QStringLiteral("RTF"), proposedFileName(m_title));
    if (!path.isEmpty())
        files.write(path, files.read(body));
}

void NoteGridCommand::showProperties()
{
    if (m_selected >= 2)
        m_services.views.ShowPropertyPage(*m_list);
    else
        m_services.views.ShowPropertyPage(m_id.toInt());
}

void runGridCommand(NoteGrid &list, const BrowserServices &services, const QString &key)
{
    using namespace grid_menu;
    struct Command
    {
        const QString &key;
        void (NoteGridCommand::*run)();
        bool needsRow = true;
    };
    static const Command kCommands[] = {
        {kNew, &NoteGridCommand::makeNote, false},
        {kSearch, &NoteGridCommand::search, false},
        {kOpen, &NoteGridCommand::openLocations},
        {kActive, &NoteGridCommand::toggleActive},
        {kEdit, &NoteGridCommand::edit},
        {kDelete, &NoteGridCommand::deleteNotes},
        {kSaveAs, &NoteGridCommand::saveAs},
        {kMail, &NoteGridCommand::sendMail},
        {kFavorites, &NoteGridCommand::addToFavorites},
        {kProperties, &NoteGridCommand::showProperties},
    };
    for (const Command &command : kCommands) {
        if (command.key != key)
            continue;
        NoteGridCommand run(list, services);
        if (command.needsRow && !run.hasRow())
            return;
        try {
            (run.*command.run)();
        } catch (const RuntimeError &error) {
            if (error.number() == kErrorNoCurrentRecord)
                run.dropGoneRow();
            return;
        }
    }
}

} // namespace norvane
