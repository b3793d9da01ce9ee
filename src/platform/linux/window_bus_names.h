#pragma once

#include "platform/WindowHandle.h"

#include <QString>

namespace norvane {

/// Where a program has put a window of its own on the session bus.
struct WindowBusNames
{
    QString service;
    QString objectPath;
};

/// Reads the names from the window's properties; waits for the X server. Empty when the window is
/// gone or has none.
/// @param display empty: the one that the environment names
WindowBusNames readWindowBusNames(const QString &display, WindowHandle window);

} // namespace norvane
