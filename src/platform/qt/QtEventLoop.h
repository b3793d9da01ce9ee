#pragma once

#include "platform/EventLoop.h"

#include <QObject>

namespace norvane {

/// Turns the application's event loop. A yield inside a yield does nothing.
///
/// A dialog that is opened by what runs inside a yield may stand for long. It turns a loop of its own,
/// which does not count as inside.
class QtEventLoop : public QObject, public EventLoop
{
    Q_OBJECT

public:
    using QObject::QObject;

    void yield() override;
    bool yielding() const override;

signals:
    /// A yield is over; yielding() is false again.
    void yielded();

private:
    int m_yieldLevel = -1; ///< how deep in loops the yield under way is; -1: there is none
};

} // namespace norvane
