#include "controls/svg_icon.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>
#include <algorithm>
#include <memory>

namespace norvane {

namespace {

class SvgIconEngine : public QIconEngine
{
public:
    SvgIconEngine(QByteArray svg, const QColor &ink) : m_svg(std::move(svg)), m_ink(ink) {}

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override
    {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        if (mode == QIcon::Disabled)
            painter->setOpacity(painter->opacity() * kDisabledOpacity);
        drawingIn(inkFor(mode)).render(painter, rect);
        painter->restore();
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        const QRgb ink = inkFor(mode).rgb();
        const auto known = std::find_if(m_pixmaps.cbegin(), m_pixmaps.cend(), [&](const Drawn &each) {
            return each.size == size && each.mode == mode && each.ink == ink;
        });
        if (known != m_pixmaps.cend())
            return known->pixmap;
        QPixmap result(size);
        result.fill(Qt::transparent);
        QPainter painter(&result);
        paint(&painter, QRect(QPoint(), size), mode, state);
        painter.end();
        if (m_pixmaps.size() == kMostPixmaps)
            m_pixmaps.removeFirst();
        m_pixmaps.append({size, mode, ink, result});
        return result;
    }

    QIconEngine *clone() const override { return new SvgIconEngine(m_svg, m_ink); }

    // Window systems and tray hosts are handed pictures of these sizes, every window anew.
    QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override
    {
        return {{16, 16}, {22, 22}, {32, 32}, {48, 48}, {64, 64}};
    }

    bool isNull() override { return m_svg.isEmpty(); }

private:
    static constexpr double kDisabledOpacity = 0.38;
    /// Of the latest sizes, modes and inks: all that are handed over at once, and a few more.
    static constexpr int kMostPixmaps = 8;

    struct Drawn
    {
        QSize size;
        QIcon::Mode mode;
        QRgb ink;
        QPixmap pixmap;
    };

    QSvgRenderer &drawingIn(const QColor &ink)
    {
        if (!m_drawing || m_drawingInk != ink.rgb()) {
            QByteArray svg = m_svg;
            svg.replace("currentColor", ink.name().toLatin1());
            m_drawing = std::make_unique<QSvgRenderer>(svg);
            m_drawing->setAspectRatioMode(Qt::KeepAspectRatio);
            m_drawingInk = ink.rgb();
        }
        return *m_drawing;
    }

    QColor inkFor(QIcon::Mode mode) const
    {
        if (m_ink.isValid())
            return m_ink;
        const QPalette palette = QGuiApplication::palette();
        return palette.color(mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::ButtonText);
    }

    QByteArray m_svg;
    QColor m_ink;
    std::unique_ptr<QSvgRenderer> m_drawing; ///< the latest, in m_drawingInk
    QRgb m_drawingInk = 0;
    QList<Drawn> m_pixmaps;
};

} // namespace

QIcon svgIcon(const QString &file, const QColor &ink)
{
    QFile source(file);
    if (!source.open(QIODevice::ReadOnly))
        return {};
    return QIcon(new SvgIconEngine(source.readAll(), ink));
}

} // namespace norvane
