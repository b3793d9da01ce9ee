#include "platform/x11/OwnWindow.h"

#include "platform/x11/DesktopConnection.h"
#include "platform/x11/screen_scales.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <QtGui/qguiapplication_platform.h>
#include <xcb/shape.h>

namespace norvane::x11 {

namespace {

/// The toolkit's connection; nullptr when it does not run on X11.
xcb_connection_t *toolkitConnection()
{
    const auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

void writeNumbers(xcb_window_t window, xcb_atom_t property, xcb_atom_t type, const QVector<quint32> &numbers)
{
    if (xcb_connection_t *connection = toolkitConnection()) {
        xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, property, type, 32,
                            static_cast<quint32>(numbers.size()), numbers.constData());
    }
}

} // namespace

OwnWindow::OwnWindow(WindowHandle handle) : m_handle(handle)
{
    const QWindowList windows = QGuiApplication::allWindows();
    for (QWindow *window : windows) {
        // winId() would create the native window of one that has none.
        if (window->handle() && window->winId() == handle) {
            m_window = window;
        }
    }
}

qreal OwnWindow::scale() const
{
    return m_window ? m_window->devicePixelRatio() : 1.0;
}

QRect OwnWindow::setGeometry(const QRect &rect)
{
    const QRect logical = toLogical(rect, screenScales());
    const bool isExact = qFuzzyCompare(scale(), 1.0);
    if (isExact || !isShown() || logicalGeometry().size() != logical.size()) {
        setLogicalGeometry(logical);
    }
    const QSize size = scaled(logicalGeometry(), scale()).size();
    xcb_connection_t *connection = toolkitConnection();
    if (!isExact && connection) {
        // The toolkit knows whole logical pixels only. A window that follows another one in them
        // trembles against it.
        const qint32 place[] = {rect.x(), rect.y()};
        xcb_configure_window(connection, static_cast<xcb_window_t>(m_handle),
                             XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y, place);
        xcb_flush(connection);
    }
    return QRect(rect.topLeft(), size);
}

QRect OwnWindow::geometry() const
{
    if (!m_window) {
        return {};
    }
    // Screens keep their corner in both kinds of pixels.
    const QPoint corner = m_window->screen()->geometry().topLeft();
    return scaled(logicalGeometry().translated(-corner), scale()).translated(corner);
}

void OwnWindow::setLogicalGeometry(const QRect &rect)
{
    // A widget that only learns of its window's place by events would put it back when it is shown.
    if (QWidget *widget = QWidget::find(m_handle)) {
        widget->setGeometry(rect);
    } else if (m_window) {
        m_window->setGeometry(rect);
    }
}

QRect OwnWindow::logicalGeometry() const
{
    if (const QWidget *widget = QWidget::find(m_handle)) {
        return widget->geometry();
    }
    return m_window ? m_window->geometry() : QRect();
}

bool OwnWindow::isShown() const
{
    return m_window && m_window->isVisible();
}

void OwnWindow::hide()
{
    if (QWidget *widget = QWidget::find(m_handle)) {
        widget->hide();
    } else if (m_window) {
        m_window->hide();
    }
}

void OwnWindow::setTransientParent(WindowHandle target)
{
    if (!m_window) {
        return;
    }
    std::shared_ptr<QWindow> foreign;
    if (target != kNoWindow) {
        foreign.reset(QWindow::fromWinId(target));
    }
    m_window->setTransientParent(foreign.get());
    m_foreign = std::move(foreign);
    // The toolkit writes the property when it maps the window, not while it is mapped.
    const auto window = static_cast<xcb_window_t>(m_handle);
    if (target != kNoWindow) {
        writeNumbers(window, XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW, {static_cast<quint32>(target)});
    } else if (xcb_connection_t *connection = toolkitConnection()) {
        xcb_delete_property(connection, window, XCB_ATOM_WM_TRANSIENT_FOR);
    }
    if (xcb_connection_t *connection = toolkitConnection()) {
        xcb_flush(connection);
    }
}

void OwnWindow::writeHints(const DesktopConnection &atoms, const EmbeddingHints &hints)
{
    const auto window = static_cast<xcb_window_t>(m_handle);
    writeNumbers(window, XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW, {static_cast<quint32>(hints.target)});
    QVector<quint32> states = {atoms.atom(AtomName::NetWmStateSkipTaskbar),
                               atoms.atom(AtomName::NetWmStateSkipPager)};
    if (hints.isDialog) {
        states.append(atoms.atom(AtomName::KdeNetWmStateSkipSwitcher));
        writeNumbers(
            window, atoms.atom(AtomName::NetWmWindowType), XCB_ATOM_ATOM,
            {atoms.atom(AtomName::NetWmWindowTypeDialog), atoms.atom(AtomName::NetWmWindowTypeNormal)});
    }
    // The toolkit adds its own states to these.
    writeNumbers(window, atoms.atom(AtomName::NetWmState), XCB_ATOM_ATOM, states);
    writeNumbers(window, atoms.atom(AtomName::NetWmDesktop), XCB_ATOM_CARDINAL, {hints.desktop});
}

void OwnWindow::clip(const QRect &rect)
{
    xcb_connection_t *connection = toolkitConnection();
    if (!m_window || !connection || m_clip == rect) {
        return;
    }
    m_clip = rect;
    const auto window = static_cast<xcb_window_t>(m_handle);
    if (rect.isNull()) {
        xcb_shape_mask(connection, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, window, 0, 0, XCB_NONE);
    } else {
        const xcb_rectangle_t shown = {static_cast<int16_t>(rect.x()), static_cast<int16_t>(rect.y()),
                                       static_cast<uint16_t>(rect.width()),
                                       static_cast<uint16_t>(rect.height())};
        xcb_shape_rectangles(connection, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, XCB_CLIP_ORDERING_UNSORTED,
                             window, 0, 0, 1, &shown);
    }
    xcb_flush(connection);
}

void OwnWindow::passKeyboard(const DesktopConnection &atoms, WindowHandle to)
{
    if (xcb_connection_t *connection = toolkitConnection()) {
        atoms.tellWindowManager(connection, static_cast<xcb_window_t>(to), AtomName::NetActiveWindow,
                                {kUserSource, XCB_CURRENT_TIME, static_cast<quint32>(m_handle), 0, 0});
    }
}

} // namespace norvane::x11
