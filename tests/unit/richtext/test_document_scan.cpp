#include "richtext/links/document_scan.h"

#include <QRandomGenerator>
#include <gtest/gtest.h>

using namespace norvane;
using links::Span;

namespace {

/// The rules taken one step after the other, on a box that is nothing but text, selection and looks.
class StepByStep
{
public:
    explicit StepByStep(const QString &text) : m_text(text), m_linked(text.size(), false)
    {
        scanMail();
        for (const char *prefix : {"www.", "http:", "https:", "mailto:"})
            scanPrefix(QString::fromLatin1(prefix));
    }

    const QVector<bool> &linked() const { return m_linked; }
    int caret() const { return m_caret; }

private:
    int length() const { return int(m_text.size()); }
    /// Character functions count from 1.
    QChar character(int position) const { return m_text.at(position - 1); }

    int find(const QString &text, int from)
    {
        const int found = int(m_text.indexOf(text, from, Qt::CaseInsensitive));
        if (found >= 0) {
            m_selectionStart = found;
            m_selectionLength = int(text.size());
        }
        return found;
    }
    void setSelStart(int position)
    {
        m_selectionStart = position;
        m_selectionLength = 0;
        m_caret = position;
    }
    void applyLook()
    {
        for (int i = m_selectionStart; i < m_selectionStart + m_selectionLength; ++i)
            m_linked[i] = true;
    }

    void scanMail()
    {
        int p = find(u"@"_qs, 1);
        while (p >= 1) {
            int i = p;
            for (; i >= 1; --i) {
                const QChar c = character(i);
                if (c == u' ' || c == u'\r' || c == u'\n')
                    break;
            }
            const int start = i + 1;
            bool dotPassed = false;
            int j = p;
            for (; j <= length(); ++j) {
                const char16_t c = character(j).unicode();
                if (dotPassed && !(c >= 65 && c <= 91) && !(c >= 97 && c <= 122))
                    break;
                if (c == u'.')
                    dotPassed = true;
            }
            if (start <= j) {
                QString word = m_text.mid(start - 1, j - start);
                word.remove(u'<').remove(u'>');
                const int q = find(word, start - 1);
                applyLook();
                setSelStart(q + 2);
            }
            p = find(u"@"_qs, p + 1);
        }
    }

    void scanPrefix(const QString &prefix)
    {
        int from = 0;
        for (;;) {
            const int pos = find(prefix, from);
            if (pos == -1)
                return;
            const int cr = int(m_text.indexOf(u'\r', pos)) + 1;
            const int sp = int(m_text.indexOf(u' ', pos)) + 1;
            int end = cr;
            if (sp < cr)
                end = sp;
            if (sp == 0)
                end = cr;
            if (cr == 0)
                end = length() + 1;
            const QString word = m_text.mid(pos, end - (pos + 1));
            setSelStart(pos);
            find(word, pos);
            applyLook();
            setSelStart(pos + 1);
            from = pos + 1;
        }
    }

    QString m_text;
    QVector<bool> m_linked;
    int m_selectionStart = 0;
    int m_selectionLength = 0;
    int m_caret = -1;
};

QVector<bool> linkedBy(const links::DocumentScan &scan, qsizetype length)
{
    QVector<bool> linked(length, false);
    int last = -1;
    for (const Span &span : scan.links) {
        EXPECT_GT(span.from, last);
        EXPECT_GT(span.length, 0);
        for (int i = span.from; i < span.from + span.length; ++i)
            linked[i] = true;
        last = span.from + span.length;
    }
    return linked;
}

QString markedText(const QString &text, const QVector<bool> &linked)
{
    QString marked;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (linked[i] != (i > 0 && linked[i - 1]))
            marked += linked[i] ? u'{' : u'}';
        marked += text[i];
    }
    return marked + (!linked.isEmpty() && linked.last() ? u"}"_qs : QString());
}

QString marked(const QString &text)
{
    return markedText(text, linkedBy(links::scanDocument(text), text.size()));
}

const QVector<QString> kParts = {
    u"@"_qs,       u"@"_qs,      u"."_qs,          u"."_qs,          u" "_qs,      u" "_qs,      u"\r\n"_qs,
    u"<"_qs,       u">"_qs,      u"www."_qs,       u"http:"_qs,      u"HTTPS:"_qs, u"a"_qs,      u"B"_qs,
    u"mailto:"_qs, u"7"_qs,      u"["_qs,          u"user"_qs,       u"USER"_qs,   u"<b"_qs,     u"<b>"_qs,
    u"x@y.z"_qs,   u"bx@y.Z"_qs, u"\U00010400"_qs, u"\U00010428"_qs, u"\u00DF"_qs, u"\u212A"_qs, u"k"_qs};

QString generated(quint32 seed)
{
    QRandomGenerator random(seed);
    // Few kinds of parts in one text make the odd cases likely.
    QVector<QString> parts;
    const int kinds = random.bounded(2, 9);
    for (int i = 0; i < kinds; ++i)
        parts += kParts[random.bounded(int(kParts.size()))];
    QString text;
    const int count = random.bounded(60);
    for (int i = 0; i < count; ++i)
        text += parts[random.bounded(int(parts.size()))];
    return text;
}

} // namespace

TEST(DocumentScan, EqualsTheRulesStepByStep)
{
    int withLinks = 0;
    for (quint32 seed = 0; seed < 40'000; ++seed) {
        const QString text = generated(seed);
        const StepByStep expected(text);
        const links::DocumentScan scan = links::scanDocument(text);
        ASSERT_EQ(markedText(text, linkedBy(scan, text.size())).toStdString(),
                  markedText(text, expected.linked()).toStdString())
            << seed;
        ASSERT_EQ(scan.caret, expected.caret()) << seed << text.toStdString();
        withLinks += scan.links.isEmpty() ? 0 : 1;
    }
    EXPECT_GT(withLinks, 20'000);
}

TEST(DocumentScan, FindsWhatItShould)
{
    const std::pair<QString, QString> rows[] = {
        {u""_qs, u""_qs},
        {u"no links here"_qs, u"no links here"_qs},
        {u"see WWW.example.org now\r\n"_qs, u"see {WWW.example.org} now\r\n"_qs},
        // In the last line, to its end.
        {u"a\r\nsee http://example.org two words"_qs, u"a\r\nsee {http://example.org two words}"_qs},
        {u"(https://example.org)\r\n"_qs, u"({https://example.org)}\r\n"_qs},
        {u"first.last@example.com, and"_qs, u"{first.last@example.com}, and"_qs},
        {u"me@a.co.uk me@a.b2"_qs, u"{me@a.co}.uk {me@a.b}2"_qs},
        {u"Name <me@example.org>, you"_qs, u"Name <{me@example.org}>, you"_qs},
        // Without a dot, to the end of the text.
        {u"me@home and\r\nmore"_qs, u"{me@home and\r\nmore}"_qs},
        {u"@first is none.\r\n"_qs, u"@first is none.\r\n"_qs},
        // A bracket within: what is left is found further on, or nowhere.
        {u"Na<me@a.org x name@a.org y"_qs, u"Na<me@a.org x {name@a.org} y"_qs},
        {u"Na<me@a.org x"_qs, u"Na<me{@}a.org x"_qs},
    };
    for (const auto &[text, expected] : rows) {
        EXPECT_EQ(marked(text).toStdString(), expected.toStdString());
        EXPECT_EQ(markedText(text, StepByStep(text).linked()).toStdString(), expected.toStdString());
    }
}

TEST(DocumentScan, TextsMadeToSlowItDownAreDoneAtOnce)
{
    // Looking for each link by itself would take each of these beyond the test's time-out.
    constexpr int kCount = 150'000;
    QString cells;
    for (int i = 0; i < kCount / 4; ++i)
        cells += u"<td>user%1@host%1.org</td> "_qs.arg(i);
    const std::pair<QString, int> rows[] = {
        {u"@"_qs.repeated(kCount * 4), 1},    {u"a@ "_qs.repeated(kCount), 1},
        {u"http:"_qs.repeated(kCount), 1},    {u"@<"_qs.repeated(kCount) + u".x"_qs, kCount - 1},
        {u"<@>"_qs.repeated(kCount), kCount}, {cells, kCount / 4}};
    for (const auto &[text, links] : rows)
        EXPECT_EQ(links::scanDocument(text).links.size(), links) << text.left(20).toStdString();
}
