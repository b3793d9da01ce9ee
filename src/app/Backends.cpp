#include "app/Backends.h"

#include "platform/sqlite/SqliteEngine.h"

#include <QApplication>

namespace norvane {

Backends::Backends()
    : sound([] { QApplication::beep(); }), engine(dao::makeSqliteEngine()),
      shellWindows(windows,
                   {.busAddress = {}, .display = {}, .home = {}, .pixelRatio = qApp->devicePixelRatio()})
{
}

} // namespace norvane
