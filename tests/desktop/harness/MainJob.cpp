#include "MainJob.h"

#include <QElapsedTimer>
#include <QFile>
#include <cstdio>

namespace norvane::test {

namespace {

/// A busy program may lose keys; a person looks for a while, then presses them again.
constexpr int kKeysMs = 8000;

constexpr int kHalfMenuEntry = 14; // pixels
constexpr QPoint kPin(13, 12);     // from the note's corner

const QString kText = QStringLiteral("Ask Ada about the second draft.");

} // namespace

MainJob::MainJob(VirtualDesktop &desktop, Target &target, QString program, QString pictures)
    : m_desktop(desktop), m_x(desktop.x()), m_target(target), m_norvane(desktop, std::move(program)),
      m_pictures(std::move(pictures))
{
}

bool MainJob::run()
{
    return openTarget() && attachAndType() && leaveAndReturn() && moveAndMinimise() && closeAndReopen() &&
           detachAndAttach() && endFromTray();
}

bool MainJob::step(const QString &name, const std::function<bool()> &seen, int timeoutMs)
{
    const bool held = waitFor(seen, timeoutMs);
    const QString line =
        QStringLiteral("%1 %2: %3\n")
            .arg(held ? QStringLiteral("ok    ") : QStringLiteral("FAILED"), m_target.name(), name);
    m_report += line;
    std::fputs(qPrintable(line), stdout);
    std::fflush(stdout);
    if (!held && m_norvane.process() != nullptr)
        m_report +=
            QStringLiteral("  the note is at %1, was at %2; ").arg(text(noteInTarget()), text(m_place)) +
            m_x.whatIsThere() + m_norvane.errorOutput();
    if (!m_pictures.isEmpty()) {
        QString file = name;
        file.replace(QLatin1Char(' '), QLatin1Char('-'));
        m_x.screenshot().save(QStringLiteral("%1/%2-%3-%4.png")
                                  .arg(m_pictures, m_target.name(),
                                       QStringLiteral("%1").arg(++m_step, 2, 10, QLatin1Char('0')), file));
    }
    return held;
}

xcb_window_t MainJob::findTarget(int thing) const
{
    return m_x.findClient(m_target.title(thing), m_target.wmClass());
}

xcb_window_t MainJob::note() const
{
    return m_norvane.noteOn(m_window);
}

QRect MainJob::noteInTarget() const
{
    return m_norvane.placeIn(m_window, note());
}

bool MainJob::go(int thing, const QString &name, const std::function<bool()> &seen)
{
    QElapsedTimer sinceKeys;
    return step(
        name,
        [&] {
            const bool there = findTarget(thing) == m_window;
            if (!there && (!sinceKeys.isValid() || sinceKeys.hasExpired(kKeysMs))) {
                m_target.show(m_desktop, thing);
                sinceKeys.start();
            }
            return there && seen();
        },
        40000);
}

bool MainJob::openTarget()
{
    m_targetProcess = m_target.start(m_desktop);
    const bool shown = m_targetProcess != nullptr && step(
                                                         QStringLiteral("the program opens"),
                                                         [this] {
                                                             m_window = findTarget(1);
                                                             return m_window != 0 && m_x.isViewable(m_window);
                                                         },
                                                         60000);
    if (!shown)
        return false;
    m_x.setMaximised(m_window, false);
    m_x.moveResize(m_window, {40, 30, 960, 660});
    return m_norvane.start() &&
           step(QStringLiteral("Norvane starts with a new database"),
                [&] { return QFile::exists(m_norvane.databaseFile()) && m_norvane.isArmed(); }) &&
           step(QStringLiteral("the window settles"),
                [this] { return m_x.geometry(m_window).width() > 900; });
}

bool MainJob::attachAndType()
{
    m_x.activate(m_window);
    if (!step(QStringLiteral("the program has the keyboard"),
              [this] { return m_x.activeWindow() == m_window; }))
        return false;
    m_norvane.attach(m_window);
    const bool attached = step(QStringLiteral("the hot key attaches a note"), [this] { return note() != 0; });
    if (!attached || !step(QStringLiteral("the keyboard stays with the program"),
                           [this] { return m_x.activeWindow() == m_window; }))
        return false;
    const bool dragged = m_norvane.drag(note(), QPoint(590, 60));
    if (!step(QStringLiteral("the note is dragged by its strip"), [&] { return dragged; }))
        return false;
    const bool typed = m_norvane.typeInto(note(), kText);
    if (!step(QStringLiteral("after a click what is typed shows in the note"), [&] { return typed; }))
        return false;
    if (!openMenu())
        return false;
    m_x.activate(m_window);
    if (!step(QStringLiteral("the program has the keyboard back"),
              [this] { return m_x.activeWindow() == m_window; }))
        return false;
    m_place = noteInTarget();
    m_look = m_norvane.settledPictureOf(note());
    return true;
}

bool MainJob::openMenu()
{
    m_x.click(m_x.geometry(note()).topLeft() + kPin);
    const auto menu = [this] { return m_x.menuOfProcess(m_norvane.process()->processId()); };
    if (!step(QStringLiteral("the pin opens a menu"), [&] { return menu() != 0; }))
        return false;
    m_x.press(QStringLiteral("Escape"));
    return step(QStringLiteral("and Escape closes it"), [&] { return menu() == 0; });
}

bool MainJob::leaveAndReturn()
{
    if (!m_target.noteFollowsThing())
        return openSecondWindow();
    if (!go(2, QStringLiteral("the second place has no note"), [this] { return note() == 0; }))
        return false;
    if (!step(QStringLiteral("the note was saved"),
              [this] { return m_norvane.body(1).contains(kText.toLatin1()); }))
        return false;
    return go(1, QStringLiteral("back at the first place the note is there"),
              [this] { return note() != 0; }) &&
           step(QStringLiteral("with its text, place and size"), [this] {
               return noteInTarget() == m_place && looksAlike(m_norvane.pictureOf(note()), m_look);
           });
}

bool MainJob::openSecondWindow()
{
    m_target.show(m_desktop, 2);
    xcb_window_t second = 0;
    const bool once = step(QStringLiteral("a second document leaves the note in one window"), [&] {
        second = findTarget(2);
        return second != 0 && m_x.isViewable(second) && note() != 0;
    });
    if (second != m_window)
        m_x.closeWindow(second);
    return once && step(QStringLiteral("where it stays when the second is closed"),
                        [&] { return (second == m_window || !m_x.exists(second)) && note() != 0; });
}

bool MainJob::moveAndMinimise()
{
    const QPoint before = m_x.geometry(m_window).topLeft();
    m_x.moveResize(m_window, {240, 150, 960, 660});
    if (!step(QStringLiteral("the note follows a moved window"),
              [&] { return m_x.geometry(m_window).topLeft() != before && noteInTarget() == m_place; }))
        return false;
    m_x.minimise(m_window);
    if (!step(QStringLiteral("the note hides with a minimised window"),
              [this] { return !m_x.isViewable(m_window) && note() == 0; }))
        return false;
    m_x.activate(m_window);
    return step(QStringLiteral("and comes back with it"),
                [this] { return m_x.isViewable(m_window) && note() != 0 && noteInTarget() == m_place; });
}

bool MainJob::closeAndReopen()
{
    m_x.closeWindow(m_window);
    if (!step(QStringLiteral("closing the program takes the note along"),
              [this] { return !m_x.exists(m_window) && note() == 0; }))
        return false;
    // A browser may take a moment to leave its profile.
    if (!waitFor([this] { return m_targetProcess->state() == QProcess::NotRunning; }, 15000))
        m_desktop.end(m_targetProcess);
    m_targetProcess = m_target.start(m_desktop);
    return m_targetProcess != nullptr && step(
                                             QStringLiteral("opened again the program has its note"),
                                             [this] {
                                                 m_window = findTarget(1);
                                                 return m_window != 0 && note() != 0;
                                             },
                                             60000);
}

bool MainJob::detachAndAttach()
{
    m_x.activate(m_window);
    if (!step(QStringLiteral("the program is in front"), [this] { return m_x.activeWindow() == m_window; }))
        return false;
    m_x.press(QStringLiteral("ctrl+alt+d"));
    if (!step(QStringLiteral("the detach key closes the note"), [this] { return note() == 0; }))
        return false;
    if (m_target.noteFollowsThing()) {
        const auto always = [] { return true; };
        if (!go(2, QStringLiteral("the program moves on"), always) ||
            !go(1, QStringLiteral("and comes back"), always))
            return false;
    }
    // Several ticks pass, and nothing opens.
    if (waitFor([this] { return note() != 0; }, 2500) ||
        !step(QStringLiteral("the note stays away"), [this] { return note() == 0; }))
        return false;
    m_x.press(QStringLiteral("ctrl+alt+a"));
    return step(QStringLiteral("attaching again brings it back"), [this] { return note() != 0; });
}

bool MainJob::endFromTray()
{
    const xcb_window_t tray = m_x.findClient({}, QStringLiteral("trayer"));
    if (!step(QStringLiteral("the tray shows an icon"),
              [&] { return tray != 0 && m_x.geometry(tray).width() > 8; }))
        return false;
    m_x.click(m_x.geometry(tray).center(), 3);
    xcb_window_t menu = 0;
    if (!step(QStringLiteral("the tray menu opens"), [&] {
            menu = m_x.menuOfProcess(m_norvane.process()->processId());
            return menu != 0;
        }))
        return false;
    const QRect entries = m_x.geometry(menu);
    m_x.click({entries.center().x(), entries.bottom() - kHalfMenuEntry}); // "Exit" is the last one
    const bool ended = step(QStringLiteral("Exit ends Norvane"), [this] { return !m_norvane.isRunning(); });
    m_desktop.end(m_targetProcess);
    return ended && step(QStringLiteral("without an error"), [this] { return m_norvane.hasEndedWell(); });
}

} // namespace norvane::test
