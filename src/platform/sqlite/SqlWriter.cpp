#include "platform/sqlite/SqlWriter.h"

#include "platform/RuntimeError.h"
#include "platform/errors.h"
#include "platform/sqlite/text_functions.h"
#include "platform/sqlite/values.h"

namespace norvane::dao {

namespace {

using Kind = Expression::Kind;

enum class Type {
    Null,
    Number,
    Boolean, ///< a Yes/No value: -1 or 0
    Truth,   ///< what SQL calls true: 1 or 0
    Text,
    Date,
};

struct Function
{
    const char16_t *name;
    const char *sql;
    int fewest;
    int most;
    int firstNumber; ///< arguments from here on are numbers
    Type result;
};

constexpr int kNoNumber = 99;
constexpr Function kFunctions[] = {
    {u"left", "nv_left", 2, 2, 1, Type::Text},
    {u"right", "nv_right", 2, 2, 1, Type::Text},
    {u"mid", "nv_mid", 2, 3, 1, Type::Text},
    {u"len", "nv_len", 1, 1, kNoNumber, Type::Number},
    {u"instr", "nv_instr", 2, 4, kNoNumber, Type::Number},
    {u"lcase", "nv_lcase", 1, 1, kNoNumber, Type::Text},
    {u"ucase", "nv_ucase", 1, 1, kNoNumber, Type::Text},
    {u"trim", "trim", 1, 1, kNoNumber, Type::Text},
    {u"ltrim", "ltrim", 1, 1, kNoNumber, Type::Text},
    {u"rtrim", "rtrim", 1, 1, kNoNumber, Type::Text},
    {u"format", "nv_format", 2, 2, kNoNumber, Type::Text},
};

const Function &functionOf(const Expression &call)
{
    const auto arguments = static_cast<int>(call.children.size());
    for (const Function &function : kFunctions) {
        if (call.name != QStringView(function.name))
            continue;
        if (arguments < function.fewest || arguments > function.most)
            throw RuntimeError(
                kErrorSyntax,
                QStringLiteral("Wrong number of arguments for the function '%1'.").arg(call.name));
        return function;
    }
    throw RuntimeError(kErrorSyntax, QStringLiteral("Unknown function '%1' in the query.").arg(call.name));
}

[[noreturn]] void raiseMismatch()
{
    throw RuntimeError(kErrorTypeMismatch, QStringLiteral("Data type mismatch in the query's condition."));
}

Type typeOf(FieldType type)
{
    switch (type) {
    case FieldType::Boolean:
        return Type::Boolean;
    case FieldType::Integer:
    case FieldType::Long:
        return Type::Number;
    case FieldType::Date:
        return Type::Date;
    case FieldType::Text:
    case FieldType::Memo:
        return Type::Text;
    }
    return Type::Null;
}

Type typeOf(const QVariant &literal)
{
    switch (literal.typeId()) {
    case QMetaType::UnknownType:
        return Type::Null;
    case QMetaType::Bool:
        return Type::Boolean;
    case QMetaType::QString:
        return Type::Text;
    case QMetaType::QDateTime:
        return Type::Date;
    default:
        return Type::Number;
    }
}

bool isNumeric(Type type)
{
    return type == Type::Number || type == Type::Boolean || type == Type::Truth;
}

class Writer
{
public:
    explicit Writer(const QVector<VisibleColumn> &columns) : m_columns(columns) {}

    void condition(const Expression &expression)
    {
        const Type type = typeIn(expression);
        if (type == Type::Text || type == Type::Date)
            raiseMismatch();
        if (type == Type::Truth)
            truth(expression);
        else
            value(expression);
    }

    SqlText result;

private:
    void put(const char *sql) { result.sql += sql; }
    void parameter(const QVariant &value)
    {
        result.sql += '?';
        result.values.append(value);
    }

    const VisibleColumn &column(const QString &name) const
    {
        if (const VisibleColumn *found = findColumn(m_columns, name))
            return *found;
        throw RuntimeError(kErrorItemNotFound, QStringLiteral("There is no field '%1' here.").arg(name));
    }

    Type typeIn(const Expression &expression) const
    {
        switch (expression.kind) {
        case Kind::Literal:
            return typeOf(expression.value);
        case Kind::Column:
            return typeOf(column(expression.name).field.type);
        case Kind::Negate:
        case Kind::Subtract:
            return Type::Number;
        case Kind::Add: {
            const Type left = typeIn(expression.children[0]);
            const Type right = typeIn(expression.children[1]);
            return left == Type::Text || right == Type::Text ? Type::Text : Type::Number;
        }
        case Kind::Concatenate:
            return Type::Text;
        case Kind::Call:
            return functionOf(expression).result;
        default:
            return Type::Truth;
        }
    }

    /// The two types side by side, as one type to compare in. Raises when there is none.
    static Type common(Type left, Type right)
    {
        if (left == Type::Null || right == Type::Null)
            return Type::Null;
        if (isNumeric(left) && isNumeric(right))
            return Type::Number;
        if (left == right)
            return left;
        if ((left == Type::Date && right == Type::Text) || (left == Type::Text && right == Type::Date))
            return Type::Date;
        raiseMismatch();
    }

    bool isExact(const Expression &expression) const
    {
        return expression.kind == Kind::Column &&
               column(expression.name).field.name.compare(u"URL", Qt::CaseInsensitive) == 0;
    }

    /// An operand of a comparison of this type.
    void operand(const Expression &expression, Type type, bool exact)
    {
        if (type == Type::Text && !exact) {
            if (expression.kind == Kind::Literal) {
                parameter(QString::fromUtf8(textKey(expression.value.toString())));
                return;
            }
            put("nv_key(");
            value(expression);
            put(")");
            return;
        }
        if (type == Type::Date && typeIn(expression) == Type::Text) {
            const QDateTime date =
                expression.kind == Kind::Literal ? dateFromLiteral(expression.value.toString()) : QDateTime();
            if (!date.isValid())
                raiseMismatch();
            parameter(date);
            return;
        }
        value(expression);
    }

    /// SQL's true or false.
    void truth(const Expression &expression)
    {
        put("(");
        switch (expression.kind) {
        case Kind::And:
            joined(expression.children, " AND ", 0, expression.children.size());
            break;
        case Kind::Or:
            joined(expression.children, " OR ", 0, expression.children.size());
            break;
        case Kind::Not:
            put("NOT ");
            condition(expression.children[0]);
            break;
        case Kind::Compare:
            comparison(expression);
            break;
        case Kind::Like:
            put(expression.negated ? "NOT nv_like(" : "nv_like(");
            value(expression.children[0]);
            put(",");
            value(expression.children[1]);
            put(")");
            break;
        case Kind::Between:
        case Kind::In:
            range(expression);
            break;
        case Kind::IsNull:
            value(expression.children[0]);
            put(expression.negated ? " IS NOT NULL" : " IS NULL");
            break;
        default:
            value(expression);
            break;
        }
        put(")");
    }

    /// Halves, so that a long row of terms does not become a deep tree.
    void joined(const std::vector<Expression> &terms, const char *word, std::size_t from, std::size_t count)
    {
        if (count == 1) {
            condition(terms[from]);
            return;
        }
        put("(");
        joined(terms, word, from, count / 2);
        put(word);
        joined(terms, word, from + count / 2, count - count / 2);
        put(")");
    }

    void comparison(const Expression &expression)
    {
        const Expression &left = expression.children[0];
        const Expression &right = expression.children[1];
        const Type type = common(typeIn(left), typeIn(right));
        const bool equality = expression.name == u"=" || expression.name == u"<>";
        const bool exact = equality && type == Type::Text && (isExact(left) || isExact(right));
        operand(left, type, exact);
        result.sql += expression.name.toLatin1();
        operand(right, type, exact);
    }

    void range(const Expression &expression)
    {
        const Expression &tested = expression.children[0];
        Type type = typeIn(tested);
        for (std::size_t i = 1; i < expression.children.size(); ++i) {
            const Type other = common(type, typeIn(expression.children[i]));
            if (other != Type::Null)
                type = other;
        }
        const bool list = expression.kind == Kind::In;
        const bool exact = list && type == Type::Text && isExact(tested);
        operand(tested, type, exact);
        put(expression.negated ? " NOT" : "");
        put(list ? " IN (" : " BETWEEN ");
        for (std::size_t i = 1; i < expression.children.size(); ++i) {
            if (i > 1)
                put(list ? "," : " AND ");
            operand(expression.children[i], type, exact);
        }
        put(list ? ")" : "");
    }

    void number(const Expression &expression)
    {
        const Type type = typeIn(expression);
        if (!isNumeric(type) && type != Type::Null)
            raiseMismatch();
        value(expression);
    }

    /// A value that may stand in a comparison: true is -1.
    void value(const Expression &expression)
    {
        switch (expression.kind) {
        case Kind::Literal:
            parameter(expression.value);
            break;
        case Kind::Column:
            columnValue(column(expression.name).field);
            break;
        case Kind::Negate:
            put("(-");
            number(expression.children[0]);
            put(")");
            break;
        case Kind::Add:
            if (typeIn(expression) == Type::Text)
                concatenation(expression, false);
            else
                sum(expression, "+");
            break;
        case Kind::Subtract:
            sum(expression, "-");
            break;
        case Kind::Concatenate:
            concatenation(expression, true);
            break;
        case Kind::Call:
            call(expression);
            break;
        default:
            put("(-");
            truth(expression);
            put(")");
        }
    }

    /// True is -1 whatever another program wrote, and a Yes/No field is never Null.
    void columnValue(const FieldDef &field)
    {
        const QByteArray name = quoted(field.name);
        result.sql += field.type == FieldType::Boolean ? "(-(ifnull(" + name + ",0)<>0))" : name;
    }

    void sum(const Expression &expression, const char *sign)
    {
        put("(");
        number(expression.children[0]);
        put(sign);
        number(expression.children[1]);
        put(")");
    }

    /// "&" takes Null for the empty text, "+" gives Null.
    void concatenation(const Expression &expression, bool nullIsEmpty)
    {
        put("(");
        for (std::size_t i = 0; i < 2; ++i) {
            if (i == 1)
                put("||");
            put(nullIsEmpty ? "ifnull(" : "(");
            value(expression.children[i]);
            put(nullIsEmpty ? ",'')" : ")");
        }
        put(")");
    }

    void call(const Expression &expression)
    {
        const Function &function = functionOf(expression);
        if (expression.name == u"instr") {
            inStr(expression);
            return;
        }
        put(function.sql);
        for (std::size_t i = 0; i < expression.children.size(); ++i) {
            put(i == 0 ? "(" : ",");
            if (static_cast<int>(i) >= function.firstNumber)
                number(expression.children[i]);
            else
                value(expression.children[i]);
        }
        put(")");
    }

    /// InStr([start,] text, part [, compare]); every comparison is without case.
    void inStr(const Expression &expression)
    {
        const std::vector<Expression> &arguments = expression.children;
        const std::size_t texts = arguments.size() > 2 ? 1 : 0;
        put("nv_instr(");
        if (texts == 1)
            number(arguments[0]);
        else
            put("1");
        put(",");
        value(arguments[texts]);
        put(",");
        value(arguments[texts + 1]);
        put(")");
    }

    const QVector<VisibleColumn> &m_columns;
};

} // namespace

QByteArray quoted(const QString &name)
{
    QString doubled = name;
    doubled.replace(u'"', QStringLiteral("\"\""));
    return '"' + doubled.toUtf8() + '"';
}

const VisibleColumn *findColumn(const QVector<VisibleColumn> &columns, const QString &name)
{
    for (const VisibleColumn &column : columns)
        if (column.name.compare(name, Qt::CaseInsensitive) == 0)
            return &column;
    return nullptr;
}

SqlText sqlCondition(const Expression &condition, const QVector<VisibleColumn> &columns)
{
    Writer writer(columns);
    writer.result.sql = "(";
    writer.condition(condition);
    writer.result.sql += ")";
    return std::move(writer.result);
}

QByteArray sqlOrder(const std::vector<OrderItem> &order, const QVector<VisibleColumn> &columns)
{
    QByteArray sql;
    for (const OrderItem &item : order) {
        const VisibleColumn *column = findColumn(columns, item.column);
        if (!column)
            throw RuntimeError(kErrorItemNotFound,
                               QStringLiteral("There is no field '%1' here.").arg(item.column));
        const bool text = typeOf(column->field.type) == Type::Text;
        sql += (text ? "nv_key(" + quoted(column->field.name) + ")" : quoted(column->field.name)) +
               (item.descending ? " DESC," : ",");
    }
    return sql + "rowid";
}

} // namespace norvane::dao
