#pragma once

#include <QStringList>

namespace norvane {

/// Starts a program that lives on by itself, in the home folder and with its output nowhere. False when it
/// did not start.
bool startDetached(const QString &program, const QStringList &arguments);

} // namespace norvane
