#pragma once

#include "platform/WindowHandle.h"
#include "watcher/note_loader.h"

#include <QHash>
#include <QObject>
#include <QString>
#include <optional>

namespace norvane {

class CTaskList;
class EventLoop;
class Form;
class Shell;
class ShellWindows;
class WatchTimer;
class clsWindows;
struct WatchSettings;
struct clsClip;

/// What the watch cycle works with. Everything outlives it.
struct WatchParts
{
    NoteStore &store;
    WatchSettings &settings;
    WindowSystem &windows;
    ShellWindows &shellWindows;
    WindowLocation &location;
    CTaskList &tasks;
    clsWindows &LiveWindows;
    clsClips &Clips;
    FormList &forms;
    WatchTimer &timer;
    EventLoop &events;
    Shell &shell;
    Clock &clock;
    Sound &sound;
    StickyFactory &stickies;
};

/// Opens and closes notes as their windows come, change and go: the work of `tmrEnumWindows`.
///
/// The timer's tick() drives it; changes of windows and of their locations bring the next tick
/// forward. Errors end half a tick without a word, and the next tick tries again. A tick in which
/// nothing has changed asks neither the window system nor the database anything.
///
/// After such a quiet tick the timer rests: the next one would be quiet, too, as long as
/// - no window and no location changes, which the two signal,
/// - nothing of the program's own (InnerState) changes, which is compared before the program sleeps,
/// - nothing waits for time to pass: a window that did not answer or whose location is not known
///   yet, a note that could not be opened or a database that could not be asked keep the timer going.
/// Whatever else a tick comes to depend on has to join one of the three.
class WatchCycle : public QObject
{
    Q_OBJECT

public:
    explicit WatchCycle(const WatchParts &parts, QObject *parent = nullptr);

    /// One turn: a snapshot of the windows, at most one note closed, a second snapshot, notes opened.
    /// Does nothing inside itself or inside a yield.
    void tick();

    /// Brings `LiveWindows` up to date.
    void RefreshWindowList();
    /// Closes at most one note that has lost its target, and sets the timer's interval again.
    void CloseStaleNotes();

    /// Sets the timer's interval to `WatchInterval`, unless the cycle has ended.
    void rearm();
    /// Stops the timer and keeps it stopped: shut-down has begun.
    void end();

private:
    /// What closing depends on; the same state twice has the same outcome.
    struct CloseState
    {
        quint64 windows = 0;
        quint64 live = 0;
        quint64 clips = 0;
        bool exact = false;
        qint16 partialLength = 0;
        bool operator==(const CloseState &) const = default;
    };
    /// What a tick depends on beside the windows and their locations.
    struct InnerState
    {
        quint64 tasks = 0;
        quint64 live = 0;
        quint64 clips = 0;
        quint64 notes = 0;
        bool exact = false;
        bool tasksUnfinished = false;
        qint16 partialLength = 0;
        bool operator==(const InnerState &) const = default;
    };
    struct FoundNote
    {
        int id = 0; ///< 0 is none
        bool mayOpen = false;
    };
    /// The answer "nothing to open" for one window, and all that it depends on.
    struct KeptAnswer
    {
        QString windowTitle;
        QString documentName;
        QString className;
        quint64 notes = 0;
        bool exact = false;
        bool minimized = false;
        int note = 0; ///< the note that belongs to the window; 0 is none
        bool noteOpen = false;
        bool unparsable = false; ///< the pass ends here
        qint16 partialLength = 0;
        /// But for the notes, which may have changed since.
        bool sameQuestion(const KeptAnswer &other) const;
    };

    void OpenMatchingNotes();
    void openNoteOf(const clsWindow &window);
    FoundNote noteOf(const clsWindow &window);
    QString conditionOf(const clsWindow &window);
    int countNotes(const QString &condition);
    bool hasOutlived(const KeptAnswer &kept, const clsWindow &window);
    KeptAnswer question(const clsWindow &window) const;
    CloseState closeState() const;
    InnerState innerState() const;
    void onAboutToSleep();

    bool ClipExists(int ID, WindowHandle hWnd) const;
    bool isStale(const clsClip &clip);
    bool folderTitleGone(const clsClip &clip) const;
    void rescueOrphans();
    void unload(Form *form);
    bool stopped() const;

    WatchParts m_parts;
    NoteLoader m_loader;
    bool m_ticking = false;
    bool m_ended = false;
    bool m_quiet = false;                   ///< the tick under way, or the last one, has found nothing to do
    InnerState m_quietState;                ///< at the beginning of the last quiet tick
    std::optional<quint64> m_listedTasks;   ///< the table's changes that LiveWindows shows
    std::optional<quint64> m_listedWindows; ///< and those of the window system
    std::optional<CloseState> m_rescuedAt;
    std::optional<CloseState> m_nothingStaleAt;
    QHash<WindowHandle, KeptAnswer> m_kept;
};

} // namespace norvane
