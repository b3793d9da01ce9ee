#include "fakes/FakePrompts.h"
#include "fakes/FakeShell.h"
#include "richtext/links/open_link.h"
#include "richtext/links/word_checks.h"

#include <gtest/gtest.h>

using namespace norvane;
using links::PointedWord;
using links::Span;

TEST(LinkWords, OpenWhatTheyName)
{
    const std::pair<QString, QStringList> rows[] = {
        {u"http://a.org"_qs, {u"http://a.org"_qs}},
        {u"HTTPS:a"_qs, {u"HTTPS:a"_qs}},
        {u"Www.a.org"_qs, {u"http://Www.a.org"_qs}},
        {u"me@a.org"_qs, {u"mailto:me@a.org"_qs}},
        // Both sides are asked.
        {u"mailto:me@a.org"_qs, {u"mailto:me@a.org"_qs, u"mailto:mailto:me@a.org"_qs}},
        {u"http://me@a.org"_qs, {u"http://me@a.org"_qs, u"mailto:http://me@a.org"_qs}},
        {u"ftp://a.org"_qs, {}},
        {u"(http://a.org"_qs, {}},
        {u""_qs, {}},
    };
    for (const auto &[word, expected] : rows)
        EXPECT_EQ(links::addressesToOpen(word), expected) << word.toStdString();
}

TEST(LinkWords, OnlyHarmlessAddressesOpen)
{
    fakes::FakeShell shell;
    fakes::FakePrompts prompts;
    const QString program = u"file:///usr/bin/x"_qs;
    shell.programs.append(program);
    for (const QString &address : {u"javascript:alert(1)"_qs, u"x-run:thing"_qs, u"/etc/passwd"_qs,
                                   u"data:text/html,x"_qs, u":"_qs, QString(), u"vnd.x:http:"_qs})
        links::openLink(address, shell, prompts);
    EXPECT_TRUE(shell.opened.isEmpty());

    QStringList opened;
    for (const QString &address :
         {u"http://a"_qs, u"HTTPS://a"_qs, u"mailto:a@b"_qs, u"ftp://a"_qs, u"file:///home/a.txt"_qs}) {
        links::openLink(address, shell, prompts);
        opened += address;
    }
    EXPECT_EQ(shell.opened, opened);
    EXPECT_TRUE(prompts.boxes.isEmpty());

    prompts.answers.enqueue(Prompts::kNo);
    links::openLink(program, shell, prompts);
    EXPECT_EQ(shell.opened, opened);
    ASSERT_EQ(prompts.boxes.size(), 1);
    EXPECT_TRUE(prompts.boxes.first().text.contains(program));
    prompts.answers.enqueue(Prompts::kYes);
    links::openLink(program, shell, prompts);
    EXPECT_EQ(shell.opened, opened << program);

    shell.openResults.insert(u"http://b"_qs, Shell::kNoAssociation);
    links::openLink(u"http://b"_qs, shell, prompts);
    EXPECT_EQ(prompts.boxes.size(), 2); // a failure is silent
}

TEST(TypingCheck, LooksAtTheWordBeforeTheCaret)
{
    struct Row
    {
        QString text; ///< "|" is the caret
        std::optional<Span> link;
    };
    const Row rows[] = {
        {u"www.a.org|"_qs, Span{0, 9}},
        {u"see HTTP:x|"_qs, Span{4, 10}}, // the length is that of all before the caret
        {u"see http:x| and more"_qs, Span{4, 10}},
        {u"me@home|"_qs, Span{0, 7}},
        {u"me@|"_qs, std::nullopt}, // the last character is not looked at
        {u"@x|"_qs, Span{0, 2}},
        {u"www.a |"_qs, Span{0, 6}}, // nor is a blank there
        {u"www.a  |"_qs, std::nullopt},
        {u"ww|w.a"_qs, Span{0, 2}},     // the prefix may stand behind the caret
        {u"www.a\r\n|"_qs, Span{0, 7}}, // Enter at the begin of a line: the line above
        {u"www.a\r\n\r\n|"_qs, std::nullopt},
        {u"a http:\r\n|b"_qs, Span{2, 9}},
    };
    for (const Row &row : rows) {
        QString text = row.text;
        const int caret = int(text.indexOf(u'|'));
        text.remove(caret, 1);
        const auto check = links::typingCheck({text, 0}, caret);
        ASSERT_TRUE(check) << row.text.toStdString();
        EXPECT_EQ(check->link, row.link) << row.text.toStdString();
        // The same in the middle of a text, of which only a piece is there.
        const auto later = links::typingCheck({u"\n"_qs + text, 1000}, caret + 1001);
        ASSERT_TRUE(later);
        EXPECT_EQ(later->link.has_value(), row.link.has_value()) << row.text.toStdString();
        if (row.link && later->link) {
            EXPECT_EQ(*later->link, (Span{row.link->from + 1001, caret + 1001})) << row.text.toStdString();
        }
    }
    EXPECT_FALSE(links::typingCheck({u"www.a"_qs, 0}, 0));
    EXPECT_TRUE(links::typingCheck({u"\nwww.a"_qs, 32'761}, 32'767));
    EXPECT_FALSE(links::typingCheck({u"\nwww.a"_qs, 32'762}, 32'768));
}

TEST(PointedWord, IsTheWordAroundThePointer)
{
    using Place = PointedWord::Place;
    const QString text = u"a www.b.org c\r\nme@x end"_qs;
    struct Row
    {
        int position;
        Place place;
        QString word;
        bool isLink;
    };
    const Row rows[] = {
        {-1, Place::Nowhere, {}, false},
        {0, Place::Nowhere, {}, false},
        {1, Place::Word, u"a"_qs, false},
        {2, Place::Word, {}, false}, // the first character of a word behind a blank
        {3, Place::Word, u"www.b.org"_qs, true},
        {11, Place::Word, u"www.b.org"_qs, true}, // the blank behind it
        {13, Place::BehindLineEnd, {}, false},
        {15, Place::Word, u"me@x"_qs, true}, // a line feed does not hide the first character
        {16, Place::Word, u"me@x"_qs, true},
        {22, Place::Word, u"end"_qs, false},
        {23, Place::Word, u"end"_qs, false},
    };
    for (const Row &row : rows) {
        const PointedWord found = links::wordAt({text, 0}, row.position);
        EXPECT_EQ(found.place, row.place) << row.position;
        EXPECT_EQ(found.word.toStdString(), row.word.toStdString()) << row.position;
        EXPECT_EQ(found.isLink, row.isLink) << row.position;
        if (row.position >= 15) { // the second paragraph as a piece: with the unit before it
            const PointedWord piece = links::wordAt({text.mid(14) + u"\r"_qs, 14}, row.position);
            EXPECT_EQ(piece.word, row.position == 23 ? QString() : row.word) << row.position;
        }
    }
}
