#include "richtext/links/document_scan.h"

#include "richtext/links/WordSearch.h"

#include <QStringMatcher>
#include <algorithm>
#include <vector>

namespace norvane::links {
namespace {

bool isBracket(QChar character)
{
    return character == u'<' || character == u'>';
}

/// The e-mail scan. All places move forward through the text only.
class MailScan
{
public:
    explicit MailScan(QStringView text) : m_text(text), m_search(text)
    {
        for (int i = 0; i < text.size(); ++i) {
            if (isBracket(text[i]))
                m_brackets.push_back(i);
            else
                m_unbracketed += text[i];
        }
        m_textEnd = int(text.size());
        while (m_textEnd > 0 && isBracket(text[m_textEnd - 1]))
            --m_textEnd;
    }

    void run(DocumentScan &scan)
    {
        for (qsizetype at = m_text.indexOf(u'@', 1); at >= 0; at = m_text.indexOf(u'@', at + 1))
            add(int(at));
        m_search.run();
        for (const Mail &mail : m_mails) {
            const int found = mail.query < 0 ? mail.found : m_search.result(mail.query);
            // What is not found leaves the selection as it was: the "@" that led here.
            scan.links.append(found < 0 ? Span{mail.at, 1} : Span{found, mail.length});
            scan.caret = found + 2;
        }
    }

private:
    struct Mail
    {
        int at = 0;
        int found = 0;
        int length = 0;
        int query = -1; ///< instead of found
    };

    void add(int at)
    {
        for (; m_left < at; ++m_left) {
            if (m_text[m_left] == u' ' || m_text[m_left] == u'\r' || m_text[m_left] == u'\n')
                m_begin = m_left + 1;
        }
        moveEnd(at - 1);
        if (!m_mails.empty() && m_begin == m_lastBegin && m_end == m_lastEnd) {
            Mail again = m_mails.back();
            again.at = at;
            m_mails.push_back(again);
            return;
        }
        m_lastBegin = m_begin;
        m_lastEnd = m_end;

        // Brackets at the edges only shorten the word; within, the rest must be looked for.
        for (m_inner = qMax(m_inner, m_begin); isBracket(m_text[m_inner]); ++m_inner) {
        }
        const int innerEnd = qMin(m_end, m_textEnd);
        Mail mail{at, m_inner, innerEnd - m_inner};
        if (bracketsBefore(m_inner) != bracketsBefore(innerEnd)) {
            const int from = m_begin - bracketsBefore(m_begin);
            const int to = m_end - bracketsBefore(m_end);
            const QStringView word = QStringView(m_unbracketed).mid(from, to - from);
            while (m_mark < m_text.size() && (m_mark < m_begin || m_text[m_mark] != u'@'))
                ++m_mark;
            // The "." that ends a word whose "@" stands right behind it.
            const int mark = m_mark < m_end ? m_mark - bracketsBefore(m_mark) - from : int(word.size()) - 1;
            mail.length = int(word.size());
            mail.query = m_search.add(word, mark, m_begin);
        }
        m_mails.push_back(mail);
    }

    /// To behind the letters that follow the first "." from there on, else to the end of the text.
    void moveEnd(int from)
    {
        if (m_dot >= from)
            return;
        m_dot = int(m_text.indexOf(u'.', from));
        m_end = int(m_text.size());
        if (m_dot < 0) {
            m_dot = int(m_text.size());
            return;
        }
        const auto isLetter = [](QChar character) {
            const char16_t code = character.unicode();
            return (code >= 65 && code <= 91) || (code >= 97 && code <= 122);
        };
        m_end = m_dot + 1;
        while (m_end < m_text.size() && isLetter(m_text[m_end]))
            ++m_end;
    }

    int bracketsBefore(int position) const
    {
        return int(std::lower_bound(m_brackets.begin(), m_brackets.end(), position) - m_brackets.begin());
    }

    QStringView m_text;
    WordSearch m_search;
    std::vector<int> m_brackets; ///< their places
    QString m_unbracketed;       ///< the text without them
    std::vector<Mail> m_mails;
    int m_textEnd = 0; ///< without the brackets behind it
    int m_left = 0;    ///< how far the left edge has been looked for
    int m_begin = 0;   ///< of the word
    int m_inner = 0;   ///< of the word without the brackets before it
    int m_mark = 0;    ///< first "@" of the word
    int m_dot = -1;
    int m_end = 0; ///< of the word
    int m_lastBegin = -1;
    int m_lastEnd = -1;
};

void scanPrefix(QStringView text, QStringView prefix, DocumentScan &scan)
{
    const QStringMatcher matcher(prefix, Qt::CaseInsensitive);
    const qsizetype length = text.size();
    const auto nextOf = [&](char16_t character, qsizetype from) {
        const qsizetype found = text.indexOf(character, from);
        return found < 0 ? length : found;
    };
    qsizetype lineEnd = -1;
    qsizetype blank = -1;
    for (qsizetype from = matcher.indexIn(text); from >= 0; from = matcher.indexIn(text, from + 1)) {
        if (lineEnd < from)
            lineEnd = nextOf(u'\r', from);
        if (blank < from)
            blank = nextOf(u' ', from);
        // In the last line, blanks do not end a link.
        const qsizetype end = lineEnd == length ? length : qMin(lineEnd, blank);
        scan.links.append({int(from), int(end - from)});
        scan.caret = int(from) + 1;
    }
}

QVector<Span> united(QVector<Span> spans)
{
    std::sort(spans.begin(), spans.end(), [](const Span &a, const Span &b) { return a.from < b.from; });
    QVector<Span> result;
    for (const Span &span : std::as_const(spans)) {
        if (!result.isEmpty() && span.from <= result.last().from + result.last().length) {
            Span &last = result.last();
            last.length = qMax(last.length, span.from + span.length - last.from);
        } else {
            result.append(span);
        }
    }
    return result;
}

} // namespace

DocumentScan scanDocument(QStringView text)
{
    DocumentScan scan;
    MailScan(text).run(scan);
    for (const QStringView prefix : {u"www.", u"http:", u"https:", u"mailto:"})
        scanPrefix(text, prefix, scan);
    scan.links = united(std::move(scan.links));
    return scan;
}

} // namespace norvane::links
