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
        Unknown, ///< a look-up for the window's present caption is under way
        Known,   ///< text is the answer; it may be empty
    };
    struct Answer
    {
        State state = State::Unknown;
        QString location; ///< a URL ("https://…", "file:///…") or a native folder path
    };

    /// The last known location, without waiting. Starts a look-up for a window not seen before.
    virtual Answer location(WindowHandle window) = 0;
    /// Asks afresh and waits at most @p timeoutMs; then the last known answer.
    virtual QString freshLocation(WindowHandle window, int timeoutMs) = 0;
    /// Whether a look-up cannot work for want of the desktop's accessibility switch.
    virtual bool needsAccessibility() const = 0;
    /// Turns the desktop's accessibility switch on. Ask the user before.
    virtual void enableAccessibility() = 0;

signals:
    /// The location of the window differs from the one last told, or has become known.
    void locationChanged(norvane::WindowHandle window);
};

} // namespace norvane
