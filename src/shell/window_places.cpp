#include "shell/window_places.h"

#include "shell/numeric_prefix.h"

#include <algorithm>

namespace norvane::settings {

QRectF readPlace(const SettingsStore &store, const PlaceKeys &keys)
{
    const auto number = [&store](const Key &key) { return numericPrefix(read(store, key)); };
    return {number(keys.left), number(keys.top), number(keys.width), number(keys.height)};
}

QRect withinReach(const QRect &place, const QRect &room)
{
    const QSize size = place.size().boundedTo(room.size());
    return {std::clamp(place.left(), room.left(), room.right() + 1 - size.width()),
            std::clamp(place.top(), room.top(), room.bottom() + 1 - size.height()), size.width(),
            size.height()};
}

void savePlace(SettingsStore &store, const PlaceKeys &keys, const QRectF &place)
{
    const auto write = [&store](const Key &key, double twips) {
        save(store, key, QString::number(qRound64(twips)));
    };
    write(keys.left, place.left());
    write(keys.top, place.top());
    write(keys.width, place.width());
    write(keys.height, place.height());
}

} // namespace norvane::settings
