#pragma once

#include <QString>

namespace norvane::rtf {

/// Whether a text may hold the unit as it is, whatever stands beside it.
bool isUsualUnit(QChar unit);
/// Takes out what a text may not hold: control characters, units that mean structure to a text
/// document, halves of surrogate pairs.
QString cleanedText(const QString &text);

} // namespace norvane::rtf
