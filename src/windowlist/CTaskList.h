#pragma once

#include "platform/ShellWindows.h"
#include "platform/WindowSystem.h"

#include <QHash>
#include <QObject>
#include <QVector>
#include <limits>

namespace norvane {

class WindowLookup;

/// Stock icons of windows without an icon of their own, by the values that hIcon() gives for them.
/// No window system hands out these handles; a view has its own pictures for them.
inline constexpr IconHandle kDefaultLargeIcon = std::numeric_limits<IconHandle>::max();
inline constexpr IconHandle kDefaultOtherIcon = std::numeric_limits<IconHandle>::max() - 1;

/// The table of the desktop's application windows: what a user would call the running tasks.
///
/// Rows keep the order in which their windows were first seen. A row's caption and location belong
/// together: both stay as they are until the new caption and its location are both known, and a
/// window gets its row only then. A window that hangs keeps its last good row.
///
/// Indexes count from 1; one outside 1 to Count() gives 0 or an empty text.
class CTaskList
{
public:
    /// All three outlive the table.
    CTaskList(WindowSystem &windows, ShellWindows &shellWindows, WindowLookup &lookup);
    Q_DISABLE_COPY_MOVE(CTaskList)

    /// The longest wait for one answer of a window, milliseconds; 500 at first.
    int HungTimeout() const { return m_hungTimeout; }
    void setHungTimeout(int milliseconds) { m_hungTimeout = milliseconds; }
    /// Which windows count: 0 (at first) those without an owner or owned by a tool window, 1 those
    /// without an owner, any other value none.
    int Mode() const { return m_mode; }
    void setMode(int mode);

    int Count() const { return m_count; }
    WindowHandle hWnd(int Index) const;
    /// The caption with a blank for each "|" and "'" for each double quote.
    QString Caption(int Index) const;
    QString DocumentName(int Index) const;
    /// The large icon, or a stock icon by Mode().
    IconHandle hIcon(int Index) const;
    /// The small icon, or what hIcon() gives.
    IconHandle hIconSm(int Index) const;

    /// 0 when the window answers within HungTimeout(), 1 when it does not.
    int Status(int Index) const;
    /// Whether the row's window still counts; if not, the row is dropped. The row is found by
    /// @p hWnd if that is not 0 and has one, else by @p Index.
    bool Valid(int Index, WindowHandle hWnd);
    /// Restores the window if it is minimised and brings it to the front. The row is found as in
    /// Valid().
    /// @return whether the window is in front now
    bool Activate(int Index, WindowHandle hWnd);

    /// Brings the table up to date. When nothing has changed since the last call, it only finds
    /// that out.
    void Refresh();
    /// Whether the next Refresh() has work even if no window changes until then.
    bool isUnfinished() const { return m_unfinished; }

    /// Drops the rows of windows whose class is not tracked any more; the next Refresh() adds those that are
    /// tracked now.
    /// @return the windows that had a row
    QVector<WindowHandle> followTrackedClasses();
    /// All windows that count, in a row or not, from the front to the back.
    QVector<WindowHandle> applicationWindows() const;

    /// Grows whenever a row comes, goes or changes.
    quint64 changeCount() const { return m_changeCount; }
    /// Rows for which there is room.
    int capacity() const { return static_cast<int>(m_rows.size()); }

private:
    struct Row
    {
        WindowHandle hWnd = kNoWindow; ///< kNoWindow marks a dead row until the table is compacted
        IconHandle hIcon = 0;
        IconHandle hIconSm = 0;
        QString Caption;
        QString DocumentName;
        QString liveCaption;        ///< the caption before it was cleaned
        bool locationStale = false; ///< the location has changed under the same caption
    };
    /// A window that did not answer, and how long it is left in peace.
    struct Unanswered
    {
        QString liveCaption;
        int pause = 0; ///< refreshes
        int left = 0;
    };

    const Row *row(int Index) const;
    int rowOf(WindowHandle hWnd) const;
    int rowOf(int Index, WindowHandle hWnd) const;
    bool counts(WindowHandle hWnd) const;
    bool isTracked(WindowHandle hWnd) const;
    void locationChanged(WindowHandle hWnd);
    void dropDeadRows();
    void compact();
    void update(WindowHandle hWnd);
    bool leaveInPeace(WindowHandle hWnd, const QString &liveCaption);
    void remember(WindowHandle hWnd, const QString &liveCaption);
    void store(WindowHandle hWnd, const QString &liveCaption, const QString &location);

    WindowSystem &m_windows;
    WindowLookup &m_lookup;
    QObject m_receiver; ///< ends the signal connections with the table
    int m_hungTimeout = 500;
    int m_mode = 0;
    QVector<Row> m_rows;
    int m_count = 0;
    QHash<WindowHandle, Unanswered> m_unanswered;
    quint64 m_seenChanges = 0;
    bool m_unfinished = true;
    quint64 m_changeCount = 0;
};

} // namespace norvane
