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

/// Shows an error that no routine has handled, with its number and its description; the program goes on.
void showRuntimeError(Prompts &prompts, const RuntimeError &error);

/// Shows a message in a box with the program's title.
/// @param style the icon of the box; that of a warning unless it is told
void tell(Prompts &prompts, const QString &text);
void tell(Prompts &prompts, const QString &text, int style);

/// Asks a question in a box with the program's title.
/// @param style the icon of the box, and what else of Prompts belongs to it
/// @return whether the answer was Yes
bool ask(Prompts &prompts, const QString &question, int style);

} // namespace norvane
