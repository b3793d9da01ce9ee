#include "platform/sqlite/text_functions.h"

#include "platform/RuntimeError.h"
#include "platform/sqlite/like_match.h"
#include "platform/sqlite/text_fold.h"
#include "platform/sqlite/values.h"

#include <QStringView>
#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <sqlite3.h>
#include <string_view>
#include <type_traits>

namespace norvane::dao {

namespace {

using Bytes = std::string_view;

QString wide(Bytes text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

Bytes textOf(sqlite3_value *value)
{
    const auto *bytes = reinterpret_cast<const char *>(sqlite3_value_text(value));
    return bytes ? Bytes(bytes, static_cast<std::size_t>(sqlite3_value_bytes(value))) : Bytes();
}

bool isNull(sqlite3_value *value)
{
    return sqlite3_value_type(value) == SQLITE_NULL;
}

void giveText(sqlite3_context *context, Bytes text)
{
    sqlite3_result_text64(context, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

void giveText(sqlite3_context *context, const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    giveText(context, Bytes(bytes.constData(), static_cast<std::size_t>(bytes.size())));
}

/// What is made of the folded form of an argument, once a statement where that is the same for all rows.
template <typename Made> class MadeOnce
{
public:
    MadeOnce(sqlite3_context *context, int index, sqlite3_value *value)
    {
        m_made = static_cast<const Made *>(sqlite3_get_auxdata(context, index));
        if (m_made)
            return;
        if constexpr (std::is_same_v<Made, FoldedText>)
            m_own = std::make_unique<FoldedText>(textOf(value));
        else
            m_own = std::make_unique<Made>(FoldedText(textOf(value)).bytes());
        m_made = m_own.get();
    }
    /// Last of all: SQLite may drop what is kept at once.
    void keep(sqlite3_context *context, int index)
    {
        if (m_own)
            sqlite3_set_auxdata(context, index, m_own.release(),
                                [](void *kept) { delete static_cast<Made *>(kept); });
    }
    const Made *operator->() const { return m_made; }

private:
    const Made *m_made = nullptr;
    std::unique_ptr<Made> m_own;
};

Bytes withoutTrailingBlanks(Bytes text)
{
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

void keyFunction(sqlite3_context *context, int, sqlite3_value **arguments)
{
    if (isNull(arguments[0]))
        return;
    giveText(context, FoldedText(withoutTrailingBlanks(textOf(arguments[0]))).bytes());
}

qsizetype count(sqlite3_value *value)
{
    return static_cast<qsizetype>(std::clamp<sqlite3_int64>(sqlite3_value_int64(value), -1, 0x7fffffff));
}

/// Shared by Left, Right and Mid, which differ in where the cut begins.
template <typename Cut>
void cutFunction(sqlite3_context *context, int argumentCount, sqlite3_value **arguments, Cut cut)
{
    for (int i = 0; i < argumentCount; ++i)
        if (isNull(arguments[i]))
            return;
    const Bytes text = textOf(arguments[0]);
    const bool ascii = isAsciiText(text);
    const QString wideText = ascii ? QString() : wide(text);
    const auto size = ascii ? static_cast<qsizetype>(text.size()) : wideText.size();
    qsizetype from = 0;
    qsizetype length = 0;
    if (!cut(size, from, length)) {
        sqlite3_result_error(context, "invalid argument", -1);
        return;
    }
    from = std::min(from, size);
    length = std::min(length, size - from);
    if (ascii)
        giveText(context, text.substr(static_cast<std::size_t>(from), static_cast<std::size_t>(length)));
    else
        giveText(context, wideText.mid(from, length));
}

void leftFunction(sqlite3_context *context, int argumentCount, sqlite3_value **arguments)
{
    cutFunction(context, argumentCount, arguments, [&](qsizetype, qsizetype &, qsizetype &length) {
        length = count(arguments[1]);
        return length >= 0;
    });
}

void rightFunction(sqlite3_context *context, int argumentCount, sqlite3_value **arguments)
{
    cutFunction(context, argumentCount, arguments, [&](qsizetype size, qsizetype &from, qsizetype &length) {
        length = count(arguments[1]);
        from = std::max<qsizetype>(0, size - length);
        return length >= 0;
    });
}

void midFunction(sqlite3_context *context, int argumentCount, sqlite3_value **arguments)
{
    cutFunction(context, argumentCount, arguments, [&](qsizetype size, qsizetype &from, qsizetype &length) {
        from = count(arguments[1]) - 1;
        length = argumentCount > 2 ? count(arguments[2]) : size;
        return from >= 0 && length >= 0;
    });
}

void lengthFunction(sqlite3_context *context, int, sqlite3_value **arguments)
{
    if (isNull(arguments[0]))
        return;
    const Bytes text = textOf(arguments[0]);
    sqlite3_result_int64(context,
                         isAsciiText(text) ? static_cast<sqlite3_int64>(text.size()) : wide(text).size());
}

/// InStr(start, text, part): an empty text, and an empty part, give 0.
void inStrFunction(sqlite3_context *context, int, sqlite3_value **arguments)
{
    for (int i = 0; i < 3; ++i)
        if (isNull(arguments[i]))
            return;
    const qsizetype start = count(arguments[0]);
    if (start < 1) {
        sqlite3_result_error(context, "invalid start", -1);
        return;
    }
    const Bytes partBytes = textOf(arguments[2]);
    if (partBytes.empty()) {
        sqlite3_result_int(context, 0);
        return;
    }
    MadeOnce<FoldedText> text(context, 1, arguments[1]);
    const FoldedText part(partBytes);
    sqlite3_int64 position = 0;
    if (text->isAscii() && part.isAscii()) {
        const Bytes whole = text->bytes();
        if (static_cast<std::size_t>(start - 1) < whole.size()) {
            const auto found = whole.find(part.bytes(), static_cast<std::size_t>(start - 1));
            position = found == Bytes::npos ? 0 : static_cast<sqlite3_int64>(found) + 1;
        }
    } else {
        position = text->text().indexOf(part.text(), start - 1) + 1;
    }
    sqlite3_result_int64(context, position);
    text.keep(context, 1);
}

template <bool Upper> void caseFunction(sqlite3_context *context, int, sqlite3_value **arguments)
{
    if (isNull(arguments[0]))
        return;
    const Bytes bytes = textOf(arguments[0]);
    if (!Upper && isAsciiText(bytes)) {
        giveText(context, FoldedText(bytes).bytes());
        return;
    }
    const QString text = wide(bytes);
    giveText(context, Upper ? text.toUpper() : text.toLower());
}

void likeFunction(sqlite3_context *context, int, sqlite3_value **arguments)
{
    if (isNull(arguments[0]) || isNull(arguments[1]))
        return;
    MadeOnce<LikePattern> pattern(context, 1, arguments[1]);
    const FoldedText text(textOf(arguments[0]));
    const LikeResult result = pattern->match(text.bytes());
    if (result == LikeResult::BadPattern)
        sqlite3_result_error(context, "invalid pattern", -1);
    else if (result == LikeResult::TooMuchWork)
        sqlite3_result_error(context, "the pattern takes too long", -1);
    else
        sqlite3_result_int(context, result == LikeResult::Yes ? 1 : 0);
    pattern.keep(context, 1);
}

/// Format(date, "yyyy-mm-dd hh:nn:ss") and Format(number, "000").
void formatFunction(sqlite3_context *context, int, sqlite3_value **arguments)
{
    if (isNull(arguments[0]) || isNull(arguments[1]))
        return;
    const Bytes formatBytes = textOf(arguments[1]);
    if (sqlite3_value_type(arguments[0]) == SQLITE_INTEGER) {
        const QString format = wide(formatBytes);
        if (format.isEmpty() || format.count(u'0') != format.size())
            sqlite3_result_error(context, "unknown number format", -1);
        else {
            const sqlite3_int64 number = sqlite3_value_int64(arguments[0]);
            const QString digits = QString::number(number).remove(u'-').rightJustified(format.size(), u'0');
            giveText(context, number < 0 ? u'-' + digits : digits);
        }
        return;
    }
    const Bytes stored = textOf(arguments[0]);
    const std::optional<StoredDate> date = storedDateOf(stored);
    if (!date) {
        sqlite3_result_error(context, "not a date", -1);
        return;
    }
    if (FoldedText(formatBytes).bytes() == "yyyy-mm-dd") {
        giveText(context, stored.substr(0, 10));
        return;
    }
    QString pattern = wide(formatBytes).toLower();
    pattern.replace(QStringLiteral("mm"), QStringLiteral("MM"));
    pattern.replace(QStringLiteral("nn"), QStringLiteral("mm"));
    pattern.replace(QStringLiteral("hh"), QStringLiteral("HH"));
    giveText(context, QDateTime(date->day, date->time, Qt::UTC).toString(pattern));
}

} // namespace

QByteArray textKey(const QString &text)
{
    qsizetype size = text.size();
    while (size > 0 && text.at(size - 1) == u' ')
        --size;
    return folded(text.left(size)).toUtf8();
}

void registerTextFunctions(sqlite3 *handle)
{
    struct Function
    {
        const char *name;
        int arguments;
        void (*run)(sqlite3_context *, int, sqlite3_value **);
    };
    constexpr Function kFunctions[] = {
        {"nv_key", 1, keyFunction},          {"nv_left", 2, leftFunction},
        {"nv_right", 2, rightFunction},      {"nv_mid", 2, midFunction},
        {"nv_mid", 3, midFunction},          {"nv_len", 1, lengthFunction},
        {"nv_instr", 3, inStrFunction},      {"nv_lcase", 1, caseFunction<false>},
        {"nv_ucase", 1, caseFunction<true>}, {"nv_like", 2, likeFunction},
        {"nv_format", 2, formatFunction},
    };
    for (const Function &function : kFunctions)
        sqlite3_create_function_v2(handle, function.name, function.arguments,
                                   SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY, nullptr,
                                   function.run, nullptr, nullptr, nullptr);
}

} // namespace norvane::dao
