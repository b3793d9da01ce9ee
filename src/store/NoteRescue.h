#pragma once

#include <QByteArray>
#include <QString>
#include <functional>

namespace norvane {

class Clock;
class FileSystem;
class NoteStore;
class Notifier;

/// Saves what is left of a note whose own saving failed while its window goes.
class NoteRescue
{
public:
    /// @param showOtherwise shows a text where the desktop has no notifications
    NoteRescue(const NoteStore &store, FileSystem &files, const Clock &clock, Notifier &notifier,
               std::function<void(const QString &)> showOtherwise);

    /// Writes the note as a rescue file. The first rescued note is told to the user, with the
    /// folder where this one and later ones are; a note that is lost since even that failed is told
    /// each time. The user is told by a notification, since nothing may wait for an answer while
    /// windows go. Raises nothing.
    /// @param rtf the whole note as rich text
    /// @return the path of the file; empty when it could not be written
    QString rescue(const QString &title, const QByteArray &rtf);

private:
    void tell(const QString &text);

    const NoteStore &m_store;
    FileSystem &m_files;
    const Clock &m_clock;
    Notifier &m_notifier;
    std::function<void(const QString &)> m_showOtherwise;
    bool m_told = false;
};

} // namespace norvane
