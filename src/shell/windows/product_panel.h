#pragma once

class QString;
class QVBoxLayout;

namespace norvane {

/// What a window tells of the program: its picture, its name, its version and what it is, one below the
/// other.
/// @param picture object name of the picture
/// @param version the line of `lblVersion`
QVBoxLayout *productPanel(const QString &picture, const QString &version);

} // namespace norvane
