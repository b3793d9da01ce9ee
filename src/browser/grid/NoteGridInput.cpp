// What headers, mouse and keyboard do to a list of notes.

#include "browser/grid/NoteGrid.h"
#include "browser/grid/note_columns.h"
#include "browser/grid/note_grid_menu.h"
#include "controls/gridview/vbalGrid.h"
#include "controls/menuview/NVPopupMenu.h"
#include "platform/Prompts.h"
#include "platform/RuntimeError.h"
#include "richtext/EditServices.h"
#include "richtext/virtual_keys.h"
#include "shell/internal_error.h"
#include "shell/settings_keys.h"
#include "watcher/NoteViews.h"
#include "watcher/WatchSettings.h"
#include "watcher/open_location.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPointer>

namespace norvane {

namespace {

constexpr int kEnterKey = 13;
constexpr int kAlt = 4;
constexpr int kControlAlt = 6;

struct CommandKey
{
    int code; ///< virtual key code
    int shift;
    const QString &command;
};

const CommandKey kCommandKeys[] = {
    {46, 0, grid_menu::kDelete},
    {'A', kAlt, grid_menu::kActive},
    {45, 0, grid_menu::kNew},
    {'P', kAlt, grid_menu::kProperties},
};

/// The command of a key; empty for a key without one.
QString commandOf(const QKeyEvent &event)
{
    for (const CommandKey &key : kCommandKeys) {
        if (key.code == virtualKeyCode(event) && key.shift == shiftState(event.modifiers()))
            return key.command;
    }
    return {};
}

} // namespace

void NoteGrid::sortBy(int column)
{
    const int shown = column;
    if (column == kColumnDateCreated)
        column = kColumnDC;
    else if (column == kColumnLastUpdate)
        column = kColumnLU;
    cShellSortTGridCells &sort = m_grid->SortObject();
    const int oldColumn = sort.SortColumn(1);
    const int oldOrder = sort.SortOrder(1);
    sort.Clear();
    sort.setSortColumn(1, static_cast<qint16>(column));
    const bool goesDown = column == oldColumn && oldOrder != kSortDescending;
    sort.setSortOrder(1, goesDown ? kSortDescending : kSortAscending);
    sort.setLastSortIndex(column);
    if (column == kColumnActive)
        sort.setSortType(1, kSortIcon);
    else if (column == kColumnDC || column == kColumnLU)
        sort.setSortType(1, kSortDateMinute);
    else
        sort.setSortType(1, kSortTextNoCase);
    for (int other = 1; other <= m_grid->Columns(); ++other)
        m_grid->setColumnSortOrder(other, other == shown ? sort.SortOrder(1) : qint32(kSortNone));
    m_listing->sorted();
    try {
        m_grid->Sort();
    } catch (const RuntimeError &) {
        return;
    }
    emit Changed();
}

void NoteGrid::keepWidth(int position, int width)
{
    // By place among the visible headers; the last one's, the category's, is not kept.
    static const settings::Key *const kKeys[] = {
        nullptr,
        &settings::kColumnTitleWidth,
        &settings::kColumnDateCreatedWidth,
        &settings::kColumnLastUpdateWidth,
        &settings::kColumnLocationWidth,
        &settings::kColumnTypeWidth,
    };
    if (SaveColumnWidth && position >= 1 && position < int(std::size(kKeys)))
        settings::save(m_services.settings, *kKeys[position], QString::number(width));
}

void NoteGrid::keyDown(QKeyEvent *event)
{
    const int column = m_grid->SelectedCol();
    m_grid->setKeySearchColumn(column == kColumnActive ? int(kColumnTitle) : column);
    const QPointer<NoteGrid> self(this);
    if (virtualKeyCode(*event) == kEnterKey) {
        event->accept();
        openLocation(GetCelText(Row(), kColumnLocation));
    } else if (const QString command = commandOf(*event); !command.isEmpty()) {
        event->accept();
        RunGridMenu(command);
        if (self)
            SetFocus();
    }
}

void NoteGrid::mouseDown(const QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && shiftState(event->modifiers()) == kControlAlt)
        ResetColumns();
}

void NoteGrid::rowDoubleClicked(int row)
{
    const QString location = GetCelText(row, kColumnLocation);
    if (location.trimmed().isEmpty())
        RunGridMenu(grid_menu::kEdit);
    else
        openLocation(location);
}

/// Tells why a location does not open.
void NoteGrid::openLocation(const QString &location)
{
    try {
        OpenLocation(m_services.shell, location);
    } catch (const RuntimeError &error) {
        tell(m_services.edit.prompts, error.description());
    }
}

/// @param position in the viewport, pixels
void NoteGrid::showMenu(QPoint position)
{
    const int row = Row();
    updateGridMenu(*m_menu,
                   {row != 0, SelectedRows(), GetCelText(row, kColumnLocation),
                    row != 0 && m_grid->CellIcon(row, kColumnActive) >= 0, m_services.watch.IEAvailable});
    const QPoint place = m_grid->viewport()->mapTo(this, position);
    const QPointF twips = m_services.twips.fromPixels(QRect(place, QSize(0, 0))).topLeft();
    m_menu->ShowPopupMenu(twips.x(), twips.y());
}

/// Keys of ours are not to go to menus that have the same access keys.
bool NoteGrid::keyBelongsToUs(QEvent *event) const
{
    const auto *key = static_cast<QKeyEvent *>(event);
    return virtualKeyCode(*key) == kEnterKey || !commandOf(*key).isEmpty();
}

bool NoteGrid::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_category && event->type() == QEvent::MouseButtonRelease) {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        const QRectF place = m_services.twips.fromPixels(QRect(mouse->position().toPoint(), QSize(0, 0)));
        emit CatBarMouseUp(buttonNumber(mouse->button()), shiftState(mouse->modifiers()), place.x(),
                           place.y());
    } else if (watched == m_grid && event->type() == QEvent::ShortcutOverride && keyBelongsToUs(event)) {
        event->accept();
    } else if (watched == m_grid->viewport() && event->type() == QEvent::Resize) {
        m_empty->setGeometry(m_grid->viewport()->geometry());
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace norvane
