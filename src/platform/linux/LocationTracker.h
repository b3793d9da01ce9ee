#pragma once

#include "platform/ShellWindows.h"
#include "platform/linux/LocationProvider.h"

#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QTimer>
#include <functional>

namespace norvane {

class WindowSystem;

/// What is known of the windows' locations, and when to look again. Main thread; never waits.
///
/// A caption and its location change one after the other, in an order of the program's own. So an
/// answer that is the same as before the caption changed is asked for once more before it counts.
/// A window whose caption never rests is looked at now and then, and what is found counts.
class LocationTracker : public QObject
{
    Q_OBJECT

public:
    /// Starts a look-up beside the main thread; its result comes to arrived().
    /// @return false when the window's program has no provider
    using StartLookUp = std::function<bool(const LookUpRequest &request)>;

    /// @param pixelRatio device pixels of the desktop per logical pixel
    LocationTracker(WindowSystem &windows, qreal pixelRatio, StartLookUp start);

    ShellWindows::Answer location(WindowHandle window);
    /// The last known answer for the present caption; empty if there is none.
    QString lastKnown(WindowHandle window) const;
    /// What to ask about the window now.
    LookUpRequest requestFor(WindowHandle window);

    /// The result of a look-up that was started.
    void arrived(WindowHandle window, const LookUpResult &result);
    /// An answer that was asked for by other means, with requestFor(), just now.
    void accept(WindowHandle window, const QString &location);

    /// Looks again at a program's windows: at all, or at the one that the user works in and those
    /// without a location.
    enum class Which { All, Foreground };
    void programChanged(qint64 processId, Which which);
    /// Looks again at all windows: the means of looking came or went.
    void lookAgain();
    /// Something happens on the desktop: the regular look at the foreground window comes more often.
    void desktopActive();

    /// Whether a browser's window is known to have no location.
    bool browserWithoutLocation() const;
    bool hasWindowsOf(qint64 processId) const;

signals:
    /// As in ShellWindows; never sent from within a call.
    void locationChanged(norvane::WindowHandle window);
    /// A window that was tracked has gone.
    void windowForgotten(norvane::WindowHandle window, qint64 processId);

private:
    using State = ShellWindows::State;
    struct Record
    {
        qint64 processId = 0;
        bool browser = false;
        QString caption;  ///< at the last look-up
        QString location; ///< last known, maybe of an earlier caption
        State state = State::Unknown;
        bool lookingUp = false;
        bool lookAgain = false; ///< once more when the one under way has ended
        bool confirmed = false;
        bool found = false;     ///< the last look-up found an answer
        int attempt = 0;        ///< of the times at which a program that is not ready is asked again
        quint64 round = 0;      ///< number of the caption change; timers of earlier ones are void
        bool timerRuns = false; ///< of a window whose caption does not rest
        int quickChanges = 0;   ///< captions in close succession
        QElapsedTimer sinceChange;
    };

    static bool isFamily(const QString &className);
    Record *recordOf(WindowHandle window);
    void begin(WindowHandle window, Record &record, const QString &caption);
    void ask(WindowHandle window, Record &record);
    void askIn(int milliseconds, WindowHandle window);
    void askNowAndThen(WindowHandle window, Record &record);
    static bool isRestless(const Record &record);
    void apply(WindowHandle window, Record &record, const LookUpResult &result);
    void settle(WindowHandle window, Record &record, const QString &location);
    void retry(WindowHandle window, Record &record);
    void windowsChanged();
    void windowDestroyed(WindowHandle window);
    void lookAtChangedPrograms();
    void poll();

    WindowSystem &m_windows;
    const qreal m_pixelRatio;
    const StartLookUp m_start;
    QHash<WindowHandle, Record> m_records;
    quint64 m_rounds = 0;
    QTimer m_poll;
    QTimer m_programTimer;
    QHash<qint64, Which> m_changedPrograms;
};

} // namespace norvane
