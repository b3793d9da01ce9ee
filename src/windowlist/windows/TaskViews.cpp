#include "windowlist/windows/TaskViews.h"

#include "windowlist/windows/TaskImages.h"

#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QListView>
#include <QStyledItemDelegate>
#include <QTreeView>

namespace norvane {

namespace {

constexpr double kFirstColumn = 0.4;
constexpr int kLargeCharacters = 15; ///< width of an entry, in characters
constexpr int kSmallCharacters = 34;
constexpr int kLargeLines = 2;
constexpr int kGap = 8;

/// Entries of one size, whatever is in them.
class FixedSizeDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize size;

    QSize sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const override { return size; }
};

} // namespace

TaskViews::TaskViews(QAbstractItemModel &rows, QWidget *parent)
    : QStackedWidget(parent), m_icons(new QListView), m_details(new QTreeView)
{
    m_icons->setItemDelegate(new FixedSizeDelegate(m_icons));
    m_icons->setModel(&rows);
    m_selection = m_icons->selectionModel();
    m_details->setModel(&rows);
    // One selection for both, so that a row stays selected in another view.
    delete m_details->selectionModel();
    m_details->setSelectionModel(m_selection);
    prepare(*m_icons, QStringLiteral("ListView1_Icons"));
    prepare(*m_details, QStringLiteral("ListView1_Details"));

    m_details->setRootIsDecorated(false);
    m_details->setItemsExpandable(false);
    m_details->setUniformRowHeights(true);
    m_details->setAllColumnsShowFocus(true);
    QHeaderView *header = m_details->header();
    header->setSectionsClickable(true);
    header->setSectionsMovable(false);
    header->setStretchLastSection(true);
    connect(header, &QHeaderView::sectionClicked, this, &TaskViews::columnClicked);
    setView(kDetails);
}

void TaskViews::prepare(QAbstractItemView &view, const QString &objectName)
{
    view.setObjectName(objectName);
    view.setAccessibleName(tr("Windows"));
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setSelectionMode(QAbstractItemView::SingleSelection);
    view.setSelectionBehavior(QAbstractItemView::SelectRows);
    view.setTextElideMode(Qt::ElideRight);
    view.setTabKeyNavigation(false);
    view.installEventFilter(this);
    connect(&view, &QAbstractItemView::doubleClicked, this,
            [this](const QModelIndex &index) { emit rowChosen(index.row()); });
    addWidget(&view);
}

QAbstractItemView *TaskViews::currentView() const
{
    return qobject_cast<QAbstractItemView *>(currentWidget());
}

void TaskViews::setView(View view)
{
    const bool hasFocus = currentView()->hasFocus();
    m_view = view;
    if (view == kDetails)
        setCurrentWidget(m_details);
    else
        setCurrentWidget(m_icons);
    shapeIcons();
    setFocusProxy(currentView());
    if (hasFocus)
        currentView()->setFocus();
    if (m_selection->currentIndex().isValid())
        currentView()->scrollTo(m_selection->currentIndex());
}

void TaskViews::shapeIcons()
{
    const QFontMetrics font = fontMetrics();
    const bool isLarge = m_view == kLargeIcons;
    const int side = isLarge ? TaskImages::kLargeSide : TaskImages::kSmallSide;
    m_details->setIconSize({TaskImages::kSmallSide, TaskImages::kSmallSide});
    if (m_view == kDetails)
        return;
    m_icons->setViewMode(isLarge ? QListView::IconMode : QListView::ListMode);
    m_icons->setFlow(m_view == kList ? QListView::TopToBottom : QListView::LeftToRight);
    m_icons->setWrapping(true);
    m_icons->setResizeMode(QListView::Adjust);
    m_icons->setMovement(QListView::Static);
    m_icons->setUniformItemSizes(true);
    m_icons->setWordWrap(isLarge);
    m_icons->setIconSize({side, side});
    const int lines = isLarge ? kLargeLines * font.lineSpacing() + side : qMax(font.lineSpacing(), side);
    const int characters = isLarge ? kLargeCharacters : kSmallCharacters;
    const QSize entry(characters * font.averageCharWidth() + (isLarge ? 0 : side) + kGap, lines + kGap);
    m_icons->setGridSize(entry);
    static_cast<FixedSizeDelegate *>(m_icons->itemDelegate())->size = entry;
}

int TaskViews::selectedRow() const
{
    const QModelIndexList selected = m_selection->selectedIndexes();
    return selected.isEmpty() ? -1 : selected.constFirst().row();
}

void TaskViews::selectRow(int row)
{
    const QModelIndex index = m_icons->model()->index(row, 0);
    if (!index.isValid()) {
        m_selection->clearSelection();
        return;
    }
    m_selection->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    currentView()->scrollTo(index);
}

void TaskViews::divideColumns()
{
    m_details->setColumnWidth(0, qRound(kFirstColumn * m_details->viewport()->width()));
}

bool TaskViews::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if ((key == Qt::Key_Return || key == Qt::Key_Enter) && selectedRow() >= 0) {
            emit rowChosen(selectedRow());
            return true;
        }
    }
    return QStackedWidget::eventFilter(watched, event);
}

void TaskViews::changeEvent(QEvent *event)
{
    QStackedWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        shapeIcons();
}

} // namespace norvane
