#pragma once

#include "controls/menu/MenuItem.h"
#include "controls/menustore/StoredMenus.h"

#include <QHash>
#include <QVector>

namespace norvane {

/// The items of a popup menu and of all its sub menus, as one list, indexed from 1: a parent stands
/// before its children. It knows nothing of a window; NVPopupMenu shows it.
///
/// Where an index is of no item, a setter does nothing and a getter gives an empty value (-1 for an
/// icon). The list may hold ten thousands of items: appending, finding by ID and walking a menu do
/// not depend on their number.
class PopupMenuModel
{
public:
    PopupMenuModel();
    virtual ~PopupMenuModel();
    PopupMenuModel(const PopupMenuModel &) = delete;
    PopupMenuModel &operator=(const PopupMenuModel &) = delete;

    int Count() const { return int(m_items.size()); }

    /// Appends an item and returns its index. caption_markers.h tells what a caption may hold.
    /// @param lParentIndex 0 for a top item; an item that does not exist counts as 0
    int AddItem(const QString &sCaption, const QString &sHelptext = {}, qint32 lItemData = 0,
                int lParentIndex = 0, int lIconIndex = -1, bool bChecked = false, bool bEnabled = true,
                const QString &sKey = {});
    /// Puts an item before another one, into the same menu; later indexes grow by one. Returns its
    /// index; 0 when there is no item to put it before.
    int InsertItem(int lIndexBefore, const QString &sCaption, const QString &sHelptext = {},
                   qint32 lItemData = 0, int lIconIndex = -1, bool bChecked = false, bool bEnabled = true,
                   const QString &sKey = {});
    /// Makes a new item of one that keeps its place, its ID and its sub menu. False if there is none.
    bool ReplaceItem(int lIndex, const QString &sCaption, const QString &sHelptext = {}, qint32 lItemData = 0,
                     int lIconIndex = -1, bool bChecked = false, bool bEnabled = true,
                     const QString &sKey = {});
    /// Removes an item with all that hangs on it; later indexes shrink.
    void RemoveItem(int lIndex);
    /// Removes what hangs on an item. Its sub menu stays, empty.
    void ClearSubMenusOfItem(int lIndex);
    /// Removes all items and sub menus. IDs are not given a second time; snapshots stay.
    void Clear();

    /// The ID, or the handle of the child menu if the item has one; 0 if there is no such item.
    qint32 IDForItem(int lIndex) const;
    /// The item of that ID or child menu; 0 if there is none.
    int ItemForID(qint32 ID) const;
    /// The first item with exactly this key; 0 if there is none.
    int IndexForKey(const QString &sKey) const;

    QString Caption(int lIndex) const { return at(lIndex).caption; }
    void setCaption(int lIndex, const QString &sCaption);
    QString HelpText(int lIndex) const { return at(lIndex).helpText; }
    QString ItemKey(int lIndex) const { return at(lIndex).ItemKey; }
    void setItemKey(int lIndex, const QString &sKey);
    qint32 ItemData(int lIndex) const { return at(lIndex).ItemData; }
    void setItemData(int lIndex, qint32 lItemData);
    int ItemParentIndex(int lIndex) const { return at(lIndex).ItemParentIndex; }
    int ItemIcon(int lIndex) const { return at(lIndex).ItemIcon; }
    void setItemIcon(int lIndex, int lIconIndex);
    bool Checked(int lIndex) const { return at(lIndex).Checked; }
    void setChecked(int lIndex, bool bChecked);
    bool RadioCheck(int lIndex) const { return at(lIndex).RadioCheck; }
    void setRadioCheck(int lIndex, bool bRadioCheck);
    bool Enabled(int lIndex) const;
    void setEnabled(int lIndex, bool bEnabled);
    bool Header(int lIndex) const { return at(lIndex).Header; }
    void setHeader(int lIndex, bool bHeader);
    bool OwnerDraw(int lIndex) const { return at(lIndex).OwnerDraw; }
    void setOwnerDraw(int lIndex, bool bOwnerDraw);
    bool Default(int lIndex) const { return at(lIndex).Default; }
    void setDefault(int lIndex, bool bDefault);

    /// Makes an item the chosen one of its radio group: checked and a radio item, the other radio items
    /// unchecked. A group ends at separators and headers of the same menu.
    void GroupToggle(int lIndex);

    /// The menu that holds an item.
    MenuHandle hMenu(int lIndex) const { return at(lIndex).menuHandle; }
    /// In pixels, as last measured; 0 before.
    int MenuItemHeight(int lIndex) const { return at(lIndex).height; }
    int MenuItemWidth(int lIndex) const { return at(lIndex).width; }

    QString Tag() const { return m_tag; }
    void setTag(const QString &tag) { m_tag = tag; }

    /// Keeps a copy of the items under a key, in place of an earlier one of that key.
    void Store(const QString &key);
    /// Takes the items of a snapshot in place of those there are. False, and nothing happens, when there
    /// is no snapshot of that key.
    bool Restore(const QString &key);
    /// Writes and reads all snapshots: see StoredMenus::toFile and fromFile.
    void StoreToFile(QIODevice *iFile, const QString &sFile = {});
    void RestoreFromFile(QIODevice *iFile, const QString &sFile = {});
    const StoredMenus &storedMenus() const { return m_stored; }

    // For views.

    /// nullptr when there is no such item. Good until the items change.
    const MenuItem *item(int lIndex) const;
    const QVector<MenuItem> &items() const { return m_items; }
    MenuHandle rootMenu() const { return m_rootMenu; }
    /// The sub menu of an item; 0 if it has none. Of index 0: the root menu.
    MenuHandle subMenu(int lIndex) const;
    /// The indexes of the items of a menu, in their order; empty if there is no such menu.
    QVector<int> itemsOf(MenuHandle menu) const;
    /// False when no item has that sub menu any more.
    bool hasMenu(MenuHandle menu) const;

protected:
    enum class Change {
        Items, ///< indexes are others than before
        Size,  ///< an item has to be measured anew
        Look,  ///< an item has to be painted anew
    };
    virtual void changed(Change) {}

    void setMeasured(int lIndex, int width, int height);
    void setShortcutColumn(int lIndex, int x);

private:
    const MenuItem &at(int lIndex) const;
    MenuItem *find(int lIndex);
    template <typename Value>
    void set(int lIndex, Value MenuItem::*field, std::type_identity_t<Value> value, Change change);
    MenuItem newItem(const QString &caption, const QString &helpText, qint32 itemData, int icon, bool checked,
                     bool enabled, const QString &key);
    qint32 nextId();
    void remove(int lIndex, bool withItem);
    void itemsChanged();
    const QHash<qint32, int> &indexById() const;
    const QHash<MenuHandle, QVector<int>> &itemsByMenu() const;

    QVector<MenuItem> m_items;
    MenuHandle m_rootMenu;
    MenuHandle m_lastMenu;
    qint32 m_lastId;
    QString m_tag;
    StoredMenus m_stored;
    /// What finds items; filled when it is asked for.
    mutable QHash<qint32, int> m_indexById; ///< by ID and by child menu
    mutable QHash<MenuHandle, QVector<int>> m_itemsByMenu;
    mutable bool m_isIndexed = true;
};

} // namespace norvane
