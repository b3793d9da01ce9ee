#include "watcher/WatchCycle.h"

#include "platform/EventLoop.h"
#include "platform/RuntimeError.h"
#include "platform/Shell.h"
#include "platform/ShellWindows.h"
#include "platform/WatchTimer.h"
#include "platform/WindowSystem.h"
#include "platform/dao.h"
#include "platform/errors.h"
#include "store/NoteStore.h"
#include "store/note_row.h"
#include "watcher/StickyNote.h"
#include "watcher/WatchSettings.h"
#include "watcher/classify_location.h"
#include "watcher/clsClips.h"
#include "watcher/clsWindows.h"
#include "watcher/match_criteria.h"
#include "watcher/titles.h"
#include "watcher/window_location.h"
#include "windowlist/CTaskList.h"

#include <QScopeGuard>
#include <QSet>

namespace norvane {

namespace {

constexpr int kFewNotes = 20; ///< that are worth a look one by one

/// Whether the window's own words made the condition fail: asking again cannot go better. Any other
/// fault (a locked database, say) may pass.
bool isAboutTheText(const RuntimeError &error)
{
    return error.number() == kErrorSyntax || error.number() == kErrorItemNotFound ||
           error.number() == kErrorTypeMismatch;
}

} // namespace

WatchCycle::WatchCycle(const WatchParts &parts, QObject *parent)
    : QObject(parent), m_parts(parts), m_loader(parts.store, parts.windows, parts.location, parts.Clips,
                                                parts.forms, parts.clock, parts.sound, parts.stickies)
{
    connect(&m_parts.timer, &WatchTimer::tick, this, &WatchCycle::tick);
    connect(&m_parts.timer, &WatchTimer::aboutToSleep, this, &WatchCycle::onAboutToSleep);
    connect(&m_parts.windows, &WindowSystem::changed, &m_parts.timer, &WatchTimer::requestTick);
    connect(&m_parts.shellWindows, &ShellWindows::locationChanged, &m_parts.timer, &WatchTimer::requestTick);
}

void WatchCycle::tick()
{
    if (m_ticking || m_parts.events.yielding())
        return;
    m_parts.events.yield();
    // What ran in the meantime may have stopped the clock, and that holds for this tick too.
    if (stopped())
        return;
    m_ticking = true;
    const auto done = qScopeGuard([this] { m_ticking = false; });
    m_quiet = true;
    m_quietState = innerState();

    rescueOrphans();
    RefreshWindowList();
    if (m_nothingStaleAt != closeState())
        CloseStaleNotes();
    RefreshWindowList();
    OpenMatchingNotes();
    if (m_quiet && !m_quietState.tasksUnfinished)
        m_parts.timer.rest();
}

void WatchCycle::onAboutToSleep()
{
    if (m_quietState != innerState())
        rearm();
}

void WatchCycle::RefreshWindowList()
{
    m_parts.tasks.Refresh();
    if (m_listedTasks == m_parts.tasks.changeCount() && m_listedWindows == m_parts.windows.changeCount())
        return;
    m_quiet = false;
    m_listedTasks = m_parts.tasks.changeCount();
    m_listedWindows = m_parts.windows.changeCount();

    m_parts.LiveWindows.Clear();
    QSet<WindowHandle> listed;
    for (int i = 1; i <= m_parts.tasks.Count(); ++i) {
        const WindowHandle window = m_parts.tasks.hWnd(i);
        const QString caption = m_parts.tasks.Caption(i);
        m_parts.LiveWindows.Add(window, kNoWindow, m_parts.location.GetClassText(window), caption,
                                m_parts.tasks.DocumentName(i), 0, true, 0, 0, 0, 0,
                                strippedTitle(m_parts.windows, caption));
        listed.insert(window);
    }
    m_kept.removeIf(
        [&](const QHash<WindowHandle, KeptAnswer>::iterator &each) { return !listed.contains(each.key()); });
}

void WatchCycle::CloseStaleNotes()
{
    m_quiet = false;
    m_parts.timer.setInterval(0);
    const auto done = qScopeGuard([this] { rearm(); });
    const CloseState state = closeState();
    try {
        for (const clsClip &clip : m_parts.Clips.copies()) {
            if (isStale(clip)) {
                m_nothingStaleAt.reset();
                unload(m_parts.forms.byHwnd(clip.hWnd));
                return;
            }
        }
        m_nothingStaleAt = state;
    } catch (const RuntimeError &) {
        // A target that is not listed: its notes wait for the next snapshot.
        m_nothingStaleAt = state;
    }
}

void WatchCycle::rearm()
{
    if (!m_ended)
        m_parts.timer.setInterval(m_parts.settings.WatchInterval);
}

void WatchCycle::end()
{
    m_ended = true;
    m_parts.timer.setInterval(0);
}

void WatchCycle::OpenMatchingNotes()
{
    if (stopped())
        return;
    m_parts.timer.setInterval(0);
    const auto done = qScopeGuard([this] { rearm(); });
    try {
        // A note that opens lets events run, and an attach among them lists the windows anew.
        for (const clsWindow &window : m_parts.LiveWindows.copies())
            openNoteOf(window);
    } catch (const RuntimeError &) {
        // Quiet: the next tick tries again.
    }
}

void WatchCycle::openNoteOf(const clsWindow &window)
{
    KeptAnswer answer = question(window);
    const auto kept = m_kept.find(window.hWnd);
    const bool sameQuestion = kept != m_kept.end() && kept->sameQuestion(answer);
    if (sameQuestion && kept->notes != answer.notes && hasOutlived(*kept, window))
        kept->notes = answer.notes;
    // Whether a note is open, and the window minimised, only matters where there is a note.
    const bool holds = sameQuestion && kept->notes == answer.notes &&
                       (kept->note == 0 || (kept->minimized == answer.minimized &&
                                            kept->noteOpen == ClipExists(kept->note, window.hWnd)));
    if (holds) {
        // The length goes from window to window and is what closing compares with, so a kept answer
        // leaves it as asking would have.
        m_parts.settings.PartialMatchLength = kept->partialLength;
        if (kept->unparsable)
            throw RuntimeError(kErrorSyntax, QStringLiteral("The title makes no condition."));
        return;
    }
    m_quiet = false;
    m_kept.remove(window.hWnd);

    FoundNote found;
    try {
        found = noteOf(window);
    } catch (const RuntimeError &error) {
        if (isAboutTheText(error)) {
            answer.partialLength = m_parts.settings.PartialMatchLength;
            answer.unparsable = true;
            m_kept.insert(window.hWnd, answer);
        }
        throw;
    }
    answer.partialLength = m_parts.settings.PartialMatchLength;
    if (found.id != 0 && found.mayOpen && !answer.minimized && !ClipExists(found.id, window.hWnd)) {
        dao::Recordset &notes = *m_parts.store.NoteSet();
        notes.findFirst(QStringLiteral("ID=") + QString::number(found.id));
        if (notes.noMatch())
            return;
        m_loader.load(readNoteRow(notes), window);
    }
    answer.note = found.id;
    answer.noteOpen = ClipExists(found.id, window.hWnd);
    m_kept.insert(window.hWnd, answer);
}

/// Whether an answer to the same question has outlived what changed in the notes: its own note is not
/// among them, and none of them belongs to the window. However many notes there are, a window costs a look
/// at the few that changed.
bool WatchCycle::hasOutlived(const KeptAnswer &kept, const clsWindow &window)
{
    const std::optional<QSet<int>> changed = m_parts.store.notesChangedSince(kept.notes);
    if (kept.unparsable || !changed || changed->size() > kFewNotes || changed->contains(kept.note))
        return false;
    if (changed->isEmpty())
        return true;
    QStringList notes;
    for (const int id : *changed)
        notes.append(QStringLiteral("ID=%1").arg(id));
    return countNotes(QStringLiteral("(%1) and (%2)")
                          .arg(notes.join(QStringLiteral(" or ")), conditionOf(window))) == 0;
}

QString WatchCycle::conditionOf(const clsWindow &window)
{
    const MatchFacts facts =
        matchFacts(window, m_parts.windows, m_parts.location, m_parts.shell, m_parts.settings);
    return BuildMatchCriteria(window, facts, m_parts.settings) +
           QStringLiteral(" and Active=True And URL <> ''");
}

int WatchCycle::countNotes(const QString &condition)
{
    m_parts.store.checkOpen();
    return openNoteRows(m_parts.store, condition, QStringLiteral("count(*) as mMemos"),
                        dao::RecordsetType::ForwardOnly)
        ->field(QStringLiteral("mMemos"))
        .toInt();
}

/// The first note that belongs to the window.
WatchCycle::FoundNote WatchCycle::noteOf(const clsWindow &window)
{
    const QString condition = conditionOf(window);
    if (countNotes(condition) == 0)
        return {};

    dao::Recordset &index = *m_parts.store.NoteIndex();
    index.findFirst(condition);
    if (index.noMatch())
        return {};
    const int id = index.field(QStringLiteral("ID")).toInt();
    // The added condition belongs to the last alternative alone: a plain note or one that was closed
    // can be found by its title all the same.
    const bool plain = trimBlanks(index.field(QStringLiteral("URL")).toString()).isEmpty();
    const bool active = index.field(QStringLiteral("Active")).toBool();
    return {id, active && !plain};
}

bool WatchCycle::KeptAnswer::sameQuestion(const KeptAnswer &other) const
{
    return exact == other.exact && windowTitle == other.windowTitle && documentName == other.documentName &&
           className == other.className;
}

/// The number of note changes grows with every database that is opened, so it stands for that too.
WatchCycle::KeptAnswer WatchCycle::question(const clsWindow &window) const
{
    KeptAnswer asked;
    asked.windowTitle = window.WindowTitle;
    asked.documentName = window.DocumentName;
    asked.className = window.ClassName;
    asked.notes = m_parts.store.noteChangeCount();
    asked.exact = m_parts.settings.ExactWindowName;
    asked.minimized = m_parts.windows.isMinimized(window.hWnd);
    return asked;
}

WatchCycle::CloseState WatchCycle::closeState() const
{
    return {m_parts.windows.changeCount(), m_parts.LiveWindows.changeCount(), m_parts.Clips.changeCount(),
            m_parts.settings.ExactWindowName, m_parts.settings.PartialMatchLength};
}

WatchCycle::InnerState WatchCycle::innerState() const
{
    return {m_parts.tasks.changeCount(),        m_parts.LiveWindows.changeCount(),
            m_parts.Clips.changeCount(),        m_parts.store.noteChangeCount(),
            m_parts.settings.ExactWindowName,   m_parts.tasks.isUnfinished(),
            m_parts.settings.PartialMatchLength};
}

/// A note is open at most once on the whole desktop: the window does not count.
bool WatchCycle::ClipExists(int ID, WindowHandle /*hWnd*/) const
{
    return m_parts.Clips.GetHwnd(ID) != kNoWindow;
}

/// Raises 91 when the clip's target is not in LiveWindows.
bool WatchCycle::isStale(const clsClip &clip)
{
    if (clip.ParentHwnd == kNoWindow)
        return true;
    if (m_parts.settings.ExactWindowName && !m_parts.location.IsDocumentWindow(clip.ParentHwnd))
        return folderTitleGone(clip);

    const clsWindow *target = m_parts.LiveWindows.GetByHwnd(clip.ParentHwnd);
    if (!target)
        throw RuntimeError(kErrorNothingThere, QStringLiteral("The window of a note is not listed."));
    const QString kind = ClassifyLocation(m_parts.shell, target->DocumentName);
    if (kind == QStringLiteral("File Folder") || kind == QStringLiteral("File")) {
        m_parts.windows.bringWindowToTop(clip.hWnd);
        return folderTitleGone(clip);
    }
    const qint16 length = m_parts.settings.PartialMatchLength;
    const bool sameTitle =
        m_parts.location.GetWindowTitle(clip.ParentHwnd).left(length) == clip.SavedTitle.left(length);
    // A note that opened by its title, before a slow browser told its page, has no location to go by.
    const bool sameLocation = !clip.wURL.isEmpty() && target->DocumentName.contains(clip.wURL);
    return !sameTitle && !sameLocation;
}

bool WatchCycle::folderTitleGone(const clsClip &clip) const
{
    return !m_parts.windows.isWindow(clip.ParentHwnd) ||
           m_parts.windows.findWindowByTitle(clip.SavedTitle) == kNoWindow;
}

/// Unloads the notes whose targets are dead, and forgets clips whose notes are.
void WatchCycle::rescueOrphans()
{
    if (m_rescuedAt == closeState())
        return;
    m_quiet = false;
    for (const clsClip &clip : m_parts.Clips.copies()) {
        Form *form = m_parts.forms.byHwnd(clip.hWnd);
        if (!form)
            m_parts.Clips.RemoveByHwnd(clip.hWnd);
        else if (clip.ParentHwnd != kNoWindow && !m_parts.windows.isWindow(clip.ParentHwnd))
            unload(form);
    }
    m_rescuedAt = closeState();
}

void WatchCycle::unload(Form *form)
{
    if (!form)
        return;
    if (auto *note = dynamic_cast<StickyNote *>(form);
        note && !m_parts.windows.isWindow(note->fields.ParentHwnd))
        note->fields.ParentHwnd = kNoWindow;
    form->unload();
}

bool WatchCycle::stopped() const
{
    return m_ended || m_parts.timer.interval() == 0 || !m_parts.timer.isEnabled();
}

} // namespace norvane
