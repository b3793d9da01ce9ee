#pragma once

namespace norvane {

class StickyNote;

/// Makes the windows of sticky notes.
class StickyFactory
{
public:
    virtual ~StickyFactory() = default;

    /// A new note, hidden and clean, already in the list of forms. It belongs to itself and goes
    /// with its unload(). May turn the event loop: the note can be unloaded again before this
    /// returns.
    virtual StickyNote *create() = 0;
};

} // namespace norvane
