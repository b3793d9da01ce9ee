#include "controls/svg_icon.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

namespace norvane {

namespace {

class SvgIconEngine : public QIconEngine
{
public:
    SvgIconEngine(QByteArray svg, const QColor &ink) : m_svg(std::move(svg)), m_ink(ink) {}

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override
    {
        QByteArray svg = m_svg;
        svg.replace("currentColor", inkFor(mode).name().toLatin1());
        QSvgRenderer renderer(svg);
        renderer.setAspectRatioMode(Qt::KeepAspectRatio);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        if (mode == QIcon::Disabled)
            painter->setOpacity(painter->opacity() * kDisabledOpacity);
        renderer.render(painter, rect);
        painter->restore();
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap result(size);
        result.fill(Qt::transparent);
        QPainter painter(&result);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return result;
    }

    QIconEngine *clone() const override { return new SvgIconEngine(m_svg, m_ink); }

    // Window systems and tray hosts are handed pictures of these sizes.
    QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override
    {
        return {{16, 16}, {22, 22}, {32, 32}, {48, 48}, {64, 64}};
    }

    bool isNull() override { return m_svg.isEmpty(); }

private:
    static constexpr double kDisabledOpacity = 0.38;

    QColor inkFor(QIcon::Mode mode) const
    {
        if (m_ink.isValid())
            return m_ink;
        const QPalette palette = QGuiApplication::palette();
        return palette.color(mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::ButtonText);
    }

    QByteArray m_svg;
    QColor m_ink;
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
