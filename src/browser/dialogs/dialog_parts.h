#pragma once

#include <QString>

class QLabel;
class QPushButton;
class QWidget;

namespace norvane {

/// A small button "..." that leads to where something can be chosen.
QPushButton *browseButton(const QString &objectName, const QString &accessibleName);

/// The caption of a control, whose access key leads to the control.
QLabel *caption(const QString &text, QWidget *buddy);

} // namespace norvane
