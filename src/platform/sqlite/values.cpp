#include "platform/sqlite/values.h"

#include "platform/RuntimeError.h"
#include "platform/errors.h"
#include "platform/sqlite/LocalDates.h"
#include "platform/sqlite/Statement.h"

#include <QRegularExpression>
#include <cmath>
#include <limits>

namespace norvane::dao {

namespace {

[[noreturn]] void raiseTypeMismatch(const FieldDef &field)
{
    throw RuntimeError(
        kErrorTypeMismatch,
        QStringLiteral("Type mismatch: the value does not suit the field '%1'.").arg(field.name));
}

qint64 inRange(const FieldDef &field, double number)
{
    const bool small = field.type == FieldType::Integer;
    const double low = small ? std::numeric_limits<qint16>::min() : std::numeric_limits<qint32>::min();
    const double high = small ? std::numeric_limits<qint16>::max() : std::numeric_limits<qint32>::max();
    const double rounded = std::nearbyint(number); // halves to even
    if (!(rounded >= low && rounded <= high))
        throw RuntimeError(kErrorOverflow, QStringLiteral("Overflow: %1 does not fit the field '%2'.")
                                               .arg(QString::number(number), field.name));
    return static_cast<qint64>(rounded);
}

double numberOf(const FieldDef &field, const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
        return value.toBool() ? -1 : 0;
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Float:
    case QMetaType::Double:
        return value.toDouble();
    case QMetaType::QString: {
        bool good = false;
        const double number = value.toString().trimmed().toDouble(&good);
        if (good)
            return number;
        break;
    }
    default:
        break;
    }
    raiseTypeMismatch(field);
}

bool boolOf(const FieldDef &field, const QVariant &value)
{
    if (value.typeId() == QMetaType::QString) {
        const QString word = value.toString().trimmed();
        for (const char16_t *yes : {u"true", u"yes", u"on"})
            if (word.compare(QStringView(yes), Qt::CaseInsensitive) == 0)
                return true;
        for (const char16_t *no : {u"false", u"no", u"off"})
            if (word.compare(QStringView(no), Qt::CaseInsensitive) == 0)
                return false;
    }
    return numberOf(field, value) != 0;
}

} // namespace

QString storedDate(const QDateTime &date)
{
    return date.toLocalTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

std::optional<StoredDate> storedDateOf(std::string_view text)
{
    if (text.size() != 19)
        return std::nullopt;
    const auto part = [text](std::size_t from, std::size_t length) {
        int number = 0;
        for (const char digit : text.substr(from, length)) {
            if (digit < '0' || digit > '9')
                return -1;
            number = number * 10 + (digit - '0');
        }
        return number;
    };
    const StoredDate date{QDate(part(0, 4), part(5, 2), part(8, 2)),
                          QTime(part(11, 2), part(14, 2), part(17, 2))};
    return date.day.isValid() && date.time.isValid() ? std::optional(date) : std::nullopt;
}

QDateTime dateFromLiteral(const QString &text)
{
    static const QRegularExpression shape(
        QStringLiteral("^\\s*(?:(\\d{4})-(\\d{1,2})-(\\d{1,2})|(\\d{1,2})/(\\d{1,2})/(\\d{4}))"
                       "(?:[ T](\\d{1,2}):(\\d{2})(?::(\\d{2}))?\\s*([aApP][mM])?)?\\s*$"));
    const QRegularExpressionMatch match = shape.match(text);
    if (!match.hasMatch())
        return {};
    const auto part = [&match](int group) { return match.capturedView(group).toInt(); };
    const QDate date =
        match.capturedLength(1) > 0 ? QDate(part(1), part(2), part(3)) : QDate(part(6), part(4), part(5));
    int hour = part(7);
    if (match.capturedLength(10) > 0) {
        if (hour < 1 || hour > 12)
            return {};
        const bool afternoon = match.capturedView(10).front().toLower() == u'p';
        hour = hour % 12 + (afternoon ? 12 : 0);
    }
    const QTime time(hour, part(8), part(9));
    return date.isValid() && time.isValid() ? QDateTime(date, time) : QDateTime();
}

QVariant converted(const FieldDef &field, const QVariant &value)
{
    if (!value.isValid() || value.isNull())
        return field.type == FieldType::Boolean ? QVariant(false) : QVariant();
    switch (field.type) {
    case FieldType::Boolean:
        return boolOf(field, value);
    case FieldType::Integer:
    case FieldType::Long:
        return static_cast<int>(inRange(field, numberOf(field, value)));
    case FieldType::Date: {
        QDateTime date;
        if (value.typeId() == QMetaType::QDateTime)
            date = value.toDateTime().toLocalTime();
        else if (value.typeId() == QMetaType::QDate)
            date = value.toDate().startOfDay();
        else if (value.typeId() == QMetaType::QString)
            date = dateFromLiteral(value.toString());
        if (!date.isValid())
            raiseTypeMismatch(field);
        if (date.date().year() < 100 || date.date().year() > 9999)
            throw RuntimeError(
                kErrorOverflow,
                QStringLiteral("Overflow: the date does not fit the field '%1'.").arg(field.name));
        return date.addMSecs(-date.time().msec());
    }
    case FieldType::Text:
    case FieldType::Memo:
        if (value.typeId() == QMetaType::QString)
            return value;
        return QString::number(numberOf(field, value), 'g', 15);
    }
    raiseTypeMismatch(field);
}

void checkText(const FieldDef &field, const QVariant &value)
{
    if (value.typeId() != QMetaType::QString)
        return;
    const QString text = value.toString();
    if (field.type == FieldType::Text && text.size() > field.size)
        throw RuntimeError(
            kErrorFieldTooLong,
            QStringLiteral("The text is too long for the field '%1', which holds %2 characters.")
                .arg(field.name)
                .arg(field.size));
    if (text.isEmpty() && !field.allowZeroLength)
        throw RuntimeError(kErrorNotZeroLength,
                           QStringLiteral("The field '%1' cannot be an empty text.").arg(field.name));
}

QVariant defaultOf(const FieldDef &field)
{
    const QString text = field.defaultValue.trimmed();
    if (text.isEmpty())
        return converted(field, {});
    return converted(field, text);
}

QVariant readField(const Statement &row, int column, FieldType type)
{
    if (row.isNull(column))
        return type == FieldType::Boolean ? QVariant(false) : QVariant();
    switch (type) {
    case FieldType::Boolean:
        return row.integer(column) != 0;
    case FieldType::Integer:
    case FieldType::Long:
        return static_cast<int>(row.integer(column));
    case FieldType::Date: {
        const std::optional<StoredDate> date = storedDateOf(row.bytes(column));
        return date ? QVariant(row.localDates()(date->day, date->time)) : QVariant();
    }
    case FieldType::Text:
    case FieldType::Memo:
        return row.text(column);
    }
    return {};
}

} // namespace norvane::dao
