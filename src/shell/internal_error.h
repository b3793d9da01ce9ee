#pragma once

#include <QString>

namespace norvane {

class Prompts;
class RuntimeError;

/// The program's title, as message boxes show it; the name of its settings too.
inline constexpr QStringView kApplicationTitle = u"Norvane";

/// The common report of an error from which the program cannot go on: what failed, the number of
/// the error, its description. Lines are separated by carriage return and line feed.
/// @param what "Norvane Startup Failed.", …
QString internalErrorText(const QString &what, const RuntimeError &error);

/// Shows that report in a box of its own title.
void showInternalError(Prompts &prompts, const QString &what, const RuntimeError &error);

} // namespace norvane
