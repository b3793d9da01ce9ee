#pragma once

#include <QString>

namespace norvane::rtf {

/// Whether a text may hold the unit as it is, whatever stands beside it.
bool isUsualUnit(QChar unit);
/// Takes out what a text may not hold: control characters, units that mean structure to a text
/// document, halves of surrogate pairs.
QString cleanedText(const QString &text);
/// Whether a text has nothing but control characters, of which nothing is left.
bool isNothing(QStringView text);
/// The same of bytes below 0x80.
bool isNothing(QByteArrayView text);

} // namespace norvane::rtf
