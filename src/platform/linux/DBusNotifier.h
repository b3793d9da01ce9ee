#pragma once

#include "platform/Notifier.h"

#include <QObject>

namespace norvane {

/// Notifications by the session bus service "org.freedesktop.Notifications".
class DBusNotifier : public QObject, public Notifier
{
    Q_OBJECT

public:
    using QObject::QObject;

    void notify(const QString &title, const QString &text, const std::function<void(bool)> &done) override;
};

} // namespace norvane
