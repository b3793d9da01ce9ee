#pragma once

#include "platform/WindowSystem.h"

#include <QHash>
#include <QStringList>
#include <algorithm>
#include <functional>

namespace norvane::fakes {

/// A desktop of windows that a test opens, changes and destroys.
///
/// What a real backend answers from its cache is free; calls for which it would have to ask the
/// window system or another program are counted in roundTrips.
class FakeWindowSystem : public WindowSystem
{
public:
    struct Window
    {
        QString className;
        QString caption;
        QString text; ///< of a control
        WindowHandle owner = kNoWindow;
        WindowHandle parent = kNoWindow;
        QVector<WindowHandle> children;
        QRect rect = QRect(100, 100, 800, 600);
        bool visible = true;
        bool minimized = false;
        bool tool = false;
        bool hung = false;
        IconHandle largeIcon = 0;
        IconHandle smallIcon = 0;
        qint64 process = 0;
    };

    QVector<WindowHandle> order; ///< top-level windows, the front one first
    WindowHandle foreground = kNoWindow;
    WindowHandle locked = kNoWindow; ///< by lockWindowUpdate()
    QStringList programSuffixes;
    QHash<IconHandle, IconImage> iconImages;
    bool foregroundRefused = false;
    mutable int roundTrips = 0;
    mutable int captionRequests = 0;
    /// Every call that changes the desktop, as "name handle".
    QStringList actions;
    /// Runs before a program answers for its caption.
    std::function<void(WindowHandle)> beforeCaption;

    /// Opens a top-level window in front of the others.
    WindowHandle open(const QString &className, const QString &caption, qint64 process = 0)
    {
        const WindowHandle window = add(className, caption);
        m_windows[window].process = process;
        order.prepend(window);
        change();
        return window;
    }
    WindowHandle addChild(WindowHandle parent, const QString &className, const QString &caption = {})
    {
        const WindowHandle child = add(className, caption);
        m_windows[child].parent = parent;
        m_windows[parent].children.append(child);
        return child;
    }
    /// A window of the program's own; not among the top-level windows of others.
    WindowHandle ownWindow() { return add(QStringLiteral("norvane"), {}); }

    void setCaption(WindowHandle window, const QString &caption)
    {
        m_windows[window].caption = caption;
        change();
    }
    void setClassName(WindowHandle window, const QString &className)
    {
        m_windows[window].className = className;
        change();
    }
    void setMinimized(WindowHandle window, bool minimized)
    {
        m_windows[window].minimized = minimized;
        change();
    }
    void setVisible(WindowHandle window, bool visible)
    {
        m_windows[window].visible = visible;
        change();
    }
    void destroy(WindowHandle window)
    {
        m_windows.remove(window);
        order.removeOne(window);
        change();
        emit windowDestroyed(window);
    }
    /// For the rest: followed by change() where a real window system would tell.
    Window &at(WindowHandle window) { return m_windows[window]; }
    void change()
    {
        ++m_changes;
        emit changed();
    }

    QVector<WindowHandle> topLevelWindows() const override { return order; }
    quint64 changeCount() const override { return m_changes; }
    bool isWindow(WindowHandle window) const override { return m_windows.contains(window); }
    bool isVisible(WindowHandle window) const override { return m_windows.value(window, none()).visible; }
    bool isMinimized(WindowHandle window) const override { return m_windows.value(window).minimized; }
    bool isToolWindow(WindowHandle window) const override { return m_windows.value(window).tool; }
    WindowHandle ownerOf(WindowHandle window) const override { return m_windows.value(window).owner; }
    WindowHandle parentOf(WindowHandle window) const override { return m_windows.value(window).parent; }
    QString className(WindowHandle window) const override { return m_windows.value(window).className; }

    QString caption(WindowHandle window) const override
    {
        constexpr qsizetype kLongest = 254;
        QString text = m_windows.value(window).caption.left(kLongest);
        if (const qsizetype end = text.indexOf(QChar(u'\0')); end >= 0)
            text.truncate(end);
        if (!text.isEmpty() && text.back().isHighSurrogate())
            text.chop(1);
        return text;
    }
    QString withoutProgramSuffix(const QString &title) const override
    {
        for (const QString &suffix : programSuffixes) {
            if (title.endsWith(suffix) && title != suffix)
                return title.chopped(suffix.size());
        }
        return title;
    }
    std::optional<QString> requestCaption(WindowHandle window, int) const override
    {
        ++roundTrips;
        ++captionRequests;
        if (beforeCaption)
            beforeCaption(window);
        if (!isWindow(window) || m_windows.value(window).hung)
            return std::nullopt;
        return caption(window);
    }
    bool responds(WindowHandle window, int) const override
    {
        ++roundTrips;
        return isWindow(window) && !m_windows.value(window).hung;
    }
    IconHandle icon(WindowHandle window, IconSize size, int) const override
    {
        ++roundTrips;
        const Window found = m_windows.value(window);
        return size == IconSize::Large ? found.largeIcon : found.smallIcon;
    }
    IconImage iconImage(IconHandle icon, int) const override
    {
        ++roundTrips;
        return iconImages.value(icon);
    }
    QVector<WindowHandle> children(WindowHandle window) const override
    {
        ++roundTrips;
        return m_windows.value(window).children;
    }
    QString controlText(WindowHandle window) const override
    {
        ++roundTrips;
        return m_windows.value(window).text;
    }
    QRect windowRect(WindowHandle window) const override
    {
        ++roundTrips;
        return m_windows.value(window, none()).rect;
    }
    QRect clientRect(WindowHandle window) const override { return windowRect(window); }
    QRect workArea() const override { return {0, 0, 1920, 1080}; }
    WindowHandle desktopWindow() const override { return 1; }

    WindowHandle findWindowByTitle(const QString &title) const override
    {
        const auto found = std::find_if(order.begin(), order.end(), [&](WindowHandle window) {
            return cleaned(caption(window)).compare(cleaned(title), Qt::CaseInsensitive) == 0;
        });
        return found == order.end() ? kNoWindow : *found;
    }

    WindowHandle foregroundWindow() const override { return foreground; }
    void setForegroundWindow(WindowHandle window) override
    {
        act(QStringLiteral("setForegroundWindow"), window);
        if (!foregroundRefused && isWindow(window))
            foreground = window;
    }
    void setFocus(WindowHandle window) override { act(QStringLiteral("setFocus"), window); }
    void bringWindowToTop(WindowHandle window) override { act(QStringLiteral("bringWindowToTop"), window); }
    void setTopMost(WindowHandle window, bool on) override
    {
        act(on ? QStringLiteral("setTopMost") : QStringLiteral("setNotTopMost"), window);
    }
    void restoreWindow(WindowHandle window) override
    {
        act(QStringLiteral("restoreWindow"), window);
        setMinimized(window, false);
    }
    void lockWindowUpdate(WindowHandle window) override
    {
        act(QStringLiteral("lockWindowUpdate"), window);
        locked = window;
    }
    qint64 processId(WindowHandle window) const override
    {
        ++roundTrips;
        return m_windows.value(window).process;
    }

private:
    static Window none()
    {
        Window window;
        window.visible = false;
        window.rect = {};
        return window;
    }
    static QString cleaned(QString caption)
    {
        return caption.replace(u'|', u' ').replace(u'"', u'\'').trimmed();
    }
    WindowHandle add(const QString &className, const QString &caption)
    {
        Window window;
        window.className = className;
        window.caption = caption;
        m_windows.insert(++m_last, window);
        return m_last;
    }
    void act(const QString &name, WindowHandle window)
    {
        ++roundTrips;
        actions.append(name + u' ' + QString::number(window));
    }

    QHash<WindowHandle, Window> m_windows;
    WindowHandle m_last = 1000;
    quint64 m_changes = 1;
};

} // namespace norvane::fakes
