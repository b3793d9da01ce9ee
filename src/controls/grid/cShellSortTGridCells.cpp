#include "controls/grid/cShellSortTGridCells.h"

#include "controls/grid/nearly_sorted.h"
#include "controls/grid/sort_keys.h"
#include "platform/RuntimeError.h"

#include <algorithm>
#include <numeric>

namespace norvane {

namespace {

using Order = std::vector<qint32>;

qint32 initialGap(qint32 rows)
{
    qint32 gap = 1;
    for (qint32 next = 1; next < rows; next = 3 * next + 1)
        gap = next;
    return gap;
}

/// @param inOrder whether the first of two entries may stay behind the second
template <class Entry, class InOrder> void shellSort(std::vector<Entry> &entries, const InOrder &inOrder)
{
    const auto count = static_cast<qint32>(entries.size());
    const auto at = [&entries](qint32 position) -> Entry & {
        return entries[static_cast<std::size_t>(position)];
    };
    if (count < 2)
        return;
    if (count == 2) {
        if (inOrder(entries[0], entries[1]))
            std::swap(entries[0], entries[1]);
        return;
    }
    for (qint32 gap = initialGap(count); gap >= 1; gap = (gap - 1) / 3) {
        for (qint32 i = gap; i < count; ++i) {
            const Entry spare = at(i);
            qint32 j = i - gap;
            for (; j >= 0 && !inOrder(spare, at(j)); j -= gap)
                at(j + gap) = at(j);
            at(j + gap) = spare;
        }
    }
}

/// A row and its rank by all keys in one number, so that a sort touches nothing else.
using RankedRow = quint64;
qint32 rankOf(RankedRow entry)
{
    return static_cast<qint32>(entry >> 32);
}

/// The same as shellSort() where equal entries are not in order. Each entry would then move past all
/// its equals, one by one; each turn of a gap comes out as its chains sorted, with the equals in them
/// turned round.
void shellSortTurningEquals(std::vector<RankedRow> &entries)
{
    constexpr qint32 kShortChain = 24;
    const auto count = static_cast<qint32>(entries.size());
    if (count < 3)
        return; // never told to swap
    std::vector<RankedRow> chain;
    for (qint32 gap = initialGap(count); gap >= 1; gap = (gap - 1) / 3) {
        for (qint32 start = 0; start < gap; ++start) {
            chain.clear();
            for (qint32 i = start; i < count; i += gap)
                chain.push_back(entries[static_cast<std::size_t>(i)]);
            const auto above = [](RankedRow a, RankedRow b) { return rankOf(a) > rankOf(b); };
            if (static_cast<qint32>(chain.size()) > kShortChain) {
                std::reverse(chain.begin(), chain.end());
                std::stable_sort(chain.begin(), chain.end(),
                                 [](RankedRow a, RankedRow b) { return rankOf(a) < rankOf(b); });
            } else {
                for (std::size_t i = 1; i < chain.size(); ++i) {
                    const RankedRow spare = chain[i];
                    std::size_t j = i;
                    for (; j > 0 && !above(spare, chain[j - 1]); --j)
                        chain[j] = chain[j - 1];
                    chain[j] = spare;
                }
            }
            qint32 i = start;
            for (const RankedRow entry : chain) {
                entries[static_cast<std::size_t>(i)] = entry;
                i += gap;
            }
        }
    }
}

/// The rows with their ranks by keys that all are one order.
std::vector<RankedRow> rankedRows(const std::vector<SortKeyValues> &keys, const Order &from)
{
    const auto compare = [&keys](qint32 a, qint32 b) {
        for (const SortKeyValues &key : keys) {
            const qint64 one = key.place(a);
            const qint64 other = key.place(b);
            if (one != other)
                return one < other ? -1 : 1;
        }
        return 0;
    };
    const auto isBelow = [&compare](qint32 a, qint32 b) { return compare(a, b) < 0; };
    Order order = nearlySorted(static_cast<qint32>(from.size()), isBelow).value_or(Order());
    if (order.size() != from.size()) {
        order = from;
        std::sort(order.begin(), order.end(), isBelow);
    }
    std::vector<RankedRow> ranked(order.size());
    quint64 rank = 0;
    for (std::size_t i = 0; i < order.size(); ++i) {
        if (i > 0 && compare(order[i - 1], order[i]) != 0)
            ++rank;
        ranked[static_cast<std::size_t>(order[i])] = rank << 32 | static_cast<quint32>(order[i]);
    }
    std::vector<RankedRow> inOrder;
    inOrder.reserve(from.size());
    for (const qint32 row : from)
        inOrder.push_back(ranked[static_cast<std::size_t>(row)]);
    return inOrder;
}

Order sortedByRanks(const std::vector<SortKeyValues> &keys, bool equalIsInOrder, const Order &from)
{
    std::vector<RankedRow> ranked = rankedRows(keys, from);
    if (equalIsInOrder)
        shellSort(ranked, [](RankedRow a, RankedRow b) { return rankOf(a) >= rankOf(b); });
    else if (from.size() == 2)
        shellSort(ranked, [](RankedRow a, RankedRow b) { return rankOf(a) > rankOf(b); });
    else
        shellSortTurningEquals(ranked);
    Order order(ranked.size());
    std::transform(ranked.begin(), ranked.end(), order.begin(),
                   [](RankedRow entry) { return static_cast<qint32>(entry & 0xffffffffU); });
    return order;
}

/// Comparison by comparison, for keys whose answers may contradict each other or raise.
Order sortedByComparing(const std::vector<SortKeyValues> &keys, Order order)
{
    shellSort(order, [&keys](qint32 spare, qint32 other) {
        CellOrder answer;
        for (const SortKeyValues &key : keys) {
            answer = key.compare(spare, other);
            if (!answer.equal)
                break;
        }
        return answer.inOrder;
    });
    return order;
}

} // namespace

void cShellSortTGridCells::setLastSortIndex(int last)
{
    m_lastSortIndex = last;
    m_keys.resize(std::clamp<qsizetype>(last, m_keys.size(), kMostKeys));
}

void cShellSortTGridCells::Clear()
{
    m_lastSortIndex = 0;
    m_keys.clear();
}

cShellSortTGridCells::Key cShellSortTGridCells::key(int index) const
{
    if (index < 1 || index > kMostKeys)
        throw RuntimeError(kErrorInvalidIndex, QStringLiteral("Invalid sort array index."),
                           QStringLiteral("Norvane.cShellSort"));
    return m_keys.value(index - 1);
}

cShellSortTGridCells::Key &cShellSortTGridCells::written(int index)
{
    (void)key(index);
    if (index > m_lastSortIndex)
        m_lastSortIndex = index;
    if (index > m_keys.size())
        m_keys.resize(index);
    return m_keys[index - 1];
}

void cShellSortTGridCells::SortItems(GridCells &cells, QVector<GridRow> &rows, Order from) const
{
    if (cells.rows() < 2)
        return;
    // A key that compares nothing decides, against every row, so that no key behind it is asked; keys
    // beyond those written are such.
    std::vector<SortKeyValues> keys;
    bool isOneOrder = true;
    bool equalIsInOrder = false;
    for (int index = 1; index <= m_lastSortIndex; ++index) {
        const Key of = m_keys.value(index - 1);
        SortKeyValues values(cells, of.column, of.order, of.type);
        const bool isLast = values.comparesNothing();
        equalIsInOrder = !isLast && values.equalIsInOrder();
        if (isLast)
            break;
        isOneOrder = isOneOrder && values.isOneOrder();
        keys.push_back(std::move(values));
    }
    Order standing(static_cast<std::size_t>(cells.rows()));
    std::iota(standing.begin(), standing.end(), 0);
    if (from.empty())
        from = standing;
    const bool decidesNothing = !equalIsInOrder && (keys.empty() || keys.back().equalIsInOrder());
    Order order;
    if (isOneOrder) {
        order = sortedByRanks(keys, equalIsInOrder, from);
    } else {
        if (decidesNothing)
            keys.emplace_back(cells, 0, 0, 0);
        order = sortedByComparing(keys, std::move(from));
    }
    if (order == standing)
        return;
    cells.permute(order);
    QVector<GridRow> moved;
    moved.reserve(rows.size());
    for (const qint32 row : order)
        moved.append(std::move(rows[row]));
    rows.swap(moved);
}

} // namespace norvane
