#pragma once

#include <QEvent>
#include <QGroupBox>

namespace norvane {

/// A frame with a title around controls. Keys are not for it: the toolkit's own one takes those that press
/// buttons, and on most desktops Return is one of them, which would never come to the default button.
class GroupBox : public QGroupBox
{
public:
    using QGroupBox::QGroupBox;

protected:
    bool event(QEvent *event) override
    {
        if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease)
            return QGroupBox::event(event);
        event->ignore();
        return false;
    }
};

} // namespace norvane
