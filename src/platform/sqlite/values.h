#pragma once

#include "platform/dao.h"

#include <QDateTime>
#include <QString>
#include <QVariant>
#include <optional>
#include <string_view>

namespace norvane::dao {

class Statement;

/// Dates stand in the file as local "yyyy-MM-dd HH:mm:ss", which sorts as text.
QString storedDate(const QDateTime &date);
struct StoredDate
{
    QDate day;
    QTime time;
};
/// Nothing when the text is no such date.
std::optional<StoredDate> storedDateOf(std::string_view text);
/// A date as it stands between "#" in a condition, or in quotes beside a date: year first, or month
/// first with slashes, with or without a time. An invalid date when it is none.
QDateTime dateFromLiteral(const QString &text);

/// The value in the kind of the field. Raises 13 when it is of another kind, 6 when it does not
/// fit. Null stays Null, but is False in a Yes/No field.
QVariant converted(const FieldDef &field, const QVariant &value);
/// Raises 3163 when a text is too long, 3315 when it is empty and may not be.
void checkText(const FieldDef &field, const QVariant &value);
/// The default of a new record's field in its kind.
QVariant defaultOf(const FieldDef &field);

/// Column @p column of the current row in the kind of the field.
QVariant readField(const Statement &row, int column, FieldType type);

} // namespace norvane::dao
