#include "platform/sqlite/LocalDates.h"
#include "unit/platform/dao_fixture.h"

#include <QRandomGenerator>
#include <ctime>

namespace norvane::dao {
namespace {

using Letters = std::u32string;

Letters foldedLetters(const QString &text)
{
    Letters letters = text.toStdU32String();
    for (char32_t &letter : letters)
        letter = QChar::toCaseFolded(letter);
    return letters;
}

/// The rule of "like" by the simplest means, on lists without ranges.
bool plainLike(std::u32string_view text, std::u32string_view pattern)
{
    if (pattern.empty())
        return text.empty();
    if (pattern[0] == U'*')
        return plainLike(text, pattern.substr(1)) || (!text.empty() && plainLike(text.substr(1), pattern));
    if (text.empty())
        return false;
    std::size_t size = 1;
    bool suits = pattern[0] == text[0];
    if (pattern[0] == U'?') {
        suits = true;
    } else if (pattern[0] == U'#') {
        suits = text[0] >= U'0' && text[0] <= U'9';
    } else if (pattern[0] == U'[') {
        size = pattern.find(U']') + 1;
        const bool isNegated = pattern[1] == U'!';
        const auto list = pattern.substr(isNegated ? 2 : 1, size - (isNegated ? 3 : 2));
        suits = (list.find(text[0]) != list.npos) != isNegated;
    }
    return suits && plainLike(text.substr(1), pattern.substr(size));
}

TEST_F(DaoTest, LikeFindsWhatThePlainRuleFinds)
{
    createNotes();
    const QStringList letters =
        u"a b A k \u212a s S \u00df \u1e9e \u0130 \u0131 i \u03c3 \u03c2 \u03a3 \u00e9"
        " \u00c9 \u023a \u2c65 5 \u0665 ' \U0001f600 \U00010400 \U00010428 \ufeff ]"_s.split(u' ');
    const QStringList wildcards = u"* * ? # [a\u03c3] [!\u00df\U0001f600] [\U00010400k]"_s.split(u' ');
    QRandomGenerator random(3);
    const auto piece = [&random](const QStringList &of) {
        return of[random.bounded(static_cast<int>(of.size()))];
    };
    QMap<int, QString> texts;
    const auto note = notes(u"false"_s);
    for (int i = 0; i < 60; ++i) {
        QString text = u"."_s;
        for (int length = random.bounded(9); length > 0; --length)
            text += piece(letters.mid(i % 3 == 0 ? 0 : 3, i % 4 == 0 ? 4 : -1));
        texts.insert(add(text), text);
    }
    for (int i = 0; i < 600; ++i) {
        QString pattern = i % 2 == 0 ? u"*"_s : u"."_s;
        for (int length = random.bounded(5); length > 0; --length)
            pattern += random.bounded(4) == 0 ? piece(wildcards) : piece(letters);
        pattern += i % 3 == 0 ? u""_s : u"*"_s;
        SCOPED_TRACE(pattern.toStdString());
        QString expected;
        for (auto text = texts.begin(); text != texts.end(); ++text)
            if (plainLike(foldedLetters(text.value()), foldedLetters(pattern)))
                expected += QString::number(text.key()) + u' ';
        const auto hits =
            rows(u"Select * From Memos where WindowName like \"%1\" or URL like \"%1\" order by ID"_s.arg(
                pattern));
        EXPECT_EQ(ids(*hits), expected);
        hits->setFilter(u"ID>30"_s);
        EXPECT_EQ(ids(*hits->openRecordset(RecordsetType::Dynaset)),
                  idsWhere(u"ID>30 and WindowName like \"%1\""_s.arg(pattern)));
    }
}

TEST(DaoDates, ADayWithAChangeOfTheClockIsRightToo)
{
    const QByteArray zone = qgetenv("TZ");
    const bool hadZone = qEnvironmentVariableIsSet("TZ");
    qputenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3");
    tzset();
    LocalDates dates;
    for (const QDate &change : {QDate(2024, 3, 31), QDate(2024, 10, 27)}) {
        for (int minutes = -1440; minutes < 2 * 1440; minutes += 15) {
            const QDateTime wall = QDateTime(change, QTime(0, 0), Qt::UTC).addSecs(minutes * 60);
            const QDateTime date = dates(wall.date(), wall.time());
            const QDateTime local(wall.date(), wall.time());
            EXPECT_TRUE(date.isValid() && date.date() == wall.date() && date.time() == wall.time())
                << minutes;
            EXPECT_TRUE(date == local || !local.isValid()) << minutes;
        }
    }
    if (hadZone)
        qputenv("TZ", zone);
    else
        qunsetenv("TZ");
    tzset();
}

} // namespace
} // namespace norvane::dao
