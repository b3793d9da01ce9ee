#pragma once

#include <QString>

namespace norvane {

/// What the New Note dialogs of one drop leave for each other and for the routine behind it.
struct NewNoteDrop
{
    bool applyToAll = false;       ///< the box "Apply to all items" was checked
    int appliedCategory = 0;       ///< the category that was chosen with it
    bool newNoteCancelled = false; ///< a dialog was left without a note
};

/// The New Note dialog `frmNewNote`, as drops use it.
class NewNoteForms
{
public:
    virtual ~NewNoteForms() = default;

    /// Shows the hourglass, or no longer.
    virtual void setBusy(bool busy) = 0;

    /// What stands in a dialog when it comes up.
    struct Contents
    {
        QString name;
        QString location;
        bool hasApply = false; ///< whether the box "Apply to all items" is there
    };
    /// Brings a dialog to the front, and returns when it has gone. Raises what the engine raises when the
    /// dialog cannot be loaded.
    virtual void show(const Contents &contents, NewNoteDrop &drop) = 0;
    /// Presses the OK of a dialog that nobody sees. Raises what the engine raises, with the dialog gone.
    virtual void pressOk(const Contents &contents, NewNoteDrop &drop) = 0;
};

} // namespace norvane
