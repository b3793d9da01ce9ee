#include "watcher/clsClips.h"

namespace norvane {

clsClip &clsClips::Add(const QString &WindowName, WindowHandle ParentHwnd, int ID, WindowHandle hWnd,
                       const QString &ParentClassName, const QString &SavedTitle, const QString &wURL,
                       const QString &Key)
{
    clsClip &clip = add(Key);
    clip = {hWnd, ID, ParentHwnd, ParentClassName, WindowName, SavedTitle, wURL};
    return clip;
}

WindowHandle clsClips::GetHwnd(int ID) const
{
    const clsClip *clip = firstThat([&](const clsClip &each) { return each.ID == ID; });
    return clip ? clip->hWnd : kNoWindow;
}

void clsClips::RemoveByHwnd(WindowHandle hWnd)
{
    for (int position = 1; position <= Count(); ++position) {
        if (Item(position).hWnd == hWnd) {
            Remove(position);
            return;
        }
    }
}

} // namespace norvane
