#include "watcher/AttachWindow.h"

#include "platform/Clock.h"
#include "platform/RuntimeError.h"
#include "platform/WatchTimer.h"
#include "platform/errors.h"
#include "store/NoteStore.h"
#include "store/note_row.h"
#include "watcher/NoteGridView.h"
#include "watcher/Notices.h"
#include "watcher/WatchCycle.h"
#include "watcher/clsWindows.h"
#include "watcher/match_criteria.h"
#include "watcher/titles.h"
#include "watcher/window_location.h"

#include <QScopeGuard>

namespace norvane {

namespace {

constexpr int kNoCategory = 0;       ///< of a row in none; the grid's number for all of them, too
constexpr int kWithoutCategory = -1; ///< the grid shows the notes in none

} // namespace

AttachWindow::AttachWindow(const WatchParts &parts, WatchCycle &cycle, Notices &notices)
    : m_parts(parts), m_cycle(cycle), m_notices(notices)
{
}

bool AttachWindow::operator()(const QString & /*title*/, WindowHandle hWnd)
{
    try {
        const clsWindow &window = record(hWnd);
        if (trimBlanks(window.DocumentName).isEmpty()) {
            m_notices.showStandingText();
            return false;
        }
        m_parts.timer.setInterval(0);
        const auto done = qScopeGuard([this] {
            m_cycle.rearm();
            m_parts.timer.requestTick();
        });
        if (writeNote(window) && m_grid)
            m_grid->Refresh_Grid();
        m_cycle.CloseStaleNotes();
        return true;
    } catch (const RuntimeError &error) {
        m_notices.show(QStringLiteral("Can not attach to active window. (Code ") +
                       QString::number(error.number()) + QStringLiteral(")"));
        return false;
    }
}

/// The window's record, with its location as it is now. Raises 91 when the window is not listed.
clsWindow &AttachWindow::record(WindowHandle hWnd)
{
    // Once the location is known, a window that is new or has just changed gets its row, so that the
    // title goes with the location even right after a change or without a running timer.
    const QString location = m_parts.location.freshLocation(hWnd);
    m_cycle.RefreshWindowList();
    clsWindow *window = m_parts.LiveWindows.GetByHwnd(hWnd);
    if (!window)
        throw RuntimeError(kErrorNothingThere, QStringLiteral("The window is not listed."));
    window->DocumentName = location;
    return *window;
}

/// @return whether a row was written
bool AttachWindow::writeNote(const clsWindow &window)
{
    m_parts.store.checkOpen();
    dao::Recordset *notes = m_parts.store.NoteSet();
    const MatchFacts facts =
        matchFacts(window, m_parts.windows, m_parts.location, m_parts.shell, m_parts.settings);
    const QString criteria = BuildMatchCriteria(window, facts, m_parts.settings) +
                             QStringLiteral(" And (LocationName<>'' And URL<>'')");
    notes->findFirst(criteria);
    if (!notes->noMatch())
        return activateNote(criteria);
    addNote(window);
    return true;
}

void AttachWindow::addNote(const clsWindow &window)
{
    const QString name = strippedTitle(m_parts.windows, window.WindowTitle);
    const QDateTime now = m_parts.clock.now();
    const int category = m_grid ? m_grid->category() : kNoCategory;

    const auto notes = openNoteRows(m_parts.store, QStringLiteral("false"));
    notes->addNew();
    notes->setField(QStringLiteral("WindowName"), window.WindowTitle);
    notes->setField(QStringLiteral("LocationName"), name);
    notes->setField(QStringLiteral("Active"), true);
    notes->setField(QStringLiteral("URL"), window.DocumentName);
    notes->setField(QStringLiteral("ClassName"), window.ClassName);
    notes->setField(QStringLiteral("FriendlyName"), name);
    notes->setField(QStringLiteral("DateCreated"), now);
    notes->setField(QStringLiteral("LastUpdate"), now);
    notes->setField(QStringLiteral("CAT_ID"), category == kWithoutCategory ? kNoCategory : category);
    notes->setField(QStringLiteral("AutoSave"), true);
    notes->setField(QStringLiteral("AutoURLDetect"), true);
    notes->update();
    m_parts.store.requeryNoteIndex();
    m_parts.store.requeryNoteSet();
}

/// @return whether the note had been inactive
bool AttachWindow::activateNote(const QString &criteria)
{
    const auto notes = openNoteRows(m_parts.store, criteria);
    if (notes->field(QStringLiteral("Active")).toBool())
        return false;
    notes->edit();
    notes->setField(QStringLiteral("Active"), true);
    notes->update();
    m_parts.store.requeryNoteIndex();
    m_parts.store.requeryNoteSet();
    return true;
}

} // namespace norvane
