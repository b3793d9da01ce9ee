#include "platform/x11/screen_scales.h"

#include <QGuiApplication>
#include <QScreen>

namespace norvane::x11 {

QVector<ScreenScale> screenScales()
{
    QVector<ScreenScale> scales;
    const QList<QScreen *> screens = QGuiApplication::screens();
    for (const QScreen *screen : screens) {
        const QRect logical = screen->geometry();
        const QSize size = (QSizeF(logical.size()) * screen->devicePixelRatio()).toSize();
        scales.append({QRect(logical.topLeft(), size), screen->devicePixelRatio()});
    }
    return scales;
}

} // namespace norvane::x11
