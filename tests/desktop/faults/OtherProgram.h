#pragma once

#include "harness/VirtualDesktop.h"

namespace norvane::test {

/// Settings with which windows of OtherProgram's class carry notes, and of a user to whom Norvane is
/// nothing new: its first notice would take the keyboard. To be called before Norvane starts.
void writeSettings(const VirtualDesktop &desktop);

/// A program with plain windows, which does as it is told: anything that another program on the
/// desktop may do to us.
///
/// Its windows carry notes when their class is tracked. The location of them all is the program's
/// file, so that two programs of different names have different notes.
class OtherProgram
{
public:
    static const QByteArray kClass;

    /// @param name file name of the program; may hold what file names may hold
    OtherProgram(VirtualDesktop &desktop, const QString &name);

    /// False when the program did not start.
    bool start();
    /// The path of its file: what Norvane takes for the location of its windows.
    QString file() const { return m_file; }

    /// Opens a window and waits until the window manager lists it. @return 0 when it did not come
    /// @param title the bytes of the property
    xcb_window_t open(const QByteArray &title, const QByteArray &wmClass = kClass);
    /// Opens many windows. @return the last one
    xcb_window_t openMany(int count, const QByteArray &title);
    void close(xcb_window_t window);

private:
    /// @return the answer; empty when none came
    QByteArray tell(const QByteArray &command);

    VirtualDesktop &m_desktop;
    QString m_file;
    QProcess *m_process = nullptr;
};

} // namespace norvane::test
