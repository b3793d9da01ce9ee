#pragma once

#include "platform/WindowHandle.h"

#include <QAbstractTableModel>
#include <QHash>
#include <QVector>

namespace norvane {

class CTaskList;
class WindowLookup;
class WindowSystem;

/// The rows of the Window List: a window each, with its title and what it shows. They stand in the order
/// in which they came; a sort puts them in order once, and later ones stand at the end again.
///
/// A row's key is "h" and the window's handle in hexadecimal.
class TaskRows : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { kWindow, kLocation, kColumns };
    enum Role {
        kKeyRole = Qt::UserRole, ///< text
        kSmallIconRole,          ///< IconHandle
        kLargeIconRole,          ///< IconHandle
    };

    /// All outlive the rows.
    TaskRows(const WindowSystem &windows, CTaskList &tasks, WindowLookup &lookup);

    /// The window that the rows are shown in, which is not listed.
    void setOwnWindow(WindowHandle window) { m_own = window; }

    /// Brings the rows up to date. A window's location is asked when it is new, has another title or has
    /// none yet. When no window has changed it only finds that out.
    void refresh();

    /// Sorts by a column, case not counting: in rising order, or the other way round from the last time if
    /// that was by the same column.
    void sortBy(int column);

    /// kNoWindow for no row.
    WindowHandle handleAt(int row) const;
    /// -1 when it has none.
    int rowOf(WindowHandle window) const { return m_places.value(window, -1); }
    QString textAt(int row) const { return m_rows.value(row).text; }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    /// The tool tip is both texts.
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Row
    {
        QString key;
        QString text;
        QString location;
        IconHandle smallIcon = 0;
        IconHandle largeIcon = 0;
    };

    void dropInvalid();
    void takeUp();
    void update(int row, int task);
    /// @return whether the location is known
    bool askLocation(Row &row, WindowHandle window);
    void notePlaces();

    const WindowSystem &m_windows;
    CTaskList &m_tasks;
    WindowLookup &m_lookup;
    WindowHandle m_own = kNoWindow;
    QVector<Row> m_rows;
    QHash<WindowHandle, int> m_places;
    quint64 m_seenWindows = 0;
    quint64 m_seenTasks = 0;
    bool m_isUnfinished = true; ///< a location is still being found out
    int m_sortColumn = -1;
    Qt::SortOrder m_sortOrder = Qt::AscendingOrder;
};

/// A window's key, and the window of a key.
QString keyOfWindow(WindowHandle window);
WindowHandle windowOfKey(const QString &key);

} // namespace norvane
