#pragma once

#include "platform/WindowHandle.h"

#include <QStringList>
#include <QVector>

namespace norvane {

class CTaskList;
class FormList;
class SettingsStore;
class WindowSystem;
class clsClips;
struct WatchSettings;

/// What tracking programs works with. Everything outlives it.
struct TrackedProgramsParts
{
    SettingsStore &settings;
    WatchSettings &watch;
    const WindowSystem &windows;
    CTaskList &tasks;
    clsClips &clips;
    FormList &forms;
};

/// Which programs' windows can have notes: the families that the program knows, and those that the user
/// adds. What is changed takes effect at the next look at the desktop, and is stored at once.
class TrackedPrograms
{
public:
    /// A family of programs that is always tracked.
    struct Family
    {
        QString className; ///< of its windows, as the window system tells it
        QString name;      ///< "Web browsers"
    };
    /// A program with windows on the desktop.
    struct Program
    {
        QString className;
        QString caption; ///< of the first of its windows
        int windows = 0;
        QString trackedAs; ///< the family's name, or the entry that fits; empty: not tracked
    };

    explicit TrackedPrograms(const TrackedProgramsParts &parts) : m_parts(parts) {}

    /// Those of today's programs.
    static QVector<Family> families();
    /// The user's entries. Raises 6 when the stored number of them is out of range.
    QStringList own() const;
    /// The programs of the windows on the desktop, by name; not this one.
    QVector<Program> running() const;

    /// Whether a class or part of one can be added: it says something, and does not say what another entry
    /// says already.
    bool mayAdd(const QString &name) const;
    /// Adds a class or part of one, without the blanks around it; nothing where mayAdd() is false.
    void add(const QString &name);
    /// Removes an entry of the user's; the notes on windows that are tracked no more go.
    void remove(const QString &name);

private:
    QString trackedAs(const QString &className) const;
    void follow();

    TrackedProgramsParts m_parts;
};

} // namespace norvane
