#include "watcher/window_location.h"

#include "platform/Processes.h"
#include "platform/RuntimeError.h"
#include "platform/ShellWindows.h"
#include "platform/WindowSystem.h"
#include "shell/path_rules.h"
#include "watcher/WatchSettings.h"
#include "watcher/titles.h"
#include "watcher/wildcard.h"

#include <algorithm>

namespace norvane {

namespace {

constexpr qsizetype kLongestClass = 49;
constexpr qsizetype kLongestProgram = 260;
constexpr int kFreshLocationTimeout = 300;

/// The class of the child that holds the address bar in a frame of the "Afx:400000:" family.
std::optional<QString> barHolderClass(const QString &frameClass)
{
    const QString number = frameClass.left(19);
    if (frameClass.startsWith(QStringLiteral("Afx:400000:b:14"))) {
        const QString rest = number.mid(number.indexOf(QStringLiteral(":14")) + 3);
        return QStringLiteral("Afx:400000:808:14") + rest + QStringLiteral(":10:0");
    }
    if (number == QStringLiteral("Afx:400000:b:10008:"))
        return QStringLiteral("Afx:400000:808:10008:10:0");
    if (number == QStringLiteral("Afx:400000:b:10011:"))
        return QStringLiteral("Afx:400000:808:10011:10:0");
    return std::nullopt;
}

} // namespace

WindowLocation::WindowLocation(const WindowSystem &windows, ShellWindows &shellWindows,
                               const Processes &processes, const WatchSettings &settings)
    : m_windows(windows), m_shellWindows(shellWindows), m_processes(processes), m_settings(settings)
{
}

QString WindowLocation::GetClassText(WindowHandle hWnd) const
{
    return trimBlanks(m_windows.className(hWnd).left(kLongestClass));
}

QString WindowLocation::GetWindowTitle(WindowHandle hWnd) const
{
    return trimBlanks(m_windows.caption(hWnd));
}

QString WindowLocation::GetControlText(WindowHandle hWnd) const
{
    if (hWnd == kNoWindow)
        return {};
    // "|" separates lists elsewhere and must not be part of a location.
    return TrimAtNull(m_windows.controlText(hWnd)).replace(u'|', QChar(0xff));
}

WindowHandle WindowLocation::FindChildExact(WindowHandle parent, const QString &className) const
{
    if (parent == kNoWindow)
        return kNoWindow;
    for (const WindowHandle child : m_windows.children(parent)) {
        if (m_windows.className(child) == className)
            return child;
    }
    return kNoWindow;
}

WindowHandle WindowLocation::FindChildByClass(WindowHandle parent, const QString &pattern) const
{
    if (parent == kNoWindow)
        return kNoWindow;
    const QString wanted = pattern.toUpper();
    for (const WindowHandle child : m_windows.children(parent)) {
        if (matchesWildcard(m_windows.className(child).left(pattern.size()).toUpper(), wanted))
            return child;
    }
    return kNoWindow;
}

WindowHandle WindowLocation::FindChildByTitle(WindowHandle parent, const QString &prefix) const
{
    if (parent == kNoWindow)
        return kNoWindow;
    const QString wanted = prefix.toUpper() + u'*';
    for (const WindowHandle child : m_windows.children(parent)) {
        if (matchesWildcard(GetWindowTitle(child).toUpper(), wanted))
            return child;
    }
    return kNoWindow;
}

QString WindowLocation::GetWindowProgram(WindowHandle hWnd) const
{
    const qint64 process = m_windows.processId(hWnd);
    if (process == 0)
        return {};
    return TrimAtNull(m_processes.programFile(process).left(kLongestProgram));
}

std::optional<QString> WindowLocation::GetWindowLocation(WindowHandle hWnd)
{
    try {
        const QString className = GetClassText(hWnd);
        if (!isShellWindow(className) || !m_settings.IEAvailable)
            return locationWithoutShell(hWnd, className);
        const ShellWindows::Answer answer = m_shellWindows.location(hWnd);
        if (answer.state == ShellWindows::State::Unknown)
            return std::nullopt;
        return locationFromUrl(answer.location);
    } catch (const RuntimeError &) {
        return QString();
    }
}

QString WindowLocation::freshLocation(WindowHandle hWnd)
{
    try {
        const QString className = GetClassText(hWnd);
        if (!isShellWindow(className) || !m_settings.IEAvailable)
            return locationWithoutShell(hWnd, className);
        return locationFromUrl(m_shellWindows.freshLocation(hWnd, kFreshLocationTimeout));
    } catch (const RuntimeError &) {
        return {};
    }
}

bool WindowLocation::IsDocumentWindow(WindowHandle hWnd) const
{
    const QString className = GetClassText(hWnd);
    return isShellWindow(className) || className.startsWith(QStringLiteral("Afx:400000:b:147e:6")) ||
           className.startsWith(QStringLiteral("Afx:400000:b:10008:6")) ||
           className.startsWith(QStringLiteral("Afx:400000:b:10011:6"));
}

bool WindowLocation::IsTrackedClass(const QString &className) const
{
    return std::any_of(
        m_settings.TrackedClasses.begin(), m_settings.TrackedClasses.end(),
        [&](const QString &tracked) { return className.contains(tracked, Qt::CaseInsensitive); });
}

bool WindowLocation::isShellWindow(const QString &className) const
{
    return className == QStringLiteral("ExploreWClass") || className == QStringLiteral("CabinetWClass") ||
           className == QStringLiteral("IEFrame");
}

QString WindowLocation::addressBarText(WindowHandle hWnd) const
{
    WindowHandle h = FindChildExact(hWnd, QStringLiteral("WorkerA"));
    if (h == kNoWindow)
        h = FindChildExact(hWnd, QStringLiteral("WorkerW"));
    for (const QString &className : {QStringLiteral("ReBarWindow32"), QStringLiteral("ComboBoxEx32"),
                                     QStringLiteral("ComboBox"), QStringLiteral("Edit")})
        h = FindChildExact(h, className);
    return trimBlanks(GetControlText(h));
}

QString WindowLocation::frameAddressText(WindowHandle hWnd, const QString &holderClass) const
{
    const WindowHandle h1 = FindChildByClass(hWnd, holderClass);
    // Its second child, whatever that is called, is the bar.
    const QVector<WindowHandle> parts = h1 == kNoWindow ? QVector<WindowHandle>() : m_windows.children(h1);
    const WindowHandle h2 = parts.size() > 1 ? parts[1] : kNoWindow;

    WindowHandle h3 = FindChildByTitle(h2, QString());
    if (h3 == kNoWindow)
        h3 = FindChildByClass(h2, QStringLiteral("#32770"));
    const WindowHandle h4 = FindChildByClass(h3, QStringLiteral("ComboBox"));
    const WindowHandle h5 = FindChildByClass(h4, QStringLiteral("Edit"));
    return trimBlanks(GetControlText(h5));
}

QString WindowLocation::locationWithoutShell(WindowHandle hWnd, const QString &className) const
{
    if (isShellWindow(className))
        return addressBarText(hWnd);
    if (const std::optional<QString> holder = barHolderClass(className))
        return frameAddressText(hWnd, *holder);
    return trimBlanks(GetWindowProgram(hWnd));
}

QString locationFromUrl(const QString &url)
{
    if (!url.startsWith(QStringLiteral("file:")))
        return url;
    QString path = url;
    path.remove(QStringLiteral("file:///"));
    path.remove(QStringLiteral("file:"));
    path.replace(QStringLiteral("%20"), QStringLiteral(" "));
    path.replace(u'/', pathSeparator());
    return path.startsWith(pathRoot()) ? path : pathRoot() + path;
}

} // namespace norvane
