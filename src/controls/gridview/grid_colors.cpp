#include "controls/gridview/grid_colors.h"

#include "controls/menu/menu_colors.h"

namespace norvane {

namespace {

constexpr qint32 kWhite = 0xFFFFFF;

MenuColor channels(const QColor &color)
{
    return {color.red(), color.green(), color.blue()};
}

} // namespace

QColor cellColor(qint32 color, const QColor &standard)
{
    if (color < 0)
        return standard;
    return QColor(color & 0xFF, (color >> 8) & 0xFF, (color >> 16) & 0xFF);
}

QColor cellPaper(qint32 color, const QColor &back)
{
    return color == kWhite ? back : cellColor(color, back);
}

QColor readableInk(const QColor &ink, const QColor &paper, double least)
{
    if (contrast(channels(ink), channels(paper)) >= least)
        return ink;
    const bool lighter =
        contrast(channels(Qt::white), channels(paper)) > contrast(channels(Qt::black), channels(paper));
    QColor readable = ink;
    for (int tenths = 1; tenths <= 10; ++tenths) {
        readable = mixed(ink, lighter ? Qt::white : Qt::black, tenths / 10.0);
        if (contrast(channels(readable), channels(paper)) >= least)
            break;
    }
    return readable;
}

QColor mixed(const QColor &one, const QColor &other, double part)
{
    const MenuColor color = blend(channels(one), channels(other), part);
    return QColor(color.red, color.green, color.blue);
}

} // namespace norvane
