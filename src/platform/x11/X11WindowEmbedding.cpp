#include "platform/x11/X11WindowEmbedding.h"

#include "platform/x11/OwnWindow.h"
#include "platform/x11/WindowTable.h"
#include "platform/x11/X11WindowSystem.h"
#include "platform/x11/window_geometry.h"

#include <QEvent>
#include <QTimer>
#include <utility>

namespace norvane {

using x11::AtomName;
using x11::kUserSource;
using x11::WindowFacts;

namespace {

/// The window manager answers a request for a place, or the map of a window, in a few milliseconds
/// and several steps. What the window has after this time is the answer, and only what comes then
/// is the window manager's own doing.
constexpr int kAcceptanceMs = 300;
/// How long it gets to show a window.
constexpr int kMapMs = 1000;

xcb_window_t idOf(WindowHandle window)
{
    return static_cast<xcb_window_t>(window);
}

} // namespace

struct X11WindowEmbedding::Note
{
    explicit Note(WindowHandle window) : own(window) {}

    x11::OwnWindow own;
    WindowHandle target = kNoWindow;
    QRect rect;             ///< inside the target, as it was asked for
    QRect placed;           ///< device pixels of the desktop: asked of the window manager, or its own
    QPoint targetPlace;     ///< device pixels: where the target stood for that
    bool awaiting = false;  ///< whether the window manager may still be answering
    bool isListed = false;  ///< whether the window was listed when it was last looked at
    bool retried = false;   ///< whether the present place was asked for a second time
    bool hasTarget = false; ///< whether the target was among the listed windows when last looked at
    bool heldBack = false;  ///< not to be seen yet: other windows stand before the target
};

X11WindowEmbedding::X11WindowEmbedding(X11WindowSystem &windows)
    : m_windows(windows), m_acceptance(std::make_unique<QTimer>())
{
    m_acceptance->setSingleShot(true);
    m_acceptance->setInterval(kAcceptanceMs);
    connect(m_acceptance.get(), &QTimer::timeout, this, &X11WindowEmbedding::accept);
    connect(&windows.table(), &x11::WindowTable::placementChanged, this,
            [this](quint32 window) { takePlacement(window); });
    connect(&windows, &WindowSystem::windowDestroyed, this, &X11WindowEmbedding::takeDestroyed);
}

X11WindowEmbedding::~X11WindowEmbedding() = default;

X11WindowEmbedding::Note *X11WindowEmbedding::find(WindowHandle window) const
{
    return m_notes.value(window).get();
}

void X11WindowEmbedding::setParent(WindowHandle window, WindowHandle target)
{
    if (target == kNoWindow) {
        free(window);
        return;
    }
    Note *note = find(window);
    if (!note) {
        const auto added = std::make_shared<Note>(window);
        if (!added->own.window()) {
            return;
        }
        note = added.get();
        m_notes.insert(window, added);
        note->own.window()->installEventFilter(this);
        connect(note->own.window(), &QObject::destroyed, this, [this, window] {
            m_notes.remove(window);
            m_windows.table().setEmbedded(idOf(window), XCB_NONE);
        });
    }
    note->target = target;
    m_windows.table().setEmbedded(idOf(window), idOf(target));
    if (!m_windows.isWindow(target)) {
        // It went between the look at it and this call: the same as if it went right after.
        QTimer::singleShot(0, this, [this, target] { takeDestroyed(target); });
        return;
    }
    note->hasTarget = m_windows.isVisible(target);
    note->own.setTransientParent(target);
    note->placed = note->own.geometry();
    note->targetPlace = targetRect(*note).topLeft();
    note->rect = insideTarget(*note);
    keepWorkspace(*note);
    clip(*note);
}

WindowHandle X11WindowEmbedding::parentOf(WindowHandle window) const
{
    const Note *note = find(window);
    return note ? note->target : kNoWindow;
}

void X11WindowEmbedding::moveWindow(WindowHandle window, const QRect &rect)
{
    if (Note *note = find(window)) {
        note->rect = rect;
        arrange(*note);
    }
}

QRect X11WindowEmbedding::windowRect(WindowHandle window) const
{
    const Note *note = find(window);
    return note ? note->rect : QRect();
}

void X11WindowEmbedding::free(WindowHandle window)
{
    const std::shared_ptr<Note> note = m_notes.value(window);
    if (note && note->own.window()) {
        m_windows.table().update();
        note->own.hide();
    }
    if (m_notes.remove(window) == 0) {
        return;
    }
    m_windows.table().setEmbedded(idOf(window), XCB_NONE);
    if (note->own.window()) {
        note->own.window()->removeEventFilter(this);
        note->own.window()->disconnect(this);
        note->own.setTransientParent(kNoWindow);
        note->own.clip({});
    }
}

bool X11WindowEmbedding::eventFilter(QObject *watched, QEvent *event)
{
    // Show comes right before the toolkit maps the window. A window manager forgets states and
    // workspace of a window that is taken from the screen.
    if (event->type() == QEvent::Show || event->type() == QEvent::Hide) {
        const auto notes = m_notes.values();
        for (const auto &note : notes) {
            if (note->own.window() != watched) {
                continue;
            }
            if (event->type() == QEvent::Show) {
                prepareForMap(*note);
            } else {
                handBackKeyboard(*note);
            }
        }
    }
    return WindowEmbedding::eventFilter(watched, event);
}

void X11WindowEmbedding::prepareForMap(Note &note)
{
    const auto target = idOf(note.target);
    if (const WindowFacts *facts = m_windows.table().facts(target)) {
        // A tool window is passed over when one goes from window to window by the keyboard. The window
        // manager that has a state for that hides tool windows while their main window is not the active one.
        const bool isDialog = m_windows.table().supports(AtomName::KdeNetWmStateSkipSwitcher);
        note.own.writeHints(m_windows.table().connection(), {note.target, facts->desktop, isDialog});
    }
    // A window manager may put a new window above all others, and would let it flash up there.
    const QVector<xcb_window_t> &order = m_windows.table().zOrder();
    note.heldBack = !order.isEmpty() && order.first() != target;
    if (note.heldBack) {
        m_windows.keepStacking(note.own.handle(), kMapMs);
    }
    // It may have gone and come within one reading of the list.
    note.isListed = false;
    clip(note);
}

void X11WindowEmbedding::handBackKeyboard(Note &note)
{
    // Left alone, the window manager picks any window. What it has done since the note went is not
    // looked at: the table still knows who had the keyboard before.
    x11::WindowTable &table = m_windows.table();
    if (table.activeWindow() == idOf(note.own.handle()) && table.isListed(idOf(note.target))) {
        note.own.passKeyboard(table.connection(), note.target);
    }
}

// ---- Place --------------------------------------------------------------------------------------

void X11WindowEmbedding::arrange(Note &note)
{
    if (targetRect(note).isNull()) {
        return;
    }
    // A minimised window that is given a place comes back to the screen, and takes its target along.
    const bool minimized = m_windows.isMinimized(note.target) || m_windows.isMinimized(note.own.handle());
    if (!minimized) {
        note.targetPlace = targetRect(note).topLeft();
        if (onDesktop(note) != note.placed) {
            note.retried = false;
            place(note);
        }
    }
    clip(note);
}

void X11WindowEmbedding::place(Note &note)
{
    note.placed = note.own.setGeometry(onDesktop(note));
    note.awaiting = true;
    m_acceptance->start();
}

QRect X11WindowEmbedding::targetRect(const Note &note) const
{
    return m_windows.table().clientRect(idOf(note.target));
}

QRect X11WindowEmbedding::onDesktop(const Note &note) const
{
    return x11::scaled(note.rect, note.own.scale()).translated(targetRect(note).topLeft());
}

QRect X11WindowEmbedding::insideTarget(const Note &note) const
{
    return x11::scaled(note.placed.translated(-note.targetPlace), 1.0 / note.own.scale());
}

void X11WindowEmbedding::clip(Note &note)
{
    if (targetIsSeen(note)) {
        note.own.clip(x11::clipInside(note.placed, targetRect(note)));
    } else {
        note.own.clip(x11::kNothingSeen);
    }
}

bool X11WindowEmbedding::targetIsSeen(const Note &note) const
{
    if (note.heldBack || !m_windows.isVisible(note.target)) {
        return false;
    }
    // A window manager that minimises the note along needs no help, and brings it back whole.
    return !m_windows.isMinimized(note.target) || !m_windows.isVisible(note.own.handle()) ||
           m_windows.isMinimized(note.own.handle());
}

void X11WindowEmbedding::keepWorkspace(const Note &note)
{
    x11::WindowTable &table = m_windows.table();
    const auto window = idOf(note.own.handle());
    const auto target = idOf(note.target);
    table.update();
    const WindowFacts *facts = table.knownFacts(window);
    const WindowFacts *targetFacts = table.knownFacts(target);
    if (facts && targetFacts && table.isListed(window) && table.isListed(target) &&
        facts->desktop != targetFacts->desktop) {
        table.connection().tellWindowManager(window, AtomName::NetWmDesktop,
                                             {targetFacts->desktop, kUserSource, 0, 0, 0});
    }
}

// ---- What windows did ---------------------------------------------------------------------------

void X11WindowEmbedding::takePlacement(WindowHandle window)
{
    if (Note *note = find(window)) {
        keepWorkspace(*note);
        takeOwnPlacement(*note);
        return;
    }
    // A copy: a note that is moved may do anything, up to leaving its target.
    const auto notes = m_notes.values();
    for (const auto &note : notes) {
        if (note->target != window) {
            continue;
        }
        const bool hasTarget = m_windows.isVisible(window);
        if (hasTarget && !note->hasTarget) {
            // For the window manager this is a new window: it has to learn again whose it is.
            note->own.setTransientParent(window);
            m_windows.bringWindowToTop(note->own.handle());
        }
        note->hasTarget = hasTarget;
        arrange(*note);
        keepWorkspace(*note);
    }
}

void X11WindowEmbedding::takeOwnPlacement(Note &note)
{
    const WindowHandle window = note.own.handle();
    if (!m_windows.isVisible(window)) {
        note.isListed = false;
        return;
    }
    const QRect rect = m_windows.table().clientRect(idOf(window));
    if (rect.isNull()) {
        return;
    }
    if (!std::exchange(note.isListed, true)) {
        note.awaiting = true;
        m_acceptance->start();
    }
    // Not once only: what was listed first may be what was there before the window was hidden.
    if (note.awaiting) {
        m_windows.bringWindowToTop(window);
    }
    note.heldBack = note.heldBack && !m_windows.standsAboveTarget(window);
    if (note.awaiting || rect == note.placed) {
        clip(note);
        return;
    }
    // A target that has moved since then is told next, and takes the note along from here.
    note.placed = rect;
    note.rect = insideTarget(note);
    clip(note);
    emit moved(window);
}

void X11WindowEmbedding::accept()
{
    const auto notes = m_notes.values();
    for (const auto &note : notes) {
        if (!note->awaiting || !m_windows.isVisible(note->own.handle())) {
            continue; // a hidden one has its place when it is shown
        }
        const QRect rect = m_windows.table().clientRect(idOf(note->own.handle()));
        if (rect.isNull()) {
            continue;
        }
        if (rect != note->placed && !note->retried) {
            note->retried = true;
            place(*note);
            continue;
        }
        note->awaiting = false;
        note->heldBack = false;
        note->placed = rect;
        clip(*note);
    }
}

void X11WindowEmbedding::takeDestroyed(WindowHandle target)
{
    QVector<WindowHandle> orphans;
    for (const auto &note : std::as_const(m_notes)) {
        if (note->target == target) {
            orphans.append(note->own.handle());
        }
    }
    for (const WindowHandle window : orphans) {
        free(window);
    }
    for (const WindowHandle window : orphans) {
        emit targetDestroyed(window);
    }
}

} // namespace norvane
