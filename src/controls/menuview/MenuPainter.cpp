#include "controls/menuview/MenuPainter.h"

#include "controls/ImageList.h"
#include "controls/menu/caption_markers.h"
#include "controls/menu/menu_measures.h"
#include "controls/menuview/cNCMetrics.h"

#include <QApplication>
#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>
#include <QStyle>
#include <algorithm>

namespace norvane {

namespace {

constexpr int kArrowColumn = 16;

MenuColor plain(const QColor &color)
{
    return {color.red(), color.green(), color.blue()};
}

QColor painted(MenuColor color)
{
    return {color.red, color.green, color.blue};
}

QColor blended(const QColor &from, const QColor &to, double part)
{
    return painted(blend(plain(from), plain(to), part));
}

double contrastOf(const QColor &one, const QColor &other)
{
    return contrast(plain(one), plain(other));
}

void paintTick(QPainter &painter, const QRectF &box, const QColor &ink)
{
    QPainterPath path;
    path.moveTo(box.left() + box.width() * 0.22, box.top() + box.height() * 0.52);
    path.lineTo(box.left() + box.width() * 0.42, box.top() + box.height() * 0.72);
    path.lineTo(box.left() + box.width() * 0.78, box.top() + box.height() * 0.30);
    painter.strokePath(path, QPen(ink, box.height() / 8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

void paintOptionMark(QPainter &painter, const QRectF &box, const QColor &ink)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    painter.drawEllipse(box.center(), box.width() * 0.19, box.height() * 0.19);
}

void paintArrow(QPainter &painter, const QRectF &box, double degrees, const QColor &ink)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(box.center());
    painter.rotate(degrees);
    QPainterPath path;
    path.moveTo(-1.75, -3.5);
    path.lineTo(1.75, 0);
    path.lineTo(-1.75, 3.5);
    painter.strokePath(path, QPen(ink, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.restore();
}

} // namespace

MenuPainter::MenuPainter(const MenuLook &look, const cNCMetrics &metrics, const ImageList *images,
                         const QPalette &palette)
    : m_look(look), m_metrics(metrics), m_images(images),
      m_menu(palette.color(QPalette::Active, QPalette::Window)),
      m_text(palette.color(QPalette::Active, QPalette::WindowText)),
      m_grayText(palette.color(QPalette::Disabled, QPalette::WindowText)),
      m_highlight(palette.color(QPalette::Active, QPalette::Highlight)),
      m_highlightedText(palette.color(QPalette::Active, QPalette::HighlightedText)),
      m_shadow(palette.color(QPalette::Active, QPalette::Dark)),
      m_light(palette.color(QPalette::Active, QPalette::Light))
{
    // Palettes of dark themes often keep edges that were meant for light ones.
    if (contrastOf(m_light, m_menu) > 2.0)
        m_light = painted(m_shade.of(plain(m_menu)));
    if (contrastOf(m_shadow, m_menu) < 1.2 || contrastOf(m_shadow, m_menu) > 4.0)
        m_shadow = blended(m_menu, m_text, 0.25);
    if (contrastOf(m_grayText, m_menu) < 1.5)
        m_grayText = blended(m_menu, m_text, 0.45);
}

void MenuPainter::paintFrame(QPainter &painter, const QRect &rect) const
{
    painter.fillRect(rect, blended(m_menu, m_text, 0.28));
    painter.fillRect(rect.adjusted(1, 1, -1, -1), m_menu);
}

void MenuPainter::paintBackground(QPainter &painter, const MenuRow &row) const
{
    if (m_look.background.isNull())
        painter.fillRect(row.rect, m_menu);
    else
        painter.drawTiledPixmap(row.rect, m_look.background, row.rect.topLeft() - row.tileOrigin);
}

void MenuPainter::paintBar(QPainter &painter, int x, int top, int bottom) const
{
    painter.fillRect(QRect(x, top, 1, bottom - top), m_shadow);
    painter.fillRect(QRect(x + 1, top, 1, bottom - top), m_light);
}

void MenuPainter::paintScrollStrip(QPainter &painter, const QRect &rect, bool isUp, bool isActive) const
{
    painter.fillRect(rect, m_menu);
    paintArrow(painter, rect, isUp ? -90 : 90, isActive ? m_text : m_grayText);
}

void MenuPainter::paintEtchedLine(QPainter &painter, int left, int right, int y) const
{
    painter.fillRect(QRect(left, y, right - left, 1), m_shadow);
    painter.fillRect(QRect(left, y + 1, right - left, 1), m_light);
}

void MenuPainter::paintItem(QPainter &painter, const MenuItem &item, const MenuRow &row)
{
    painter.save();
    if (item.isSeparator()) {
        paintSeparator(painter, row.rect);
    } else if (item.Header) {
        paintHeader(painter, item, row.rect);
    } else {
        const bool isSelected = row.selected && !item.isPassive();
        QRect highlight = row.rect;
        QRect firstColumn = row.rect;
        firstColumn.setWidth(m_look.itemHeight - 1);
        if (item.ItemIcon >= 0 || item.Checked) {
            highlight.setLeft(firstColumn.right() + 1);
            if (m_look.highlightCheckedItems && item.Checked && isSelected)
                painter.fillRect(firstColumn, blended(m_menu, m_highlight, 0.35));
        }
        paintHighlight(painter, highlight, isSelected);
        paintFirstColumn(painter, item, firstColumn, isSelected);
        paintTexts(painter, item, row, highlight.left());
    }
    painter.restore();
}

void MenuPainter::paintSeparator(QPainter &painter, const QRect &rect) const
{
    paintEtchedLine(painter, rect.left(), rect.right() + 1, rect.top() + 1);
}

void MenuPainter::paintHeader(QPainter &painter, const MenuItem &item, const QRect &rect) const
{
    const QString caption = shownText(item.displayCaption).text;
    QColor ink = m_text;
    if (m_look.headerStyle == MenuHeaderStyle::Caption) {
        // Of the window frames the palette tells nothing; this is what selections have, calmed down.
        const QColor bar = blended(m_menu, m_highlight, 0.6);
        painter.fillRect(rect.adjusted(1, 2, -1, -2), bar);
        ink = contrastOf(m_highlightedText, bar) > contrastOf(m_text, bar) ? m_highlightedText : m_text;
    } else {
        paintEtchedLine(painter, rect.left(), rect.right() + 1, rect.center().y());
    }
    if (caption.isEmpty())
        return;
    painter.setFont(m_metrics.SmallerFontHandle());
    const QFontMetrics metrics(painter.font());
    const QString text =
        metrics.elidedText(u' ' + caption.simplified() + u' ', Qt::ElideRight, rect.width() - 2);
    if (m_look.headerStyle == MenuHeaderStyle::Line) {
        QRect behind(0, 0, metrics.horizontalAdvance(text), rect.height());
        behind.moveCenter(rect.center());
        painter.fillRect(behind, m_menu);
    }
    painter.setPen(ink);
    painter.drawText(rect, Qt::AlignCenter | Qt::TextSingleLine, text);
}

void MenuPainter::paintHighlight(QPainter &painter, const QRect &rect, bool isSelected)
{
    if (!isSelected)
        return; // the background is there
    if (!hasGradient()) {
        painter.fillRect(rect, m_highlight);
        return;
    }
    const QVector<GradientBand> bands = gradientBands(rect.width(), plain(m_menu), plain(m_highlight));
    for (const GradientBand &band : bands) {
        painter.fillRect(QRect(rect.left() + band.x, rect.top(), band.width, rect.height()),
                         painted(band.color));
    }
}

void MenuPainter::paintFirstColumn(QPainter &painter, const MenuItem &item, const QRect &rect,
                                   bool isSelected)
{
    const QIcon own = m_images && item.ItemIcon >= 0 ? m_images->icon(item.ItemIcon) : QIcon();
    if (item.Checked) {
        const QRectF box = QRectF(rect).adjusted(1.5, 1.5, -1.5, -1.5);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(m_shadow);
        painter.setBrush(isSelected && m_look.highlightCheckedItems ? blended(m_menu, m_highlight, 0.35)
                                                                    : painted(m_shade.of(plain(m_menu))));
        painter.drawRoundedRect(box, 2, 2);
    }
    const int markIcon = item.RadioCheck ? m_look.optionIcon : m_look.tickIcon;
    const QIcon mark = m_images && item.Checked && markIcon >= 0 ? m_images->icon(markIcon) : QIcon();
    const QIcon icon = own.isNull() ? mark : own;
    if (!icon.isNull()) {
        QRect place(QPoint(), m_images->iconSize().boundedTo(rect.size() - QSize(2, 2)));
        place.moveCenter(rect.center());
        icon.paint(&painter, place, Qt::AlignCenter, item.Enabled ? QIcon::Normal : QIcon::Disabled);
    } else if (item.Checked) {
        painter.setRenderHint(QPainter::Antialiasing);
        const double side = std::min(rect.width(), rect.height()) - 4;
        QRectF box(0, 0, side, side);
        box.moveCenter(QRectF(rect).center());
        const QColor ink = item.Enabled ? m_text : m_grayText;
        if (item.RadioCheck)
            paintOptionMark(painter, box, ink);
        else
            paintTick(painter, box, ink);
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
}

/// The ink that reads best on the part of the highlight that a text covers.
QColor MenuPainter::inkOn(const QRect &text, const QRect &highlight) const
{
    if (!hasGradient())
        return m_highlightedText;
    const auto worst = [&](const QColor &ink) {
        const auto at = [&](int x) {
            const double part = double(x - highlight.left()) / std::max(1, highlight.width());
            return contrastOf(ink, blended(m_menu, m_highlight, std::clamp(part, 0.0, 1.0)));
        };
        return std::min(at(text.left()), at(text.right()));
    };
    return worst(m_highlightedText) > worst(m_text) ? m_highlightedText : m_text;
}

void MenuPainter::paintTexts(QPainter &painter, const MenuItem &item, const MenuRow &row, int highlightLeft)
{
    painter.setFont(m_metrics.FontHandle(item.Default ? cNCMetrics::kBoldMenuFont : cNCMetrics::kMenuFont));
    const QFontMetrics metrics(painter.font());
    const bool isSelected = row.selected && !item.isPassive();
    const bool hasColumn = row.shortcutWidth > 0;
    QRect highlight = row.rect;
    highlight.setLeft(highlightLeft);

    const auto inkFor = [&](const QRect &text) {
        if (item.Enabled)
            return isSelected ? inkOn(text, highlight) : m_text;
        if (isSelected && !hasGradient() && contrastOf(m_grayText, m_highlight) < 2.5)
            return blended(m_highlight, m_highlightedText, 0.55);
        return m_grayText;
    };
    // The light edge of grey text, lighter than what it is on; invalid for none.
    QColor etching;
    if (!item.Enabled && !(isSelected && row.byKeyboard))
        etching = isSelected && !hasGradient() ? painted(m_shade.of(plain(m_highlight))) : m_light;

    QRect place = row.rect;
    place.setLeft(row.rect.left() + menuTextLeft(m_look.itemHeight));
    if (hasColumn)
        place.setRight(row.rect.left() + row.shortcutColumn - kShortcutGap - 1);
    else
        place.setRight(row.rect.right() - kArrowColumn);
    const ShownText shown = shownText(item.displayCaption);
    QRect text = place;
    text.setWidth(std::min(place.width(), metrics.horizontalAdvance(shown.text)));
    paintText(painter, shown.text, shown.underlined, place, Qt::AlignLeft, inkFor(text), etching);

    if (!item.shortcutText.isEmpty()) {
        QRect column = row.rect;
        column.setLeft(row.rect.left() + row.shortcutColumn);
        column.setWidth(row.shortcutWidth);
        paintText(painter, item.shortcutText, -1, column, Qt::AlignRight, inkFor(column), etching);
    }
    if (item.hasSubMenu()) {
        QRect arrow = row.rect;
        arrow.setLeft(row.rect.right() + 1 - kArrowColumn);
        paintArrow(painter, arrow, 0, inkFor(arrow));
    }
}

void MenuPainter::paintText(QPainter &painter, const QString &text, int underlined, const QRect &rect,
                            Qt::Alignment side, const QColor &ink, const QColor &etching) const
{
    const QFontMetrics metrics(painter.font());
    const QString line = metrics.elidedText(text, Qt::ElideRight, rect.width());
    const bool underlines =
        underlined >= 0 && line == text && QApplication::style()->styleHint(QStyle::SH_UnderlineShortcut);
    // The rows of a menu run from left to right, whatever the desktop's direction.
    const int flags = int(side | Qt::AlignAbsolute | Qt::AlignVCenter) | Qt::TextSingleLine |
                      int(text.isRightToLeft() ? Qt::TextForceRightToLeft : Qt::TextForceLeftToRight);
    const auto paint = [&](const QRect &place, const QColor &color) {
        painter.setPen(color);
        painter.drawText(place, flags, line);
        if (underlines) {
            const int left = place.left() + metrics.horizontalAdvance(text.left(underlined));
            const int width = metrics.horizontalAdvance(text.at(underlined));
            const int top = place.top() + (place.height() - metrics.height()) / 2 + metrics.ascent() +
                            metrics.underlinePos();
            painter.fillRect(QRect(left, top, width, std::max(1, metrics.lineWidth())), color);
        }
    };
    if (etching.isValid())
        paint(rect.translated(1, 1), etching);
    paint(rect, ink);
}

} // namespace norvane
