#include "browser/editor/preview_place.h"

#include "shell/window_places.h"

#include <algorithm>

namespace norvane {

namespace {

constexpr double kLeastHeight = 500; // twips
constexpr double kLeastWidth = 1000;
constexpr double kFirstHeight = 2000;
constexpr double kFirstWidth = 3000;
constexpr double kAtEdge = 10;

} // namespace

QRectF readPreviewPlace(const SettingsStore &settings)
{
    QRectF place = settings::readPlace(settings, settings::kPreviewPlace);
    if (place.height() < kLeastHeight)
        place.setHeight(kFirstHeight);
    if (place.width() < kLeastWidth)
        place.setWidth(kFirstWidth);
    return place;
}

void savePreviewPlace(SettingsStore &settings, const QRectF &place)
{
    settings::savePlace(settings, settings::kPreviewPlace, place);
}

QRectF keepPreviewInside(const QRectF &place, double clientWidth, double statusBarTop)
{
    QRectF result = place;
    if (result.bottom() > statusBarTop && result.top() >= kAtEdge)
        result.moveTop(std::max(0.0, statusBarTop - result.height()));
    if (result.right() > clientWidth && result.left() >= kAtEdge)
        result.moveLeft(std::max(0.0, clientWidth - result.width()));
    return result;
}

QPoint withinReach(const QRect &place, const QSize &room)
{
    return {std::clamp(place.x(), 0, std::max(0, room.width() - place.width())),
            std::clamp(place.y(), 0, std::max(0, room.height() - place.height()))};
}

} // namespace norvane
