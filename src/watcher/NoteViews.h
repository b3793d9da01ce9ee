#pragma once

#include <QStringList>
#include <optional>

namespace norvane {

class NV_RTFEdit;
class NoteGrid;

/// The windows and services that menus, keys and buttons of other windows lead to.
class NoteViews
{
public:
    virtual ~NoteViews() = default;

    /// Shows the dialog that makes a note, and waits for its end.
    virtual void showNewNote() = 0;
    /// Opens a note in an editor window of its own: one of the frame if that is visible, else a free one.
    /// Raises what engine and file system raise, with no window left open.
    /// @param title, location as the list shows them
    virtual void showEditor(int ID, const QString &title, const QString &location) = 0;
    /// Shows the properties of a note, and waits for their end.
    virtual void ShowPropertyPage(int ID) = 0;
    /// Shows the properties of all selected rows of a list, and waits for their end.
    virtual void ShowPropertyPage(NoteGrid &rows) = 0;
    /// Shows the search window.
    /// @param category to search in: 0 all, -1 notes without one, else its ID; nothing: as chosen there
    virtual void showSearch(std::optional<int> category) = 0;
    /// Shows where categories are kept, and waits for its end.
    virtual void showCategories() = 0;
    /// Shows the dialog with the proposed categories, and waits for its end.
    /// @return the chosen names; none when it was cancelled
    virtual QStringList chooseCategories() = 0;

    /// Hands a note over to be sent by mail, as it is stored.
    virtual void SendNorvane(int ID) = 0;
    virtual void AddToFavorites(const QString &title, const QString &location) = 0;
    /// Shows the picker of notes, which puts the contents of the chosen one into an editor.
    virtual void showOpenNote(NV_RTFEdit &RTFObj, const QString &caption) = 0;
    /// Makes a note of the organizer from a text.
    virtual void exportToOutlook(const QString &text) = 0;

    /// Makes notes of what was dropped on a window, and waits for the end of the dialogs. To be called when
    /// the drop has returned.
    /// @param files paths; where there is none, @param text may be a location
    virtual void dropItems(const QStringList &files, const QString &text) = 0;
};

} // namespace norvane
