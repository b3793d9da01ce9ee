#include "platform/x11/OwnWindow.h"

#include "platform/x11/DesktopConnection.h"

#include <QGuiApplication>
#include <QWidget>
#include <QtGui/qguiapplication_platform.h>

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

void OwnWindow::setGeometry(const QRect &rect)
{
    // A widget that only learns of its window's place by events would put it back when it is shown.
    if (QWidget *widget = QWidget::find(m_handle)) {
        widget->setGeometry(rect);
    } else if (m_window) {
        m_window->setGeometry(rect);
    }
}

QRect OwnWindow::geometry() const
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
    // The toolkit adds its own states to these.
    writeNumbers(window, atoms.atom(AtomName::NetWmState), XCB_ATOM_ATOM,
                 {atoms.atom(AtomName::NetWmStateSkipTaskbar), atoms.atom(AtomName::NetWmStateSkipPager)});
    writeNumbers(window, atoms.atom(AtomName::NetWmDesktop), XCB_ATOM_CARDINAL, {hints.desktop});
}

void OwnWindow::clip(const QRect &rect)
{
    if (!m_window || m_clip == rect) {
        return;
    }
    m_clip = rect;
    m_window->setMask(rect.isNull() ? QRegion() : QRegion(rect));
    if (xcb_connection_t *connection = toolkitConnection()) {
        xcb_flush(connection);
    }
}

} // namespace norvane::x11
