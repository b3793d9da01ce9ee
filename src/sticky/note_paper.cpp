#include "sticky/note_paper.h"

namespace norvane {

namespace {

/// Mixes @p share of @p other into a colour.
QColor mixed(const QColor &color, const QColor &other, double share)
{
    const auto channel = [share](int a, int b) { return static_cast<int>(a + (b - a) * share); };
    return QColor(channel(color.red(), other.red()), channel(color.green(), other.green()),
                  channel(color.blue(), other.blue()));
}

bool isLight(const QColor &color)
{
    // Weights of the eye for red, green and blue.
    return 0.299 * color.red() + 0.587 * color.green() + 0.114 * color.blue() > 140.0;
}

} // namespace

NotePaper notePaper(quint32 color)
{
    const QColor paper(static_cast<int>(color & 0xff), static_cast<int>(color >> 8 & 0xff),
                       static_cast<int>(color >> 16 & 0xff));
    const bool light = isLight(paper);
    // On light paper everything is drawn with a warm dark, on dark paper with a warm light.
    const QColor pen = light ? QColor(0x5a, 0x46, 0x10) : QColor(0xff, 0xf6, 0xe0);
    NotePaper result;
    result.paper = paper;
    result.strip = mixed(paper, pen, 0.09);
    result.activeStrip = mixed(paper, pen, 0.20);
    result.edge = mixed(paper, pen, 0.42);
    result.softEdge = mixed(paper, pen, 0.05);
    result.ink = light ? QColor(0x33, 0x2b, 0x18) : QColor(0xfb, 0xf7, 0xec);
    return result;
}

} // namespace norvane
