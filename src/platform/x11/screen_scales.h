#pragma once

#include "platform/x11/window_geometry.h"

namespace norvane::x11 {

/// The screens as they are now, the primary one first.
QVector<ScreenScale> screenScales();

} // namespace norvane::x11
