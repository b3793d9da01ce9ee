#pragma once

#include "richtext/rtf/operations.h"

#include <functional>

namespace norvane::rtf {

/// The group of an object up to where its result begins; two groups are open at its end, and a word
/// was written last.
/// @param piece what is written for a piece that the object keeps
QByteArray objectGroupBegin(const EmbeddedObject &object,
                            const std::function<QByteArray(const QByteArray &)> &piece);

} // namespace norvane::rtf
