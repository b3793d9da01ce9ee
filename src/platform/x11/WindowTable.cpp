#include "platform/x11/WindowTable.h"

#include <QAbstractEventDispatcher>
#include <QElapsedTimer>
#include <QSocketNotifier>
#include <algorithm>

namespace norvane::x11 {

namespace {

constexpr quint32 kMaxWindows = 65536; ///< of a list; a longer one is cut
constexpr quint32 kWindowEvents = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
constexpr quint32 kRootEvents = XCB_EVENT_MASK_PROPERTY_CHANGE;
/// The facts that ShownFacts are made of.
constexpr quint32 kShownFacts = kCaptionFact | kClassFact | kStateFact | kOwnerFact | kTypeFact;

/// Changes come in bursts (a new window has a dozen): wait for the end of one, then tell it.
constexpr int kSettleMs = 5;
/// A window may change its title hundreds of times a second; that is told ten times.
constexpr int kPauseMs = 100;

constexpr uint8_t kEventMask = 0x7f; ///< without the mark of events that were sent by programs

} // namespace

WindowTable::WindowTable() : m_places(m_connection), m_pings(m_connection, kRootEvents)
{
    m_now.setSingleShot(true);
    m_settled.setSingleShot(true);
    m_pause.setSingleShot(true);
    connect(&m_now, &QTimer::timeout, this, &WindowTable::tellNow);
    connect(&m_settled, &QTimer::timeout, this, &WindowTable::tellChanged);
    connect(&m_pause, &QTimer::timeout, this, &WindowTable::tellChanged);
    if (!m_connection.isAlive()) {
        return;
    }
    m_notifier = std::make_unique<QSocketNotifier>(m_connection.fileDescriptor(), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] {
        m_connection.expectInput();
        takeIn();
    });
    // What came along with a reply or a flush wakes no notifier.
    if (const auto *dispatcher = QAbstractEventDispatcher::instance()) {
        connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, &WindowTable::takeInQueued);
    }
    m_connection.selectEvents(m_connection.root(), kRootEvents);
    update();
    m_toldCount = m_changeCount;
}

WindowTable::~WindowTable() = default;

void WindowTable::update()
{
    takeIn();
    if (!m_connection.isAlive()) {
        return;
    }
    if (m_listStale || m_activeStale || m_supportedStale) {
        readRoot();
    }
    if (!m_staleWindows.isEmpty()) {
        readFacts();
    }
    if (m_places.isStale()) {
        m_places.read();
    }
    takeInQueued();
}

void WindowTable::waitUntil(const std::function<bool()> &condition, int timeoutMs)
{
    QElapsedTimer clock;
    clock.start();
    // Sending takes in what has come, which no waiting would notice then.
    for (update(); !condition() && !clock.hasExpired(timeoutMs); update()) {
        const int left = qMax(0, timeoutMs - static_cast<int>(clock.elapsed()));
        if (!m_connection.waitForInput(left) || !m_connection.isAlive()) {
            break;
        }
    }
}

xcb_timestamp_t WindowTable::serverTime(int timeoutMs)
{
    if (m_clock == XCB_NONE) {
        m_clock = xcb_generate_id(m_connection.get());
        const quint32 events = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_create_window(m_connection.get(), 0, m_clock, m_connection.root(), -1, -1, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    }
    // Nothing is added to the property; the server tells when.
    m_time = XCB_CURRENT_TIME;
    xcb_change_property(m_connection.get(), XCB_PROP_MODE_APPEND, m_clock, XCB_ATOM_WM_NAME, XCB_ATOM_STRING,
                        8, 0, nullptr);
    m_connection.flush();
    waitUntil([this] { return m_time != XCB_CURRENT_TIME; }, timeoutMs);
    return m_time;
}

bool WindowTable::supports(AtomName name) const
{
    return m_supported.contains(m_connection.atom(name));
}

const WindowFacts *WindowTable::facts(xcb_window_t window)
{
    update();
    if (!m_records.contains(window)) {
        if (window == XCB_NONE || window == m_connection.root() || m_dead.contains(window) ||
            !m_connection.isAlive()) {
            return nullptr;
        }
        addRecord(window);
        update();
    }
    return knownFacts(window);
}

const WindowFacts *WindowTable::knownFacts(xcb_window_t window) const
{
    const auto record = m_records.constFind(window);
    return record == m_records.constEnd() ? nullptr : &record->facts;
}

QRect WindowTable::clientRect(xcb_window_t window)
{
    if (!facts(window)) {
        return {};
    }
    if (!m_places.isFollowed(window)) {
        m_places.follow(window);
        update();
    }
    const WindowFacts *known = knownFacts(window);
    return known ? m_places.rect(window).marginsRemoved(known->shadowExtents) : QRect();
}

void WindowTable::setEmbedded(xcb_window_t window, xcb_window_t target)
{
    if (target == XCB_NONE) {
        m_embedded.remove(window);
    } else {
        m_embedded.insert(window, target);
        if (m_records.contains(window) && !m_places.isFollowed(window)) {
            m_places.follow(window);
            tellPlacement(window);
        }
    }
    setOrder();
}

// ---- Events -------------------------------------------------------------------------------------

void WindowTable::takeIn()
{
    while (const auto event = m_connection.pollEvent()) {
        handle(*event);
    }
    if (!m_connection.isAlive()) {
        stop();
    }
}

void WindowTable::takeInQueued()
{
    while (const auto event = m_connection.queuedEvent()) {
        handle(*event);
    }
}

void WindowTable::stop()
{
    // The server has gone. What is known stays as the last answer; nothing more will come.
    m_notifier.reset();
    m_now.stop();
    m_settled.stop();
    m_pause.stop();
}

void WindowTable::handle(const xcb_generic_event_t &event)
{
    switch (event.response_type & kEventMask) {
    case XCB_PROPERTY_NOTIFY:
        handleProperty(reinterpret_cast<const xcb_property_notify_event_t &>(event));
        break;
    case XCB_CONFIGURE_NOTIFY:
        tellPlacement(m_places.moved(reinterpret_cast<const xcb_configure_notify_event_t &>(event).window));
        break;
    case XCB_GRAVITY_NOTIFY:
        tellPlacement(m_places.moved(reinterpret_cast<const xcb_gravity_notify_event_t &>(event).window));
        break;
    case XCB_REPARENT_NOTIFY:
        tellPlacement(
            m_places.reparented(reinterpret_cast<const xcb_reparent_notify_event_t &>(event).window));
        break;
    case XCB_DESTROY_NOTIFY:
        handleDestroy(reinterpret_cast<const xcb_destroy_notify_event_t &>(event).window);
        break;
    case XCB_CLIENT_MESSAGE:
        m_pings.handle(reinterpret_cast<const xcb_client_message_event_t &>(event));
        break;
    default: // errors about windows that have gone are among these
        break;
    }
}

void WindowTable::handleProperty(const xcb_property_notify_event_t &event)
{
    if (event.window == m_clock) {
        m_time = event.time;
        return;
    }
    const std::optional<AtomName> property = m_connection.nameOf(event.atom);
    if (!property) {
        return;
    }
    if (event.window == m_connection.root()) {
        handleRootProperty(*property);
    } else {
        makeStale(event.window, factsToldBy(*property));
    }
}

void WindowTable::handleRootProperty(AtomName property)
{
    switch (property) {
    case AtomName::NetClientList:
    case AtomName::NetClientListStacking:
        m_listStale = true;
        scheduleChanged();
        // A window inside another one may have come or gone with its list.
        if (!m_embedded.isEmpty()) {
            m_now.start(0);
        }
        break;
    case AtomName::NetActiveWindow:
    case AtomName::NetCurrentDesktop:
        m_activeStale = true;
        // Who had the keyboard must be known when a window of ours goes.
        if (!m_embedded.isEmpty()) {
            m_now.start(0);
        }
        break;
    case AtomName::NetSupported:
        m_supportedStale = true;
        break;
    default:
        break;
    }
}

void WindowTable::handleDestroy(xcb_window_t window)
{
    const auto record = m_records.constFind(window);
    if (record == m_records.constEnd()) {
        return;
    }
    if (record->known) {
        m_dead.insert(window);
        m_destroyed.append(window);
        m_now.start(0);
    }
    m_records.erase(record);
    m_staleWindows.remove(window);
    m_places.forget(window);
    m_placements.removeOne(window);
    m_pings.forget(window);
    m_listed.remove(window);
    setOrder();
}

// ---- Reading ------------------------------------------------------------------------------------

void WindowTable::readRoot()
{
    const xcb_window_t root = m_connection.root();
    const auto clientsCookie = m_connection.requestProperty(root, AtomName::NetClientList, kMaxWindows);
    const auto stackingCookie =
        m_connection.requestProperty(root, AtomName::NetClientListStacking, kMaxWindows);
    const auto activeCookie = m_connection.requestProperty(root, AtomName::NetActiveWindow, 1);
    const auto desktopCookie = m_connection.requestProperty(root, AtomName::NetCurrentDesktop, 1);
    const auto supportedCookie = m_connection.requestProperty(root, AtomName::NetSupported, kMaxWindows);
    const QVector<quint32> clients = numbersOf(m_connection.property(clientsCookie));
    const QVector<quint32> stacking = numbersOf(m_connection.property(stackingCookie));
    const QVector<quint32> active = numbersOf(m_connection.property(activeCookie));
    const QVector<quint32> desktop = numbersOf(m_connection.property(desktopCookie));
    const QVector<quint32> supported = numbersOf(m_connection.property(supportedCookie));
    if (!m_connection.isAlive()) {
        return;
    }
    m_listStale = false;
    m_activeStale = false;
    m_supportedStale = false;
    m_active = active.isEmpty() ? XCB_NONE : active.first();
    m_desktop = desktop.isEmpty() ? 0 : desktop.first();
    if (supported != m_supported) {
        // Another window manager: it may tell states in another way.
        m_supported = supported;
        for (auto record = m_records.constBegin(); record != m_records.constEnd(); ++record) {
            makeStale(record.key(), kStateFact);
        }
    }
    setLists(clients, stacking);
}

void WindowTable::setLists(const QVector<xcb_window_t> &clients, const QVector<xcb_window_t> &stacking)
{
    const QSet<xcb_window_t> before = m_listed;
    const QVector<xcb_window_t> stackingBefore =
        std::exchange(m_stacking, stacking.isEmpty() ? clients : stacking);
    m_clients = clients;
    m_listed = QSet<xcb_window_t>(clients.begin(), clients.end());
    for (const xcb_window_t window : clients) {
        if (!m_records.contains(window)) {
            // An id that was destroyed is given out again to a later window.
            m_dead.remove(window);
            addRecord(window);
        }
        if (!before.contains(window)) {
            tellPlacement(window);
        }
    }
    for (const xcb_window_t window : before) {
        if (!m_listed.contains(window)) {
            tellPlacement(window);
        }
    }
    if (m_stacking != stackingBefore) {
        ++m_stackingCount;
        const auto embedded = m_embedded.keys();
        for (const xcb_window_t window : embedded) {
            tellPlacement(window);
        }
    }
    setOrder();
}

void WindowTable::setOrder()
{
    QVector<xcb_window_t> order;
    const auto take = [&](xcb_window_t window) {
        if (m_listed.contains(window) && !m_embedded.contains(window) && !order.contains(window)) {
            order.append(window);
        }
    };
    std::for_each(m_stacking.crbegin(), m_stacking.crend(), take);
    // The two lists are two properties: a new window may be in one of them only.
    if (order.size() < m_listed.size()) {
        std::for_each(m_clients.crbegin(), m_clients.crend(), take);
    }
    if (order != m_zOrder) {
        m_zOrder = order;
        ++m_changeCount;
        scheduleChanged();
    }
}

void WindowTable::addRecord(xcb_window_t window)
{
    // Events first, facts after: a change in between is then told.
    m_connection.selectEvents(window, kWindowEvents);
    m_staleWindows.insert(window);
    m_records.insert(window, {});
    if (m_embedded.contains(window)) {
        m_places.follow(window);
    }
}

void WindowTable::readFacts()
{
    const bool hiddenIsTold = supports(AtomName::NetWmStateHidden);
    QVector<std::pair<xcb_window_t, FactRequest>> requests;
    requests.reserve(m_staleWindows.size());
    for (const xcb_window_t window : std::as_const(m_staleWindows)) {
        Record &record = m_records[window];
        requests.append({window, FactRequest(m_connection, window, record.stale)});
        record.stale = 0;
    }
    m_staleWindows.clear();
    for (const auto &[window, request] : requests) {
        Record &record = m_records[window];
        const ShownFacts before = record.facts.shown;
        if (!request.read(m_connection, hiddenIsTold, record.facts)) {
            if (m_connection.isAlive()) {
                handleDestroy(window);
            }
            continue;
        }
        record.known = true;
        if (m_listed.contains(window) && !m_embedded.contains(window) && record.facts.shown != before) {
            ++m_changeCount;
            scheduleChanged();
        }
    }
}

// ---- Telling ------------------------------------------------------------------------------------

void WindowTable::makeStale(xcb_window_t window, quint32 facts)
{
    const auto record = m_records.find(window);
    if (record == m_records.end() || facts == 0) {
        return;
    }
    record->stale |= facts;
    m_staleWindows.insert(window);
    if (facts & kShownFacts) {
        scheduleChanged();
    }
    if (facts & kPlacementFacts) {
        tellPlacement(window);
    }
}

void WindowTable::tellPlacement(xcb_window_t window)
{
    if (m_places.isFollowed(window)) {
        m_placements.removeOne(window);
        m_placements.append(window);
        m_now.start(0);
    }
}

void WindowTable::scheduleChanged()
{
    if (!m_settled.isActive() && !m_pause.isActive()) {
        m_settled.start(kSettleMs);
    }
}

void WindowTable::tellNow()
{
    update();
    const QVector<xcb_window_t> destroyedWindows = std::exchange(m_destroyed, {});
    const QVector<xcb_window_t> placements = std::exchange(m_placements, {});
    for (const xcb_window_t window : destroyedWindows) {
        emit destroyed(window);
    }
    for (const xcb_window_t window : placements) {
        emit placementChanged(window);
    }
}

void WindowTable::tellChanged()
{
    update();
    if (m_changeCount != m_toldCount) {
        m_toldCount = m_changeCount;
        m_settled.stop();
        m_pause.start(kPauseMs);
        emit changed();
    }
}

} // namespace norvane::x11
