#pragma once

#include "VirtualDesktop.h"

namespace norvane::test {

/// Norvane on a virtual desktop: its process, its notes as the desktop shows them, and its files.
class RunningNorvane
{
public:
    /// @param program path of the executable; nothing starts before start()
    RunningNorvane(VirtualDesktop &desktop, QString program);

    /// Starts the program, again after end(). False when it did not start; it is not armed yet.
    bool start(const QStringList &arguments = {});
    /// Ends it as the end of a session does. True when it left by itself and without an error.
    bool end();
    bool isRunning() const;
    /// Left by itself and without an error.
    bool hasEndedWell() const;
    /// Whether its start is over: its hot keys answer, and it ends as it should when it is asked to.
    bool isArmed() const;
    /// nullptr before the first start()
    QProcess *process() const { return m_process; }
    /// What the present or last run has written on its standard error.
    QString errorOutput() const;

    /// The note on a window, as the desktop shows it; 0 if none is on the screen.
    xcb_window_t noteOn(xcb_window_t target) const;
    /// The same, on the screen or not (its window is on another workspace, or minimised).
    xcb_window_t hiddenNoteOn(xcb_window_t target) const;
    /// Windows that the program shows on this workspace, notes among them.
    QVector<xcb_window_t> shownWindows() const;
    /// Where a note is in its window, in pixels from the corner that a person sees.
    QRect placeIn(xcb_window_t target, xcb_window_t note) const;
    QImage pictureOf(xcb_window_t note) const;
    /// What a note looks like when it has stopped changing but for the text cursor.
    QImage settledPictureOf(xcb_window_t note) const;

    /// Brings a window to the front, with the keyboard.
    bool bringToFront(xcb_window_t window);
    /// Presses the attach key in a window until it has a note. @return the note, 0 if none came
    xcb_window_t attach(xcb_window_t target);
    /// Drags a note by its strip, in steps as a hand makes them; true when it is where it should be.
    bool drag(xcb_window_t note, const QPoint &way);
    /// Types behind the text of a note; true when most of it shows. What is behind may follow.
    bool typeInto(xcb_window_t note, const QString &text);
    /// A window of the program with that in its title, once it has the keyboard; 0 when none comes.
    xcb_window_t windowTitled(const QString &part) const;

    /// Where the database and the bodies are, without a separator at the end.
    QString notesFolder() const;
    QString databaseFile() const;
    /// The rich text of a note as it is on disk; empty if there is none.
    QByteArray body(int id) const;
    /// Runs a statement in the database by the sqlite3 shell. @return what it printed, trimmed
    QString query(const QString &statement) const;

private:
    VirtualDesktop &m_desktop;
    QString m_program;
    QProcess *m_process = nullptr;
};

/// Seconds of processor time that a process has used so far; -1 when that cannot be told.
double processorSeconds(qint64 processId);
/// Pixels in which two pictures differ; all of them if the sizes do.
qint64 differentPixels(const QImage &one, const QImage &other);
/// Whether two pictures show the same but for the text cursor, which may stand in one of them.
bool looksAlike(const QImage &one, const QImage &other);

} // namespace norvane::test
