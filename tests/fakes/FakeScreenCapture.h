#pragma once

#include "platform/ScreenCapture.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QVector>
#include <functional>

namespace norvane::fakes {

/// Puts a red picture of 40 by 30 pixels on the clipboard.
class FakeScreenCapture : public ScreenCapture
{
public:
    bool mayLook = true;
    QVector<WindowHandle> captured; ///< kNoWindow for the desktop
    std::function<void()> duringCapture;

    bool captureDesktop() override { return captureWindow(kNoWindow); }

    bool captureWindow(WindowHandle window) override
    {
        if (!mayLook)
            return false;
        captured.append(window);
        QImage picture(40, 30, QImage::Format_RGB32);
        picture.fill(Qt::red);
        QGuiApplication::clipboard()->setImage(picture);
        if (duringCapture)
            duringCapture();
        return true;
    }

    void clearClipboard() override { QGuiApplication::clipboard()->clear(); }
};

} // namespace norvane::fakes
