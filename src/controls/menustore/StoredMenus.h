#pragma once

#include "controls/menu/MenuItem.h"

#include <QVector>
#include <memory>
#include <vector>

class QIODevice;

namespace norvane {

class cStoreMenu;

/// The snapshots of a menu, in the order of their first storing, and the file that they are kept in.
class StoredMenus
{
public:
    StoredMenus();
    ~StoredMenus();
    StoredMenus(const StoredMenus &) = delete;
    StoredMenus &operator=(const StoredMenus &) = delete;

    int count() const { return int(m_menus.size()); }
    /// Puts a copy of the items under a key, in place of what is there.
    void store(const QString &key, const QVector<MenuItem> &items);
    /// The first snapshot with exactly this key; nullptr if there is none. Good until the next change.
    const cStoreMenu *find(const QString &key) const;

    // Both raise error 9. The file is the one of that name, which is opened and closed here (an existing
    // one is replaced), or else an open one, which stays open and may not be sequential.

    void toFile(QIODevice *openFile, const QString &name);
    /// What there was goes as soon as the file turns out to be one of stored menus. Snapshots in front
    /// of a damaged one stay.
    void fromFile(QIODevice *openFile, const QString &name);

private:
    void write(QIODevice &file);
    void read(QIODevice &file);

    std::vector<std::unique_ptr<cStoreMenu>> m_menus;
};

} // namespace norvane
