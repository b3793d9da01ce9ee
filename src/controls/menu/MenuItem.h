#pragma once

#include <QString>

namespace norvane {

/// Stands for the system menu that holds items: a number that a popup menu makes up, never the ID of
/// an item. 0 is none.
using MenuHandle = qint32;

/// One item of a popup menu, in the order in which a stored menu keeps the fields.
struct MenuItem
{
    QString helpText;         ///< kept for the host
    QString caption;          ///< as passed in, with its markers
    QString displayCaption;   ///< without markers and shortcut text; "-" for a separator
    QString accessKey;        ///< upper-cased; empty without one
    QString shortcutText;     ///< what stood behind the Tab; shown, never obeyed
    qint16 shortcutShift = 0; ///< 1 Shift, 2 Ctrl, 4 Alt
    qint16 shortcutKey = 0;   ///< virtual key code; 0 when the text names none
    qint32 id = 0;
    qint32 actualId = 0; ///< the handle of the child menu if it has one, else the id
    qint32 ItemData = 0; ///< free for the host
    qint32 reserved = 0;
    qint32 parentId = 0;
    qint32 ItemIcon = -1; ///< zero-based index in the image list; -1 for none
    bool Checked = false;
    bool RadioCheck = false; ///< the check is drawn as an option mark
    bool Enabled = true;
    MenuHandle menuHandle = 0; ///< the menu that holds this item
    qint32 height = 0;         ///< last measured, in pixels
    qint32 width = 0;          ///< last measured, in pixels
    bool visible = true;
    qint32 shortcutColumn = 0; ///< x of the shortcut text, in pixels
    QString ItemKey;           ///< need not be unique
    qint32 ItemParentIndex = 0;
    bool Header = false;
    bool Default = false;   ///< drawn bold
    bool OwnerDraw = false; ///< the host measures and draws it
    bool columnBreak = false;
    bool barColumnBreak = false; ///< a column break with a line

    bool isSeparator() const { return caption == QLatin1Char('-'); }
    /// A row that is only looked at: it is never chosen and the keyboard passes over it.
    bool isPassive() const { return Header || caption.startsWith(QLatin1Char('-')); }
    bool hasSubMenu() const { return actualId != id; }
};

} // namespace norvane
