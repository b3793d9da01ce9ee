#include "browser/grid/note_grid_commands.h"

#include "browser/grid/BusyPointer.h"
#include "browser/grid/NoteGrid.h"
#include "browser/grid/note_columns.h"
#include "browser/grid/note_grid_menu.h"
#include "browser/grid/note_row_texts.h"
#include "browser/grid/note_rows.h"
#include "controls/gridview/vbalGrid.h"
#include "platform/EventLoop.h"
#include "platform/FileSystem.h"
#include "platform/Prompts.h"
#include "platform/RuntimeError.h"
#include "platform/WatchTimer.h"
#include "platform/errors.h"
#include "richtext/EditServices.h"
#include "shell/Forms.h"
#include "shell/internal_error.h"
#include "store/NoteStore.h"
#include "watcher/NoteViews.h"
#include "watcher/StickyNote.h"
#include "watcher/WatchSettings.h"
#include "watcher/note_forms.h"
#include "watcher/open_location.h"

#include <QEventLoop>
#include <QPointer>
#include <QTimer>

namespace norvane {

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

    void edit();
    void makeNote() { m_services.views.showNewNote(); }
    void search() { m_services.views.showSearch(0); }

private:
    QString cell(int column) const { return m_list->GetCelText(m_row, column); }

    QPointer<NoteGrid> m_list;
    const BrowserServices &m_services;
    const int m_row;
    const QString m_id;
    const QString m_title;
    const QString m_location;
    const int m_selected;
};

void NoteGridCommand::edit()
{
    {
        const BusyPointer busy;
        m_services.views.showEditor(m_id.toInt(), m_title, m_location);
    }
    if (m_list)
        emit m_list->Changed();
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
        {kEdit, &NoteGridCommand::edit},
    };
    for (const Command &command : kCommands) {
        if (command.key != key)
            continue;
        NoteGridCommand run(list, services);
        if (command.needsRow && !run.hasRow())
            return;
        try {
            (run.*command.run)();
        } catch (const RuntimeError &) {
            return;
        }
    }
}

} // namespace norvane
