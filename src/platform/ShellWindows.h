#pragma once

#include "platform/WindowHandle.h"

#include <QObject>
#include <QString>
#include <optional>

namespace norvane {

/// The locations that browser and folder windows show, by handle.
///
/// Answers come at once from what is known; look-ups run beside the program and a new answer is
/// told by locationChanged(). A program that hangs delays nothing but its own answers.
class ShellWindows : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;
    ~ShellWindows() override;

    /// What is known of a window.
    enum class State {
        Unknown, ///< a look-up is under way; it ends with Known, by answer or by time-out
        Known,   ///< location is the answer for the window's present caption; it may be empty
    };
    struct Answer
    {
        State state = State::Unknown;
        QString location; ///< a URL ("https://…", "file:///…") or a native folder path
    };

    /// Begins to look, without waiting. Before, no program is asked and no connection is held; asking
    /// for a location begins, too.
    virtual void start() = 0;
    /// The location without waiting. A window not seen before, or one whose caption is another than
    /// at its last look-up, is Unknown and its look-up starts: a new caption never comes with an
    /// old location.
    virtual Answer location(WindowHandle window) = 0;
    /// Asks afresh and waits at most @p timeoutMs; then the last known answer.
    virtual QString freshLocation(WindowHandle window, int timeoutMs) = 0;
    /// Whether a look-up cannot work for want of the desktop's accessibility switch.
    virtual bool needsAccessibility() const = 0;
    /// Turns the desktop's accessibility switch on. Ask the user before.
    virtual void enableAccessibility() = 0;
    /// Whether another program, a screen reader for one, listens on the accessibility bus to the keys that
    /// windows get. False while that is not known.
    virtual bool keysAreListenedTo() const = 0;

signals:
    /// The location of the window differs from the one last told, or has become known.
    void locationChanged(norvane::WindowHandle window);
};

} // namespace norvane
