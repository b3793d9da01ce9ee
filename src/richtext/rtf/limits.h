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
/// Of all pictures of a document.
inline constexpr qsizetype kMaximumPicturesBytes = qsizetype(256) << 20;
inline constexpr int kMaximumTabs = 64;
/// Lengths on a page: 22 inches.
inline constexpr int kMaximumTwips = 31'680;
inline constexpr int kMaximumHalfPoints = 3'276;

} // namespace norvane::rtf
