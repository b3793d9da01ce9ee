#include "windowlist/list/command_words.h"

#include "platform/RuntimeError.h"
#include "platform/errors.h"

namespace norvane {

namespace {

class Words
{
public:
    Words(const QString &line, QString home) : m_line(line), m_home(std::move(home)) {}

    QStringList read()
    {
        for (; m_place < m_line.size(); ++m_place) {
            const QChar unit = m_line[m_place];
            if (unit.isSpace())
                endWord();
            else if (unit == u'"' || unit == u'\'')
                readQuoted(unit);
            else
                readPlain();
        }
        endWord();
        return m_words;
    }

private:
    void readPlain()
    {
        const QChar unit = m_line[m_place];
        const QChar next = m_place + 1 < m_line.size() ? m_line[m_place + 1] : QChar(u' ');
        if (unit == u'~' && !m_word && (next == u'/' || next.isSpace()))
            add(m_home);
        else if (unit == u'\\' && m_place + 1 < m_line.size())
            add(m_line[++m_place]);
        else
            add(unit);
    }

    void readQuoted(QChar quote)
    {
        add(QString()); // a word even if nothing is in it
        for (++m_place; m_place < m_line.size() && m_line[m_place] != quote; ++m_place) {
            const QChar next = m_place + 1 < m_line.size() ? m_line[m_place + 1] : QChar();
            if (quote == u'"' && m_line[m_place] == u'\\' && (next == u'"' || next == u'\\'))
                ++m_place;
            add(m_line[m_place]);
        }
        if (m_place >= m_line.size())
            throw RuntimeError(kErrorInvalidCall, QStringLiteral("A quotation mark is not closed."));
    }

    void add(const QString &text) { m_word = m_word.value_or(QString()) + text; }
    void endWord()
    {
        if (m_word)
            m_words.append(*m_word);
        m_word.reset();
    }

    const QString &m_line;
    QString m_home;
    qsizetype m_place = 0;
    std::optional<QString> m_word;
    QStringList m_words;
};

} // namespace

QStringList commandWords(const QString &line, const QString &home)
{
    return Words(line, home).read();
}

QString pathFromHome(const QString &path, const QString &home)
{
    if (path.startsWith(u'/'))
        return path;
    if (path == u"~" || path.startsWith(u"~/"))
        return home + path.mid(1);
    return home + u'/' + path;
}

} // namespace norvane
