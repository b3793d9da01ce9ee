#pragma once

#include <QString>

namespace norvane {

struct ImportResult;

/// What the user is told about an import that has come to its end or was stopped.
/// @param wanted how many notes were to be imported
QString importReport(const ImportResult &result, qsizetype wanted);

/// What the user is told about one that has failed: that it has, how far it came, and why.
QString importFailureReport(const ImportResult &result, qsizetype wanted);

/// How far an import came, in a line.
QString importProgressText(const ImportResult &result, qsizetype wanted);

} // namespace norvane
