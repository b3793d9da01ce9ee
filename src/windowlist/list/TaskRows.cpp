#include "windowlist/list/TaskRows.h"

#include "platform/WindowSystem.h"
#include "watcher/titles.h"
#include "windowlist/CTaskList.h"
#include "windowlist/WindowLookup.h"

#include <algorithm>
#include <numeric>

namespace norvane {

QString keyOfWindow(WindowHandle window)
{
    return u'h' + QString::number(window, 16);
}

WindowHandle windowOfKey(const QString &key)
{
    return key.mid(1).toULongLong(nullptr, 16);
}

TaskRows::TaskRows(const WindowSystem &windows, CTaskList &tasks, WindowLookup &lookup)
    : m_windows(windows), m_tasks(tasks), m_lookup(lookup)
{
}

void TaskRows::refresh()
{
    m_tasks.Refresh();
    const quint64 windows = m_windows.changeCount();
    if (!m_isUnfinished && windows == m_seenWindows && m_tasks.changeCount() == m_seenTasks)
        return;
    m_isUnfinished = false;
    m_seenWindows = windows;
    dropInvalid();
    takeUp();
    m_seenTasks = m_tasks.changeCount();
}

void TaskRows::dropInvalid()
{
    bool dropped = false;
    for (int row = static_cast<int>(m_rows.size()) - 1; row >= 0; --row) {
        if (m_tasks.Valid(0, handleAt(row)))
            continue;
        beginRemoveRows({}, row, row);
        m_rows.removeAt(row);
        endRemoveRows();
        dropped = true;
    }
    if (dropped)
        notePlaces();
}

void TaskRows::takeUp()
{
    QVector<Row> added;
    for (int task = 1; task <= m_tasks.Count(); ++task) {
        const WindowHandle window = m_tasks.hWnd(task);
        if (window == m_own)
            continue;
        if (const int row = rowOf(window); row >= 0) {
            update(row, task);
            continue;
        }
        Row fresh{keyOfWindow(window),
                  strippedTitle(m_windows, m_tasks.Caption(task)),
                  {},
                  m_tasks.hIconSm(task),
                  m_tasks.hIcon(task)};
        m_isUnfinished = !askLocation(fresh, window) || m_isUnfinished;
        added.append(fresh);
    }
    if (added.isEmpty())
        return;
    const int first = static_cast<int>(m_rows.size());
    beginInsertRows({}, first, first + static_cast<int>(added.size()) - 1);
    m_rows += added;
    notePlaces();
    endInsertRows();
}

void TaskRows::update(int row, int task)
{
    Row &shown = m_rows[row];
    const QString text = strippedTitle(m_windows, m_tasks.Caption(task));
    if (shown.text != text || shown.location.isEmpty()) {
        const Row before = shown;
        shown.text = text;
        m_isUnfinished = !askLocation(shown, m_tasks.hWnd(task)) || m_isUnfinished;
        if (shown.text != before.text || shown.location != before.location)
            emit dataChanged(index(row, kWindow), index(row, kLocation), {Qt::DisplayRole, Qt::ToolTipRole});
    }
    // A program may set its icon when its window is there already.
    if (shown.smallIcon != m_tasks.hIconSm(task) || shown.largeIcon != m_tasks.hIcon(task)) {
        shown.smallIcon = m_tasks.hIconSm(task);
        shown.largeIcon = m_tasks.hIcon(task);
        emit dataChanged(index(row, kWindow), index(row, kWindow), {Qt::DecorationRole});
    }
}

bool TaskRows::askLocation(Row &row, WindowHandle window)
{
    const std::optional<QString> location = m_lookup.GetWindowLocation(window);
    if (location)
        row.location = *location;
    return location.has_value();
}

void TaskRows::notePlaces()
{
    m_places.clear();
    for (int row = 0; row < m_rows.size(); ++row)
        m_places.insert(handleAt(row), row);
}

void TaskRows::sortBy(int column)
{
    const bool isSecond = column == m_sortColumn && m_sortOrder == Qt::AscendingOrder;
    m_sortOrder = isSecond ? Qt::DescendingOrder : Qt::AscendingOrder;
    m_sortColumn = column;

    const auto textOf = [column](const Row &row) { return column == kWindow ? row.text : row.location; };
    QVector<int> order(m_rows.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](int left, int right) {
        const int compared = textOf(m_rows[left]).compare(textOf(m_rows[right]), Qt::CaseInsensitive);
        return m_sortOrder == Qt::AscendingOrder ? compared < 0 : compared > 0;
    });

    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    QVector<int> places(order.size());
    QVector<Row> sorted;
    for (int row = 0; row < order.size(); ++row) {
        places[order[row]] = row;
        sorted.append(m_rows[order[row]]);
    }
    m_rows = sorted;
    notePlaces();
    QModelIndexList after;
    for (const QModelIndex &each : before)
        after.append(index(places[each.row()], each.column()));
    changePersistentIndexList(before, after);
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

WindowHandle TaskRows::handleAt(int row) const
{
    return windowOfKey(m_rows.value(row).key);
}

int TaskRows::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int TaskRows::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : kColumns;
}

QVariant TaskRows::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Row &row = m_rows[index.row()];
    switch (role) {
    case Qt::DisplayRole:
        return index.column() == kWindow ? row.text : row.location;
    case Qt::ToolTipRole: // whole, where a view has no room for them
        return row.text + u'\n' + row.location;
    case kKeyRole:
        return row.key;
    case kSmallIconRole:
        return row.smallIcon;
    case kLargeIconRole:
        return row.largeIcon;
    default:
        return {};
    }
}

QVariant TaskRows::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == kWindow ? tr("Window") : tr("Location/URL");
}

} // namespace norvane
