#pragma once

#include "platform/HotKeys.h"

#include <QMap>
#include <QQueue>
#include <QSocketNotifier>
#include <memory>
#include <optional>
#include <utility>

struct xcb_connection_t;

namespace norvane {

class KeyboardMap;

/// Hot keys by grabs on the root windows, on a connection of their own.
///
/// A combination works whatever the state of the lock keys and of the keyboard group, and follows
/// the keyboard when its layout changes. A key that is held counts once. When the X server goes,
/// all keys are gone and nothing can be registered.
class X11HotKeys : public HotKeys
{
    Q_OBJECT

public:
    /// @param display as in $DISPLAY, which is meant when it is empty
    explicit X11HotKeys(const QByteArray &display = {}, QObject *parent = nullptr);
    ~X11HotKeys() override;

    bool registerHotKey(WindowHandle owner, int id, int modifiers, int key) override;
    bool unregisterHotKey(WindowHandle owner, int id) override;
    int keyOf(quint32 scanCode) override;

private:
    using Owner = std::pair<WindowHandle, int>; ///< window and id

    /// What the server is asked for, with the keyboard as it is.
    struct Grab
    {
        quint8 keyCode = 0; ///< 0: not grabbed now
        quint16 modifiers = 0;
        QVector<quint16> locks; ///< combinations of lock modifiers that it was made with

        bool operator==(const Grab &) const = default;
    };
    struct HotKey
    {
        int modifiers = 0; ///< 1 Alt, 2 Ctrl, 4 Shift
        int key = 0;
        Grab grab;
    };

    /// A key that the grabs have given us.
    struct KeyEvent
    {
        bool isPress = false;
        quint8 keyCode = 0;
        quint16 state = 0; ///< modifiers, buttons and keyboard group
        quint32 time = 0;
    };

    bool isConnected();
    void loseConnection();
    bool readKeyboard();
    Grab grabFor(int modifiers, int key) const;
    bool isGrabbed(const Grab &grab) const;
    bool make(const Grab &grab);
    void release(const Grab &grab);
    void followKeyboard();
    void readEventsLater();
    void readEvents();
    void queueEvents();
    void onKeyPress(const KeyEvent &event);

    struct Disconnect
    {
        void operator()(xcb_connection_t *connection) const;
    };
    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    std::unique_ptr<QSocketNotifier> m_notifier;
    QVector<quint32> m_roots;
    std::unique_ptr<KeyboardMap> m_keyboard;
    QMap<Owner, HotKey> m_hotKeys;
    QQueue<KeyEvent> m_events; ///< read and not yet answered
    quint8 m_heldKey = 0;      ///< of the hot key that was pressed last; 0: none
    /// Of that key, the last that was told: it is up, unless a press of the same moment follows.
    std::optional<KeyEvent> m_release;
    bool m_keyboardChanged = false;
};

} // namespace norvane
