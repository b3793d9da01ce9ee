#pragma once

#include "shell/Forms.h"
#include "watcher/WatchPause.h"

#include <QDialog>
#include <optional>

class QCheckBox;
class QLineEdit;
class QPushButton;

namespace norvane {

class CategoryBox;
struct BrowserServices;

/// What the dialogs of one drop of several items leave for each other and for the routine behind it.
struct NewNoteDrop
{
    bool applyToAll = false;       ///< the box "Apply to all items" was checked
    int appliedCategory = 0;       ///< the category that was chosen with it
    bool newNoteCancelled = false; ///< a dialog was left without a note
};

/// Makes one note that is not tied to a window yet. To be made with `new`: unload() deletes it, and every
/// button but "..." leads there. The watch timer is off as long as the dialog is loaded.
class frmNewNote : public QDialog, public Form
{
    Q_OBJECT

public:
    /// Loads the dialog: the list of categories with the browser's chosen. Raises what the engine raises.
    /// @param services must outlive the dialog
    /// @param drop     the caller's, written by the dialog and outliving it; nullptr when nobody asks
    explicit frmNewNote(const BrowserServices &services, QWidget *parent = nullptr,
                        NewNoteDrop *drop = nullptr);
    ~frmNewNote() override;

    /// Shows the dialog and returns when it is unloaded.
    void showModal();

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

    // Form
    QString formName() const override { return QStringLiteral("frmNewNote"); }
    WindowHandle hWnd() const override { return static_cast<WindowHandle>(winId()); }
    void unload() override;

    /// "&Cancel", Escape and the window's close button.
    void reject() override;

private:
    void arrange();
    void connectControls();
    void browseForLocation();
    void manageCategories();
    void applyClicked();
    void okClicked();
    void cleanLocationBox();

    const BrowserServices &m_services;
    NewNoteDrop *m_drop;
    QLineEdit *m_name;       ///< `Text1`
    QLineEdit *m_location;   ///< `Text2`
    QPushButton *m_browse;   ///< `Command4`
    CategoryBox *m_category; ///< `Combo1`
    QPushButton *m_manage;   ///< `Command3`
    QCheckBox *m_active;     ///< `Check1`
    QCheckBox *m_apply;      ///< `chkApply`
    QPushButton *m_ok;       ///< `Command1`
    QPushButton *m_cancel;   ///< `Command2`
    std::optional<WatchPause> m_pause;
    bool m_unloaded = false;
};

} // namespace norvane
