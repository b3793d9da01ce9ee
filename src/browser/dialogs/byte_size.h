#pragma once

#include <QLocale>
#include <QString>

namespace norvane {

/// A number of bytes in a larger unit: 0 is Kb, 1 Mb, 2 Gb, 3 Tb. Empty for a unit above 3.
/// @param suffix   whether the unit is named behind the number
/// @param mask     whether thousands are grouped; a whole number then keeps its decimal point: "2. Kb"
/// @param decimals at most so many; halves are rounded to even
QString FormatByteSize(double bytes, int unit, bool suffix, bool mask, int decimals,
                       const QLocale &locale = QLocale());

/// What is shown as the size of a note's file: "0 Byte", "1023 Bytes", "1. Kb", "12.5 Kb".
/// @param bytes below 0: there is no such file
QString fileSizeText(qint64 bytes, const QLocale &locale = QLocale());

} // namespace norvane
