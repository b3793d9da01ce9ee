#pragma once

#include "windowlist/WindowLookup.h"

namespace norvane {

class Processes;
class ShellWindows;
class WindowSystem;
struct WatchSettings;

/// Works out what a window shows, from its handle alone: the URL of a web page, the path of a
/// folder, the text of an address bar, or the program of any other window.
///
/// Keeps no state between calls. A handle that is gone, and any failure on the way, gives an empty
/// text. Handles of no window (0) give an empty text and no children.
class WindowLocation : public WindowLookup
{
public:
    WindowLocation(const WindowSystem &windows, ShellWindows &shellWindows, const Processes &processes,
                   const WatchSettings &settings);

    /// The class of the window, at most 49 characters.
    QString GetClassText(WindowHandle hWnd) const;
    /// The caption of the window as it is known without asking its program, blanks trimmed.
    QString GetWindowTitle(WindowHandle hWnd) const;
    /// The text of a control of another program up to its first NUL, with U+00FF for each "|".
    QString GetControlText(WindowHandle hWnd) const;

    /// The first direct child of exactly that class; 0 if none.
    WindowHandle FindChildExact(WindowHandle parent, const QString &className) const;
    /// The first direct child whose class starts with what the wildcard pattern tells; case does not
    /// count. As many characters of the class as the pattern is long are compared. 0 if none.
    WindowHandle FindChildByClass(WindowHandle parent, const QString &pattern) const;
    /// The first direct child whose caption starts with the prefix, a wildcard pattern; case does
    /// not count. An empty prefix gives the first child there is. 0 if none.
    WindowHandle FindChildByTitle(WindowHandle parent, const QString &prefix) const;

    /// The file of the program that owns the window.
    QString GetWindowProgram(WindowHandle hWnd) const;

    /// The location of the window; nullopt while a look-up is under way.
    std::optional<QString> GetWindowLocation(WindowHandle hWnd) override;
    /// The location asked afresh: waits at most 300 milliseconds for a browser or folder window, then
    /// gives the last known answer.
    QString freshLocation(WindowHandle hWnd);

    /// Browser and folder windows, whose titles name what they show.
    bool IsDocumentWindow(WindowHandle hWnd) const;
    bool IsTrackedClass(const QString &className) const override;

private:
    bool isShellWindow(const QString &className) const;
    QString addressBarText(WindowHandle hWnd) const;
    QString frameAddressText(WindowHandle hWnd, const QString &holderClass) const;
    QString locationWithoutShell(WindowHandle hWnd, const QString &className) const;

    const WindowSystem &m_windows;
    ShellWindows &m_shellWindows;
    const Processes &m_processes;
    const WatchSettings &m_settings;
};

/// A location as a shell window reports it, as it is compared and shown: a "file:" address becomes a
/// native path (only "%20" is decoded), any other text stays.
QString locationFromUrl(const QString &url);

} // namespace norvane
