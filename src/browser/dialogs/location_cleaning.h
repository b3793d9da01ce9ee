#pragma once

#include <QString>

namespace norvane {

/// A location as it is kept, out of one that somebody has typed, pasted or chosen: without the blanks and
/// quotes around it and without the separator at a folder's end, an address with its scheme.
///
/// Addresses keep the slash at their end, by which the watcher knows them.
QString cleanLocation(const QString &text);

} // namespace norvane
