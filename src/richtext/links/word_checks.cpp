#include "richtext/links/word_checks.h"

namespace norvane::links {

std::optional<TypingCheck> typingCheck(const Piece &before, int caret)
{
    if (caret < 1 || caret > kLastCheckedPosition)
        return std::nullopt;
    // The character just before the caret is not looked at: at the begin of a line that is the line
    // feed, and the word is the last one of the line above.
    const QString &text = before.text;
    bool isEmail = false;
    int begin = caret - before.position - 1;
    for (; begin > 0; --begin) {
        const QChar character = text.at(begin - 1);
        if (character == u'\n' || character == u' ')
            break;
        isEmail = isEmail || character == u'@';
    }
    if (!isEmail && !isUrlWord(QStringView(text).mid(begin)))
        return TypingCheck{};
    return TypingCheck{Span{before.position + begin, caret}};
}

PointedWord wordAt(const Piece &around, int position)
{
    if (position < 1)
        return {};
    const QString &text = around.text;
    const int pointed = position - around.position;
    if (pointed < text.size() && text.at(pointed) == u'\r')
        return {PointedWord::Place::BehindLineEnd, {}, false};

    int begin = pointed;
    for (; begin > 0; --begin) {
        const QChar character = text.at(begin - 1);
        if (character == u' ' || character == u'\r' || character == u'\n')
            break;
    }
    // Begins one before the pointer, as the way to the left did: on the first character of a word
    // it stops at the blank before the word, which leaves nothing. A line feed does not stop it.
    int end = qMax(0, pointed - 1);
    while (end < text.size() && text.at(end) != u' ' && text.at(end) != u'\r')
        ++end;
    PointedWord result{PointedWord::Place::Word, end > begin ? text.mid(begin, end - begin) : QString(),
                       false};
    result.isLink = isUrlWord(result.word) || isEmailWord(result.word);
    return result;
}

} // namespace norvane::links
