#pragma once

#include <QObject>

namespace norvane {

/// The clock of the watch cycle, `tmrEnumWindows`: an interval and a switch.
///
/// It ticks while it is enabled and its interval is above 0. requestTick() brings the next tick
/// forward (several requests are one); it does nothing while the timer does not run.
///
/// A tick that leaves nothing to do may let the timer rest, so that the program sleeps while nothing
/// happens. Every cause of a later tick must then end the rest: as a call, or, for what changes inside the
/// program without a word, when aboutToSleep() comes. A program changes nothing while it sleeps.
class WatchTimer : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;
    ~WatchTimer() override;

    /// Milliseconds; 0 stops the timer. Setting it starts the interval anew.
    virtual void setInterval(int milliseconds) = 0;
    virtual int interval() const = 0;
    virtual void setEnabled(bool enabled) = 0;
    virtual bool isEnabled() const = 0;
    virtual void requestTick() = 0;
    /// No tick comes until requestTick(), setInterval() or setEnabled() is called. A request made before,
    /// in the same tick, still counts.
    virtual void rest() = 0;

signals:
    void tick();
    /// The timer rests, and the program has nothing left to run and is about to wait for events.
    void aboutToSleep();
};

} // namespace norvane
