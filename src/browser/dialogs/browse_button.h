#pragma once

#include <QString>

class QPushButton;

namespace norvane {

/// A small button "..." that leads to where something can be chosen.
QPushButton *browseButton(const QString &objectName, const QString &accessibleName);

} // namespace norvane
