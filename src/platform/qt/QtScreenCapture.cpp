#include "platform/qt/QtScreenCapture.h"

#include "platform/WindowSystem.h"

#include <QClipboard>
#include <QEventLoop>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QScreen>
#include <QTimer>

namespace norvane {

namespace {

/// Within this time the programs draw what a hidden or raised window has uncovered.
constexpr int kDrawingMs = 250;

void letWindowsDraw()
{
    QEventLoop loop;
    QTimer::singleShot(kDrawingMs, &loop, &QEventLoop::quit);
    loop.exec();
}

QRect wholeDesktop()
{
    QRect desktop;
    for (const QScreen *screen : QGuiApplication::screens())
        desktop |= screen->geometry();
    return desktop;
}

bool toClipboard(const QImage &picture)
{
    if (picture.isNull())
        return false;
    QGuiApplication::clipboard()->setImage(picture);
    return true;
}

} // namespace

QImage pictureOfScreens(const QRect &area)
{
    QImage picture;
    double ratio = 0;
    for (const QScreen *screen : QGuiApplication::screens()) {
        if (screen->geometry().intersects(area))
            ratio = qMax(ratio, screen->devicePixelRatio());
    }
    for (QScreen *screen : QGuiApplication::screens()) {
        const QRect part = screen->geometry() & area;
        if (part.isEmpty())
            continue;
        const QRect onScreen = part.translated(-screen->geometry().topLeft());
        const QPixmap seen =
            screen->grabWindow(0, onScreen.x(), onScreen.y(), onScreen.width(), onScreen.height());
        if (seen.isNull())
            continue;
        if (picture.isNull()) {
            picture = QImage(area.size() * ratio, QImage::Format_RGB32);
            picture.setDevicePixelRatio(ratio);
            picture.fill(Qt::black); // where no screen is
        }
        QPainter(&picture).drawPixmap(QRect(part.topLeft() - area.topLeft(), part.size()), seen);
    }
    return picture;
}

bool QtScreenCapture::captureDesktop()
{
    if (!m_mayLook)
        return false;
    letWindowsDraw();
    return toClipboard(pictureOfScreens(wholeDesktop()));
}

bool QtScreenCapture::captureWindow(WindowHandle window)
{
    if (!m_mayLook)
        return false;
    letWindowsDraw();
    return toClipboard(pictureOfScreens(m_windows.windowRect(window) & wholeDesktop()));
}

void QtScreenCapture::clearClipboard()
{
    QGuiApplication::clipboard()->clear();
}

} // namespace norvane
