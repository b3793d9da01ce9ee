#include "platform/sqlite/Lexer.h"

#include "platform/RuntimeError.h"
#include "platform/errors.h"
#include "platform/sqlite/values.h"

namespace norvane::dao {

namespace {

constexpr qsizetype kLongestStatement = 200'000;

class Lexer
{
public:
    explicit Lexer(const QString &statement) : m_statement(statement) {}

    std::vector<Token> run()
    {
        std::vector<Token> result;
        for (;;) {
            skipBlanks();
            result.push_back(next());
            if (result.back().kind == Token::Kind::End)
                return result;
        }
    }

private:
    QChar unit(qsizetype ahead = 0) const
    {
        const qsizetype place = m_place + ahead;
        return place < m_statement.size() ? m_statement.at(place) : QChar();
    }

    void skipBlanks()
    {
        while (m_place < m_statement.size() &&
               (unit() == u' ' || unit() == u'\t' || unit() == u'\r' || unit() == u'\n'))
            ++m_place;
    }

    Token next()
    {
        Token token;
        token.position = m_place;
        if (m_place >= m_statement.size())
            return token;
        const QChar first = unit();
        if (first == u'"' || first == u'\'')
            takeText(token, first);
        else if (first == u'#')
            takeDate(token);
        else if (first == u'[')
            takeBracketed(token);
        else if (isDigit(first) || (first == u'.' && isDigit(unit(1))))
            takeNumber(token);
        else if (first.isLetter() || first == u'_')
            takeName(token);
        else
            takeSymbol(token);
        return token;
    }

    static bool isDigit(QChar unit) { return unit >= u'0' && unit <= u'9'; }

    /// A quote within is written twice.
    void takeText(Token &token, QChar quote)
    {
        QString text;
        for (++m_place; m_place < m_statement.size(); ++m_place) {
            if (unit() == quote) {
                ++m_place;
                if (unit() != quote || m_place >= m_statement.size()) {
                    token.kind = Token::Kind::Text;
                    token.value = text;
                    return;
                }
            }
            text += unit();
        }
        raiseSyntax(QStringLiteral("a text does not end"), token.position);
    }

    void takeDate(Token &token)
    {
        const qsizetype end = m_statement.indexOf(u'#', m_place + 1);
        const QDateTime date =
            end < 0 ? QDateTime() : dateFromLiteral(m_statement.mid(m_place + 1, end - m_place - 1));
        if (!date.isValid())
            raiseSyntax(QStringLiteral("this is no date"), token.position);
        token.kind = Token::Kind::Date;
        token.value = date;
        m_place = end + 1;
    }

    void takeBracketed(Token &token)
    {
        const qsizetype end = m_statement.indexOf(u']', m_place + 1);
        if (end <= m_place + 1)
            raiseSyntax(QStringLiteral("a name in brackets does not end"), token.position);
        token.kind = Token::Kind::Bracketed;
        token.text = m_statement.mid(m_place + 1, end - m_place - 1);
        m_place = end + 1;
    }

    void takeNumber(Token &token)
    {
        const qsizetype from = m_place;
        bool whole = true;
        while (isDigit(unit()))
            ++m_place;
        if (unit() == u'.') {
            whole = false;
            ++m_place;
            while (isDigit(unit()))
                ++m_place;
        }
        const QString digits = m_statement.mid(from, m_place - from);
        bool fits = false;
        token.kind = Token::Kind::Number;
        if (whole)
            token.value = digits.toLongLong(&fits);
        if (!fits)
            token.value = digits.toDouble(&fits);
        if (!fits || unit().isLetter() || unit() == u'_')
            raiseSyntax(QStringLiteral("this is no number"), token.position);
    }

    void takeName(Token &token)
    {
        const qsizetype from = m_place;
        while (unit().isLetterOrNumber() || unit() == u'_')
            ++m_place;
        token.kind = Token::Kind::Name;
        token.text = m_statement.mid(from, m_place - from);
    }

    void takeSymbol(Token &token)
    {
        static const QString kSingle = QStringLiteral("=<>()*,&+-.");
        const QString pair = m_statement.mid(m_place, 2);
        token.kind = Token::Kind::Symbol;
        if (pair == u"<>" || pair == u"<=" || pair == u">=")
            token.text = pair;
        else if (kSingle.contains(unit()))
            token.text = unit();
        else
            raiseSyntax(QStringLiteral("unexpected character"), m_place);
        m_place += token.text.size();
    }

    const QString &m_statement;
    qsizetype m_place = 0;
};

} // namespace

std::vector<Token> tokens(const QString &statement)
{
    if (statement.size() > kLongestStatement)
        raiseSyntax(QStringLiteral("the statement is too long"), kLongestStatement);
    return Lexer(statement).run();
}

void raiseSyntax(const QString &reason, qsizetype position)
{
    throw RuntimeError(
        kErrorSyntax,
        QStringLiteral("Syntax error in the query: %1 (character %2).").arg(reason).arg(position + 1));
}

} // namespace norvane::dao
