#include "watcher/clsWindows.h"

namespace norvane {

clsWindow &clsWindows::Add(WindowHandle hWnd, WindowHandle ParentHwnd, const QString &ClassName,
                           const QString &WindowTitle, const QString &DocumentName, qint64 ProcessID,
                           bool IsListed, int Left, int Top, int Width, int Height,
                           const QString &StrippedTitle, const QString &Key)
{
    clsWindow &window = add(Key);
    window = {WindowTitle,  ClassName, hWnd, ParentHwnd, IsListed, ProcessID,
              DocumentName, Left,      Top,  Width,      Height,   StrippedTitle};
    return window;
}

clsWindow *clsWindows::GetByHwnd(WindowHandle hWnd) const
{
    return firstThat([&](const clsWindow &window) { return window.hWnd == hWnd; });
}

} // namespace norvane
