#pragma once

#include <QString>
#include <QVector>
#include <X11/keysym.h>
#include <xcb/xcb.h>

namespace norvane::test {

/// The keyboard of a desktop, and a client that plays the user and another program.
class Keyboard
{
public:
    /// @param display ":7"; isReady() tells whether its keyboard can be worked with
    explicit Keyboard(const QString &display);
    ~Keyboard();
    Keyboard(const Keyboard &) = delete;
    Keyboard &operator=(const Keyboard &) = delete;

    bool isReady() const { return m_ready; }

    /// The key that carries a symbol in whichever group; 0 when none does.
    xcb_keycode_t keyOf(xcb_keysym_t symbol) const;
    void down(xcb_keycode_t key) { fake(XCB_KEY_PRESS, key); }
    void up(xcb_keycode_t key) { fake(XCB_KEY_RELEASE, key); }
    /// Presses keys in order and lets them go in reverse order.
    void chord(const QVector<xcb_keysym_t> &symbols);
    void tap(xcb_keysym_t symbol) { chord({symbol}); }

    /// Grabs a key as another program would; false when it is taken.
    bool grab(xcb_keysym_t symbol, uint16_t modifiers);
    void ungrab(xcb_keysym_t symbol, uint16_t modifiers);

    /// Gives two keys each other's symbols.
    void swapKeys(xcb_keysym_t one, xcb_keysym_t other);
    bool setLayout(const QString &layout);
    void lockGroup(int group);
    /// Key presses of a symbol that reach the window with the keyboard focus, since the last call.
    int takePresses(xcb_keysym_t symbol);
    /// Makes a window that takes the keyboard focus.
    void openWindow();

private:
    void fake(uint8_t type, xcb_keycode_t key);
    void sync();

    QString m_display;
    xcb_connection_t *m_connection;
    xcb_window_t m_root = 0;
    bool m_ready = false;
};

} // namespace norvane::test
