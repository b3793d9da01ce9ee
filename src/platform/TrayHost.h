#pragma once

#include <QObject>

namespace norvane {

/// The part of the desktop that shows tray icons. It may start after the program, or never.
class TrayHost : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;
    ~TrayHost() override;

    enum class Kind {
        None,     ///< no host yet
        Clicks,   ///< hands on each mouse button as it is: a double click arrives as one
        Activates ///< tells only that the icon was activated, and shows the menu by itself
    };
    virtual Kind kind() const = 0;

signals:
    /// The first host has come up: an icon can be made now. Told once, and not when a host was there
    /// from the beginning; an icon that was made finds its way to later hosts by itself.
    void appeared();
};

} // namespace norvane
