#include "browser/editor/preview_place.h"

#include "shell/numeric_prefix.h"
#include "shell/settings_keys.h"

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
    const auto number = [&](const settings::Key &key) {
        return numericPrefix(settings::read(settings, key));
    };
    double width = number(settings::kPreviewWidth);
    double height = number(settings::kPreviewHeight);
    if (height < kLeastHeight)
        height = kFirstHeight;
    if (width < kLeastWidth)
        width = kFirstWidth;
    return {number(settings::kPreviewLeft), number(settings::kPreviewTop), width, height};
}

void savePreviewPlace(SettingsStore &settings, const QRectF &place)
{
    const auto save = [&](const settings::Key &key, double twips) {
        settings::save(settings, key, QString::number(qRound64(twips)));
    };
    save(settings::kPreviewTop, place.top());
    save(settings::kPreviewLeft, place.left());
    save(settings::kPreviewWidth, place.width());
    save(settings::kPreviewHeight, place.height());
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
