#pragma once

#include "platform/ShellWindows.h"

#include <QHash>

namespace norvane::fakes {

/// Locations by script. A window without an answer is known to have none.
class FakeShellWindows : public ShellWindows
{
public:
    QHash<WindowHandle, Answer> answers;
    /// What asking afresh finds, where that differs from the answer; the window becomes known by it.
    QHash<WindowHandle, QString> fresh;
    int queries = 0;
    int freshQueries = 0;
    int lastTimeout = 0;
    bool accessibilityNeeded = false;
    bool started = false;

    /// The look-up of the window ends with this location.
    void setLocation(WindowHandle window, const QString &location)
    {
        answers[window] = {State::Known, location};
        emit locationChanged(window);
    }
    /// The window has changed and its look-up runs.
    void setUnknown(WindowHandle window) { answers[window] = {State::Unknown, {}}; }

    void start() override { started = true; }
    Answer location(WindowHandle window) override
    {
        ++queries;
        return answers.value(window, {State::Known, {}});
    }
    QString freshLocation(WindowHandle window, int timeoutMs) override
    {
        ++freshQueries;
        lastTimeout = timeoutMs;
        if (fresh.contains(window))
            setLocation(window, fresh.value(window));
        return answers.value(window).location;
    }
    bool needsAccessibility() const override { return accessibilityNeeded; }
    void enableAccessibility() override { accessibilityNeeded = false; }
    bool keysAreListenedTo() const override { return true; }
};

} // namespace norvane::fakes
