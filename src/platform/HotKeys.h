#pragma once

#include "platform/WindowHandle.h"

#include <QObject>

namespace norvane {

/// System-wide hot keys.
class HotKeys : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;
    ~HotKeys() override;

    /// Registers a combination under an id of the owner window.
    /// @param modifiers 1 Alt, 2 Ctrl, 4 Shift
    /// @param key       virtual key code
    /// @return false when the combination is taken (by another program or by ourselves) or the
    ///         keyboard has no such key; the other keys work on
    virtual bool registerHotKey(WindowHandle owner, int id, int modifiers, int key) = 0;
    /// @return false when the owner has no key of that id
    virtual bool unregisterHotKey(WindowHandle owner, int id) = 0;
    /// The virtual key code by which registerHotKey() means a key of the keyboard; 0 for a key without one.
    /// @param scanCode as the events of the toolkit's windows have it
    virtual int keyOf(quint32 scanCode) = 0;

signals:
    void pressed(norvane::WindowHandle owner, int id);
};

} // namespace norvane
