#include "windowlist/windows/TaskImages.h"

#include "controls/plain_tool_tip.h"
#include "controls/svg_icon.h"
#include "platform/WindowSystem.h"
#include "windowlist/CTaskList.h"

#include <QFileInfo>
#include <QImage>
#include <QPixmap>

namespace norvane {

TaskImages::TaskImages(WindowSystem &windows, CTaskList &tasks, WindowLookup &lookup)
    : TaskRows(windows, tasks, lookup), m_windows(windows),
      m_null(svgIcon(QStringLiteral(":/norvane/icons/task-window.svg")))
{
    connect(this, &QAbstractItemModel::rowsAboutToBeRemoved, this,
            [this](const QModelIndex &, int first, int last) {
                for (int row = first; row <= last; ++row)
                    m_icons.remove(index(row, kWindow).data(kKeyRole).toString());
            });
}

void TaskImages::setScale(double scale)
{
    if (scale == m_scale)
        return;
    m_scale = scale;
    m_icons.clear();
    if (rowCount() > 0)
        emit dataChanged(index(0, kWindow), index(rowCount() - 1, kWindow), {Qt::DecorationRole});
}

QVariant TaskImages::data(const QModelIndex &index, int role) const
{
    if (role == Qt::ToolTipRole) // a title is anybody's
        return plainToolTip(TaskRows::data(index, role).toString());
    if (role != Qt::DecorationRole)
        return TaskRows::data(index, role);
    return index.isValid() && index.column() == kWindow ? QVariant(iconOf(index)) : QVariant();
}

QIcon TaskImages::iconOf(const QModelIndex &index) const
{
    const IconHandle small = index.data(kSmallIconRole).value<IconHandle>();
    const IconHandle large = index.data(kLargeIconRole).value<IconHandle>();
    Known &known = m_icons[index.data(kKeyRole).toString()];
    if (!known.icon.isNull() && known.small == small && known.large == large)
        return known.icon;
    QIcon icon;
    addPicture(icon, small, kSmallSide);
    addPicture(icon, large, kLargeSide);
    if (icon.isNull()) {
        // Programs of today may leave their icon to the desktop's theme.
        const QString program = QFileInfo(index.siblingAtColumn(kLocation).data().toString()).fileName();
        icon = QIcon::fromTheme(program, m_null);
        if (program.isEmpty())
            return icon; // it is not known yet
    }
    known = {small, large, icon};
    return icon;
}

void TaskImages::addPicture(QIcon &icon, IconHandle handle, int side) const
{
    if (handle == 0 || handle == kDefaultLargeIcon || handle == kDefaultOtherIcon)
        return;
    const int pixels = qRound(side * m_scale);
    const IconImage picture = m_windows.iconImage(handle, pixels);
    if (picture.isNull() || picture.pixels.size() != qsizetype(picture.width) * picture.height)
        return;
    const QImage image(reinterpret_cast<const uchar *>(picture.pixels.constData()), picture.width,
                       picture.height, picture.width * qsizetype(sizeof(quint32)), QImage::Format_ARGB32);
    // Never larger than it is: a small icon stands sharp in the middle.
    const bool isTooLarge = picture.width > pixels || picture.height > pixels;
    QPixmap pixmap = QPixmap::fromImage(
        isTooLarge ? image.scaled(pixels, pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation)
                   : image.copy());
    pixmap.setDevicePixelRatio(m_scale);
    icon.addPixmap(pixmap);
}

} // namespace norvane
