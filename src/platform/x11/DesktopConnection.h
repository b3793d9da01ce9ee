#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QVector>
#include <array>
#include <cstdlib>
#include <memory>
#include <optional>
#include <xcb/xcb.h>

namespace norvane::x11 {

/// The atoms that the backend uses; DesktopConnection.cpp holds their texts in this order.
enum class AtomName {
    NetSupported,
    NetClientList,
    NetClientListStacking,
    NetActiveWindow,
    NetCurrentDesktop,
    NetRestackWindow,
    NetWmName,
    NetWmState,
    NetWmStateSkipTaskbar,
    NetWmStateSkipPager,
    KdeNetWmStateSkipSwitcher,
    NetWmStateHidden,
    NetWmStateAbove,
    NetWmWindowType,
    NetWmWindowTypeDesktop,
    NetWmWindowTypeDock,
    NetWmWindowTypeToolbar,
    NetWmWindowTypeMenu,
    NetWmWindowTypeUtility,
    NetWmWindowTypeSplash,
    NetWmWindowTypeDropdownMenu,
    NetWmWindowTypePopupMenu,
    NetWmWindowTypeTooltip,
    NetWmWindowTypeNotification,
    NetWmWindowTypeCombo,
    NetWmWindowTypeDnd,
    NetWmWindowTypeDialog,
    NetWmWindowTypeNormal,
    NetWmIcon,
    NetWmPid,
    NetWmPing,
    NetWmDesktop,
    NetFrameExtents,
    GtkFrameExtents,
    WmState,
    WmProtocols,
    Utf8String,
    // Predefined by the protocol.
    WmName,
    WmClass,
    WmHints,
    WmTransientFor,
    Count
};

/// Source of a request to the window manager: a program that acts for the user, as a pager does.
inline constexpr quint32 kUserSource = 2;

struct FreeDeleter
{
    void operator()(void *memory) const { std::free(memory); }
};
/// What xcb hands over to be freed.
template <typename T> using XcbPointer = std::unique_ptr<T, FreeDeleter>;

using PropertyReply = XcbPointer<xcb_get_property_reply_t>;

/// A connection of our own to the X server, beside the one of the widgets.
///
/// It counts round trips: send all requests of a batch through sent() before reading the first
/// reply, and the batch costs one. Windows vanish at any time, so a request that fails gives an
/// empty reply and nothing else. When the server has gone all replies are empty.
class DesktopConnection
{
public:
    /// Connects to the display that DISPLAY names.
    DesktopConnection();
    ~DesktopConnection();
    DesktopConnection(const DesktopConnection &) = delete;
    DesktopConnection &operator=(const DesktopConnection &) = delete;

    bool isAlive() const;
    xcb_connection_t *get() const { return m_connection; }
    int fileDescriptor() const;
    xcb_window_t root() const { return m_root; }
    /// Whether the server tells the processes of windows (the X-Resource extension, 1.2).
    bool hasClientIds() const { return m_hasClientIds; }

    xcb_atom_t atom(AtomName name) const { return m_atoms[static_cast<size_t>(name)]; }
    std::optional<AtomName> nameOf(xcb_atom_t atom) const;

    quint64 roundTrips() const { return m_roundTrips; }

    /// Notes a request whose reply will be read.
    template <typename Cookie> Cookie sent(Cookie cookie)
    {
        m_lastSent = cookie.sequence;
        return cookie;
    }
    /// Reads a reply; empty when the request failed.
    template <typename Cookie, typename Reply>
    XcbPointer<Reply> reply(Cookie cookie,
                            Reply *(*fetch)(xcb_connection_t *, Cookie, xcb_generic_error_t **))
    {
        countRoundTrip(cookie.sequence);
        xcb_generic_error_t *error = nullptr;
        XcbPointer<Reply> answer(fetch(m_connection, cookie, &error));
        std::free(error);
        return answer;
    }

    /// @param longs how much of the property to read, in units of four bytes
    xcb_get_property_cookie_t requestProperty(xcb_window_t window, AtomName name, quint32 longs);
    PropertyReply property(xcb_get_property_cookie_t cookie);

    void selectEvents(xcb_window_t window, quint32 mask);
    /// Sends a client message of five numbers about @p window to the window manager.
    void tellWindowManager(xcb_window_t window, AtomName message, const std::array<quint32, 5> &data);
    /// The same over another connection.
    void tellWindowManager(xcb_connection_t *over, xcb_window_t window, AtomName message,
                           const std::array<quint32, 5> &data) const;
    /// Asks a window manager that knows no _NET_RESTACK_WINDOW to put a window right above another one.
    void askToRestack(xcb_window_t window, xcb_window_t sibling);
    void flush();

    /// The next event; empty when there is none. The socket is not read again within 50 µs of
    /// having been found empty: a turn of the watch cycle asks dozens of times.
    XcbPointer<xcb_generic_event_t> pollEvent();
    /// The next event of those that came along with replies.
    XcbPointer<xcb_generic_event_t> queuedEvent();
    /// Has the next pollEvent() read the socket: something is known to have come.
    void expectInput();
    /// Waits until the server has sent something, at most @p timeoutMs. False when it has not.
    bool waitForInput(int timeoutMs);

private:
    void countRoundTrip(unsigned int sequence);
    void internAtoms();

    xcb_connection_t *m_connection;
    xcb_window_t m_root = XCB_NONE;
    bool m_hasClientIds = false;
    std::array<xcb_atom_t, static_cast<size_t>(AtomName::Count)> m_atoms = {};
    quint64 m_roundTrips = 0;
    QElapsedTimer m_quiet; ///< since the socket was found empty
    unsigned int m_lastSent = 0;
    unsigned int m_answered = 0; ///< the last request that the latest round trip covered
};

/// The bytes of a property of 8-bit items; empty when there is none.
QByteArray bytesOf(const PropertyReply &reply);
/// The numbers of a property of 32-bit items; empty when there is none.
QVector<quint32> numbersOf(const PropertyReply &reply);

} // namespace norvane::x11
