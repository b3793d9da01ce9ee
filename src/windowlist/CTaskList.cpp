#include "windowlist/CTaskList.h"

#include "windowlist/WindowLookup.h"

#include <algorithm>

namespace norvane {

namespace {

constexpr int kGrowth = 20;
constexpr qsizetype kLongestClass = 255;
constexpr int kLongestPause = 16;

/// Without the two characters that conditions and lists are put together with.
QString cleaned(QString caption)
{
    caption.replace(u'|', u' ');
    caption.replace(u'"', u'\'');
    return caption;
}

} // namespace

CTaskList::CTaskList(WindowSystem &windows, ShellWindows &shellWindows, WindowLookup &lookup)
    : m_windows(windows), m_lookup(lookup), m_rows(kGrowth)
{
    QObject::connect(&shellWindows, &ShellWindows::locationChanged, &m_receiver,
                     [this](WindowHandle hWnd) { locationChanged(hWnd); });
}

void CTaskList::setMode(int mode)
{
    m_mode = mode;
    m_unfinished = true;
}

WindowHandle CTaskList::hWnd(int Index) const
{
    const Row *found = row(Index);
    return found ? found->hWnd : kNoWindow;
}

QString CTaskList::Caption(int Index) const
{
    const Row *found = row(Index);
    return found ? found->Caption : QString();
}

QString CTaskList::DocumentName(int Index) const
{
    const Row *found = row(Index);
    return found ? found->DocumentName : QString();
}

IconHandle CTaskList::hIcon(int Index) const
{
    const Row *found = row(Index);
    if (!found)
        return 0;
    if (found->hIcon != 0)
        return found->hIcon;
    switch (m_mode) {
    case 0:
        return kDefaultLargeIcon;
    case 1:
        return kDefaultOtherIcon;
    default:
        return 0;
    }
}

IconHandle CTaskList::hIconSm(int Index) const
{
    const Row *found = row(Index);
    return found && found->hIconSm != 0 ? found->hIconSm : hIcon(Index);
}

int CTaskList::Status(int Index) const
{
    const Row *found = row(Index);
    return !found || m_windows.responds(found->hWnd, m_hungTimeout) ? 0 : 1;
}

bool CTaskList::Valid(int Index, WindowHandle hWnd)
{
    const int found = rowOf(Index, hWnd);
    if (found < 0)
        return false;
    if (counts(m_rows[found].hWnd))
        return true;
    m_rows[found] = Row();
    compact();
    return false;
}

bool CTaskList::Activate(int Index, WindowHandle hWnd)
{
    const int found = rowOf(Index, hWnd);
    if (found < 0 || m_rows[found].Caption.isEmpty())
        return false;
    const WindowHandle window = m_rows[found].hWnd;
    if (m_windows.isMinimized(window))
        m_windows.restoreWindow(window);
    m_windows.setForegroundWindow(window);
    return m_windows.foregroundWindow() == window;
}

void CTaskList::Refresh()
{
    const quint64 changes = m_windows.changeCount();
    if (changes == m_seenChanges && !m_unfinished)
        return;
    m_seenChanges = changes;
    m_unfinished = false;

    dropDeadRows();
    for (const WindowHandle window : m_windows.topLevelWindows()) {
        if (counts(window) && isTracked(window))
            update(window);
    }
}

QVector<WindowHandle> CTaskList::followTrackedClasses()
{
    QVector<WindowHandle> dropped;
    for (int i = 0; i < m_count; ++i) {
        if (isTracked(m_rows[i].hWnd))
            continue;
        dropped.append(m_rows[i].hWnd);
        m_rows[i] = Row();
    }
    compact();
    m_unfinished = true;
    return dropped;
}

QVector<WindowHandle> CTaskList::applicationWindows() const
{
    QVector<WindowHandle> found = m_windows.topLevelWindows();
    found.removeIf([this](WindowHandle window) { return !counts(window); });
    return found;
}

const CTaskList::Row *CTaskList::row(int Index) const
{
    return Index >= 1 && Index <= m_count ? &m_rows[Index - 1] : nullptr;
}

/// The place of a window's row in the array; -1 when it has none.
int CTaskList::rowOf(WindowHandle hWnd) const
{
    const auto end = m_rows.begin() + m_count;
    const auto found = std::find_if(m_rows.begin(), end, [&](const Row &each) { return each.hWnd == hWnd; });
    return found == end ? -1 : static_cast<int>(found - m_rows.begin());
}

int CTaskList::rowOf(int Index, WindowHandle hWnd) const
{
    const int found = hWnd == kNoWindow ? -1 : rowOf(hWnd);
    return found < 0 && row(Index) ? Index - 1 : found;
}

bool CTaskList::counts(WindowHandle hWnd) const
{
    if (m_mode != 0 && m_mode != 1)
        return false;
    if (!m_windows.isVisible(hWnd) || m_windows.parentOf(hWnd) != kNoWindow)
        return false;
    const WindowHandle owner = m_windows.ownerOf(hWnd);
    if (m_mode == 0)
        return (owner == kNoWindow || m_windows.isToolWindow(owner)) && !m_windows.isToolWindow(hWnd);
    return owner == kNoWindow &&
           (!m_windows.isToolWindow(hWnd) || m_windows.className(hWnd) != QStringLiteral("Progman"));
}

bool CTaskList::isTracked(WindowHandle hWnd) const
{
    return m_lookup.IsTrackedClass(m_windows.className(hWnd).left(kLongestClass));
}

void CTaskList::locationChanged(WindowHandle hWnd)
{
    m_unfinished = true;
    const int found = rowOf(hWnd);
    if (found >= 0)
        m_rows[found].locationStale = true;
}

void CTaskList::dropDeadRows()
{
    for (int i = 0; i < m_count; ++i) {
        if (!m_windows.isWindow(m_rows[i].hWnd))
            m_rows[i] = Row();
    }
    compact();
    m_unanswered.removeIf([this](const QHash<WindowHandle, Unanswered>::iterator &each) {
        return !m_windows.isWindow(each.key());
    });
}

void CTaskList::compact()
{
    const auto end = m_rows.begin() + m_count;
    const auto kept =
        std::stable_partition(m_rows.begin(), end, [](const Row &each) { return each.hWnd != kNoWindow; });
    if (kept == end)
        return;
    m_count = static_cast<int>(kept - m_rows.begin());
    ++m_changeCount;
}

void CTaskList::update(WindowHandle hWnd)
{
    const QString live = m_windows.caption(hWnd);
    const int found = rowOf(hWnd);
    if (found >= 0 && !m_rows[found].locationStale && m_rows[found].liveCaption == live)
        return;
    if (leaveInPeace(hWnd, live))
        return;

    std::optional<QString> location = m_lookup.GetWindowLocation(hWnd);
    std::optional<QString> caption;
    if (location) {
        caption = m_windows.requestCaption(hWnd, m_hungTimeout);
        if (!caption) {
            remember(hWnd, live);
            return;
        }
        // The window may have gone on while it was asked: its location is that of before then.
        if (*caption != live)
            location = m_lookup.GetWindowLocation(hWnd);
    }
    if (!location) {
        m_unfinished = true;
        return;
    }
    m_unanswered.remove(hWnd);
    if (!caption->isEmpty())
        store(hWnd, *caption, *location);
}

/// A program that hangs would cost the full time-out on every refresh. It is asked again after a
/// growing number of them, or at once when its caption shows that it lives.
bool CTaskList::leaveInPeace(WindowHandle hWnd, const QString &liveCaption)
{
    const auto found = m_unanswered.find(hWnd);
    if (found == m_unanswered.end())
        return false;
    if (found->liveCaption != liveCaption) {
        m_unanswered.erase(found);
        return false;
    }
    m_unfinished = true;
    return found->left-- > 0;
}

void CTaskList::remember(WindowHandle hWnd, const QString &liveCaption)
{
    Unanswered &entry = m_unanswered[hWnd];
    entry.liveCaption = liveCaption;
    entry.pause = std::clamp(2 * entry.pause, 1, kLongestPause);
    entry.left = entry.pause;
    m_unfinished = true;
}

void CTaskList::store(WindowHandle hWnd, const QString &liveCaption, const QString &location)
{
    using Size = WindowSystem::IconSize;
    const WindowHandle owner = m_windows.ownerOf(hWnd);
    const WindowHandle iconOwner = owner == kNoWindow ? hWnd : owner;

    Row fresh;
    fresh.hWnd = hWnd;
    fresh.hIcon = m_windows.icon(iconOwner, Size::Large, m_hungTimeout);
    fresh.hIconSm = m_windows.icon(iconOwner, Size::Small, m_hungTimeout);
    fresh.Caption = cleaned(liveCaption);
    fresh.DocumentName = location;
    fresh.liveCaption = liveCaption;

    int place = rowOf(hWnd);
    if (place < 0) {
        if (m_count == m_rows.size())
            m_rows.resize(m_rows.size() + kGrowth);
        place = m_count++;
    }
    m_rows[place] = fresh;
    ++m_changeCount;
}

} // namespace norvane
