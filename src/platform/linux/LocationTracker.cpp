#include "platform/linux/LocationTracker.h"

#include "platform/WindowSystem.h"

namespace norvane {

namespace {

/// When to ask a program again that was not ready, after a window was first seen or its caption
/// changed: browsers build what they tell only when they are asked, and take up to a second.
constexpr int kRetryAtMs[] = {50, 150, 300, 600, 1000, 1500, 2000};
/// When a window's location counts as unknown to its program. A look-up under way comes on top.
constexpr int kBrowserBoundMs = 2000;
constexpr int kFolderBoundMs = 600;
/// Captions that follow each other faster than this are quick ones. A page that loads has two or
/// three; more than these are a text that runs through the title.
constexpr int kRestMs = 100;
constexpr int kMostQuickChanges = 4;
/// A page's address is right about 20 ms after its title.
constexpr int kConfirmMs = 30;
/// An address that is the same after that, too, may still belong to a slow program.
constexpr int kLateLookMs = 400;
/// Events of a program come in bursts.
constexpr int kEventsMs = 40;
constexpr int kAfterEventsMs = 350;
/// The regular look at the foreground window: often while something happens, then ever less.
constexpr int kFirstPollMs = 2000;
constexpr int kLastPollMs = 32000;

} // namespace

LocationTracker::LocationTracker(WindowSystem &windows, qreal pixelRatio, StartLookUp start)
    : m_windows(windows), m_pixelRatio(pixelRatio), m_start(std::move(start))
{
    m_poll.setSingleShot(true);
    m_poll.setTimerType(Qt::VeryCoarseTimer);
    m_poll.setInterval(kFirstPollMs);
    connect(&m_poll, &QTimer::timeout, this, &LocationTracker::poll);
    m_programTimer.setSingleShot(true);
    m_programTimer.setInterval(kEventsMs);
    connect(&m_programTimer, &QTimer::timeout, this, &LocationTracker::lookAtChangedPrograms);
    connect(&windows, &WindowSystem::changed, this, &LocationTracker::windowsChanged);
    connect(&windows, &WindowSystem::windowDestroyed, this, &LocationTracker::windowDestroyed);
}

bool LocationTracker::isFamily(const QString &className)
{
    return className == u"IEFrame" || className == u"CabinetWClass" || className == u"ExploreWClass";
}

LocationTracker::Record *LocationTracker::recordOf(WindowHandle window)
{
    if (const auto known = m_records.find(window); known != m_records.end())
        return &*known;
    const QString className = m_windows.className(window);
    if (!isFamily(className))
        return nullptr;
    Record record;
    record.processId = m_windows.processId(window);
    record.browser = className == u"IEFrame";
    Record &kept = *m_records.insert(window, record);
    begin(window, kept, m_windows.caption(window));
    return &kept;
}

ShellWindows::Answer LocationTracker::location(WindowHandle window)
{
    Record *record = recordOf(window);
    if (record == nullptr)
        return {State::Known, {}};
    if (const QString caption = m_windows.caption(window); caption != record->caption)
        begin(window, *record, caption);
    return record->state == State::Known ? ShellWindows::Answer{State::Known, record->location}
                                         : ShellWindows::Answer{};
}

QString LocationTracker::lastKnown(WindowHandle window) const
{
    const auto record = m_records.find(window);
    return record != m_records.end() && record->state == State::Known ? record->location : QString();
}

void LocationTracker::begin(WindowHandle window, Record &record, const QString &caption)
{
    const bool quick = record.sinceChange.isValid() && record.sinceChange.elapsed() < kRestMs;
    record.quickChanges = quick ? record.quickChanges + 1 : 0;
    record.sinceChange.start();
    record.caption = caption;
    record.state = State::Unknown;
    record.confirmed = false;
    record.attempt = 0;
    record.round = ++m_rounds;
    if (record.processId == 0)
        record.processId = m_windows.processId(window);
    desktopActive();
    if (!isRestless(record))
        ask(window, record);
    else
        askNowAndThen(window, record);
}

bool LocationTracker::isRestless(const Record &record)
{
    return record.quickChanges > kMostQuickChanges;
}

LookUpRequest LocationTracker::requestFor(WindowHandle window)
{
    LookUpRequest request;
    request.window = window;
    if (const Record *record = recordOf(window)) {
        const QRect rect = m_windows.clientRect(window);
        request.processId = record->processId;
        request.browser = record->browser;
        request.caption = m_windows.caption(window);
        request.rect = QRect(qRound(rect.x() * m_pixelRatio), qRound(rect.y() * m_pixelRatio),
                             qRound(rect.width() * m_pixelRatio), qRound(rect.height() * m_pixelRatio));
        request.foreground = m_windows.foregroundWindow() == window;
        request.lastLocation = record->location;
        request.sameCaption = record->state == State::Known && request.caption == record->caption;
    }
    return request;
}

void LocationTracker::ask(WindowHandle window, Record &record)
{
    if (record.lookingUp) {
        record.lookAgain = true;
        return;
    }
    record.lookAgain = false;
    record.lookingUp = true;
    if (m_start(requestFor(window)))
        return;
    record.lookingUp = false;
    settle(window, record, {});
}

void LocationTracker::askIn(int milliseconds, WindowHandle window)
{
    const quint64 round = m_records.value(window).round;
    QTimer::singleShot(milliseconds, this, [this, window, round] {
        const auto record = m_records.find(window);
        if (record != m_records.end() && record->round == round)
            ask(window, *record);
    });
}

void LocationTracker::askNowAndThen(WindowHandle window, Record &record)
{
    if (record.timerRuns)
        return;
    record.timerRuns = true;
    QTimer::singleShot(kRestMs, this, [this, window] {
        const auto known = m_records.find(window);
        if (known == m_records.end())
            return;
        known->timerRuns = false;
        ask(window, *known);
    });
}

void LocationTracker::arrived(WindowHandle window, const LookUpResult &result)
{
    const auto known = m_records.find(window);
    if (known == m_records.end())
        return;
    Record &record = *known;
    record.lookingUp = false;
    if (const QString caption = m_windows.caption(window); caption != record.caption)
        begin(window, record, caption);
    if (isRestless(record)) {
        record.confirmed = true;
        if (record.sinceChange.elapsed() >= kRestMs)
            record.quickChanges = 0;
    } else if (record.lookAgain) {
        ask(window, record);
    }
    // An answer that was asked for under another caption does not count.
    if (record.state == State::Known || !record.lookingUp)
        apply(window, record, result);
}

void LocationTracker::accept(WindowHandle window, const QString &location)
{
    const auto known = m_records.find(window);
    if (known == m_records.end())
        return;
    known->caption = m_windows.caption(window);
    known->found = true;
    if (known->state != State::Known || known->location != location)
        settle(window, *known, location);
}

void LocationTracker::apply(WindowHandle window, Record &record, const LookUpResult &result)
{
    record.found = result.outcome == LookUpResult::Outcome::Found;
    const bool same = result.location == record.location;
    if (record.state == State::Known) {
        // A program that does not tell just now has not gone elsewhere under the same caption.
        if (record.found && !same)
            settle(window, record, result.location);
    } else if (record.found && same && !record.confirmed) {
        record.confirmed = true;
        askIn(kConfirmMs, window);
    } else if (record.found) {
        settle(window, record, result.location);
        if (same && !isRestless(record))
            askIn(kLateLookMs, window);
    } else if (result.outcome == LookUpResult::Outcome::None) {
        settle(window, record, {});
    } else {
        retry(window, record);
    }
}

void LocationTracker::retry(WindowHandle window, Record &record)
{
    const int bound = record.browser ? kBrowserBoundMs : kFolderBoundMs;
    const qint64 passed = record.sinceChange.elapsed();
    while (record.attempt < int(std::size(kRetryAtMs)) && kRetryAtMs[record.attempt] <= passed)
        ++record.attempt;
    if (record.attempt == int(std::size(kRetryAtMs)) || kRetryAtMs[record.attempt] > bound)
        settle(window, record, {});
    else
        askIn(kRetryAtMs[record.attempt] - static_cast<int>(passed), window);
}

void LocationTracker::settle(WindowHandle window, Record &record, const QString &location)
{
    record.state = State::Known;
    record.location = location;
    QMetaObject::invokeMethod(
        this, [this, window] { emit locationChanged(window); }, Qt::QueuedConnection);
}

void LocationTracker::programChanged(qint64 processId, Which which)
{
    if (!hasWindowsOf(processId))
        return;
    const auto changed = m_changedPrograms.find(processId);
    if (changed == m_changedPrograms.end())
        m_changedPrograms.insert(processId, which);
    else if (which == Which::All)
        *changed = which;
    if (!m_programTimer.isActive())
        m_programTimer.start();
    desktopActive();
}

void LocationTracker::lookAtChangedPrograms()
{
    const auto programs = std::exchange(m_changedPrograms, {});
    const WindowHandle foreground = m_windows.foregroundWindow();
    for (auto record = m_records.begin(); record != m_records.end(); ++record) {
        const WindowHandle window = record.key();
        const auto changed = programs.find(record->processId);
        if (changed == programs.end())
            continue;
        if (*changed == Which::All || !record->found || window == foreground) {
            ask(window, *record);
            askIn(kAfterEventsMs, window);
        }
    }
}

void LocationTracker::lookAgain()
{
    for (auto record = m_records.begin(); record != m_records.end(); ++record)
        ask(record.key(), *record);
}

void LocationTracker::desktopActive()
{
    if (!m_records.isEmpty() && (!m_poll.isActive() || m_poll.interval() > kFirstPollMs))
        m_poll.start(kFirstPollMs);
}

void LocationTracker::poll()
{
    const WindowHandle foreground = m_windows.foregroundWindow();
    for (auto record = m_records.begin(); record != m_records.end(); ++record) {
        if (record.key() == foreground || (!record->found && record->state == State::Known))
            ask(record.key(), *record);
    }
    if (!m_records.isEmpty())
        m_poll.start(qMin(m_poll.interval() * 2, kLastPollMs));
}

void LocationTracker::windowsChanged()
{
    for (auto record = m_records.begin(); record != m_records.end(); ++record) {
        if (const QString caption = m_windows.caption(record.key()); caption != record->caption)
            begin(record.key(), *record, caption);
    }
    desktopActive();
}

void LocationTracker::windowDestroyed(WindowHandle window)
{
    const auto record = m_records.find(window);
    if (record == m_records.end())
        return;
    const qint64 processId = record->processId;
    m_records.erase(record);
    emit windowForgotten(window, processId);
}

bool LocationTracker::browserWithoutLocation() const
{
    return std::any_of(m_records.begin(), m_records.end(), [](const Record &record) {
        return record.browser && record.state == State::Known && record.location.isEmpty();
    });
}

bool LocationTracker::hasWindowsOf(qint64 processId) const
{
    return std::any_of(m_records.begin(), m_records.end(),
                       [processId](const Record &record) { return record.processId == processId; });
}

} // namespace norvane
