#pragma once

#include "platform/SettingsStore.h"

#include <QStringView>

/// The keys of the settings store, with the value that stands for a missing one.
namespace norvane::settings {

struct Key
{
    QStringView section;
    QStringView name;
    QStringView defaultValue;
};

inline constexpr Key kDatabase{u"DB", u"Database", u""}; ///< custom database folder; empty: the default
inline constexpr Key kExactWindowName{u"DB", u"ExactWindowName", u"0"};

/// Number of extra tracked classes, in the keys "01", "02", … of the section. Set by hand.
inline constexpr Key kClassExItems{u"ClassEx", u"Items", u"0"};

/// Two keys for each hot key, "Main.0" and "Main.1": modifiers and key code.
inline constexpr QStringView kHotKeysSection = u"HotKeys";

// Place of the frame, twips. Width and height default to those of the work area.
inline constexpr Key kMainTop{u"Main", u"Top", u"0"};
inline constexpr Key kMainLeft{u"Main", u"Left", u"0"};
inline constexpr Key kMainWidth{u"Main", u"Width", u""};
inline constexpr Key kMainHeight{u"Main", u"Height", u""};

// What was said or asked once: "1" said, or yes; "0" no; empty: not yet.
inline constexpr Key kAccessibilityOffer{u"Main", u"AccessibilityOffer", u""};
inline constexpr Key kFirstStartNotice{u"Main", u"FirstStartNotice", u""};
inline constexpr Key kOnlyXNotice{u"Main", u"OnlyXNotice", u""};
inline constexpr Key kRefusedKeysNotice{u"Main", u"RefusedKeysNotice", u""}; ///< the keys that were told last

// Place of the browser, twips.
inline constexpr Key kBrowserTop{u"NoteBrowser", u"Top", u"0"};
inline constexpr Key kBrowserLeft{u"NoteBrowser", u"Left", u"0"};
inline constexpr Key kBrowserWidth{u"NoteBrowser", u"Width", u"10000"};
inline constexpr Key kBrowserHeight{u"NoteBrowser", u"Height", u"7000"};
/// 0 as it was placed, 1 minimised, 2 maximised. Written and never read.
inline constexpr Key kBrowserWindowState{u"NoteBrowser", u"WindowState", u""};
inline constexpr Key kShowCategoryBar{u"NoteBrowser", u"ShowCategoryBar", u"1"};
/// Style of the category bar: 0 tabs, 2 flat buttons.
inline constexpr Key kCategoryBarStyle{u"NoteBrowser", u"CategoryBarStyle", u"0"};
/// Number of the selected category tab, from 1.
inline constexpr Key kLastCategory{u"NoteBrowser", u"LastCategory", u"1"};

// Widths of the columns of a list of notes, pixels.
inline constexpr Key kColumnTitleWidth{u"NoteBrowser", u"ColumnTitleWidth", u"250"};
inline constexpr Key kColumnDateCreatedWidth{u"NoteBrowser", u"ColumnDateCreatedWidth", u"90"};
inline constexpr Key kColumnLastUpdateWidth{u"NoteBrowser", u"ColumnLastUpdateWidth", u"90"};
inline constexpr Key kColumnLocationWidth{u"NoteBrowser", u"ColumnLocationWidth", u"250"};
inline constexpr Key kColumnTypeWidth{u"NoteBrowser", u"ColumnTypeWidth", u"120"};
inline constexpr Key kColumnCategoryWidth{u"NoteBrowser", u"ColumnCategoryWidth", u"120"};

// Place of the preview in the browser, twips.
inline constexpr Key kPreviewTop{u"Preview", u"Top", u"0"};
inline constexpr Key kPreviewLeft{u"Preview", u"Left", u"0"};
inline constexpr Key kPreviewWidth{u"Preview", u"Width", u"0"};
inline constexpr Key kPreviewHeight{u"Preview", u"Height", u"0"};

// What a search looks into, flags. The names of the first two stand crosswise to what they keep: stored
// values keep their meaning so.
inline constexpr Key kSearchInNoteText{u"Search", u"IncludeURL", u"1"};
inline constexpr Key kSearchInLocation{u"Search", u"IncludeNoteText", u"1"};
inline constexpr Key kSearchExactMatch{u"Search", u"ExactMatch", u"0"};

// Place of the window list, twips, and its view: 0 large icons, 1 small icons, 2 list, 3 details.
inline constexpr Key kTaskListTop{u"TaskList", u"Top", u"0"};
inline constexpr Key kTaskListLeft{u"TaskList", u"Left", u"0"};
inline constexpr Key kTaskListWidth{u"TaskList", u"Width", u"9000"};
inline constexpr Key kTaskListHeight{u"TaskList", u"Height", u"6000"};
inline constexpr Key kTaskListView{u"TaskList", u"LastListView", u"3"};

/// The command lines that were started lately, in the keys "Command1", "Command2", …
inline constexpr QStringView kRunSection = u"Run";

/// The stored text, or the key's default.
inline QString read(const SettingsStore &store, const Key &key)
{
    return store.get(key.section.toString(), key.name.toString(), key.defaultValue.toString());
}

/// The stored text, or a default that only the reader knows.
inline QString read(const SettingsStore &store, const Key &key, const QString &defaultValue)
{
    return store.get(key.section.toString(), key.name.toString(), defaultValue);
}

inline void save(SettingsStore &store, const Key &key, const QString &value)
{
    store.save(key.section.toString(), key.name.toString(), value);
}

} // namespace norvane::settings
