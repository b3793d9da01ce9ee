#pragma once

#include "platform/WindowSystem.h"

#include <QDeadlineTimer>
#include <QVector>
#include <memory>

namespace norvane {

namespace x11 {
class WindowTable;
}

/// The windows of an X11 desktop with a window manager that keeps to the EWMH.
///
/// It answers from a table that the server's events keep true, over a connection of its own to the
/// display that DISPLAY names. A window's properties lie in the server, so captions, classes and
/// states of a program that hangs are there as ever: only responds() asks the program itself, and
/// setForegroundWindow() waits a moment for the window manager.
///
/// When the server goes, the last answers stay and no signal comes any more.
class X11WindowSystem final : public WindowSystem
{
    Q_OBJECT

public:
    X11WindowSystem();
    ~X11WindowSystem() override;

    QVector<WindowHandle> topLevelWindows() const override;
    quint64 changeCount() const override;

    bool isWindow(WindowHandle window) const override;
    bool isVisible(WindowHandle window) const override;
    bool isMinimized(WindowHandle window) const override;
    bool isToolWindow(WindowHandle window) const override;
    WindowHandle ownerOf(WindowHandle window) const override;
    WindowHandle parentOf(WindowHandle window) const override;

    QString className(WindowHandle window) const override;
    QString caption(WindowHandle window) const override;
    QString withoutProgramSuffix(const QString &title) const override;
    std::optional<QString> requestCaption(WindowHandle window, int timeoutMs) const override;
    bool responds(WindowHandle window, int timeoutMs) const override;
    IconHandle icon(WindowHandle window, IconSize size, int timeoutMs) const override;
    IconImage iconImage(IconHandle icon, int side) const override;

    QVector<WindowHandle> children(WindowHandle window) const override;
    QString controlText(WindowHandle window) const override;

    QRect windowRect(WindowHandle window) const override;
    QRect clientRect(WindowHandle window) const override;
    QRect workArea() const override;
    WindowHandle desktopWindow() const override;

    WindowHandle findWindowByTitle(const QString &title) const override;

    WindowHandle foregroundWindow() const override;
    void setForegroundWindow(WindowHandle window) override;
    void setFocus(WindowHandle window) override;
    void bringWindowToTop(WindowHandle window) override;
    void setTopMost(WindowHandle window, bool on) override;
    void restoreWindow(WindowHandle window) override;
    void lockWindowUpdate(WindowHandle window) override;

    qint64 processId(WindowHandle window) const override;

    /// How often the server was asked and waited for so far.
    quint64 roundTrips() const;
    /// The table behind the answers, for the other parts of this backend.
    x11::WindowTable &table() const { return *m_table; }
    /// Whether a note is where it belongs: above its target with nothing but notes between.
    bool standsAboveTarget(WindowHandle window) const;
    /// Takes the present order of the other windows for the one that is wanted while a note is shown: some
    /// window managers bring its target up with it.
    void keepStacking(WindowHandle note, int milliseconds);

private:
    bool standsBefore(quint32 window, quint32 other) const;
    bool isAboveTarget(const QVector<quint32> &stacking, quint32 window) const;
    const QVector<quint32> &comingStacking();
    void restack(quint32 window, quint32 sibling);
    void bringBackAbove(quint32 window, quint32 sibling);

    std::unique_ptr<x11::WindowTable> m_table;
    /// The note that was last restacked, and WindowTable::stackingCount() at that time.
    std::pair<quint32, quint64> m_lastRestack;
    QVector<quint32> m_coming;       ///< the order of windows that is wanted for now; empty: the present one
    QDeadlineTimer m_comingDeadline; ///< until when
};

} // namespace norvane
