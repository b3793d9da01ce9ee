#pragma once

class QTextStream;

namespace norvane {

/// Prints the table of windows that the watcher sees, a line each: handle, class, caption, location,
/// between tabs. Waits a few seconds at most for the locations of browsers and folders. Raises 6
/// when the settings name more classes than can be.
void printWindowTable(QTextStream &out);

} // namespace norvane
