#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QString>
#include <QVector>
#include <functional>
#include <memory>
#include <xcb/xcb.h>

namespace norvane::test {

/// Runs the event loop until @p condition holds; false when it did not within @p timeoutMs.
bool waitFor(const std::function<bool()> &condition, int timeoutMs = 20000);

/// What a person does with keyboard, mouse and window manager, and what they see, on one display.
///
/// Rectangles are device pixels of the root window.
class XClient
{
public:
    /// @param display ":7"; the connection lasts as long as the object
    explicit XClient(const QString &display);
    ~XClient();
    XClient(const XClient &) = delete;
    XClient &operator=(const XClient &) = delete;

    bool isConnected() const;
    bool hasWindowManager() const;

    /// The window manager's list, oldest first; empty without a window manager.
    QVector<xcb_window_t> clients() const;
    /// The same windows from the bottom to the top.
    QVector<xcb_window_t> stacking() const;
    /// The first client whose title holds @p part and whose class holds @p wmClass; 0 if none.
    xcb_window_t findClient(const QString &part, const QString &wmClass = {}) const;
    QVector<xcb_window_t> clientsOfProcess(qint64 processId) const;
    /// A menu that a program has open; 0 if none. The window manager does not list these.
    xcb_window_t menuOfProcess(qint64 processId) const;
    xcb_window_t activeWindow() const;

    QString title(xcb_window_t window) const;
    QString wmClass(xcb_window_t window) const;
    qint64 processId(xcb_window_t window) const;
    xcb_window_t transientFor(xcb_window_t window) const;
    QRect geometry(xcb_window_t window) const;
    /// The same without the shadow that a program draws around its own window.
    QRect geometryInShadow(xcb_window_t window) const;
    bool isViewable(xcb_window_t window) const;
    /// Rectangles of a window's bounding shape, in its own coordinates.
    QVector<QRect> shape(xcb_window_t window) const;
    /// Whether a window is on the screen and its shape lets anything of it be seen and clicked, where no
    /// other window covers it.
    bool isSeen(xcb_window_t window) const;
    bool exists(xcb_window_t window) const;
    int desktopOf(xcb_window_t window) const;

    void activate(xcb_window_t window);
    void minimise(xcb_window_t window);
    void closeWindow(xcb_window_t window);
    void moveResize(xcb_window_t window, const QRect &rect);
    void setMaximised(xcb_window_t window, bool on);
    void moveToDesktop(xcb_window_t window, int desktop);
    void goToDesktop(int desktop);
    /// The workspace that is shown, from 0.
    int currentDesktop() const;

    /// Whether another program has grabbed a combination of modifiers and one key for the whole desktop.
    bool isTaken(const QString &combination) const;

    /// Presses a combination ("ctrl+alt+a", "Return", "alt+Left") and lets it go.
    void press(const QString &combination);
    /// Presses a key of those names and holds it, or lets it go.
    void key(const QString &name, bool down);
    /// Types text of the keyboard's own characters.
    void type(const QString &text);
    void moveMouse(const QPoint &position);
    void button(int number, bool down);
    void click(const QPoint &position, int number = 1);
    /// Presses a button, carries what is under it to another place in steps as a hand makes them, and holds
    /// it there: button(1, false) lets it go.
    void carry(const QPoint &from, const QPoint &to);

    /// The windows that the window manager lists, one a line, for a test that has failed.
    QString whatIsThere() const;
    /// Gives the root window a colour, as a desktop has.
    void paintRoot(quint32 rgb);
    QImage screenshot() const;

private:
    struct Connection;
    std::unique_ptr<Connection> m_x;
};

/// "10,20 300x200"
QString text(const QRect &rect);

} // namespace norvane::test
