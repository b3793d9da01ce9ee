#include "shell/windows/mdi_arrange.h"

#include <QMdiArea>
#include <QMdiSubWindow>

namespace norvane {

namespace {

using Windows = QList<QMdiSubWindow *>;

Windows shownChildren(const QMdiArea *area, bool minimized)
{
    Windows result;
    for (QMdiSubWindow *window : area->subWindowList(QMdiArea::CreationOrder)) {
        if (!window->isHidden() && window->isMinimized() == minimized)
            result.append(window);
    }
    return result;
}

void place(const Windows &windows, const QVector<QRect> &rects)
{
    for (qsizetype i = 0; i < windows.size(); ++i) {
        if (windows[i]->isMaximized())
            windows[i]->showNormal();
        windows[i]->setGeometry(rects[i]);
    }
}

void lineUpIcons(const QMdiArea *area)
{
    const QRect room = area->viewport()->rect();
    int x = 0;
    int bottom = room.height();
    for (QMdiSubWindow *window : shownChildren(area, true)) {
        if (x > 0 && x + window->width() > room.width()) {
            x = 0;
            bottom -= window->height();
        }
        window->move(x, bottom - window->height());
        x += window->width();
    }
}

} // namespace

QVector<QRect> tileRows(const QRect &area, int count)
{
    QVector<QRect> rects;
    for (int i = 0; i < count; ++i) {
        const int top = area.height() * i / count;
        const int end = area.height() * (i + 1) / count;
        rects.append(QRect(area.left(), area.top() + top, area.width(), end - top));
    }
    return rects;
}

QVector<QRect> tileColumns(const QRect &area, int count)
{
    QVector<QRect> rects;
    for (int i = 0; i < count; ++i) {
        const int left = area.width() * i / count;
        const int end = area.width() * (i + 1) / count;
        rects.append(QRect(area.left() + left, area.top(), end - left, area.height()));
    }
    return rects;
}

void arrangeChildren(QMdiArea *area, Arrange how)
{
    const Windows windows = shownChildren(area, false);
    const QRect room = area->viewport()->rect();
    const int count = static_cast<int>(windows.size());
    switch (how) {
    case Arrange::Cascade:
        area->cascadeSubWindows();
        break;
    case Arrange::TileHorizontally:
        place(windows, tileRows(room, count));
        break;
    case Arrange::TileVertically:
        place(windows, tileColumns(room, count));
        break;
    case Arrange::ArrangeIcons:
        lineUpIcons(area);
        break;
    }
}

} // namespace norvane
