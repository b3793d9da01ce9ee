#pragma once

#include "platform/WindowHandle.h"

#include <QObject>
#include <QRect>
#include <QString>
#include <QVector>
#include <optional>

namespace norvane {

/// A picture as the window system keeps it; without pixels when there is none.
struct IconImage
{
    int width = 0;
    int height = 0;
    /// Rows from the top, each pixel 0xAARRGGBB, the colours not multiplied by the alpha.
    QVector<quint32> pixels;

    bool isNull() const { return pixels.isEmpty(); }
    bool operator==(const IconImage &) const = default;
};

/// What the program asks about the windows of other programs.
///
/// Rectangles are in logical pixels of the desktop. No call waits on another program, unless it
/// takes a time-out. A handle that is gone gives empty text, an empty rectangle, 0 or false;
/// nothing here raises an error.
///
/// A backend may answer from a cache that its change signals keep true: asking about a desktop in
/// which nothing changed costs no round trip.
class WindowSystem : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;
    ~WindowSystem() override;

    /// All top-level windows, from the front to the back.
    virtual QVector<WindowHandle> topLevelWindows() const = 0;
    /// A number that grows whenever anything that topLevelWindows(), caption(), className(),
    /// isVisible(), isMinimized(), isToolWindow() or ownerOf() tells of any window has changed.
    virtual quint64 changeCount() const = 0;

    virtual bool isWindow(WindowHandle window) const = 0;
    /// Listed among the user's windows; a minimised one or one on another workspace is visible too.
    virtual bool isVisible(WindowHandle window) const = 0;
    virtual bool isMinimized(WindowHandle window) const = 0;
    /// Utility windows, docks, desktops, splash screens, windows that skip the task bar.
    virtual bool isToolWindow(WindowHandle window) const = 0;
    virtual WindowHandle ownerOf(WindowHandle window) const = 0;
    /// The window that this one is a child of; kNoWindow for a top-level window.
    virtual WindowHandle parentOf(WindowHandle window) const = 0;

    /// The class of the window, in the names that the watcher knows ("IEFrame", …).
    virtual QString className(WindowHandle window) const = 0;
    /// The caption as it is known without asking the program: at most 254 UTF-16 units, cut at NUL.
    virtual QString caption(WindowHandle window) const = 0;
    /// A caption without what today's programs of this desktop put behind a document's name
    /// (" — Mozilla Firefox", " - Thunar", …). Never empty for a text that is not empty.
    virtual QString withoutProgramSuffix(const QString &title) const = 0;
    /// The caption as the program tells it; nullopt when it did not answer within @p timeoutMs.
    virtual std::optional<QString> requestCaption(WindowHandle window, int timeoutMs) const = 0;
    /// Whether the program behind the window answers within @p timeoutMs milliseconds.
    virtual bool responds(WindowHandle window, int timeoutMs) const = 0;

    enum class IconSize { Large, Small };
    /// 0 when the window has no icon or did not answer within @p timeoutMs.
    virtual IconHandle icon(WindowHandle window, IconSize size, int timeoutMs) const = 0;
    /// The picture of an icon that icon() told: the smallest that is not below @p side pixels, else the
    /// largest there is. Without pixels when it has gone or tells none. Large: ask once.
    virtual IconImage iconImage(IconHandle icon, int side) const = 0;

    /// Direct children in order, for walking the controls of a window.
    virtual QVector<WindowHandle> children(WindowHandle window) const = 0;
    /// The text of a control of another program; may hold NULs. Empty when there is none.
    virtual QString controlText(WindowHandle window) const = 0;

    /// Outer rectangle of the window as a user sees it (with its frame, without its shadow).
    virtual QRect windowRect(WindowHandle window) const = 0;
    /// Rectangle of the client area: where a note inside the window has its origin.
    virtual QRect clientRect(WindowHandle window) const = 0;
    /// Work area of the primary screen.
    virtual QRect workArea() const = 0;
    virtual WindowHandle desktopWindow() const = 0;

    /// The first window whose whole caption is @p title; blanks around both, "|" and quotes are
    /// treated as the table of windows treats them, case does not count. kNoWindow if none.
    virtual WindowHandle findWindowByTitle(const QString &title) const = 0;

    /// The window that the user works in; while one of our notes has the keyboard, its target.
    virtual WindowHandle foregroundWindow() const = 0;
    /// Brings the window to the front and gives it the keyboard, changing workspace if need be. It
    /// may wait a tenth of a second for that to happen, so that foregroundWindow() tells how it went.
    virtual void setForegroundWindow(WindowHandle window) = 0;
    /// Gives the keyboard to @p window, if one of our notes has it; else does nothing.
    virtual void setFocus(WindowHandle window) = 0;
    /// Brings one of our own windows directly above its target; nothing when it is there.
    virtual void bringWindowToTop(WindowHandle window) = 0;
    /// Keeps one of our own windows above all others, or no longer. It must be on the screen.
    virtual void setTopMost(WindowHandle window, bool on) = 0;
    /// Restores a minimised window.
    virtual void restoreWindow(WindowHandle window) = 0;
    /// Holds back (0: releases) the painting of a window, where windows do not appear whole by
    /// themselves. Only one window can be held.
    virtual void lockWindowUpdate(WindowHandle window) = 0;

    /// Process that owns the window; 0 when unknown.
    virtual qint64 processId(WindowHandle window) const = 0;

signals:
    /// Something that changeCount() counts has changed. Several changes may come as one.
    void changed();
    void windowDestroyed(norvane::WindowHandle window);
};

} // namespace norvane
