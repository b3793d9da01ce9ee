#include "platform/sqlite/Parser.h"

#include "platform/sqlite/Lexer.h"

#include <array>

namespace norvane::dao {

namespace {

/// Parentheses, calls, "not" and signs within each other.
constexpr int kDeepest = 50;
constexpr int kMostNodes = 10'000;
constexpr std::size_t kMostItems = 200;

constexpr std::array kReserved = {u"select", u"from",  u"where",   u"order", u"by",  u"and",
                                  u"or",     u"not",   u"like",    u"in",    u"is",  u"null",
                                  u"true",   u"false", u"between", u"as",    u"asc", u"desc"};
constexpr std::array kAggregates = {u"count", u"max", u"min"};

template <typename Words> bool isOneOf(const QString &word, const Words &words)
{
    for (const auto *each : words)
        if (word.compare(QStringView(each), Qt::CaseInsensitive) == 0)
            return true;
    return false;
}

using Kind = Expression::Kind;

class Parser
{
public:
    explicit Parser(const QString &text) : m_tokens(tokens(text)) {}

    Expression condition()
    {
        Expression result = disjunction();
        expectEnd();
        return result;
    }

    SelectStatement select()
    {
        SelectStatement result;
        expectWord(u"select");
        if (!takeSymbol(u"*")) {
            do {
                if (result.items.size() >= kMostItems)
                    fail(QStringLiteral("too many columns"));
                result.items.push_back(selectItem());
            } while (takeSymbol(u","));
        }
        expectWord(u"from");
        result.table = name();
        if (takeWord(u"where"))
            result.where = disjunction();
        if (takeWord(u"order")) {
            expectWord(u"by");
            do {
                if (result.order.size() >= kMostItems)
                    fail(QStringLiteral("too many columns"));
                OrderItem item;
                item.column = columnName();
                item.descending = takeWord(u"desc");
                if (!item.descending)
                    takeWord(u"asc");
                result.order.push_back(std::move(item));
            } while (takeSymbol(u","));
        }
        expectEnd();
        return result;
    }

private:
    /// Counts one level down while it lives.
    class Level
    {
    public:
        explicit Level(Parser &parser) : m_parser(parser)
        {
            if (++parser.m_depth > kDeepest)
                parser.fail(QStringLiteral("nested too deeply"));
        }
        ~Level() { --m_parser.m_depth; }
        Level(const Level &) = delete;
        Level &operator=(const Level &) = delete;

    private:
        Parser &m_parser;
    };

    const Token &token() const { return m_tokens[m_place]; }
    [[noreturn]] void fail(const QString &reason) const { raiseSyntax(reason, token().position); }

    bool isWord(const Token &token, QStringView word) const
    {
        return token.kind == Token::Kind::Name && token.text.compare(word, Qt::CaseInsensitive) == 0;
    }
    bool takeWord(QStringView word)
    {
        if (!isWord(token(), word))
            return false;
        ++m_place;
        return true;
    }
    void expectWord(QStringView word)
    {
        if (!takeWord(word))
            fail(QStringLiteral("'%1' expected").arg(word));
    }
    bool isSymbol(QStringView symbol) const
    {
        return token().kind == Token::Kind::Symbol && token().text == symbol;
    }
    bool takeSymbol(QStringView symbol)
    {
        if (!isSymbol(symbol))
            return false;
        ++m_place;
        return true;
    }
    void expectSymbol(QStringView symbol)
    {
        if (!takeSymbol(symbol))
            fail(QStringLiteral("'%1' expected").arg(symbol));
    }
    void expectEnd() const
    {
        if (token().kind != Token::Kind::End)
            fail(QStringLiteral("something stands behind the end"));
    }

    QString name()
    {
        const bool plain = token().kind == Token::Kind::Name && !isOneOf(token().text, kReserved);
        if (!plain && token().kind != Token::Kind::Bracketed)
            fail(QStringLiteral("a name expected"));
        return m_tokens[m_place++].text;
    }

    /// A column, with or without its table before it. There is one table only.
    QString columnName()
    {
        QString result = name();
        if (takeSymbol(u"."))
            result = name();
        return result;
    }

    SelectItem selectItem()
    {
        SelectItem item;
        if (token().kind == Token::Kind::Name && isOneOf(token().text, kAggregates) &&
            m_tokens[m_place + 1].text == u"(" && m_tokens[m_place + 1].kind == Token::Kind::Symbol) {
            item.aggregate = token().text.toLower();
            m_place += 2;
            if (item.aggregate != u"count" || !takeSymbol(u"*"))
                item.column = columnName();
            expectSymbol(u")");
        } else {
            item.column = columnName();
        }
        if (takeWord(u"as"))
            item.alias = name();
        return item;
    }

    Expression node(Kind kind, std::vector<Expression> children = {})
    {
        if (++m_nodes > kMostNodes)
            fail(QStringLiteral("too many terms"));
        Expression result;
        result.kind = kind;
        result.children = std::move(children);
        return result;
    }

    Expression pair(Kind kind, Expression left, Expression right)
    {
        Expression result = node(kind);
        result.children.push_back(std::move(left));
        result.children.push_back(std::move(right));
        return result;
    }

    Expression disjunction()
    {
        Expression first = conjunction();
        if (!isWord(token(), u"or"))
            return first;
        Expression result = node(Kind::Or);
        result.children.push_back(std::move(first));
        while (takeWord(u"or"))
            result.children.push_back(conjunction());
        return result;
    }

    Expression conjunction()
    {
        Expression first = negation();
        if (!isWord(token(), u"and"))
            return first;
        Expression result = node(Kind::And);
        result.children.push_back(std::move(first));
        while (takeWord(u"and"))
            result.children.push_back(negation());
        return result;
    }

    Expression negation()
    {
        if (!takeWord(u"not"))
            return comparison();
        const Level level(*this);
        Expression result = node(Kind::Not);
        result.children.push_back(negation());
        return result;
    }

    Expression comparison()
    {
        Expression left = concatenation();
        for (;;) {
            if (token().kind == Token::Kind::Symbol && isComparison(token().text)) {
                const QString operation = m_tokens[m_place++].text;
                chain();
                left = pair(Kind::Compare, std::move(left), concatenation());
                left.name = operation;
                continue;
            }
            if (takeWord(u"is")) {
                chain();
                const bool negated = takeWord(u"not");
                expectWord(u"null");
                Expression test = node(Kind::IsNull);
                test.children.push_back(std::move(left));
                test.negated = negated;
                left = std::move(test);
                continue;
            }
            const bool negated = isWord(token(), u"not") && (isWord(m_tokens[m_place + 1], u"like") ||
                                                             isWord(m_tokens[m_place + 1], u"between") ||
                                                             isWord(m_tokens[m_place + 1], u"in"));
            if (negated)
                ++m_place;
            if (takeWord(u"like")) {
                chain();
                left = pair(Kind::Like, std::move(left), concatenation());
            } else if (takeWord(u"between")) {
                chain();
                left = between(std::move(left));
            } else if (takeWord(u"in")) {
                chain();
                left = in(std::move(left));
            } else {
                m_chain = 0;
                return left;
            }
            left.negated = negated;
        }
    }

    /// Comparisons of comparisons (a = b = c) and sums lean to the left and deepen the tree too.
    void chain()
    {
        if (++m_chain > kDeepest)
            fail(QStringLiteral("nested too deeply"));
    }

    static bool isComparison(const QString &symbol)
    {
        return symbol == u"=" || symbol == u"<>" || symbol == u"<" || symbol == u"<=" || symbol == u">" ||
               symbol == u">=";
    }

    Expression between(Expression value)
    {
        Expression low = concatenation();
        expectWord(u"and");
        Expression result = pair(Kind::Between, std::move(value), std::move(low));
        result.children.push_back(concatenation());
        return result;
    }

    Expression in(Expression value)
    {
        Expression result = node(Kind::In);
        result.children.push_back(std::move(value));
        expectSymbol(u"(");
        const Level level(*this);
        do
            result.children.push_back(concatenation());
        while (takeSymbol(u","));
        expectSymbol(u")");
        return result;
    }

    Expression concatenation()
    {
        Expression left = sum();
        int length = 0;
        while (takeSymbol(u"&")) {
            if (++length > kDeepest)
                fail(QStringLiteral("nested too deeply"));
            left = pair(Kind::Concatenate, std::move(left), sum());
        }
        return left;
    }

    Expression sum()
    {
        Expression left = factor();
        for (int length = 0; isSymbol(u"+") || isSymbol(u"-");) {
            if (++length > kDeepest)
                fail(QStringLiteral("nested too deeply"));
            const Kind kind = takeSymbol(u"+") ? Kind::Add : Kind::Subtract;
            if (kind == Kind::Subtract)
                ++m_place;
            left = pair(kind, std::move(left), factor());
        }
        return left;
    }

    Expression factor()
    {
        const Level level(*this);
        if (takeSymbol(u"-")) {
            Expression result = node(Kind::Negate);
            result.children.push_back(factor());
            return result;
        }
        if (takeSymbol(u"(")) {
            const int chained = std::exchange(m_chain, 0);
            Expression result = disjunction();
            m_chain = chained;
            expectSymbol(u")");
            return result;
        }
        const Token::Kind kind = token().kind;
        if (kind == Token::Kind::Text || kind == Token::Kind::Number || kind == Token::Kind::Date)
            return literal(m_tokens[m_place++].value);
        if (takeWord(u"null"))
            return literal({});
        if (takeWord(u"true"))
            return literal(true);
        if (takeWord(u"false"))
            return literal(false);
        if (kind == Token::Kind::Name && !isOneOf(token().text, kReserved) &&
            m_tokens[m_place + 1].kind == Token::Kind::Symbol && m_tokens[m_place + 1].text == u"(")
            return call();
        Expression result = node(Kind::Column);
        result.name = columnName();
        return result;
    }

    Expression literal(QVariant value)
    {
        Expression result = node(Kind::Literal);
        result.value = std::move(value);
        return result;
    }

    Expression call()
    {
        Expression result = node(Kind::Call);
        result.name = token().text.toLower();
        m_place += 2;
        const int chained = std::exchange(m_chain, 0);
        if (!takeSymbol(u")")) {
            do
                result.children.push_back(disjunction());
            while (takeSymbol(u","));
            expectSymbol(u")");
        }
        m_chain = chained;
        return result;
    }

    std::vector<Token> m_tokens;
    std::size_t m_place = 0;
    int m_depth = 0;
    int m_chain = 0;
    int m_nodes = 0;
};

} // namespace

Expression parseCondition(const QString &text)
{
    return Parser(text).condition();
}

SelectStatement parseSelect(const QString &text)
{
    return Parser(text).select();
}

} // namespace norvane::dao
