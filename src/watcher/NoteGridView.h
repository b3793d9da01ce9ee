#pragma once

namespace norvane {

/// The browser, as those who change notes know it.
class NoteGridView
{
public:
    virtual ~NoteGridView() = default;

    /// Shows the notes as they are now.
    virtual void Refresh_Grid() = 0;
    /// `GRD_Refresh`: brings status text, buttons and an open preview in line with the list.
    virtual void refreshAround() = 0;
    /// Loads an open preview anew.
    virtual void refreshPreview() = 0;
    /// `CAT_ID` of the category that is shown; 0 when all are, -1 when those without one are.
    virtual int category() const = 0;
};

} // namespace norvane
