#pragma once

#include <QByteArray>
#include <QIcon>

namespace norvane {

/// An icon from an SVG file, sharp at every scale. Parts drawn in "currentColor" take the palette's
/// text colour when they are painted, so that one drawing serves light and dark; a disabled icon is
/// faded.
QIcon svgIcon(const QString &file);

} // namespace norvane
