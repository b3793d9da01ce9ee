#pragma once

#include <QDateTime>
#include <QString>
#include <QVariant>
#include <optional>

namespace norvane {

/// What kind of value a cell holds. All but texts are kept as a number.
enum class CellKind : quint8 {
    Unset,
    Text,
    Whole,
    Real,
    Date,    ///< days since December 30, 1899, with the time of the day as fraction
    Boolean, ///< True is -1
};

/// The value of a cell as it stands, without a copy of its text.
struct CellValue
{
    CellKind kind = CellKind::Unset;
    double number = 0;   ///< 0 for Unset and Text
    const QString *text; ///< never null; empty for all but Text

    bool isDate() const { return kind == CellKind::Date; }
};

double dateNumber(const QDateTime &date);
/// The day and the time of such a number, for those who need no time zone.
struct DayAndTime
{
    QDate day;
    int milliseconds = 0; ///< of the day
};
DayAndTime dayAndTime(double number);
/// Local, to the millisecond.
QDateTime dateOfNumber(double number);

/// What is kept of a value. A null value is Unset, an invalid date too; a value of a type that a cell
/// cannot hold is kept as its text.
struct KeptValue
{
    CellKind kind = CellKind::Unset;
    double number = 0;
    QString text;
};
KeptValue keptValue(const QVariant &value);
/// The other way; invalid for Unset.
QVariant variantOf(const CellValue &value);

/// The value as text: numbers with up to 15 digits and a decimal point, "True" and "False", dates as the
/// user's short date with the time behind it where there is one; empty for Unset.
QString valueText(const CellValue &value);
/// The value by a column's format: for dates "Short Date", "Short Time", "Long Date", "Long Time" and
/// "General Date", for numbers "0", or "0." with as many zeros as there shall be decimals, each also
/// as "#,##0" with the user's separators; without regard to case. Other formats, and formats that are
/// not for this kind, leave valueText().
QString formattedValue(const CellValue &value, const QString &format);

/// The value as a number: 0 for Unset; a text must be one number whole, with a decimal point whatever the
/// user's settings, blanks around it apart. Nothing when it is not.
std::optional<double> valueNumber(const CellValue &value);

} // namespace norvane
