#pragma once

#include "platform/WindowHandle.h"
#include "watcher/KeyedCollection.h"

#include <QString>

namespace norvane {

/// One tracked window of the last enumeration. Not to be kept across a tick.
struct clsWindow
{
    QString WindowTitle; ///< the caption as the table of windows holds it
    QString ClassName;
    WindowHandle hWnd = kNoWindow;
    WindowHandle ParentHwnd = kNoWindow; ///< always none in an enumeration of top-level windows
    bool IsListed = true;
    qint64 ProcessID = 0;
    QString DocumentName; ///< the location
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;
    QString StrippedTitle;
};

/// `LiveWindows`: the tracked top-level windows, from one enumeration to the next.
class clsWindows : public KeyedCollection<clsWindow>
{
public:
    clsWindow &Add(WindowHandle hWnd, WindowHandle ParentHwnd, const QString &ClassName,
                   const QString &WindowTitle, const QString &DocumentName, qint64 ProcessID, bool IsListed,
                   int Left, int Top, int Width, int Height, const QString &StrippedTitle,
                   const QString &Key = {});
    /// The first record of that window; nullptr when it is not in the snapshot.
    clsWindow *GetByHwnd(WindowHandle hWnd) const;
};

} // namespace norvane
