#pragma once

#include <QByteArray>
#include <QString>

namespace norvane {

class Clock;
class FileSystem;
class NoteStore;
class Prompts;

/// Saves what is left of a note whose own saving failed while its window goes.
class NoteRescue
{
public:
    NoteRescue(const NoteStore &store, FileSystem &files, const Clock &clock, Prompts &prompts);

    /// Writes the note as a rescue file. The first rescued note is told to the user, with the
    /// folder where this one and later ones are; a note that is lost since even that failed is told
    /// each time. Raises nothing.
    /// @param rtf the whole note as rich text
    /// @return the path of the file; empty when it could not be written
    QString rescue(const QString &title, const QByteArray &rtf);

    /// From now on nothing is told: there is no screen any more to tell it on.
    void silence() { m_silent = true; }

private:
    void tell(const QString &text, int icon);

    const NoteStore &m_store;
    FileSystem &m_files;
    const Clock &m_clock;
    Prompts &m_prompts;
    bool m_told = false;
    bool m_silent = false;
};

} // namespace norvane
