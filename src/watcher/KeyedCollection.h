#pragma once

#include "platform/RuntimeError.h"
#include "platform/errors.h"

#include <QString>
#include <memory>
#include <vector>

namespace norvane {

/// An ordered collection of records that it owns, by position from 1 or by key. Keys are optional
/// and compare without case. A reference to a record is good until the record is removed.
template <typename Record> class KeyedCollection
{
public:
    /// Adds an empty record at the end; an empty key is none. Raises 457 when the key is taken.
    Record &add(const QString &key)
    {
        if (!key.isEmpty() && find(key) != m_entries.size())
            throw RuntimeError(kErrorDuplicateKey, QStringLiteral("This key is already associated with "
                                                                  "an element of this collection"));
        m_entries.push_back({key, std::make_unique<Record>()});
        ++m_changeCount;
        return *m_entries.back().record;
    }

    int Count() const { return static_cast<int>(m_entries.size()); }
    /// Raises 3265 when there is no such record.
    Record &Item(int position) { return *m_entries[checked(position)].record; }
    Record &Item(const QString &key) { return *m_entries[checked(key)].record; }
    void Remove(int position) { erase(checked(position)); }
    void Remove(const QString &key) { erase(checked(key)); }
    void Clear()
    {
        while (!m_entries.empty())
            erase(m_entries.size() - 1);
    }

    /// The first record that satisfies the condition; nullptr if none does.
    template <typename Condition> Record *firstThat(Condition condition) const
    {
        for (const Entry &entry : m_entries) {
            if (condition(*entry.record))
                return entry.record.get();
        }
        return nullptr;
    }

    /// The records as they are now, for walks during which the collection may change.
    std::vector<Record> copies() const
    {
        std::vector<Record> result;
        result.reserve(m_entries.size());
        for (const Entry &entry : m_entries)
            result.push_back(*entry.record);
        return result;
    }

    /// Grows whenever a record was added or removed.
    quint64 changeCount() const { return m_changeCount; }

private:
    struct Entry
    {
        QString key;
        std::unique_ptr<Record> record;
    };

    size_t find(const QString &key) const
    {
        size_t i = 0;
        while (i < m_entries.size() && m_entries[i].key.compare(key, Qt::CaseInsensitive) != 0)
            ++i;
        return i;
    }

    size_t checked(int position) const
    {
        if (position < 1 || position > Count())
            throw RuntimeError(kErrorItemNotFound, QStringLiteral("Item not found in this collection."));
        return static_cast<size_t>(position) - 1;
    }

    size_t checked(const QString &key) const
    {
        const size_t found = key.isEmpty() ? m_entries.size() : find(key);
        if (found == m_entries.size())
            throw RuntimeError(kErrorItemNotFound, QStringLiteral("Item not found in this collection."));
        return found;
    }

    void erase(size_t index)
    {
        m_entries.erase(m_entries.begin() + static_cast<std::ptrdiff_t>(index));
        ++m_changeCount;
    }

    std::vector<Entry> m_entries;
    quint64 m_changeCount = 0;
};

} // namespace norvane
