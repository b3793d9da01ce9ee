#pragma once

#include <QPoint>
#include <QRectF>
#include <QSize>

namespace norvane {

class SettingsStore;

/// The kept place of the preview in the browser, twips. What is too small to be taken hold of is
/// 3000 wide, 2000 high.
QRectF readPreviewPlace(const SettingsStore &settings);
void savePreviewPlace(SettingsStore &settings, const QRectF &place);

/// The place of the preview after the browser was sized, so that it does not reach beyond the right edge
/// or over the status bar. One that stands at the left or top edge stays there, and none goes beyond
/// these. All in twips from the browser's upper left corner.
QRectF keepPreviewInside(const QRectF &place, double clientWidth, double statusBarTop);

/// The nearest position in a room where all of a window is seen, or, when it is larger, its upper left
/// corner.
QPoint withinReach(const QRect &place, const QSize &room);

} // namespace norvane
