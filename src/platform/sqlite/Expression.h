#pragma once

#include <QString>
#include <QVariant>
#include <optional>
#include <vector>

namespace norvane::dao {

/// A condition or a value as a tree.
struct Expression
{
    enum class Kind {
        Literal,     ///< value: Null, bool, whole number, double, text or date
        Column,      ///< name
        And,         ///< two children or more
        Or,          ///< two children or more
        Not,         ///< one child
        Compare,     ///< name is the operator; two children
        Like,        ///< text, pattern
        Between,     ///< value, low, high
        In,          ///< value, then the list
        IsNull,      ///< one child
        Negate,      ///< one child
        Add,         ///< two children
        Subtract,    ///< two children
        Concatenate, ///< two children
        Call,        ///< name in lower case; the arguments
    };

    Kind kind = Kind::Literal;
    QString name;
    QVariant value;
    bool negated = false; ///< "not like", "not between", "not in", "is not null"
    std::vector<Expression> children;
};

struct SelectItem
{
    QString aggregate; ///< count, max, min or empty
    QString column;    ///< empty for count(*)
    QString alias;     ///< empty when there is none
};

struct OrderItem
{
    QString column;
    bool descending = false;
};

struct SelectStatement
{
    std::vector<SelectItem> items; ///< empty for "*"
    QString table;
    std::optional<Expression> where;
    std::vector<OrderItem> order;
};

} // namespace norvane::dao
