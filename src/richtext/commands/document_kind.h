#pragma once

#include <QString>

namespace norvane {

/// The extension by which a document's kind is told: up to three characters behind the first "." of
/// the whole path, in upper case. A dot in a folder's name counts. Empty without a dot.
QString documentExtension(const QString &path);

} // namespace norvane
