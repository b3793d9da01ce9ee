#pragma once

#include <QStackedWidget>

class QAbstractItemModel;
class QAbstractItemView;
class QItemSelectionModel;
class QListView;
class QTreeView;

namespace norvane {

/// A list in four looks over one model and one selection: large icons, small icons, list and details.
class TaskViews : public QStackedWidget
{
    Q_OBJECT

public:
    enum View { kLargeIcons, kSmallIcons, kList, kDetails, kViews };

    /// @p rows outlives it.
    explicit TaskViews(QAbstractItemModel &rows, QWidget *parent = nullptr);

    View view() const { return m_view; }
    void setView(View view);

    /// -1 when none is selected
    int selectedRow() const;
    /// Selects a row and shows it; -1 selects none.
    void selectRow(int row);
    /// Divides the width between the two columns.
    void divideColumns();

signals:
    void columnClicked(int column);
    /// A double click on a row, or Enter.
    void rowChosen(int row);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void prepare(QAbstractItemView &view, const QString &objectName);
    QAbstractItemView *currentView() const;
    void shapeIcons();

    QListView *m_icons;
    QTreeView *m_details;
    QItemSelectionModel *m_selection;
    View m_view = kDetails;
};

} // namespace norvane
