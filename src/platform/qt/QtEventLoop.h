#pragma once

#include "platform/EventLoop.h"

#include <QObject>

namespace norvane {

/// Turns the application's event loop. A yield inside a yield does nothing.
class QtEventLoop : public QObject, public EventLoop
{
    Q_OBJECT

public:
    using QObject::QObject;

    void yield() override;
    bool yielding() const override { return m_yielding; }

signals:
    /// A yield is over; yielding() is false again.
    void yielded();

private:
    bool m_yielding = false;
};

} // namespace norvane
