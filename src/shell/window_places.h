#pragma once

#include "shell/settings_keys.h"

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

QRectF readPlace(const SettingsStore &store, const PlaceKeys &keys);
/// In whole twips.
void savePlace(SettingsStore &store, const PlaceKeys &keys, const QRectF &place);

} // namespace norvane::settings
