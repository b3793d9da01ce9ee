#pragma once

#include <QHash>
#include <QString>
#include <QVector>

namespace norvane::links {

/// Looks for many words in one text, each from a place of its own on and without regard to case.
///
/// All words are looked for together: by a few characters before a mark that each of them has,
/// which makes the time one of the text's length, not of the number of words times that.
class WordSearch
{
public:
    /// @param text must outlive the search
    explicit WordSearch(QStringView text) : m_text(text) {}

    /// @param word must outlive the search
    /// @param mark position in the word of an "@", or of a "." when it has no "@"
    /// @return number of the query
    int add(QStringView word, int mark, int from);
    void run();
    /// The place of a query's word in the text; -1 when it is not there.
    int result(int query) const { return m_queries.at(query).found; }

private:
    struct Query
    {
        QStringView word;
        int mark = 0;
        int from = 0;
        QString key;
        int found = -1;
    };

    static QString keyBefore(QStringView text, qsizetype mark, qsizetype length);
    void find(Query &query, const QVector<int> &marks) const;

    QStringView m_text;
    QVector<Query> m_queries;
    QHash<QString, QVector<int>> m_marks; ///< of the text, by what stands before them
    bool m_keyLengths[17] = {};
    bool m_dots = false;
};

} // namespace norvane::links
