#include "platform/x11/window_facts.h"

#include "platform/x11/program_families.h"
#include "platform/x11/window_geometry.h"
#include "platform/x11/window_text.h"

#include <utility>

namespace norvane::x11 {

namespace {

constexpr quint32 kListLongs = 64;
constexpr quint32 kClassLongs = 128;
constexpr quint32 kIconicState = 3;
// WM_HINTS: the flags, and which of them tell of an icon.
constexpr quint32 kHintsLongs = 1;
constexpr quint32 kIconPixmapHint = 1U << 2;
constexpr quint32 kIconWindowHint = 1U << 3;

quint32 firstNumber(const PropertyReply &reply)
{
    const QVector<quint32> numbers = numbersOf(reply);
    return numbers.isEmpty() ? 0 : numbers.first();
}

bool holds(const DesktopConnection &connection, const QVector<quint32> &atoms, AtomName name)
{
    return atoms.contains(connection.atom(name));
}

/// The first type of the list that is known decides, as it does for a window manager.
std::optional<AtomName> firstKnownType(const DesktopConnection &connection, const QVector<quint32> &types)
{
    for (const quint32 type : types) {
        const std::optional<AtomName> name = connection.nameOf(type);
        if (name && *name >= AtomName::NetWmWindowTypeDesktop && *name <= AtomName::NetWmWindowTypeNormal) {
            return name;
        }
    }
    return std::nullopt;
}

QString textOf(const DesktopConnection &connection, const PropertyReply &reply)
{
    if (!reply) {
        return {};
    }
    TextEncoding encoding = TextEncoding::Compound;
    if (reply->type == connection.atom(AtomName::Utf8String)) {
        encoding = TextEncoding::Utf8;
    } else if (reply->type == XCB_ATOM_STRING) {
        encoding = TextEncoding::Latin1;
    }
    return decodeText(bytesOf(reply), encoding);
}

} // namespace

quint32 factsToldBy(AtomName property)
{
    switch (property) {
    case AtomName::NetWmName:
    case AtomName::WmName:
        return kCaptionFact;
    case AtomName::WmClass:
        return kClassFact;
    case AtomName::WmState:
    case AtomName::NetWmState:
        return kStateFact;
    case AtomName::WmTransientFor:
        return kOwnerFact;
    case AtomName::NetWmWindowType:
        return kTypeFact;
    case AtomName::NetWmIcon:
    case AtomName::WmHints:
        return kIconFact;
    case AtomName::NetWmPid:
        return kProcessFact;
    case AtomName::WmProtocols:
        return kProtocolsFact;
    case AtomName::NetFrameExtents:
    case AtomName::GtkFrameExtents:
        return kExtentsFact;
    case AtomName::NetWmDesktop:
        return kDesktopFact;
    default:
        return 0;
    }
}

FactRequest::FactRequest(DesktopConnection &connection, xcb_window_t window, quint32 facts)
    : m_window(window), m_facts(facts)
{
    const auto request = [&](quint32 fact, AtomName property, quint32 longs) {
        return (facts & fact) ? connection.requestProperty(window, property, longs)
                              : xcb_get_property_cookie_t{};
    };
    m_netName = request(kCaptionFact, AtomName::NetWmName, kCaptionLongs);
    m_name = request(kCaptionFact, AtomName::WmName, kCaptionLongs);
    m_class = request(kClassFact, AtomName::WmClass, kClassLongs);
    m_wmState = request(kStateFact, AtomName::WmState, 1);
    m_netState = request(kStateFact, AtomName::NetWmState, kListLongs);
    m_owner = request(kOwnerFact, AtomName::WmTransientFor, 1);
    m_type = request(kTypeFact, AtomName::NetWmWindowType, kListLongs);
    // Pictures are large: of the icon only its being there is asked.
    m_icon = request(kIconFact, AtomName::NetWmIcon, 0);
    m_hints = request(kIconFact, AtomName::WmHints, kHintsLongs);
    m_pid = request(kProcessFact, AtomName::NetWmPid, 1);
    m_protocols = request(kProtocolsFact, AtomName::WmProtocols, kListLongs);
    m_frame = request(kExtentsFact, AtomName::NetFrameExtents, 4);
    m_shadow = request(kExtentsFact, AtomName::GtkFrameExtents, 4);
    m_desktop = request(kDesktopFact, AtomName::NetWmDesktop, 1);
    if ((facts & kProcessFact) && connection.hasClientIds()) {
        const xcb_res_client_id_spec_t question = {window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
        m_client = connection.sent(xcb_res_query_client_ids(connection.get(), 1, &question));
    }
}

bool FactRequest::read(DesktopConnection &connection, bool hiddenIsTold, WindowFacts &facts) const
{
    bool alive = true;
    const auto property = [&](xcb_get_property_cookie_t cookie) {
        PropertyReply reply = connection.property(cookie);
        alive = alive && reply;
        return reply;
    };
    if (m_facts & kCaptionFact) {
        alive = readCaption(connection, facts) && alive;
    }
    if (m_facts & kClassFact) {
        const WmClass wmClass = splitWmClass(bytesOf(property(m_class)));
        facts.programClass = classNameOf(wmClass.instance, wmClass.className);
    }
    if (m_facts & kStateFact) {
        alive = readState(connection, facts) && alive;
    }
    if (m_facts & kOwnerFact) {
        const xcb_window_t owner = firstNumber(property(m_owner));
        facts.shown.owner = owner == connection.root() || owner == m_window ? XCB_NONE : owner;
    }
    if (m_facts & kTypeFact) {
        const auto type = firstKnownType(connection, numbersOf(property(m_type)));
        facts.desktopType = type == AtomName::NetWmWindowTypeDesktop;
        facts.toolType = type && *type != AtomName::NetWmWindowTypeDialog && //
                         *type != AtomName::NetWmWindowTypeNormal;
    }
    if (m_facts & kIconFact) {
        const PropertyReply icon = property(m_icon);
        const quint32 hints = firstNumber(property(m_hints));
        facts.hasIcon = (icon && icon->bytes_after > 0) || (hints & (kIconPixmapHint | kIconWindowHint)) != 0;
    }
    if (m_facts & kProcessFact) {
        readProcess(connection, facts);
    }
    if (m_facts & kProtocolsFact) {
        facts.answersPing = holds(connection, numbersOf(property(m_protocols)), AtomName::NetWmPing);
    }
    if (m_facts & kExtentsFact) {
        facts.frameExtents = extentsOf(numbersOf(property(m_frame)));
        facts.shadowExtents = extentsOf(numbersOf(property(m_shadow)));
    }
    if (m_facts & kDesktopFact) {
        facts.desktop = firstNumber(property(m_desktop));
    }
    facts.shown.className = facts.desktopType ? kDesktopClass.toString() : facts.programClass;
    facts.shown.toolWindow = facts.toolType || facts.skipsTaskbar;
    facts.shown.minimized = facts.iconic && (facts.hidden || !hiddenIsTold);
    return alive;
}

bool FactRequest::readCaption(DesktopConnection &connection, WindowFacts &facts) const
{
    const PropertyReply netName = connection.property(m_netName);
    const PropertyReply name = connection.property(m_name);
    const QByteArray utf8 = bytesOf(netName);
    const QString text = utf8.isEmpty() ? textOf(connection, name) : decodeText(utf8, TextEncoding::Utf8);
    facts.shown.caption = cutText(text, kMaxCaption);
    facts.foldedCaption = foldedCaption(facts.shown.caption);
    return netName && name;
}

bool FactRequest::readState(DesktopConnection &connection, WindowFacts &facts) const
{
    const PropertyReply state = connection.property(m_wmState);
    const PropertyReply list = connection.property(m_netState);
    const QVector<quint32> states = numbersOf(list);
    facts.iconic = firstNumber(state) == kIconicState;
    facts.hidden = holds(connection, states, AtomName::NetWmStateHidden);
    facts.skipsTaskbar = holds(connection, states, AtomName::NetWmStateSkipTaskbar);
    return state && list;
}

void FactRequest::readProcess(DesktopConnection &connection, WindowFacts &facts) const
{
    // What the server knows of its client is true; the property is what the program says of itself.
    facts.processId = firstNumber(connection.property(m_pid));
    if (!connection.hasClientIds()) {
        return;
    }
    const auto answer = connection.reply(m_client, xcb_res_query_client_ids_reply);
    if (!answer) {
        return;
    }
    for (auto ids = xcb_res_query_client_ids_ids_iterator(answer.get()); ids.rem > 0;
         xcb_res_client_id_value_next(&ids)) {
        // What the value is an answer to stands at its beginning.
        const auto *id = reinterpret_cast<const xcb_res_client_id_spec_t *>(ids.data);
        if ((id->mask & XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID) &&
            xcb_res_client_id_value_value_length(ids.data) > 0) {
            facts.processId = *xcb_res_client_id_value_value(ids.data);
        }
    }
}

} // namespace norvane::x11
