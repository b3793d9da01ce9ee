#pragma once

#include <QString>
#include <functional>

namespace norvane {

/// The desktop's notifications.
class Notifier
{
public:
    virtual ~Notifier();

    /// Asks the desktop to show a notification and returns at once; @p done is called later, from
    /// the event loop: true when the desktop has taken it, false when it has no notifications.
    virtual void notify(const QString &title, const QString &text, const std::function<void(bool)> &done) = 0;
};

} // namespace norvane
