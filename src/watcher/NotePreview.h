#pragma once

namespace norvane {

/// The form "frmQuickView", as those who save notes know it.
class NotePreview
{
public:
    virtual ~NotePreview() = default;

    /// `ID` of the note that is shown; 0 when none is.
    virtual int previewedNote() const = 0;
};

} // namespace norvane
