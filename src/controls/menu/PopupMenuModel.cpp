#include "controls/menu/PopupMenuModel.h"

#include "controls/menu/caption_markers.h"
#include "controls/menustore/cStoreMenu.h"

#include <type_traits>

namespace norvane {

namespace {

constexpr qint32 kIdBeforeFirst = 2048;
/// Menus have numbers above those of all items.
constexpr MenuHandle kFirstMenu = 0x40000000;

} // namespace

PopupMenuModel::PopupMenuModel() : m_rootMenu(kFirstMenu), m_lastMenu(kFirstMenu), m_lastId(kIdBeforeFirst) {}

PopupMenuModel::~PopupMenuModel() = default;

const MenuItem *PopupMenuModel::item(int lIndex) const
{
    return lIndex >= 1 && lIndex <= Count() ? &m_items.at(lIndex - 1) : nullptr;
}

const MenuItem &PopupMenuModel::at(int lIndex) const
{
    static const MenuItem none;
    const MenuItem *found = item(lIndex);
    return found ? *found : none;
}

MenuItem *PopupMenuModel::find(int lIndex)
{
    return lIndex >= 1 && lIndex <= Count() ? &m_items[lIndex - 1] : nullptr;
}

qint32 PopupMenuModel::nextId()
{
    qint32 id = m_lastId < Count() ? qint32(Count()) : m_lastId + 1;
    const QHash<qint32, int> &held = indexById();
    while (id <= 0 || id >= kFirstMenu || held.contains(id))
        id = id >= kFirstMenu || id <= 0 ? kIdBeforeFirst + 1 : id + 1;
    m_lastId = id;
    return id;
}

MenuItem PopupMenuModel::newItem(const QString &caption, const QString &helpText, qint32 itemData, int icon,
                                 bool checked, bool enabled, const QString &key)
{
    MenuItem made;
    applyCaption(made, caption);
    made.helpText = helpText;
    made.ItemData = itemData;
    made.ItemIcon = icon;
    made.Checked = checked;
    made.Enabled = enabled;
    made.ItemKey = key;
    return made;
}

int PopupMenuModel::AddItem(const QString &sCaption, const QString &sHelptext, qint32 lItemData,
                            int lParentIndex, int lIconIndex, bool bChecked, bool bEnabled,
                            const QString &sKey)
{
    MenuItem made = newItem(sCaption, sHelptext, lItemData, lIconIndex, bChecked, bEnabled, sKey);
    made.id = made.actualId = nextId();
    made.menuHandle = m_rootMenu;
    if (MenuItem *parent = find(lParentIndex)) {
        if (!parent->hasSubMenu()) {
            parent->actualId = ++m_lastMenu;
            m_indexById.insert(parent->actualId, lParentIndex);
        }
        made.menuHandle = parent->actualId;
        made.parentId = parent->id;
        made.ItemParentIndex = lParentIndex;
    }
    m_items.append(made);
    const int index = Count();
    m_indexById.insert(made.id, index);
    m_itemsByMenu[made.menuHandle].append(index);
    changed(Change::Items);
    return index;
}

int PopupMenuModel::InsertItem(int lIndexBefore, const QString &sCaption, const QString &sHelptext,
                               qint32 lItemData, int lIconIndex, bool bChecked, bool bEnabled,
                               const QString &sKey)
{
    const MenuItem *before = item(lIndexBefore);
    if (!before)
        return 0;
    MenuItem made = newItem(sCaption, sHelptext, lItemData, lIconIndex, bChecked, bEnabled, sKey);
    made.menuHandle = before->menuHandle;
    made.parentId = before->parentId;
    made.ItemParentIndex = before->ItemParentIndex;
    made.id = made.actualId = nextId();
    m_items.insert(lIndexBefore - 1, made);
    for (MenuItem &later : m_items) {
        if (later.ItemParentIndex >= lIndexBefore)
            ++later.ItemParentIndex;
    }
    itemsChanged();
    return lIndexBefore;
}

bool PopupMenuModel::ReplaceItem(int lIndex, const QString &sCaption, const QString &sHelptext,
                                 qint32 lItemData, int lIconIndex, bool bChecked, bool bEnabled,
                                 const QString &sKey)
{
    MenuItem *old = find(lIndex);
    if (!old)
        return false;
    MenuItem made = newItem(sCaption, sHelptext, lItemData, lIconIndex, bChecked, bEnabled, sKey);
    made.id = old->id;
    made.actualId = old->actualId;
    made.menuHandle = old->menuHandle;
    made.parentId = old->parentId;
    made.ItemParentIndex = old->ItemParentIndex;
    *old = made;
    changed(Change::Size);
    return true;
}

void PopupMenuModel::RemoveItem(int lIndex)
{
    remove(lIndex, true);
}

void PopupMenuModel::ClearSubMenusOfItem(int lIndex)
{
    remove(lIndex, false);
}

void PopupMenuModel::remove(int lIndex, bool withItem)
{
    if (!item(lIndex))
        return;
    // A parent stands before its children: one walk finds all that goes, and every new index.
    QVector<int> newIndex(Count() + 1, 0);
    QVector<bool> goes(Count() + 1, false);
    QVector<MenuItem> kept;
    kept.reserve(Count());
    goes[lIndex] = true;
    for (int i = 1; i <= Count(); ++i) {
        MenuItem current = m_items.at(i - 1);
        if (current.ItemParentIndex > 0 && goes.at(current.ItemParentIndex))
            goes[i] = true;
        if (goes.at(i) && (withItem || i != lIndex))
            continue;
        if (current.ItemParentIndex > 0)
            current.ItemParentIndex = newIndex.at(current.ItemParentIndex);
        kept.append(current);
        newIndex[i] = int(kept.size());
    }
    m_items = kept;
    itemsChanged();
}

void PopupMenuModel::Clear()
{
    m_items.clear();
    itemsChanged();
}

void PopupMenuModel::itemsChanged()
{
    m_isIndexed = false;
    changed(Change::Items);
}

const QHash<qint32, int> &PopupMenuModel::indexById() const
{
    if (!m_isIndexed) {
        m_indexById.clear();
        m_itemsByMenu.clear();
        for (int i = 1; i <= Count(); ++i) {
            const MenuItem &current = m_items.at(i - 1);
            m_indexById.insert(current.id, i);
            if (current.hasSubMenu())
                m_indexById.insert(current.actualId, i);
            m_itemsByMenu[current.menuHandle].append(i);
        }
        m_isIndexed = true;
    }
    return m_indexById;
}

const QHash<MenuHandle, QVector<int>> &PopupMenuModel::itemsByMenu() const
{
    indexById();
    return m_itemsByMenu;
}

qint32 PopupMenuModel::IDForItem(int lIndex) const
{
    return at(lIndex).actualId;
}

int PopupMenuModel::ItemForID(qint32 ID) const
{
    return indexById().value(ID);
}

int PopupMenuModel::IndexForKey(const QString &sKey) const
{
    for (int i = 1; i <= Count(); ++i) {
        if (m_items.at(i - 1).ItemKey == sKey)
            return i;
    }
    return 0;
}

MenuHandle PopupMenuModel::subMenu(int lIndex) const
{
    if (lIndex == 0)
        return m_rootMenu;
    const MenuItem &found = at(lIndex);
    return found.hasSubMenu() ? found.actualId : 0;
}

QVector<int> PopupMenuModel::itemsOf(MenuHandle menu) const
{
    return itemsByMenu().value(menu);
}

bool PopupMenuModel::hasMenu(MenuHandle menu) const
{
    return menu == m_rootMenu || indexById().contains(menu);
}

template <typename Value>
void PopupMenuModel::set(int lIndex, Value MenuItem::*field, std::type_identity_t<Value> value, Change change)
{
    MenuItem *current = find(lIndex);
    if (!current || current->*field == value)
        return;
    current->*field = value;
    changed(change);
}

void PopupMenuModel::setCaption(int lIndex, const QString &sCaption)
{
    MenuItem *current = find(lIndex);
    if (!current || current->caption == sCaption)
        return;
    applyCaption(*current, sCaption);
    changed(Change::Size);
}

void PopupMenuModel::setItemKey(int lIndex, const QString &sKey)
{
    if (MenuItem *current = find(lIndex))
        current->ItemKey = sKey;
}

void PopupMenuModel::setItemData(int lIndex, qint32 lItemData)
{
    if (MenuItem *current = find(lIndex))
        current->ItemData = lItemData;
}

void PopupMenuModel::setItemIcon(int lIndex, int lIconIndex)
{
    set(lIndex, &MenuItem::ItemIcon, lIconIndex, Change::Look);
}

void PopupMenuModel::setChecked(int lIndex, bool bChecked)
{
    set(lIndex, &MenuItem::Checked, bChecked, Change::Look);
}

void PopupMenuModel::setRadioCheck(int lIndex, bool bRadioCheck)
{
    set(lIndex, &MenuItem::RadioCheck, bRadioCheck, Change::Look);
}

bool PopupMenuModel::Enabled(int lIndex) const
{
    const MenuItem *found = item(lIndex);
    return found && found->Enabled;
}

void PopupMenuModel::setEnabled(int lIndex, bool bEnabled)
{
    set(lIndex, &MenuItem::Enabled, bEnabled, Change::Look);
}

void PopupMenuModel::setHeader(int lIndex, bool bHeader)
{
    set(lIndex, &MenuItem::Header, bHeader, Change::Size);
}

void PopupMenuModel::setOwnerDraw(int lIndex, bool bOwnerDraw)
{
    set(lIndex, &MenuItem::OwnerDraw, bOwnerDraw, Change::Size);
}

void PopupMenuModel::setDefault(int lIndex, bool bDefault)
{
    set(lIndex, &MenuItem::Default, bDefault, Change::Size);
}

void PopupMenuModel::GroupToggle(int lIndex)
{
    const MenuItem *chosen = item(lIndex);
    if (!chosen || chosen->isPassive())
        return;
    const QVector<int> menu = itemsOf(chosen->menuHandle);
    const qsizetype place = menu.indexOf(lIndex);
    const auto isBorder = [&](qsizetype at) { return m_items.at(menu.at(at) - 1).isPassive(); };
    qsizetype first = place;
    while (first > 0 && !isBorder(first - 1))
        --first;
    for (qsizetype i = first; i < menu.size() && !isBorder(i); ++i) {
        if (i != place && RadioCheck(menu.at(i)))
            setChecked(menu.at(i), false);
    }
    setRadioCheck(lIndex, true);
    setChecked(lIndex, true);
}

void PopupMenuModel::setMeasured(int lIndex, int width, int height)
{
    if (MenuItem *current = find(lIndex)) {
        current->width = width;
        current->height = height;
    }
}

void PopupMenuModel::setShortcutColumn(int lIndex, int x)
{
    if (MenuItem *current = find(lIndex))
        current->shortcutColumn = x;
}

void PopupMenuModel::Store(const QString &key)
{
    m_stored.store(key, m_items);
}

bool PopupMenuModel::Restore(const QString &key)
{
    const cStoreMenu *snapshot = m_stored.find(key);
    if (!snapshot)
        return false;
    Clear();
    snapshot->Restore(*this);
    return true;
}

void PopupMenuModel::StoreToFile(QIODevice *iFile, const QString &sFile)
{
    m_stored.toFile(iFile, sFile);
}

void PopupMenuModel::RestoreFromFile(QIODevice *iFile, const QString &sFile)
{
    m_stored.fromFile(iFile, sFile);
}

} // namespace norvane
