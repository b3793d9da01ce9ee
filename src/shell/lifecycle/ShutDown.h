#pragma once

#include <functional>

namespace norvane {

class FormList;
class NoteStore;
class WatchTimer;
struct WatchSettings;

/// Saves every dirty note with `AutoSave`; what cannot be saved stays dirty. Needs the database
/// open. Raises nothing.
void saveDirtyNotes(const FormList &forms);

/// What the shut-down works with. Everything outlives it.
struct ShutDownParts
{
    NoteStore &store;
    WatchSettings &watch;
    WatchTimer &timer;
    FormList &forms;
    /// Clears the preview's flag and unloads it, if it is open; may be empty.
    std::function<void()> unloadPreview;
    /// Ends the event loop; called once, as the last step.
    std::function<void()> endProcess;
};

/// The end of the program: what unloading the frame means. Errors are ignored all along, and it
/// always ends in the end of the process.
class ShutDown
{
public:
    explicit ShutDown(ShutDownParts parts);

    /// The whole sequence. Does nothing when it is under way or over: unloading the frame may lead
    /// here again.
    void run();

    /// The part that saves the user's work and needs no window: stops the timer, saves the notes and
    /// closes the database. For an end that leaves no time for more (the display is gone, the
    /// session ends).
    void saveAndClose();

    bool begun() const { return m_begun; }

private:
    void compact();
    void unloadForms();
    void unloadFrame();

    ShutDownParts m_parts;
    bool m_begun = false;
};

} // namespace norvane
