#pragma once

#include <QtGlobal>

/// How much of a document is taken. What lies beyond is left out; the rest is read.
namespace norvane::rtf {

inline constexpr qsizetype kMaximumInputBytes = qsizetype(256) << 20;
/// Groups within groups; deeper ones are skipped. Real files reach a few thousand.
inline constexpr int kMaximumDepth = 16'384;
inline constexpr int kMaximumFonts = 65'536;
inline constexpr int kMaximumColors = 65'536;
inline constexpr qsizetype kMaximumFontNameLength = 128;
inline constexpr qsizetype kMaximumPictureBytes = qsizetype(64) << 20;
/// Of all pictures and objects of a document.
inline constexpr qsizetype kMaximumPicturesBytes = qsizetype(256) << 20;
/// Pixels of a picture at one side; a larger one is shown as an empty frame.
inline constexpr int kMaximumPictureSide = 32'768;
/// Of everything that is kept and not shown, pictures and objects apart.
inline constexpr qsizetype kMaximumKeptBytes = qsizetype(64) << 20;
/// Of the words that one format keeps.
inline constexpr qsizetype kMaximumKeptWordsLength = 512;
/// Fields and objects around each other; deeper ones are kept as their result alone.
inline constexpr int kMaximumWrapperDepth = 16;
inline constexpr int kMaximumWrappers = 100'000;
inline constexpr int kMaximumLists = 4'096;
/// Where the numbers of a list may begin.
inline constexpr int kMaximumStart = 1'000'000'000;
inline constexpr qsizetype kMaximumMarkLength = 64;
/// Tables within tables; the time of their layout doubles with each. Deeper ones are read as text.
inline constexpr int kMaximumTableDepth = 8;
inline constexpr int kMaximumCellsInRow = 128;
/// Further ones are read as text.
inline constexpr int kMaximumTables = 10'000;
inline constexpr qsizetype kMaximumLinkLength = 8'192;
inline constexpr int kMaximumTabs = 64;
/// Lengths on a page: 22 inches.
inline constexpr int kMaximumTwips = 31'680;
/// Of cells that end where they begin, or behind the longest length.
inline constexpr int kLeastCellWidth = 60;
inline constexpr int kMaximumHalfPoints = 3'276;
inline constexpr int kMaximumBorderWidth = 255;

} // namespace norvane::rtf
