#pragma once

#include "browser/dialogs/NoteDialog.h"

class QCheckBox;
class QLineEdit;
class QPushButton;

namespace norvane {

class CategoryBox;
class LocationBox;
struct NewNoteDrop;

/// Makes one note that is not tied to a window yet. Every button but "..." unloads it.
class frmNewNote : public NoteDialog
{
    Q_OBJECT

public:
    /// Loads the dialog: the list of categories with the browser's chosen. Raises what the engine raises.
    /// @param services must outlive the dialog
    /// @param drop     the caller's, written by the dialog and outliving it; nullptr when nobody asks
    explicit frmNewNote(const BrowserServices &services, QWidget *parent = nullptr,
                        NewNoteDrop *drop = nullptr);

    /// `Text1`. What its column has no room for is left out.
    void setName(const QString &name);
    /// `Text2`.
    void setLocation(const QString &location);
    /// `chkApply` is hidden unless this shows it.
    void setApplyShown(bool shown);
    /// Chooses a category; the first entry for -1 and 0. Without such a category nothing changes.
    void SetCatItem(int CAT_ID);

    /// What "&OK" does: writes the row and unloads. Works without the dialog being shown, and then leaves
    /// the browser as it is. Raises what the engine raises: with the dialog still loaded when the note was
    /// not made, unloaded when only the browser could not show it.
    void Command1_Click();

    /// "&Cancel", Escape and the window's close button.
    void reject() override;

private:
    void arrange();
    void connectControls();
    void applyClicked();
    void okClicked();

    NewNoteDrop *m_drop;
    QLineEdit *m_name;       ///< `Text1`
    LocationBox *m_location; ///< `Text2`, with `Command4`
    CategoryBox *m_category; ///< `Combo1`, with `Command3`
    QCheckBox *m_active;     ///< `Check1`
    QCheckBox *m_apply;      ///< `chkApply`
    QPushButton *m_ok;       ///< `Command1`
    QPushButton *m_cancel;   ///< `Command2`
};

} // namespace norvane
