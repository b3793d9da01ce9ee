#include "platform/x11/X11WindowSystem.h"

#include "platform/x11/WindowTable.h"
#include "platform/x11/screen_scales.h"
#include "platform/x11/window_geometry.h"
#include "platform/x11/window_icon.h"
#include "platform/x11/window_text.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <iterator>
#include <unistd.h>

namespace norvane {

using x11::AtomName;
using x11::kUserSource;
using x11::WindowFacts;

namespace {

/// The workspace of a window that is on all of them.
constexpr quint32 kAllWorkspaces = 0xffffffff;
// What a request does with a state of a window.
constexpr quint32 kRemoveState = 0;
constexpr quint32 kAddState = 1;
/// How long the window manager gets to bring a window to the front.
constexpr int kActivationMs = 100;
/// How long it gets to put windows into another order.
constexpr int kRestackMs = 300;

xcb_window_t idOf(WindowHandle window)
{
    return static_cast<xcb_window_t>(window);
}

} // namespace

X11WindowSystem::X11WindowSystem() : m_table(std::make_unique<x11::WindowTable>())
{
    connect(m_table.get(), &x11::WindowTable::changed, this, &WindowSystem::changed);
    connect(m_table.get(), &x11::WindowTable::destroyed, this,
            [this](quint32 window) { emit windowDestroyed(window); });
}

X11WindowSystem::~X11WindowSystem() = default;

QVector<WindowHandle> X11WindowSystem::topLevelWindows() const
{
    m_table->update();
    return QVector<WindowHandle>(m_table->zOrder().begin(), m_table->zOrder().end());
}

quint64 X11WindowSystem::changeCount() const
{
    m_table->update();
    return m_table->changeCount();
}

bool X11WindowSystem::isWindow(WindowHandle window) const
{
    return m_table->facts(idOf(window)) != nullptr;
}

bool X11WindowSystem::isVisible(WindowHandle window) const
{
    m_table->update();
    return m_table->isListed(idOf(window));
}

bool X11WindowSystem::isMinimized(WindowHandle window) const
{
    const WindowFacts *facts = m_table->facts(idOf(window));
    return facts && facts->shown.minimized;
}

bool X11WindowSystem::isToolWindow(WindowHandle window) const
{
    const WindowFacts *facts = m_table->facts(idOf(window));
    return facts && facts->shown.toolWindow;
}

WindowHandle X11WindowSystem::ownerOf(WindowHandle window) const
{
    const WindowFacts *facts = m_table->facts(idOf(window));
    return facts ? facts->shown.owner : kNoWindow;
}

WindowHandle X11WindowSystem::parentOf(WindowHandle window) const
{
    return m_table->targetOf(idOf(window));
}

QString X11WindowSystem::className(WindowHandle window) const
{
    const WindowFacts *facts = m_table->facts(idOf(window));
    return facts ? facts->shown.className : QString();
}

QString X11WindowSystem::caption(WindowHandle window) const
{
    const WindowFacts *facts = m_table->facts(idOf(window));
    return facts ? facts->shown.caption : QString();
}

QString X11WindowSystem::withoutProgramSuffix(const QString &title) const
{
    return x11::withoutProgramSuffix(title);
}

std::optional<QString> X11WindowSystem::requestCaption(WindowHandle window, int) const
{
    // The caption lies in the server, and a program that hangs cannot have changed it: nobody has
    // to be waited for.
    const WindowFacts *facts = m_table->facts(idOf(window));
    return facts ? std::optional(facts->shown.caption) : std::nullopt;
}

bool X11WindowSystem::responds(WindowHandle window, int timeoutMs) const
{
    const WindowFacts *facts = m_table->facts(idOf(window));
    if (!facts) {
        return false;
    }
    // A program that takes no pings cannot be asked; we ourselves could not answer while we wait.
    if (!facts->answersPing || facts->processId == getpid()) {
        return true;
    }
    // One that still owes an answer was waited for already.
    const bool owesAnswer = !m_table->pings().heardFrom(idOf(window));
    m_table->pings().ping(idOf(window));
    const auto isHeardFrom = [&] { return m_table->pings().heardFrom(idOf(window)); };
    if (!owesAnswer) {
        m_table->waitUntil(isHeardFrom, timeoutMs);
    }
    return isWindow(window) && isHeardFrom();
}

IconHandle X11WindowSystem::icon(WindowHandle window, IconSize, int) const
{
    const WindowFacts *facts = m_table->facts(idOf(window));
    return facts && facts->hasIcon ? window : 0;
}

IconImage X11WindowSystem::iconImage(IconHandle icon, int side) const
{
    return x11::readIcon(m_table->connection(), idOf(icon), side);
}

QVector<WindowHandle> X11WindowSystem::children(WindowHandle window) const
{
    x11::DesktopConnection &connection = m_table->connection();
    const auto tree = connection.reply(connection.sent(xcb_query_tree(connection.get(), idOf(window))),
                                       xcb_query_tree_reply);
    if (!tree) {
        return {};
    }
    // The server tells them from the back to the front.
    const xcb_window_t *first = xcb_query_tree_children(tree.get());
    QVector<WindowHandle> handles(first, first + xcb_query_tree_children_length(tree.get()));
    std::reverse(handles.begin(), handles.end());
    return handles;
}

QString X11WindowSystem::controlText(WindowHandle) const
{
    // Controls of today's programs are no windows of the server.
    return {};
}

QRect X11WindowSystem::windowRect(WindowHandle window) const
{
    const QRect rect = m_table->clientRect(idOf(window));
    const WindowFacts *facts = m_table->knownFacts(idOf(window));
    if (!facts || rect.isNull()) {
        return {};
    }
    return x11::toLogical(rect.marginsAdded(facts->frameExtents), x11::screenScales());
}

QRect X11WindowSystem::clientRect(WindowHandle window) const
{
    const QRect rect = m_table->clientRect(idOf(window));
    return rect.isNull() ? QRect() : x11::toLogical(rect, x11::screenScales());
}

QRect X11WindowSystem::workArea() const
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen ? screen->availableGeometry() : QRect();
}

WindowHandle X11WindowSystem::desktopWindow() const
{
    return m_table->connection().root();
}

WindowHandle X11WindowSystem::findWindowByTitle(const QString &title) const
{
    const QString wanted = x11::foldedCaption(title);
    if (wanted.isEmpty()) {
        return kNoWindow;
    }
    m_table->update();
    for (const xcb_window_t window : m_table->zOrder()) {
        const WindowFacts *facts = m_table->knownFacts(window);
        if (facts && facts->foldedCaption == wanted) {
            return window;
        }
    }
    return kNoWindow;
}

WindowHandle X11WindowSystem::foregroundWindow() const
{
    m_table->update();
    const xcb_window_t active = m_table->activeWindow();
    return m_table->isEmbedded(active) ? m_table->targetOf(active) : active;
}

void X11WindowSystem::setForegroundWindow(WindowHandle window)
{
    m_table->update();
    const xcb_window_t active = m_table->activeWindow();
    if (active == idOf(window) || !m_table->connection().isAlive()) {
        return;
    }
    // The user may have asked for it by a way that tells no time of its own: a hot key, the tray, a drop.
    const xcb_timestamp_t now = m_table->serverTime(kActivationMs);
    // Not every window manager goes to another workspace for a window by itself.
    const WindowFacts *facts = m_table->facts(idOf(window));
    if (facts && facts->desktop != m_table->currentDesktop() && facts->desktop != kAllWorkspaces) {
        m_table->connection().tellWindowManager(m_table->connection().root(), AtomName::NetCurrentDesktop,
                                                {facts->desktop, now, 0, 0, 0});
    }
    m_table->connection().tellWindowManager(idOf(window), AtomName::NetActiveWindow,
                                            {kUserSource, now, active, 0, 0});
    // The question that follows is whether it worked.
    m_table->waitUntil([&] { return m_table->activeWindow() == idOf(window); }, kActivationMs);
}

void X11WindowSystem::setFocus(WindowHandle window)
{
    m_table->update();
    if (m_table->isEmbedded(m_table->activeWindow())) {
        setForegroundWindow(window);
    }
}

bool X11WindowSystem::standsAboveTarget(WindowHandle window) const
{
    return isAboveTarget(m_table->stacking(), idOf(window));
}

bool X11WindowSystem::isAboveTarget(const QVector<quint32> &stacking, quint32 window) const
{
    const xcb_window_t target = m_table->targetOf(window);
    qsizetype place = stacking.indexOf(window) - 1;
    // Notes of the same target may lie between.
    while (place >= 0 && m_table->targetOf(stacking[place]) == target) {
        --place;
    }
    return place >= 0 && stacking[place] == target;
}

void X11WindowSystem::bringWindowToTop(WindowHandle window)
{
    m_table->update();
    const xcb_window_t target = m_table->targetOf(idOf(window));
    // A window that was just shown may not be in the list yet; the embedding puts it right then.
    if (target == XCB_NONE || !isVisible(window)) {
        return;
    }
    // Whoever works in the target wants it where it is now.
    const xcb_window_t active = m_table->activeWindow();
    const bool isInUse = active == target || m_table->targetOf(active) == target;
    QVector<quint32> stacking = isInUse ? m_table->stacking() : comingStacking();
    if (!stacking.contains(target) || isAboveTarget(stacking, idOf(window))) {
        return;
    }
    // A window manager that did not listen once will not do so a moment later.
    const std::pair attempt(idOf(window), m_table->stackingCount());
    if (std::exchange(m_lastRestack, attempt) == attempt) {
        return;
    }
    stacking.removeOne(idOf(window));
    stacking.insert(stacking.indexOf(target) + 1, idOf(window));
    // Some window managers put a window above all others whatever it is to stand above, and some take the
    // target along. Those that were before the target come there again, one by one.
    xcb_window_t below = idOf(window);
    restack(idOf(window), target);
    for (qsizetype place = stacking.indexOf(target) + 2; place < stacking.size(); ++place) {
        if (standsBefore(stacking[place], target)) {
            bringBackAbove(stacking[place], std::exchange(below, stacking[place]));
        }
    }
    m_coming = stacking;
    m_comingDeadline.setRemainingTime(kRestackMs);
}

void X11WindowSystem::keepStacking(WindowHandle note, int milliseconds)
{
    m_coming = comingStacking();
    m_coming.removeOne(idOf(note));
    m_comingDeadline.setRemainingTime(milliseconds);
}

/// The order of the windows when the window manager has done what it was asked for. Half way there it
/// shows orders that nobody wants; a note that is put to its target then must not make them last.
const QVector<quint32> &X11WindowSystem::comingStacking()
{
    const QVector<quint32> &present = m_table->stacking();
    if (m_comingDeadline.hasExpired()) {
        m_coming.clear();
    }
    if (m_coming.isEmpty()) {
        return present;
    }
    m_coming.removeIf([&](quint32 window) { return !present.contains(window); });
    std::copy_if(present.begin(), present.end(), std::back_inserter(m_coming),
                 [&](quint32 window) { return !m_coming.contains(window); });
    return m_coming;
}

/// Whether a window that is stacked above another may cover it.
bool X11WindowSystem::standsBefore(quint32 window, quint32 other) const
{
    const WindowFacts *facts = m_table->knownFacts(window);
    const WindowFacts *otherFacts = m_table->knownFacts(other);
    return facts && otherFacts && !m_table->isEmbedded(window) && !facts->shown.minimized &&
           (facts->desktop == otherFacts->desktop || facts->desktop == kAllWorkspaces ||
            otherFacts->desktop == kAllWorkspaces);
}

void X11WindowSystem::restack(quint32 window, quint32 sibling)
{
    if (m_table->supports(AtomName::NetRestackWindow)) {
        m_table->connection().tellWindowManager(
            window, AtomName::NetRestackWindow,
            {kUserSource, sibling, static_cast<quint32>(XCB_STACK_MODE_ABOVE), 0, 0});
    } else {
        m_table->connection().askToRestack(window, sibling);
    }
}

/// Not every window manager puts windows of different programs right above each other; when asked for the
/// top, those that do not know the message give the window the keyboard, too.
void X11WindowSystem::bringBackAbove(quint32 window, quint32 sibling)
{
    restack(window, m_table->supports(AtomName::NetRestackWindow) ? XCB_NONE : sibling);
}

void X11WindowSystem::setTopMost(WindowHandle window, bool on)
{
    const x11::DesktopConnection &connection = m_table->connection();
    m_table->connection().tellWindowManager(
        idOf(window), AtomName::NetWmState,
        {on ? kAddState : kRemoveState, connection.atom(AtomName::NetWmStateAbove), 0, kUserSource, 0});
}

void X11WindowSystem::restoreWindow(WindowHandle window)
{
    if (isMinimized(window)) {
        // Mapping an iconic window asks the window manager to show it again.
        xcb_map_window(m_table->connection().get(), idOf(window));
        m_table->connection().flush();
    }
}

void X11WindowSystem::lockWindowUpdate(WindowHandle)
{
    // A window that is built hidden and mapped once appears whole.
}

qint64 X11WindowSystem::processId(WindowHandle window) const
{
    const WindowFacts *facts = m_table->facts(idOf(window));
    return facts ? facts->processId : 0;
}

quint64 X11WindowSystem::roundTrips() const
{
    return m_table->connection().roundTrips();
}

} // namespace norvane
