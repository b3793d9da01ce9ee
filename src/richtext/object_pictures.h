#pragma once

#include "richtext/rtf/operations.h"

#include <optional>

namespace norvane {

/// How objects that carry a file are shown in a text.

/// A picture file as the picture that stands for it: as large as it is, within the width of a
/// column. A large one is made smaller: the object has it whole. Nothing when the bytes are no picture.
std::optional<rtf::Picture> pictureOfFile(const QByteArray &bytes);

/// The icon of a file's type with a text beneath it, on a light ground of its own, so that it can be
/// read on any paper.
/// @param fileName tells the type; nothing is read
rtf::Picture iconOfFile(const QString &fileName, const QString &label);

/// The picture as an object of class "Package" that carries the file.
/// @param source name of the file; a path tells others about this machine
rtf::Picture packaged(rtf::Picture shown, const QString &label, const QString &source,
                      const QByteArray &bytes);

} // namespace norvane
