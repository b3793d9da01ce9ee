#pragma once

#include "platform/WindowEmbedding.h"

#include <QHash>

namespace norvane::fakes {

/// Keeps who stands where in whom, and moves nothing on a screen.
class FakeEmbedding : public WindowEmbedding
{
public:
    struct Place
    {
        WindowHandle target = kNoWindow;
        QRect rect;
    };

    void setParent(WindowHandle window, WindowHandle target) override
    {
        if (target == kNoWindow)
            m_places.remove(window);
        else
            m_places[window].target = target;
    }
    WindowHandle parentOf(WindowHandle window) const override { return m_places.value(window).target; }
    void moveWindow(WindowHandle window, const QRect &rect) override { m_places[window].rect = rect; }
    QRect windowRect(WindowHandle window) const override { return m_places.value(window).rect; }

    /// Destroys a target: its windows are freed, then told.
    void destroyTarget(WindowHandle target)
    {
        const auto windows = m_places.keys();
        for (const WindowHandle window : windows) {
            if (m_places[window].target != target)
                continue;
            m_places.remove(window);
            Q_EMIT targetDestroyed(window);
        }
    }
    /// The window manager moves a window.
    void moveByManager(WindowHandle window, const QRect &rect)
    {
        m_places[window].rect = rect;
        Q_EMIT moved(window);
    }

private:
    QHash<WindowHandle, Place> m_places;
};

} // namespace norvane::fakes
