#pragma once

#include "platform/x11/DesktopConnection.h"

#include <QMargins>
#include <QString>
#include <xcb/res.h>

/// What is known of one window, and how it is read from the server.
namespace norvane::x11 {

/// Things that are read together, as bits.
enum Fact : quint32 {
    kCaptionFact = 1U << 0,
    kClassFact = 1U << 1,
    kStateFact = 1U << 2,
    kOwnerFact = 1U << 3,
    kTypeFact = 1U << 4,
    kIconFact = 1U << 5,
    kProcessFact = 1U << 6,
    kProtocolsFact = 1U << 7,
    kExtentsFact = 1U << 8,
    kDesktopFact = 1U << 9,
    kAllFacts = (1U << 10) - 1,
    /// Those that a window placed inside another one depends on.
    kPlacementFacts = kStateFact | kExtentsFact | kDesktopFact,
};

/// The facts that a change of a property makes stale; 0 for a property that tells none.
quint32 factsToldBy(AtomName property);

/// What WindowSystem::changeCount() counts of a window.
struct ShownFacts
{
    QString caption; ///< cut
    QString className;
    bool minimized = false;
    bool toolWindow = false;
    xcb_window_t owner = XCB_NONE;
    bool operator==(const ShownFacts &) const = default;
};

struct WindowFacts
{
    ShownFacts shown;
    QString foldedCaption;
    QString programClass; ///< the class by WM_CLASS alone
    bool iconic = false;
    bool hidden = false;
    bool skipsTaskbar = false;
    bool toolType = false;
    bool desktopType = false;
    bool hasIcon = false;
    bool answersPing = false;
    qint64 processId = 0;
    quint32 desktop = 0;
    QMargins frameExtents;
    QMargins shadowExtents;
};

/// The requests for some facts of a window, on their way.
class FactRequest
{
public:
    /// Sends the requests. Nothing waits.
    FactRequest(DesktopConnection &connection, xcb_window_t window, quint32 facts);

    /// Reads the replies into @p facts. False when the window has vanished.
    /// @param hiddenIsTold whether the window manager marks minimised windows as hidden
    bool read(DesktopConnection &connection, bool hiddenIsTold, WindowFacts &facts) const;

private:
    bool readState(DesktopConnection &connection, WindowFacts &facts) const;
    bool readCaption(DesktopConnection &connection, WindowFacts &facts) const;
    void readProcess(DesktopConnection &connection, WindowFacts &facts) const;

    xcb_window_t m_window;
    quint32 m_facts;
    xcb_get_property_cookie_t m_netName = {};
    xcb_get_property_cookie_t m_name = {};
    xcb_get_property_cookie_t m_class = {};
    xcb_get_property_cookie_t m_wmState = {};
    xcb_get_property_cookie_t m_netState = {};
    xcb_get_property_cookie_t m_owner = {};
    xcb_get_property_cookie_t m_type = {};
    xcb_get_property_cookie_t m_icon = {};
    xcb_get_property_cookie_t m_hints = {};
    xcb_res_query_client_ids_cookie_t m_client = {};
    xcb_get_property_cookie_t m_pid = {};
    xcb_get_property_cookie_t m_protocols = {};
    xcb_get_property_cookie_t m_frame = {};
    xcb_get_property_cookie_t m_shadow = {};
    xcb_get_property_cookie_t m_desktop = {};
};

} // namespace norvane::x11
