#pragma once

#include "store/what_is_in_file.h"

#include <QString>

namespace norvane {

class EventLoop;
class NoteStore;
class Prompts;

/// What the password dialog `frmPassword` does, apart from its window.
///
/// It comes up for every file that does not open without a password, and so for files that are no
/// databases too: explanation() tells the user which it is. The caller takes the password; the store is
/// touched only where another database is chosen in the dialog: that one becomes the store's.
class PasswordDialogModel
{
public:
    /// What the window does after a button.
    enum class Next {
        Hide,       ///< the dialog is over
        SelectText, ///< select the text of `txtPassword` and give it the focus
        FocusText,  ///< give `txtPassword` the focus
        Stay,       ///< nothing
    };

    /// @param path the database that the password is for
    PasswordDialogModel(NoteStore &store, Prompts &prompts, EventLoop &events, const QString &path);

    /// Tool tip of `txtPassword`: names the folder of the database.
    QString toolTip() const;
    /// One or two sentences on what was found in the file.
    QString explanation() const { return m_found.text; }
    /// Whether a password can open the file, as far as can be told.
    bool passwordCanHelp() const { return m_found.kind == FileContent::NeedsPassword; }
    /// The database that the password is for; another one after "&Select Database".
    const QString &path() const { return m_path; }
    /// The accepted password; empty when the dialog was cancelled.
    const QString &password() const { return m_password; }

    /// "&OK": takes the password if it opens the file, else says that it does not.
    Next Command1_Click(const QString &text);
    /// "&Cancel".
    Next Command2_Click();
    /// "&Select Database": lets the user choose the folder of another database, or make one there.
    /// One without a password is taken at once; for one with a password the dialog goes on.
    Next Command3_Click();

private:
    Next choose(const QString &folder);
    void takeDatabase();

    NoteStore &m_store;
    Prompts &m_prompts;
    EventLoop &m_events;
    QString m_path;
    bool m_isOther = false; ///< chosen by "&Select Database"
    FoundInFile m_found;
    QString m_password;
};

} // namespace norvane
