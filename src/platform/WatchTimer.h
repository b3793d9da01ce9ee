#pragma once

#include <QObject>

namespace norvane {

/// The clock of the watch cycle, `tmrEnumWindows`: an interval and a switch.
///
/// It ticks while it is enabled and its interval is above 0. requestTick() brings the next tick
/// forward (several requests are one); it does nothing while the timer does not run.
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

signals:
    void tick();
};

} // namespace norvane
