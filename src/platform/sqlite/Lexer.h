#pragma once

#include <QString>
#include <QVariant>
#include <vector>

namespace norvane::dao {

struct Token
{
    enum class Kind { Name, Bracketed, Text, Number, Date, Symbol, End };

    Kind kind = Kind::End;
    QString text;   ///< a name as it is written, or the symbol
    QVariant value; ///< of a text, number or date
    qsizetype position = 0;
};

/// Cuts a condition or statement into tokens, with one of Kind::End behind them. Raises 3075 for
/// what is no token, above all for a text, date or name that does not end.
std::vector<Token> tokens(const QString &statement);

/// Raises 3075 with the place in the statement.
[[noreturn]] void raiseSyntax(const QString &reason, qsizetype position);

} // namespace norvane::dao
