#pragma once

#include <QRect>
#include <QString>
#include <QVector>
#include <vector>
#include <xcb/xcb.h>

namespace norvane::test {

/// What happened to the windows of a display since the log began, as the X server told it.
///
/// It listens to the root window alone, so nothing escapes it, however fast a window comes and goes:
/// there it sees a window until the window manager takes it, and then the frame that it was put in.
class WindowLog
{
public:
    /// @param display ":7"
    explicit WindowLog(const QString &display);
    ~WindowLog();
    WindowLog(const WindowLog &) = delete;
    WindowLog &operator=(const WindowLog &) = delete;

    /// One window's time on the screen. Rectangles are device pixels of the root window.
    struct Life
    {
        int maps = 0;
        int unmaps = 0;
        QRect asked;          ///< place and size when its program mapped it
        QVector<QRect> shown; ///< those that it had on the screen, each change anew
    };

    /// A window that was made since the log began; the latest of those that had this id.
    Life lifeOf(xcb_window_t window);
    /// The same line by line, for a failure's message.
    QString text(xcb_window_t window);

private:
    struct Entry;

    void takeIn();

    xcb_connection_t *m_connection;
    xcb_window_t m_root = 0;
    std::vector<Entry> m_entries;
};

} // namespace norvane::test
