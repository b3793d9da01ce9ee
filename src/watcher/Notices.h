#pragma once

#include <QString>

namespace norvane {

/// Short notices to the user that go away by themselves: `frmMessage`.
class Notices
{
public:
    virtual ~Notices() = default;

    /// Shows the standing text, "Norvane does not support this window type.". A notice that is
    /// still on the screen stays as it is: nothing is queued.
    virtual void showStandingText() = 0;
    /// Shows another text, by the same rule.
    virtual void show(const QString &text) = 0;
    /// The same; the program's windows take nothing in while it stands.
    virtual void showModal(const QString &text) = 0;
};

} // namespace norvane
