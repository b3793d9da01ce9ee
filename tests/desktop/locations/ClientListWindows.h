#pragma once

#include "harness/XClient.h"
#include "platform/WindowSystem.h"

#include <QHash>
#include <QTimer>

namespace norvane::test {

/// The windows of a virtual desktop as far as locations need them, read from the X server again and
/// again: it serves without the window system of the program itself.
class ClientListWindows final : public WindowSystem
{
public:
    explicit ClientListWindows(XClient &x);

    QVector<WindowHandle> topLevelWindows() const override;
    quint64 changeCount() const override { return m_changes; }
    bool isWindow(WindowHandle window) const override { return m_windows.contains(window); }
    bool isVisible(WindowHandle window) const override { return m_windows.contains(window); }
    bool isMinimized(WindowHandle) const override { return false; }
    bool isToolWindow(WindowHandle) const override { return false; }
    WindowHandle ownerOf(WindowHandle) const override { return kNoWindow; }
    WindowHandle parentOf(WindowHandle) const override { return kNoWindow; }
    QString className(WindowHandle window) const override { return m_windows.value(window).className; }
    QString caption(WindowHandle window) const override { return m_windows.value(window).caption; }
    QString withoutProgramSuffix(const QString &title) const override { return title; }
    std::optional<QString> requestCaption(WindowHandle window, int) const override { return caption(window); }
    bool responds(WindowHandle, int) const override { return true; }
    IconHandle icon(WindowHandle, IconSize, int) const override { return 0; }
    QVector<WindowHandle> children(WindowHandle) const override { return {}; }
    QString controlText(WindowHandle) const override { return {}; }
    QRect windowRect(WindowHandle window) const override { return clientRect(window); }
    QRect clientRect(WindowHandle window) const override;
    QRect workArea() const override { return {}; }
    WindowHandle desktopWindow() const override { return kNoWindow; }
    WindowHandle findWindowByTitle(const QString &) const override { return kNoWindow; }
    WindowHandle foregroundWindow() const override { return m_x.activeWindow(); }
    void setForegroundWindow(WindowHandle window) override;
    void setFocus(WindowHandle) override {}
    void bringWindowToTop(WindowHandle) override {}
    void restoreWindow(WindowHandle) override {}
    void lockWindowUpdate(WindowHandle) override {}
    qint64 processId(WindowHandle window) const override { return m_windows.value(window).processId; }

private:
    struct Window
    {
        QString className;
        QString caption;
        qint64 processId = 0;
    };
    void read();

    XClient &m_x;
    QHash<WindowHandle, Window> m_windows;
    quint64 m_changes = 0;
    QTimer m_timer;
};

} // namespace norvane::test
