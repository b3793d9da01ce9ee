#pragma once

#include "shell/Forms.h"

#include <QDateTime>
#include <QRectF>
#include <QString>

namespace norvane {

/// The plain values that a sticky note keeps of its row and of its target.
struct StickyFields
{
    QDateTime LastUpdate; ///< the row's value, or the time of loading where that is null
    bool AutoSave = false;
    bool TypeEffect = false;
    int ID = 0;
    qint16 formposition = 0;
    QString WindowName;   ///< the target's trimmed caption
    bool Loading = false; ///< while true, changes do not mark the note dirty
    QString FriendlyName;
    WindowHandle ParentHwnd = kNoWindow; ///< the target; kNoWindow once the note has lost it
    QString ParentClassName;
    QString wURL; ///< the location that the note was matched on
};

/// One sticky note on the screen, as its loader fills it. The window behind it is `frmSticky`.
///
/// Rectangles are twips relative to the client area of the target.
class StickyNote : public Form
{
public:
    StickyFields fields;

    /// Puts the note's window into the target. The window is built hidden.
    virtual void setParentWindow(WindowHandle target) = 0;

    /// @param color blue-green-red byte order
    virtual void setTextBackColor(quint32 color) = 0;
    virtual void setToolBar(bool shown) = 0;
    virtual void setAutoURLDetect(bool on) = 0;

    virtual void moveTwips(const QRectF &rect) = 0;
    virtual QRectF rectTwips() const = 0;
    /// Moves the note to a pixel of the target's client area, keeping its size.
    virtual void movePixels(const QPoint &position) = 0;
    /// Outer size in logical pixels.
    virtual QSize sizePixels() const = 0;

    /// Text of `lblFriendlyName`.
    virtual void setCaption(const QString &caption) = 0;
    virtual QString caption() const = 0;
    virtual void clearText() = 0;
    /// Loads a rich text body. Raises what the file system or the text control raises.
    virtual void loadBody(const QString &path) = 0;

    /// Enables or disables the save commands: the enabled state is the note's dirty state.
    virtual void SetSaveMode(bool enabled) = 0;
    /// The whole clean state: SetSaveMode(false) and the text control's own save button.
    virtual void resetSaveState() = 0;
    virtual bool isDirty() const = 0;

    /// Maps the window, once, without activating it.
    virtual void showNote() = 0;
    /// Makes the text lay out again; size, place and save state end as they were.
    virtual void nudge() = 0;

    /// Ends the note's attachment without a question: `mnuFile_Close`.
    virtual void mnuFile_Close_Click() = 0;
    virtual void SaveNote() = 0;
    /// Saves a dirty note with `AutoSave`, or rescues it, needing neither screen nor event loop: for
    /// the end of the program. Raises nothing.
    virtual void saveAtExit() = 0;
};

} // namespace norvane
