#pragma once

#include <QColor>
#include <QIcon>

namespace norvane {

/// An icon from an SVG file, sharp at every scale. Parts drawn in "currentColor" take the ink, so that
/// one drawing serves light and dark; a disabled icon is faded. Null when there is no such file.
/// @param ink invalid: the desktop's text colour at the time of painting
QIcon svgIcon(const QString &file, const QColor &ink = {});

} // namespace norvane
