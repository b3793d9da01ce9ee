#include "exchange/import/ImportList.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace norvane {

void ImportList::setRows(QVector<ImportRow> rows)
{
    beginResetModel();
    m_rows = std::move(rows);
    m_order.resize(static_cast<std::size_t>(m_rows.size()));
    std::iota(m_order.begin(), m_order.end(), 0);
    m_checked.assign(m_order.size(), false);
    m_checkedCount = 0;
    endResetModel();
    emit checksChanged();
}

void ImportList::setAllChecked(bool checked)
{
    m_checked.assign(m_order.size(), checked);
    m_checkedCount = checked ? rowCount() : 0;
    checksWereChanged(0, rowCount() - 1);
}

void ImportList::invert()
{
    m_checked.flip();
    m_checkedCount = rowCount() - m_checkedCount;
    checksWereChanged(0, rowCount() - 1);
}

void ImportList::toggle(int row)
{
    if (row < 0 || row >= rowCount())
        return;
    auto checked = m_checked[static_cast<std::size_t>(m_order[static_cast<std::size_t>(row)])];
    checked = !checked;
    m_checkedCount += checked ? 1 : -1;
    checksWereChanged(row, row);
}

QVector<int> ImportList::checkedIDs() const
{
    QVector<int> IDs;
    IDs.reserve(m_checkedCount);
    for (const int each : m_order)
        if (m_checked[static_cast<std::size_t>(each)])
            IDs.append(m_rows[each].ID);
    return IDs;
}

int ImportList::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int ImportList::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : kColumns;
}

QVariant ImportList::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return text(row(index.row()), index.column());
    case Qt::ToolTipRole:
        // A title of somebody else's may look like markup; this shows it as it is written.
        return index.column() <= kURL ? QStringLiteral("<span>%1</span>")
                                            .arg(text(row(index.row()), index.column()).toHtmlEscaped())
                                      : QVariant();
    case Qt::CheckStateRole:
        if (index.column() != kName)
            return {};
        return m_checked[static_cast<std::size_t>(m_order[static_cast<std::size_t>(index.row())])]
                   ? Qt::Checked
                   : Qt::Unchecked;
    default:
        return {};
    }
}

bool ImportList::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::CheckStateRole || !checkIndex(index, CheckIndexOption::IndexIsValid))
        return false;
    if (data(index, role).toInt() != value.toInt())
        toggle(index.row());
    return true;
}

QVariant ImportList::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    switch (section) {
    case kName:
        return tr("Name");
    case kCategory:
        return tr("Category");
    case kURL:
        return tr("Address/URL");
    case kCreated:
        return tr("Date Created");
    case kUpdated:
        return tr("Last Update");
    default:
        return {};
    }
}

Qt::ItemFlags ImportList::flags(const QModelIndex &index) const
{
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (index.isValid() && index.column() == kName)
        flags |= Qt::ItemIsUserCheckable;
    return flags;
}

void ImportList::sort(int column, Qt::SortOrder order)
{
    emit layoutAboutToBeChanged({}, VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    QVector<int> rowsBefore;
    for (const QModelIndex &index : before)
        rowsBefore.append(m_order[static_cast<std::size_t>(index.row())]);

    if (column == kCreated || column == kUpdated) {
        sortBy(
            [column](const ImportRow &row) {
                const QDateTime &date = column == kCreated ? row.DateCreated : row.LastUpdate;
                return date.isValid() ? date.toMSecsSinceEpoch() : std::numeric_limits<qint64>::min();
            },
            order);
    } else {
        sortBy([this, column](const ImportRow &row) { return text(row, column).toCaseFolded(); }, order);
    }

    std::vector<int> places(m_order.size());
    for (std::size_t place = 0; place < m_order.size(); ++place)
        places[static_cast<std::size_t>(m_order[place])] = static_cast<int>(place);
    for (qsizetype i = 0; i < before.size(); ++i)
        changePersistentIndex(before[i],
                              index(places[static_cast<std::size_t>(rowsBefore[i])], before[i].column()));
    emit layoutChanged({}, VerticalSortHint);
}

/// Rows with the same key stay in the order in which they are.
template <typename Key> void ImportList::sortBy(const Key &keyOf, Qt::SortOrder order)
{
    std::vector<decltype(keyOf(m_rows[0]))> keys;
    keys.reserve(m_order.size());
    for (const ImportRow &each : std::as_const(m_rows))
        keys.push_back(keyOf(each));
    std::stable_sort(m_order.begin(), m_order.end(), [&keys, order](int left, int right) {
        const auto &first = keys[static_cast<std::size_t>(order == Qt::AscendingOrder ? left : right)];
        const auto &second = keys[static_cast<std::size_t>(order == Qt::AscendingOrder ? right : left)];
        return first < second;
    });
}

QString ImportList::text(const ImportRow &row, int column) const
{
    switch (column) {
    case kName:
        return row.FriendlyName;
    case kCategory:
        return row.category;
    case kURL:
        return row.URL;
    case kCreated:
        return text(row.DateCreated);
    case kUpdated:
        return text(row.LastUpdate);
    default:
        return {};
    }
}

QString ImportList::text(const QDateTime &date) const
{
    return m_locale.toString(date.date(), QLocale::ShortFormat) + QStringLiteral(" - ") +
           m_locale.toString(date.time(), QLocale::ShortFormat);
}

void ImportList::checksWereChanged(int first, int last)
{
    if (last >= first)
        emit dataChanged(index(first, kName), index(last, kName), {Qt::CheckStateRole});
    emit checksChanged();
}

} // namespace norvane
