#pragma once

#include "shell/settings_keys.h"

#include <QRect>
#include <QRectF>

namespace norvane::settings {

/// The keys of a window's place, twips.
struct PlaceKeys
{
    Key left;
    Key top;
    Key width;
    Key height;
};

inline constexpr PlaceKeys kMainPlace{kMainLeft, kMainTop, kMainWidth, kMainHeight};
inline constexpr PlaceKeys kBrowserPlace{kBrowserLeft, kBrowserTop, kBrowserWidth, kBrowserHeight};
inline constexpr PlaceKeys kPreviewPlace{kPreviewLeft, kPreviewTop, kPreviewWidth, kPreviewHeight};
inline constexpr PlaceKeys kTaskListPlace{kTaskListLeft, kTaskListTop, kTaskListWidth, kTaskListHeight};

QRectF readPlace(const SettingsStore &store, const PlaceKeys &keys);
/// A window's place, moved and made smaller as far as it must be to lie in @p room.
QRect withinReach(const QRect &place, const QRect &room);
/// In whole twips.
void savePlace(SettingsStore &store, const PlaceKeys &keys, const QRectF &place);

} // namespace norvane::settings
