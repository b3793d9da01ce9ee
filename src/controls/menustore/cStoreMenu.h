#pragma once

#include "controls/menu/MenuItem.h"

#include <QVector>

class QIODevice;

namespace norvane {

class PopupMenuModel;

/// A snapshot of a menu's items, under a key.
class cStoreMenu
{
public:
    QString Key() const { return m_key; }
    void setKey(const QString &key) { m_key = key; }
    const QVector<MenuItem> &Items() const { return m_items; }
    void setItems(const QVector<MenuItem> &items) { m_items = items; }
    int Count() const { return int(m_items.size()); }

    /// Writes the snapshot where an open file stands. False, with LastError, when the file takes less.
    bool Write(QIODevice &file);
    /// Reads a snapshot from where an open file stands; the file must not be sequential. False, with
    /// LastError, when there is none; the snapshot then has no items.
    bool Read(QIODevice &file);
    /// Adds the items to a menu, which should be empty: parents are told by index.
    void Restore(PopupMenuModel &menu) const;

    /// Why the last Write or Read failed; empty when it did not.
    QString LastError() const { return m_lastError; }

private:
    bool fail(const QString &error);

    QString m_key;
    QVector<MenuItem> m_items;
    QString m_lastError;
};

} // namespace norvane
