#include "browser/grid/NoteGrid.h"

#include "browser/grid/NoteRows.h"
#include "browser/grid/note_columns.h"
#include "browser/grid/note_grid_commands.h"
#include "browser/grid/note_grid_menu.h"
#include "controls/BusyPointer.h"
#include "controls/gridview/vbalGrid.h"
#include "controls/menuview/NVPopupMenu.h"
#include "platform/RuntimeError.h"
#include "platform/Shell.h"
#include "platform/errors.h"
#include "richtext/virtual_keys.h"
#include "shell/numeric_prefix.h"
#include "shell/settings_keys.h"
#include "store/NoteStore.h"
#include "watcher/NoteViews.h"

#include <QLabel>
#include <QMouseEvent>
#include <QScopeGuard>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

namespace norvane {

namespace {

constexpr int kActiveWidth = 20;
constexpr int kCategoryBarTwips = 365;
constexpr int kRowsBeforeWorking = 100;
constexpr int kRowsOfFirstPicture = 100; // more than a screen has

struct Column
{
    int number;
    const char *key;
    const char *header = "";
    const settings::Key *width = nullptr; ///< where its width is kept; nullptr for a hidden one
};

const Column kColumns[] = {
    {kColumnTitle, "Name", QT_TRANSLATE_NOOP("NoteGrid", "Title"), &settings::kColumnTitleWidth},
    {kColumnDateCreated, "DateCreated", QT_TRANSLATE_NOOP("NoteGrid", "Date Created"),
     &settings::kColumnDateCreatedWidth},
    {kColumnLastUpdate, "LastUpdate", QT_TRANSLATE_NOOP("NoteGrid", "Last Update"),
     &settings::kColumnLastUpdateWidth},
    {kColumnLocation, "Location", QT_TRANSLATE_NOOP("NoteGrid", "Location"), &settings::kColumnLocationWidth},
    {kColumnType, "Type", QT_TRANSLATE_NOOP("NoteGrid", "Type"), &settings::kColumnTypeWidth},
    {kColumnID, "ID"},
    {kColumnDC, "DC"},
    {kColumnLU, "LU"},
    {kColumnCategory, "Category", QT_TRANSLATE_NOOP("NoteGrid", "Category"), &settings::kColumnCategoryWidth},
};

/// Pixels; the default where the number in the settings is too large for one.
int storedWidth(const SettingsStore &store, const settings::Key &key)
{
    try {
        return numericPrefixInt(settings::read(store, key));
    } catch (const RuntimeError &) {
        return numericPrefixInt(key.defaultValue.toString());
    }
}

/// Has the grid draw nothing, as long as it lives.
class RedrawOff
{
public:
    explicit RedrawOff(vbalGrid &grid) : m_grid(grid) { m_grid.setRedraw(false); }
    ~RedrawOff() { m_grid.setRedraw(true); }
    RedrawOff(const RedrawOff &) = delete;
    RedrawOff &operator=(const RedrawOff &) = delete;

private:
    vbalGrid &m_grid;
};

} // namespace

NoteGrid::NoteGrid(const BrowserServices &services, QWidget *parent)
    : QWidget(parent), m_services(services), m_headerImages(noteHeaderImages()), m_grid(new vbalGrid(this)),
      m_category(new QLabel(this)), m_empty(new QLabel(m_grid)), m_menu(std::make_unique<NVPopupMenu>())
{
    m_listing = std::make_unique<NoteListing>(*m_grid);
    m_grid->setObjectName(QStringLiteral("GRD"));
    m_grid->setAccessibleName(tr("Notes"));
    m_category->setObjectName(QStringLiteral("lblCategory"));
    m_category->setTextFormat(Qt::PlainText);
    m_category->setContentsMargins(4, 0, 4, 0);
    // A name stands where lines begin, whatever it is written in.
    m_category->setAlignment(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter) |
                             Qt::AlignAbsolute);
    QFont bold = m_category->font();
    bold.setBold(true);
    m_category->setFont(bold);
    m_category->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    const int height = services.twips.toPixels(QRectF(0, 0, 0, kCategoryBarTwips)).height();
    m_category->setMinimumHeight(std::max(height, m_category->fontMetrics().height() + 6));
    m_category->setVisible(false);
    m_category->installEventFilter(this);
    m_empty->setObjectName(QStringLiteral("lblEmpty"));
    m_empty->setAlignment(Qt::AlignCenter);
    m_empty->setWordWrap(true);
    m_empty->setMargin(12);
    m_empty->setTextFormat(Qt::PlainText);
    m_empty->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_empty->setVisible(false);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_category);
    layout->addWidget(m_grid, 1);
    setFocusProxy(m_grid);

    makeColumns();
    makeMenu();
    startSort();
    connectGrid();
}

NoteGrid::~NoteGrid() = default;

void NoteGrid::makeColumns()
{
    vbalGrid &grid = *m_grid;
    grid.setImageList(&m_images);
    grid.setHeaderImageList(&m_headerImages);
    grid.setShellIcons([this](const QString &path) { return m_fileIcons(m_services.shell.iconNames(path)); });
    grid.setHighlightSelectedIcons(false);
    grid.setGridLines(true);
    grid.setRowMode(true);
    grid.setDrawFocusRectangle(true);
    grid.setMultiSelect(true);
    grid.setHeaderButtons(true);
    grid.setKeySearchColumn(kColumnTitle);
    grid.setHeader(true);
    grid.AddColumn(QStringLiteral("Active"), {}, kAlignCenter, 0, kActiveWidth);
    for (const Column &column : kColumns) {
        const QString header = *column.header == '\0' ? QString() : tr(column.header);
        const int width = column.width ? storedWidth(m_services.settings, *column.width) : 0;
        grid.AddColumn(QString::fromLatin1(column.key), header, kAlignLeft, kNoGridIcon, width,
                       column.width != nullptr);
    }
}

void NoteGrid::makeMenu()
{
    m_menu->setObjectName(QStringLiteral("GRDMNU"));
    m_menu->setImageList(&m_images);
    m_menu->setHwndOwner(this);
    m_menu->setGradientHighlight(true);
    fillGridMenu(*m_menu);
    m_menu->CreateSubClass();
    connect(m_menu.get(), &NVPopupMenu::Click, this,
            [this](int item) { runGridCommand(*this, m_services, m_menu->ItemKey(item)); });
}

void NoteGrid::startSort()
{
    cShellSortTGridCells &sort = m_grid->SortObject();
    sort.Clear();
    sort.setSortColumn(1, kColumnActive);
    sort.setSortOrder(1, kSortAscending);
    sort.setLastSortIndex(1);
    sort.setSortType(1, kSortTextNoCase);
    m_grid->Sort();
}

void NoteGrid::connectGrid()
{
    connect(m_grid, &vbalGrid::ColumnClick, this, &NoteGrid::sortBy);
    connect(m_grid, &vbalGrid::ColumnWidthStart, this, [this](int column, bool &cancel) {
        cancel = cancel || m_grid->ColumnKey(column) == QStringLiteral("Active");
    });
    connect(m_grid, &vbalGrid::ColumnWidthChanged, this,
            [this](int position, int, int width) { keepWidth(position, width); });
    connect(m_grid, &vbalGrid::KeyDown, this, &NoteGrid::keyDown);
    connect(m_grid, &vbalGrid::MouseDown, this, &NoteGrid::mouseDown);
    connect(m_grid, &vbalGrid::MouseUp, this, [this](const QMouseEvent *event) {
        if (event->button() == Qt::RightButton)
            showMenu(event->position().toPoint());
    });
    connect(m_grid, &vbalGrid::DblClick, this, &NoteGrid::rowDoubleClicked);
    connect(m_grid, &vbalGrid::MenuKey, this, &NoteGrid::showMenu);
    connect(m_grid, &vbalGrid::Dropped, this, [this](const QStringList &files, const QString &text) {
        m_services.views.dropItems(files, text);
    });
    connect(m_grid, &vbalGrid::SelectionChange, this,
            [this](int row, int column) { emit RowChange(row, column, RowID()); });
    m_grid->installEventFilter(this);
    m_grid->viewport()->installEventFilter(this);
}

void NoteGrid::setGridDB(dao::Database *database)
{
    m_database = database;
    m_listing->forget();
}

void NoteGrid::setGridRS(std::unique_ptr<dao::Recordset> rows)
{
    m_listing->forget();
    m_rows = std::move(rows);
}

QString NoteGrid::statement() const
{
    QString where;
    if (FilterCategory == -1)
        where = QStringLiteral(" Where Cat_ID= 0");
    else if (FilterCategory != 0)
        where = QStringLiteral(" Where Cat_ID=%1").arg(FilterCategory);
    return QStringLiteral("select ID,Active,FriendlyName,DateCreated,LastUpdate,URL,Cat_ID from memos") +
           where + QStringLiteral(" order by FriendlyName");
}

void NoteGrid::showCategory()
{
    if (FilterCategory == -1)
        m_category->setText(tr(" No Category"));
    else if (FilterCategory != 0)
        m_category->setText(FilterCategoryText);
    else if (m_isCategoryShown)
        m_category->setText(tr(" All Categories"));
}

void NoteGrid::Refresh_Grid()
{
    const bool isBrowser = objectName() == QStringLiteral("GRD");
    if (isBrowser && m_services.isFrameVisible && !m_services.isFrameVisible())
        return;
    const int scroll = m_grid->vScrollValue();
    try {
        const RedrawOff drawsNothing(*m_grid);
        const BusyPointer busy;
        NoteRows rows(*m_grid, m_services.store, m_services.shell);
        const int row = m_grid->Rows() > 0 ? m_grid->SelectedRow() : 0;
        const int column = m_grid->SelectedCol();
        const NoteListing::Source source{m_rows.get(), m_database, statement()};
        if (!m_listing->update(source, rows))
            read(source, rows);
        if (!m_rows)
            showCategory();
        selectAgain(row, scroll);
        if (column >= 1)
            m_grid->setSelectedCol(column);
    } catch (const RuntimeError &) {
        showEmptyLabel();
        throw;
    }
    showEmptyLabel();
}

/// Reads all rows. That of many in the browser is told; what was found is to be seen before all of it is
/// read.
void NoteGrid::read(const NoteListing::Source &source, NoteRows &rows)
{
    bool saysWorking = false;
    const auto sayReady = qScopeGuard([&] {
        if (saysWorking)
            emit Working({});
    });
    m_listing->read(source, rows, [&] {
        if (!saysWorking && m_grid->Rows() > kRowsBeforeWorking && objectName() == QStringLiteral("GRD")) {
            saysWorking = true;
            emit Working(tr("Working..."));
        }
        if (m_rows && m_grid->Rows() == kRowsOfFirstPicture)
            showAsItIs();
    });
}

/// Has what is there drawn while more is read.
void NoteGrid::showAsItIs()
{
    m_grid->setRedraw(true);
    m_grid->viewport()->repaint();
    m_grid->setRedraw(false);
}

/// A fault leaves the rows as they are.
void NoteGrid::selectAgain(int row, int scroll)
{
    try {
        m_grid->setVScrollValue(scroll);
        if (m_grid->Rows() == 0)
            return;
        if (row == 0) {
            m_grid->setSelectedRow(1);
            return;
        }
        const int selected = std::min(row, m_grid->Rows());
        m_grid->setSelectedRow(selected);
        m_grid->EnsureVisible(selected, 0); // the row: someone may look at the columns at the end
    } catch (const RuntimeError &) {
        return;
    }
}

void NoteGrid::showEmptyLabel()
{
    const bool isEmpty = m_grid->Rows() == 0 && !m_rows;
    QString text;
    if (FilterCategory != 0)
        text = tr("No notes in this category. Press Ins to make one.");
    else if (m_attachKey.isEmpty())
        text = tr("No notes yet. Make the first one with \"Add a new note\" (Ins).");
    else
        text = tr("No notes yet. Make the first one with \"Add a new note\" (Ins), or with %1 in any window.")
                   .arg(m_attachKey);
    m_empty->setText(isEmpty ? text : QString());
    m_empty->setVisible(isEmpty);
}

void NoteGrid::setEmptyHint(const QString &attachKey)
{
    m_attachKey = attachKey;
    if (m_empty->isVisibleTo(this))
        showEmptyLabel();
}

int NoteGrid::RowID() const
{
    return GetCelText(Row(), m_grid->ColumnIndex(QStringLiteral("ID"))).toInt();
}

int NoteGrid::Rows() const
{
    return m_grid->Rows();
}

int NoteGrid::Row() const
{
    return m_grid->SelectedRow();
}

int NoteGrid::SelectedRows() const
{
    int count = 0;
    for (int row = 1; row <= m_grid->Rows(); ++row)
        count += m_grid->CellSelected(row, kColumnTitle) ? 1 : 0;
    return count;
}

QStringList NoteGrid::selectedCells(int Col) const
{
    QStringList texts;
    for (int row = 1; row <= m_grid->Rows(); ++row) {
        if (m_grid->CellSelected(row, kColumnTitle))
            texts.append(GetCelText(row, Col));
    }
    return texts;
}

bool NoteGrid::CellSelected(int Row, int Col) const
{
    return m_grid->CellSelected(Row, Col);
}

QString NoteGrid::GetCelText(int Row, int Col) const
{
    const bool isThere = Row >= 1 && Row <= m_grid->Rows() && Col >= 1 && Col <= m_grid->Columns();
    return isThere ? m_grid->CellText(Row, Col).toString() : QString();
}

bool NoteGrid::Redraw() const
{
    return m_grid->Redraw();
}

void NoteGrid::setRedraw(bool on)
{
    m_grid->setRedraw(on);
}

bool NoteGrid::ShowCategoryBar() const
{
    return m_isCategoryShown;
}

void NoteGrid::setShowCategoryBar(bool shown)
{
    m_isCategoryShown = shown;
    m_category->setVisible(shown);
}

void NoteGrid::ResetColumns()
{
    for (const Column &column : kColumns) {
        if (!column.width)
            continue;
        const QString width = column.width->defaultValue.toString();
        m_grid->setColumnWidth(column.number, numericPrefixInt(width));
        if (SaveColumnWidth && column.number != kColumnCategory) // as in keepWidth()
            settings::save(m_services.settings, *column.width, width);
    }
}

void NoteGrid::SetFocus()
{
    m_grid->setFocus();
}

void NoteGrid::RunGridMenu(const QString &MenuKey)
{
    const int item = m_menu->IndexForKey(MenuKey.toUpper());
    runGridCommand(*this, m_services, m_menu->ItemKey(item));
}

void NoteGrid::ShowPropertyPage()
{
    RunGridMenu(grid_menu::kProperties);
}

} // namespace norvane
