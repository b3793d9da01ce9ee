#pragma once

#include <QStringList>

namespace norvane {

class EventLoop;
class FileSystem;
class FormList;
class NewNoteForms;
class NoteGridView;

/// Makes notes of what was dropped on one of the program's windows, with the New Note dialog.
class DropRoutine
{
public:
    /// All must outlive it.
    struct Parts
    {
        const FormList &forms;
        const FileSystem &files;
        EventLoop &events;
        NewNoteForms &dialogs;
        NoteGridView &browser;
    };
    explicit DropRoutine(const Parts &parts) : m_parts(parts) {}

    /// To be called when the drop has returned to the program that it comes from: it may show dialogs. A
    /// second drop on the way only refreshes the list. Raises nothing: a fault ends it, and the notes made
    /// so far stay.
    /// @param files paths; those that are not there are left out
    /// @param text  is looked at when there is no file
    void run(const QStringList &files, const QString &text);

private:
    void makeNotes(const QStringList &files, QString text);
    void makeNotesOf(const QStringList &files);

    Parts m_parts;
    bool m_isRunning = false;
};

} // namespace norvane
