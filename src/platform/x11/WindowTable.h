#pragma once

#include "platform/x11/WindowPings.h"
#include "platform/x11/WindowPlaces.h"
#include "platform/x11/window_facts.h"

#include <QHash>
#include <QObject>
#include <QRect>
#include <QSet>
#include <QTimer>
#include <functional>
#include <memory>

class QSocketNotifier;

namespace norvane::x11 {

/// The windows of the desktop as the server's events keep them true.
///
/// A reader asks update() and then reads: update() takes in the events that have arrived and reads
/// anew what they made stale, all in one batch; when nothing is stale it costs no round trip.
/// Signals come from the event loop alone, never from inside a reader.
class WindowTable : public QObject
{
    Q_OBJECT

public:
    WindowTable();
    ~WindowTable() override;

    DesktopConnection &connection() { return m_connection; }
    void update();

    /// Counts changes of the list and of the ShownFacts in it.
    quint64 changeCount() const { return m_changeCount; }
    /// Listed windows without our embedded ones, front first.
    const QVector<xcb_window_t> &zOrder() const { return m_zOrder; }
    /// All windows that the window manager stacks, back first.
    const QVector<xcb_window_t> &stacking() const { return m_stacking; }
    /// Counts changes of stacking().
    quint64 stackingCount() const { return m_stackingCount; }
    xcb_window_t activeWindow() const { return m_active; }
    quint32 currentDesktop() const { return m_desktop; }
    bool supports(AtomName name) const;

    /// The facts of a window, listed or not, from the cache if it is there; nullptr when it is gone.
    const WindowFacts *facts(xcb_window_t window);
    /// The facts as they were at the last update(); nullptr when the window is not known.
    const WindowFacts *knownFacts(xcb_window_t window) const;
    bool isListed(xcb_window_t window) const { return m_listed.contains(window); }

    /// The client area of a window on the desktop, in device pixels; null when it is gone. Of a
    /// window that draws its own frame that is all that a user sees of it, without the shadow. The
    /// first question makes the table follow the window, and tell placementChanged().
    QRect clientRect(xcb_window_t window);

    /// Names a window of our own that stands inside another; XCB_NONE for the target forgets it.
    void setEmbedded(xcb_window_t window, xcb_window_t target);
    xcb_window_t targetOf(xcb_window_t window) const { return m_embedded.value(window, XCB_NONE); }
    bool isEmbedded(xcb_window_t window) const { return m_embedded.contains(window); }

    /// The signs of life that programs are asked for; update() takes in their answers.
    WindowPings &pings() { return m_pings; }

    /// Takes in events until @p condition holds, at most @p timeoutMs.
    void waitUntil(const std::function<bool()> &condition, int timeoutMs);
    /// The server's time, as its events tell it; XCB_CURRENT_TIME when it does not tell within @p timeoutMs.
    xcb_timestamp_t serverTime(int timeoutMs);

signals:
    void changed();
    void destroyed(quint32 window);
    /// Rectangle, state, workspace or listing of a window that clientRect() was asked for; of an
    /// embedded one also the order of the windows around it. Windows are told in the order in which
    /// they changed last.
    void placementChanged(quint32 window);

private:
    struct Record
    {
        WindowFacts facts;
        quint32 stale = kAllFacts;
        bool known = false; ///< whether the facts were read once
    };

    void takeIn();
    void takeInQueued();
    void handle(const xcb_generic_event_t &event);
    void handleProperty(const xcb_property_notify_event_t &event);
    void handleRootProperty(AtomName property);
    void handleDestroy(xcb_window_t window);

    void readRoot();
    void setLists(const QVector<xcb_window_t> &clients, const QVector<xcb_window_t> &stacking);
    void setOrder();
    void readFacts();
    void addRecord(xcb_window_t window);
    void makeStale(xcb_window_t window, quint32 facts);
    void tellPlacement(xcb_window_t window);
    void scheduleChanged();
    void tellNow();
    void tellChanged();
    void stop();

    DesktopConnection m_connection;
    WindowPlaces m_places;
    WindowPings m_pings;
    std::unique_ptr<QSocketNotifier> m_notifier;
    QTimer m_now;     ///< tells what cannot wait, on the next turn of the event loop
    QTimer m_settled; ///< tells changes, a few times a second at most
    QTimer m_pause;   ///< runs for a while after changes were told
    QHash<xcb_window_t, Record> m_records;
    QHash<xcb_window_t, xcb_window_t> m_embedded;
    QSet<xcb_window_t> m_dead; ///< ids that were told to be destroyed
    QSet<xcb_window_t> m_staleWindows;
    QSet<xcb_window_t> m_listed;
    QVector<xcb_window_t> m_placements; ///< to be told, in the order of their last changes
    QVector<xcb_window_t> m_destroyed;
    QVector<xcb_window_t> m_clients;
    QVector<xcb_window_t> m_stacking;
    QVector<xcb_window_t> m_zOrder;
    QVector<quint32> m_supported;
    xcb_window_t m_active = XCB_NONE;
    xcb_window_t m_clock = XCB_NONE;           ///< a window of ours whose changes tell the time
    xcb_timestamp_t m_time = XCB_CURRENT_TIME; ///< of its last change
    quint32 m_desktop = 0;
    bool m_listStale = true;
    bool m_activeStale = true;
    bool m_supportedStale = true;
    quint64 m_changeCount = 0;
    quint64 m_stackingCount = 0;
    quint64 m_toldCount = 0;
};

} // namespace norvane::x11
