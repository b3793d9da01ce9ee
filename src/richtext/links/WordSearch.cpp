#include "richtext/links/WordSearch.h"

#include <algorithm>

namespace norvane::links {
namespace {

constexpr int kLongestKey = 16;

/// Halves of characters are alike here: their case cannot be told from one half.
QChar folded(QChar unit)
{
    return unit.isSurrogate() ? QChar(0xFFFF) : unit.toCaseFolded();
}

} // namespace

QString WordSearch::keyBefore(QStringView text, qsizetype mark, qsizetype length)
{
    QString key(length + 1, Qt::Uninitialized);
    std::transform(text.begin() + mark - length, text.begin() + mark + 1, key.begin(), folded);
    return key;
}

int WordSearch::add(QStringView word, int mark, int from)
{
    const int length = qMin(mark, kLongestKey);
    Query query{word, mark, from, keyBefore(word, mark, length)};
    m_keyLengths[length] = true;
    m_dots = m_dots || word.at(mark) == u'.';
    m_marks.insert(query.key, {});
    m_queries.append(query);
    return int(m_queries.size() - 1);
}

void WordSearch::run()
{
    if (m_queries.isEmpty())
        return;
    for (int mark = 0; mark < m_text.size(); ++mark) {
        if (m_text[mark] != u'@' && !(m_dots && m_text[mark] == u'.'))
            continue;
        for (int length = 0; length <= qMin(mark, kLongestKey); ++length) {
            if (!m_keyLengths[length])
                continue;
            const auto known = m_marks.find(keyBefore(m_text, mark, length));
            if (known != m_marks.end())
                known->append(mark);
        }
    }
    for (Query &query : m_queries)
        find(query, m_marks.value(query.key));
}

void WordSearch::find(Query &query, const QVector<int> &marks) const
{
    for (auto mark = std::lower_bound(marks.begin(), marks.end(), query.from + query.mark);
         mark != marks.end(); ++mark) {
        const QStringView there = m_text.mid(*mark - query.mark, query.word.size());
        if (there.size() == query.word.size() && there.compare(query.word, Qt::CaseInsensitive) == 0) {
            query.found = *mark - query.mark;
            return;
        }
    }
}

} // namespace norvane::links
