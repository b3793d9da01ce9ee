#pragma once

#include "platform/WatchTimer.h"

#include <QElapsedTimer>
#include <QTimer>

namespace norvane {

class QtEventLoop;

/// The watch timer on the application's event loop.
///
/// Requested ticks keep a distance to the tick before them, so that a window that changes its
/// title hundreds of times a second cannot keep the program busy; after one the interval starts
/// anew. A tick that falls due during a tick or during a yield comes after it. A request made
/// during a tick counts even if the tick has set the interval to 0 meanwhile, provided that the
/// timer runs when the tick is over. A dialog that opens inside a tick or a yield does not stop the
/// timer: what turns in the dialog's own loop is not inside. A timer that is made before the
/// application never rests.
class QtWatchTimer : public WatchTimer
{
    Q_OBJECT

public:
    /// Least time between the end of a tick and a requested one, in milliseconds.
    static constexpr int kLeastGapMs = 15;

    /// @p loop must outlive the timer.
    explicit QtWatchTimer(QtEventLoop &loop, QObject *parent = nullptr);

    void setInterval(int milliseconds) override;
    int interval() const override { return m_interval; }
    void setEnabled(bool enabled) override;
    bool isEnabled() const override { return m_enabled; }
    void requestTick() override;
    void rest() override;

private:
    bool runs() const { return m_enabled && m_interval > 0; }
    bool ticking() const;
    /// Sets the timer for the requested tick if there is one, else for a whole interval.
    void arm();
    void onTimeout();
    void onYielded();
    void onAboutToBlock();

    QtEventLoop &m_loop;
    QTimer m_timer;
    QElapsedTimer m_sinceTick; ///< since the end of the last tick
    qint64 m_gapMs = kLeastGapMs;
    int m_interval = 0;
    bool m_enabled = false;
    int m_tickLevel = -1;     ///< how deep in loops the tick under way is; -1: there is none
    bool m_requested = false; ///< a tick is wanted before the interval is over
    bool m_resting = false;   ///< no tick is wanted but a requested one
    bool m_mayRest = false;
};

} // namespace norvane
