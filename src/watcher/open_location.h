#pragma once

#include <QString>
#include <QStringList>

namespace norvane {

class Shell;

/// Opens a location with the program that the desktop has for it, without waiting for it.
///
/// @return true when it was handed over, false when @p location is empty
///
/// Raises the message of the shell's result, with source "Norvane.GShell" and the number that goes
/// with it: 7 memory, 53 file, 76 path, 75 access, 286 and 285 the program did not answer, 48
/// library; 0 for the results without a number.
bool OpenLocation(Shell &shell, const QString &location);

/// Starts a program as Shell::run() does. Raises as OpenLocation() does.
void RunProgram(Shell &shell, const QString &program, const QStringList &arguments);

} // namespace norvane
