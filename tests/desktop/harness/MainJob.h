#pragma once

#include "Programs.h"
#include "RunningNorvane.h"

namespace norvane::test {

class PageServer;

/// A program whose windows carry notes: how to start it and to make it show one thing or another.
class Target
{
public:
    virtual ~Target() = default;

    virtual QString name() const = 0;
    /// Starts the program showing its first thing.
    virtual QProcess *start(VirtualDesktop &desktop) = 0;
    /// Makes its window show the first or the second thing.
    virtual void show(VirtualDesktop &desktop, int thing) = 0;
    /// Part of the window's title while it shows a thing.
    virtual QString title(int thing) const = 0;
    virtual QString wmClass() const = 0;
    /// False where another thing in the window keeps its note, since the location is the program.
    virtual bool noteFollowsThing() const { return true; }
};

/// @param pages serves the browser's two pages; must outlive the target
std::unique_ptr<Target> firefoxTarget(PageServer &pages);
std::unique_ptr<Target> chromiumTarget(PageServer &pages);
/// @param program "pcmanfm" or "thunar"; the folders are made below the home folder
std::unique_ptr<Target> folderTarget(const QString &program);
std::unique_ptr<Target> mousepadTarget();

/// The main job, as a person does it: attach, type, go away, come back, move, minimise, close, open
/// again, detach, attach again, end from the tray. Each step waits for what must be seen.
class MainJob
{
public:
    /// @param pictures folder for a picture after each step; empty: none
    MainJob(VirtualDesktop &desktop, Target &target, QString program, QString pictures = {});

    /// Stops at the first step that does not hold.
    bool run();
    /// A line for each step, and what was seen at the one that failed.
    QString report() const { return m_report; }

private:
    bool step(const QString &name, const std::function<bool()> &seen, int timeoutMs = 20000);
    /// Shows a thing, again if the program has not taken the keys, until it is seen.
    bool go(int thing, const QString &name, const std::function<bool()> &seen);
    bool openTarget();
    bool attachAndType();
    bool openMenu();
    bool leaveAndReturn();
    bool openSecondWindow();
    bool moveAndMinimise();
    bool closeAndReopen();
    bool detachAndAttach();
    bool endFromTray();

    xcb_window_t findTarget(int thing) const;
    /// The note on the target, as the desktop shows it; 0 if none.
    xcb_window_t note() const;
    QRect noteInTarget() const;

    VirtualDesktop &m_desktop;
    XClient &m_x;
    Target &m_target;
    RunningNorvane m_norvane;
    QString m_pictures;
    QString m_report;
    int m_step = 0;
    QProcess *m_targetProcess = nullptr;
    xcb_window_t m_window = 0;
    QRect m_place;
    QImage m_look;
};

} // namespace norvane::test
