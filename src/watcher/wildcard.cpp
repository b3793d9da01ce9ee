#include "watcher/wildcard.h"

#include "platform/RuntimeError.h"
#include "platform/errors.h"

#include <vector>

namespace norvane {

namespace {

/// One place of a pattern: what a single character has to be, or any run of characters.
struct Token
{
    enum class Kind { Literal, AnyOne, AnyRun, Digit, List } kind;
    QChar literal;
    QStringView list; ///< between the brackets, without the "!"
    bool negated = false;
};

std::vector<Token> tokens(QStringView pattern)
{
    std::vector<Token> result;
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        const QChar c = pattern[i];
        if (c == u'?') {
            result.push_back({Token::Kind::AnyOne, {}, {}});
        } else if (c == u'*') {
            result.push_back({Token::Kind::AnyRun, {}, {}});
        } else if (c == u'#') {
            result.push_back({Token::Kind::Digit, {}, {}});
        } else if (c == u'[') {
            const qsizetype end = pattern.indexOf(u']', i + 1);
            if (end < 0)
                throw RuntimeError(kErrorBadPattern, QStringLiteral("Invalid pattern string"));
            QStringView list = pattern.sliced(i + 1, end - i - 1);
            // A lone "!" is a list of that one character.
            const bool negated = list.size() > 1 && list.front() == u'!';
            if (negated)
                list = list.sliced(1);
            if (!list.isEmpty())
                result.push_back({Token::Kind::List, {}, list, negated});
            i = end;
        } else {
            result.push_back({Token::Kind::Literal, c, {}});
        }
    }
    return result;
}

bool listHolds(QStringView list, QChar c)
{
    for (qsizetype i = 0; i < list.size(); ++i) {
        // A hyphen between two characters makes a range, at either end it is itself.
        if (i + 2 < list.size() && list[i + 1] == u'-') {
            if (c >= list[i] && c <= list[i + 2])
                return true;
            i += 2;
        } else if (list[i] == c) {
            return true;
        }
    }
    return false;
}

bool matchesOne(const Token &token, QChar c)
{
    switch (token.kind) {
    case Token::Kind::Literal:
        return token.literal == c;
    case Token::Kind::AnyOne:
    case Token::Kind::AnyRun:
        return true;
    case Token::Kind::Digit:
        return c >= u'0' && c <= u'9';
    case Token::Kind::List:
        return listHolds(token.list, c) != token.negated;
    }
    return false;
}

} // namespace

bool matchesWildcard(QStringView text, QStringView pattern)
{
    const std::vector<Token> parts = tokens(pattern);
    // On a mismatch only the last "*" needs to take one more character: what the earlier ones took
    // stays the shortest that fits, so the work is at most the product of both lengths.
    size_t part = 0;
    qsizetype at = 0;
    size_t runPart = parts.size();
    qsizetype runAt = 0;
    while (at < text.size()) {
        if (part < parts.size() && parts[part].kind == Token::Kind::AnyRun) {
            runPart = part++;
            runAt = at;
        } else if (part < parts.size() && matchesOne(parts[part], text[at])) {
            ++part;
            ++at;
        } else if (runPart < parts.size()) {
            part = runPart + 1;
            at = ++runAt;
        } else {
            return false;
        }
    }
    while (part < parts.size() && parts[part].kind == Token::Kind::AnyRun)
        ++part;
    return part == parts.size();
}

} // namespace norvane
