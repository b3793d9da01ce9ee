#pragma once

#include "platform/WindowHandle.h"
#include "watcher/KeyedCollection.h"

#include <QString>

namespace norvane {

/// The tie between an open sticky window, its note and its target window.
struct clsClip
{
    WindowHandle hWnd = kNoWindow;       ///< the sticky window
    int ID = 0;                          ///< the note
    WindowHandle ParentHwnd = kNoWindow; ///< the target
    QString ParentClassName;
    QString WindowName; ///< title of the target when the note opened
    QString SavedTitle; ///< a second copy of it: the one that the watch cycle compares
    QString wURL;       ///< location of the target when the note opened
};

/// `Clips`: one record for each open sticky window.
class clsClips : public KeyedCollection<clsClip>
{
public:
    clsClip &Add(const QString &WindowName, WindowHandle ParentHwnd, int ID, WindowHandle hWnd,
                 const QString &ParentClassName, const QString &SavedTitle, const QString &wURL,
                 const QString &Key = {});
    /// The sticky window of the first clip of that note; kNoWindow if the note is not open.
    WindowHandle GetHwnd(int ID) const;
    /// Removes the first clip of that sticky window, if there is one.
    void RemoveByHwnd(WindowHandle hWnd);
};

} // namespace norvane
