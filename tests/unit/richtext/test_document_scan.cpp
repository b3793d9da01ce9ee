#include "richtext/links/document_scan.h"

#include <gtest/gtest.h>

using namespace norvane;
using links::Span;

namespace {

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

} // namespace

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
