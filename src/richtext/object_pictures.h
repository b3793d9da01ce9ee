#pragma once

#include "richtext/rtf/operations.h"

#include <optional>

namespace norvane {

/// How objects that carry a file are shown in a text.

/// Pixels, as a screen without scaling has them: no side of a picture is shown larger.
inline constexpr int kLargestShownSide = 480;

/// A picture file as the picture that stands for it, as large as it is within limits. Of a large one
/// it has fewer pixels: the object has it whole. Nothing when the bytes are no picture.
/// @param width pixels that it may be wide
std::optional<rtf::Picture> pictureOfFile(const QByteArray &bytes, int width = kLargestShownSide);

/// The icon of a file's type with a text beneath it, on a light ground of its own, so that it can be
/// read on any paper.
/// @param fileName tells the type; nothing is read
rtf::Picture iconOfFile(const QString &fileName, const QString &label);

/// The picture as an object of class "Package" that carries the file.
/// @param source name of the file; a path tells others about this machine
rtf::Picture packaged(rtf::Picture shown, const QString &label, const QString &source,
                      const QByteArray &bytes);

} // namespace norvane
