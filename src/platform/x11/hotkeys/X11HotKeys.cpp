#include "platform/x11/hotkeys/X11HotKeys.h"

#include "platform/x11/hotkeys/KeyboardMap.h"
#include "platform/x11/hotkeys/virtual_keys.h"
#include "platform/x11/hotkeys/xcb_pointer.h"

#include <QPointer>
#include <algorithm>
#include <optional>
#include <poll.h>
#include <xcb/xcb.h>

namespace norvane {

namespace {

enum RegisteredModifier { kAlt = 1, kCtrl = 2, kShift = 4 };

constexpr quint16 kAllModifiers = 0xFF;

} // namespace

void X11HotKeys::Disconnect::operator()(xcb_connection_t *connection) const
{
    xcb_disconnect(connection);
}

X11HotKeys::X11HotKeys(const QByteArray &display, QObject *parent) : HotKeys(parent)
{
    m_connection.reset(xcb_connect(display.isEmpty() ? nullptr : display.constData(), nullptr));
    if (xcb_connection_has_error(m_connection.get())) {
        m_connection.reset();
        return;
    }
    for (auto screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())); screen.rem > 0;
         xcb_screen_next(&screen))
        m_roots.append(screen.data->root);
    m_notifier =
        std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(m_connection.get()), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &X11HotKeys::readEvents);
    readKeyboard();
}

X11HotKeys::~X11HotKeys() = default;

bool X11HotKeys::registerHotKey(WindowHandle owner, int id, int modifiers, int key)
{
    if (!isConnected() || m_hotKeys.contains({owner, id}) || (modifiers & ~(kAlt | kCtrl | kShift)) != 0)
        return false;
    // A change of the keyboard that is still unread would have us grab the wrong key.
    queueEvents();
    if (m_keyboardChanged)
        followKeyboard();
    const Grab grab = grabFor(modifiers, key);
    // The server would let us grab a key of our own twice.
    if (grab.keyCode == 0 || isGrabbed(grab) || !make(grab))
        return false;
    m_hotKeys.insert({owner, id}, {modifiers, key, grab});
    return true;
}

bool X11HotKeys::unregisterHotKey(WindowHandle owner, int id)
{
    const auto found = m_hotKeys.constFind({owner, id});
    if (found == m_hotKeys.constEnd())
        return false;
    const Grab grab = found->grab;
    m_hotKeys.erase(found);
    if (isConnected())
        release(grab);
    return true;
}

int X11HotKeys::keyOf(quint32 scanCode)
{
    constexpr int kLastVirtualKey = 0xFF;
    if (!isConnected() || scanCode == 0)
        return 0;
    queueEvents();
    if (m_keyboardChanged)
        followKeyboard();
    int fallback = 0; // a key that stands in for one that this keyboard lacks
    for (int key = 1; m_keyboard && key <= kLastVirtualKey; ++key) {
        const QVector<std::uint32_t> symbols = keySymbolsOf(key);
        if (symbols.isEmpty() || m_keyboard->keyOf(symbols) != scanCode)
            continue;
        if (m_keyboard->keyOf(symbols.first(1)) == scanCode)
            return key;
        fallback = fallback == 0 ? key : fallback;
    }
    return fallback;
}

/// Looks before anything is written: writing to a server that has gone may end the process.
bool X11HotKeys::isConnected()
{
    if (!m_connection)
        return false;
    pollfd descriptor{xcb_get_file_descriptor(m_connection.get()), POLLIN, 0};
    const bool hungUp = ::poll(&descriptor, 1, 0) > 0 && (descriptor.revents & (POLLHUP | POLLERR)) != 0;
    if (!hungUp && !xcb_connection_has_error(m_connection.get()))
        return true;
    loseConnection();
    return false;
}

void X11HotKeys::loseConnection()
{
    // It may be the notifier's own signal that has brought us here.
    m_notifier->setEnabled(false);
    m_notifier.release()->deleteLater();
    m_connection.reset();
    m_hotKeys.clear();
    m_events.clear();
}

bool X11HotKeys::readKeyboard()
{
    m_keyboardChanged = false;
    std::optional<KeyboardMap> keyboard = KeyboardMap::read(m_connection.get());
    readEventsLater();
    if (!keyboard)
        return false;
    m_keyboard = std::make_unique<KeyboardMap>(std::move(*keyboard));
    return true;
}

X11HotKeys::Grab X11HotKeys::grabFor(int modifiers, int key) const
{
    Grab grab;
    if (!m_keyboard)
        return grab;
    grab.keyCode = m_keyboard->keyOf(keySymbolsOf(key));
    grab.locks = m_keyboard->lockCombinations();
    if (modifiers & kAlt)
        grab.modifiers |= m_keyboard->altMask();
    if (modifiers & kCtrl)
        grab.modifiers |= XCB_MOD_MASK_CONTROL;
    if (modifiers & kShift)
        grab.modifiers |= XCB_MOD_MASK_SHIFT;
    return grab;
}

bool X11HotKeys::isGrabbed(const Grab &grab) const
{
    return std::any_of(m_hotKeys.begin(), m_hotKeys.end(), [&](const HotKey &other) {
        return other.grab.keyCode == grab.keyCode && other.grab.modifiers == grab.modifiers;
    });
}

/// Grabs the key with every combination of the lock keys, or not at all.
bool X11HotKeys::make(const Grab &grab)
{
    QVector<xcb_void_cookie_t> cookies;
    for (const quint32 root : std::as_const(m_roots)) {
        for (const quint16 locks : grab.locks)
            cookies.append(xcb_grab_key_checked(m_connection.get(), 0, root, grab.modifiers | locks,
                                                grab.keyCode, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    }
    bool done = true;
    for (const xcb_void_cookie_t cookie : std::as_const(cookies)) {
        const XcbPointer<xcb_generic_error_t> error(xcb_request_check(m_connection.get(), cookie));
        done = done && !error && !xcb_connection_has_error(m_connection.get());
    }
    if (!done)
        release(grab);
    readEventsLater();
    return done;
}

void X11HotKeys::release(const Grab &grab)
{
    if (grab.keyCode == 0)
        return;
    for (const quint32 root : std::as_const(m_roots)) {
        for (const quint16 locks : grab.locks)
            xcb_ungrab_key(m_connection.get(), grab.keyCode, root, grab.modifiers | locks);
    }
    xcb_flush(m_connection.get());
}

/// Moves the grabs to where the keys are now. A key that the new layout lacks, or that another
/// program holds there, stays registered and is tried again at the next change.
void X11HotKeys::followKeyboard()
{
    if (!readKeyboard())
        return;
    QVector<Owner> moved;
    for (auto hotKey = m_hotKeys.begin(); hotKey != m_hotKeys.end(); ++hotKey) {
        if (hotKey->grab.keyCode != 0 && hotKey->grab == grabFor(hotKey->modifiers, hotKey->key))
            continue;
        // All leave their places first: two keys may have changed places with each other.
        release(std::exchange(hotKey->grab, {}));
        moved.append(hotKey.key());
    }
    for (const Owner &owner : std::as_const(moved)) {
        HotKey &hotKey = m_hotKeys[owner];
        const Grab grab = grabFor(hotKey.modifiers, hotKey.key);
        if (grab.keyCode != 0 && !isGrabbed(grab) && make(grab))
            hotKey.grab = grab;
    }
}

/// A wait for an answer may have read events as well, of which the socket tells nothing any more.
void X11HotKeys::readEventsLater()
{
    QMetaObject::invokeMethod(this, &X11HotKeys::readEvents, Qt::QueuedConnection);
}

void X11HotKeys::readEvents()
{
    const QPointer<X11HotKeys> self(this);
    if (!m_connection)
        return;
    queueEvents();
    while (!m_events.isEmpty()) {
        const KeyEvent event = m_events.dequeue();
        if (event.isPress)
            onKeyPress(event);
        else if (event.keyCode == m_heldKey)
            m_release = event;
        // The receiver may have done anything, even deleted this object.
        if (!self)
            return;
    }
    if (isConnected() && m_keyboardChanged)
        followKeyboard();
}

void X11HotKeys::queueEvents()
{
    while (const XcbPointer<xcb_generic_event_t> event{xcb_poll_for_event(m_connection.get())}) {
        // What other programs send by hand has a bit more; nobody but the keyboard fires a hot key.
        if (event->response_type == XCB_KEY_PRESS || event->response_type == XCB_KEY_RELEASE) {
            // Press and release have the same form.
            const auto &key = *reinterpret_cast<const xcb_key_press_event_t *>(event.get());
            m_events.enqueue({event->response_type == XCB_KEY_PRESS, key.detail, key.state, key.time});
        } else if (event->response_type == XCB_MAPPING_NOTIFY) {
            m_keyboardChanged = true;
        }
    }
}

void X11HotKeys::onKeyPress(const KeyEvent &event)
{
    // A key that is held repeats as a release and a press of the same moment; the press may come later.
    const bool isRepeat = event.keyCode == m_heldKey &&
                          (!m_release || (m_release->time == event.time && m_release->state == event.state));
    m_release.reset();
    if (isRepeat || !m_keyboard)
        return;
    m_heldKey = 0;
    const int modifiers = event.state & kAllModifiers & ~m_keyboard->lockMask();
    for (auto hotKey = m_hotKeys.constBegin(); hotKey != m_hotKeys.constEnd(); ++hotKey) {
        if (hotKey->grab.keyCode != event.keyCode || hotKey->grab.modifiers != modifiers)
            continue;
        m_heldKey = event.keyCode;
        const Owner owner = hotKey.key();
        emit pressed(owner.first, owner.second);
        return;
    }
}

} // namespace norvane
