#pragma once

#include <QString>

namespace norvane {

class PopupMenuModel;

/// Keys of the entries of `GRDMNU`.
namespace grid_menu {
inline const QString kOpen = QStringLiteral("OPEN");
inline const QString kActive = QStringLiteral("ACTIVE");
inline const QString kNew = QStringLiteral("NEW");
inline const QString kEdit = QStringLiteral("EDIT");
inline const QString kDelete = QStringLiteral("DELETE");
inline const QString kSaveAs = QStringLiteral("SAVEAS");
inline const QString kMail = QStringLiteral("EMAIL");
inline const QString kFavorites = QStringLiteral("FAVORITES");
inline const QString kSearch = QStringLiteral("SEARCH");
inline const QString kProperties = QStringLiteral("PROPERTIES");
} // namespace grid_menu

/// What the entries of `GRDMNU` go by.
struct GridMenuState
{
    bool hasRow = false; ///< whether there is a selected row
    int selectedRows = 0;
    QString location; ///< of the selected row
    bool isActive = false;
    bool hasFavorites = false; ///< whether there is where they go
};

/// Fills the menu and stores it as "MNU_GRID". OPEN is the default item.
void fillGridMenu(PopupMenuModel &menu);
/// Enables the entries, and sets the default item and the caption of ACTIVE. Without a row those that act on
/// one are disabled.
void updateGridMenu(PopupMenuModel &menu, const GridMenuState &state);

} // namespace norvane
