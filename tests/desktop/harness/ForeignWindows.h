#pragma once

#include <QByteArray>
#include <QRect>
#include <QString>
#include <QVector>
#include <xcb/xcb.h>

namespace norvane::test {

/// The windows of another program, which the test plays itself: it opens them as it likes and
/// changes what they tell of themselves. Rectangles are device pixels.
class ForeignWindows
{
public:
    /// @param display ":7"
    explicit ForeignWindows(const QString &display);
    /// Destroys what is still open.
    ~ForeignWindows();
    ForeignWindows(const ForeignWindows &) = delete;
    ForeignWindows &operator=(const ForeignWindows &) = delete;

    struct Looks
    {
        QString title = {};
        QByteArray wmClass = QByteArrayLiteral("xpeople\0Xpeople\0");
        QRect rect = QRect(100, 100, 400, 300);
        QByteArray type = {}; ///< "_NET_WM_WINDOW_TYPE_…"; empty is none
        xcb_window_t transientFor = XCB_NONE;
    };
    /// Makes a window and maps it.
    xcb_window_t open(const Looks &looks);
    void destroy(xcb_window_t window);
    /// All windows that were opened.
    const QVector<xcb_window_t> &opened() const { return m_opened; }

    void map(xcb_window_t window);
    void unmap(xcb_window_t window);
    void configure(xcb_window_t window, const QRect &rect);
    void setTitle(xcb_window_t window, const QString &title);
    void setText(xcb_window_t window, const char *property, const char *type, const QByteArray &bytes);
    void setNumbers(xcb_window_t window, const char *property, const char *type,
                    const QVector<quint32> &numbers);
    QVector<quint32> numbers(xcb_window_t window, const char *property) const;

    /// Answers the pings to a window, as a program that works does; until the process is killed.
    [[noreturn]] void answerPings(xcb_window_t window);

    /// A request to the window manager, as a pager sends it.
    void request(xcb_window_t window, const char *message, const QVector<quint32> &numbers);

    xcb_atom_t atom(const char *name) const;
    xcb_window_t root() const { return m_root; }

private:
    void sync() const;

    xcb_connection_t *m_connection;
    xcb_window_t m_root = XCB_NONE;
    QVector<xcb_window_t> m_opened;
};

} // namespace norvane::test
