#pragma once

#include <QByteArray>
#include <QPoint>
#include <QRect>
#include <QString>
#include <QVector>
#include <xcb/xcb.h>

/// Another program's windows, and a user's hands: a connection of its own to the test's display.
class TestClient
{
public:
    TestClient();
    ~TestClient();
    TestClient(const TestClient &) = delete;
    TestClient &operator=(const TestClient &) = delete;

    struct Looks
    {
        QString title;
        QByteArray wmClass = QByteArrayLiteral("xpeople\0Xpeople\0");
        QRect rect = QRect(100, 100, 400, 300);
        QByteArray type; ///< "_NET_WM_WINDOW_TYPE_…"; empty is none
        xcb_window_t transientFor = XCB_NONE;
    };
    /// Makes a window and maps it.
    xcb_window_t open(const Looks &looks);
    void destroy(xcb_window_t window);
    void unmap(xcb_window_t window);
    void map(xcb_window_t window);
    void setTitle(xcb_window_t window, const QString &title);
    void setText(xcb_window_t window, const char *property, const char *type, const QByteArray &bytes);
    void setNumbers(xcb_window_t window, const char *property, const char *type,
                    const QVector<quint32> &numbers);
    QVector<quint32> numbers(xcb_window_t window, const char *property);
    void configure(xcb_window_t window, const QRect &rect);
    void minimize(xcb_window_t window);
    /// A request to the window manager, as a pager sends it.
    void request(xcb_window_t window, const char *message, const QVector<quint32> &numbers);
    void setWorkspace(quint32 workspace);
    void raise(xcb_window_t window);

    /// The stacking list of the window manager, back first.
    QVector<quint32> stacking();
    quint32 activeWindow();
    /// On the desktop.
    QRect geometry(xcb_window_t window);
    bool isViewable(xcb_window_t window);
    /// Rectangles of the bounding shape, in the window's coordinates.
    QVector<QRect> shape(xcb_window_t window);

    void movePointer(const QPoint &position);
    void press(int button);
    void release(int button);
    void pressKey(quint32 keysym);
    void releaseKey(quint32 keysym);
    void click(const QPoint &position);

    /// Counts events of these kinds about a window from now on.
    void watch(xcb_window_t window);
    int countOf(int eventType);

    void sync();
    xcb_atom_t atom(const char *name);
    xcb_window_t root() const { return m_root; }

private:
    quint8 keycodeOf(quint32 keysym);

    xcb_connection_t *m_connection;
    xcb_window_t m_root;
    QVector<int> m_events;
};
