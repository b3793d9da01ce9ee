#pragma once

namespace norvane {

/// The browser's note grid, as the watcher knows it.
class NoteGridView
{
public:
    virtual ~NoteGridView() = default;

    /// Shows the notes as they are now.
    virtual void Refresh_Grid() = 0;
    /// `CAT_ID` of the category that is shown; 0 when all are, -1 when those without one are.
    virtual int category() const = 0;
};

} // namespace norvane
