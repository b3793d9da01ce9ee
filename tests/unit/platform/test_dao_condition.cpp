#include "unit/platform/dao_fixture.h"

#include <QElapsedTimer>
#include <QRandomGenerator>

namespace norvane::dao {
namespace {

class ConditionTest : public DaoTest
{
protected:
    void SetUp() override
    {
        createNotes();
        add(u"Page - One"_s, u"http://a.example/"_s, u"Page - One"_s);
        add(u"page - one  "_s, u"http://A.example/"_s, u"Straße Ärger"_s);
        add(u" Page - One"_s, u""_s, u"100% [x] #7"_s);
        add(u"ЖУК \U0001f600"_s, u"/home/Жук/file"_s, u""_s);
        change(4, u"Active"_s, false);
        change(4, u"CAT_ID"_s, 7);
        change(4, u"LastUpdate"_s, QDateTime(QDate(2024, 3, 5), QTime(17, 4, 9)));
    }

    /// The number that the condition raises, in a search as in a statement.
    int numberOf(const QString &condition)
    {
        const int find = errorOf([&] { notes()->findFirst(condition); });
        const int where = errorOf([&] { idsWhere(condition); });
        EXPECT_EQ(find, where) << condition.toStdString();
        return where;
    }
    void expectNumber(int number, std::initializer_list<QStringView> conditions)
    {
        for (const QStringView condition : conditions)
            EXPECT_EQ(numberOf(condition.toString()), number) << condition.toString().toStdString();
    }
};

TEST_F(ConditionTest, GivesTheRightNotes)
{
    const struct
    {
        const char16_t *condition;
        const char16_t *ids;
    } cases[] = {
        // Case by Unicode and blanks at the end do not count, blanks in front do.
        {u"WindowName='PAGE - ONE'", u"1 2 "},
        {u"WindowName=\"page - one     \"", u"1 2 "},
        {u"WindowName='жук \U0001f600'", u"4 "},
        {u"LocationName='STRAße äRGER'", u"2 "},
        // The column URL compares exactly with "=".
        {u"URL='http://a.example/'", u"1 "},
        {u"url=\"http://A.example/\"", u"2 "},
        {u"LCASE(URL)='http://a.example/'", u"1 2 "},
        {u"URL like 'HTTP:*'", u"1 2 "},
        // InStr: without case; an empty text is nowhere.
        {u"instr(1,\"see http://a.example/page\",URL)<>0", u"1 2 "},
        {u"instr(WindowName,'ONE')=8", u"1 2 "},
        {u"instr(WindowName,'уК')=2", u"4 "},
        {u"left(LocationName,6)=\"PAGE -\"", u"1 "},
        {u"left(LocationName,0)=\"\"", u"1 2 3 4 "},
        {u"right(WindowName,2)='\U0001f600'", u"4 "},
        {u"mid(LocationName,5,2)='ße' or mid(LocationName,8)='one'", u"1 2 "},
        {u"len(trim(WindowName))=10", u"1 2 3 "},
        // Wildcards.
        {u"LocationName like '*e*'", u"1 2 "},
        {u"LocationName like '1##% [[]x] [#]#'", u"3 "},
        {u"LocationName like '[o-q]*[!a-d]'", u"1 "},
        {u"LocationName like '100%*' or LocationName like '%'", u"3 "},
        {u"not LocationName like '?*'", u"4 "},
        // Yes/No, numbers, dates, Null.
        {u"Active=True", u"1 2 3 "},
        {u"not Active or Active=-1", u"1 2 3 4 "},
        {u"CAT_ID-7=0 or -CAT_ID+1.5>1", u"1 2 3 4 "},
        {u"CAT_ID not between 1 and 7 and ID in (1,3,5)", u"1 3 "},
        {u"FriendlyName=Null or FriendlyName<>'x'", u""},
        {u"FriendlyName & WindowName like 'page*'", u"1 2 "},
        {u"LocationName + '!' = 'page - one!'", u"1 "},
        {u"LastUpdate=#2024-03-05 17:04:09#", u"4 "},
        {u"LastUpdate>#3/5/2024 5:04 PM# and LastUpdate<'2024-03-06'", u"4 "},
        {u"format(LastUpdate,'yyyy-mm-dd') >= '2024-03-05' AND format(LastUpdate,'yyyy-mm-dd') "
         u"<='2024-03-05'",
         u"4 "},
        {u"format(ID,'000')='002'", u"2 "},
        // "and" binds before "or", "not" before both; names, words and brackets in any form.
        {u"ID=1 or ID=4 and Active=True", u"1 "},
        {u"NOT ID=1 aNd [memos].[id]<4", u"2 3 "},
        {u"false", u""},
        {u"WindowName='it''s' or WindowName=\"a\"\"b\" or ID=1", u"1 "},
    };
    for (const auto &each : cases) {
        const QString condition = QStringView(each.condition).toString();
        EXPECT_EQ(idsWhere(condition), QStringView(each.ids)) << condition.toStdString();
        // Found in a snapshot as in the table.
        const auto snapshot = rows(u"select * from Memos"_s, RecordsetType::Snapshot);
        QString found;
        for (snapshot->findFirst(condition); !snapshot->noMatch(); snapshot->findNext(condition))
            found += snapshot->field(u"ID"_s).toString() + u' ';
        EXPECT_EQ(found, QStringView(each.ids)) << condition.toStdString();
    }
}

TEST_F(ConditionTest, RefusesWhatItDoesNotUnderstand)
{
    expectNumber(kErrorSyntax,
                 {u"", u"WindowName='it's'", u"WindowName=\"say \"hi\"\"", u"WindowName=\"", u"ID=1;",
                  u"ID=1; drop table Memos", u"ID=(select 1)", u"ID=1 ID=2", u"ID=1x", u"(ID=1",
                  u"ID=#2024-02-30#", u"[ID=1", u"WindowName like", u"WindowName like '[a'",
                  u"left(WindowName,-1)='a'", u"instr(0,WindowName,'a')", u"load_extension('x')",
                  u"nv_key('x')='x'", QStringView(u"WindowName=\0'a'", 15)});
    // Two minus signs are no comment.
    expectNumber(kErrorItemNotFound, {u"ID=1 -- tail", u"Title='x'", u"rowid=1", u"\u0416=1"});
    expectNumber(kErrorTypeMismatch,
                 {u"WindowName=1", u"ID='1'", u"WindowName='a' or 'b'", u"LastUpdate='soon'", u"'a'"});
    EXPECT_EQ(ids(u"select ID from Memos"_s), u"1 2 3 4 ");
}

TEST_F(ConditionTest, StatementsOfOtherKindsAreRefused)
{
    for (const char16_t *sql :
         {u"delete from Memos", u"select * from Memos; select * from Memos", u"select * from Memos, Memos",
          u"select * from Memos where", u"select * from Memos order by", u"select from Memos",
          u"select * Memos", u"select ID from Memos group by ID", u"select count(*), ID from Memos",
          u"select max(WindowName) from Memos", u"select * from Memos limit 1", u"select ID as from Memos",
          u"pragma user_version", u""})
        EXPECT_EQ(errorOf([&] { rows(QStringView(sql).toString()); }), kErrorSyntax)
            << QStringView(sql).toString().toStdString();
    for (const char16_t *sql :
         {u"select * from sqlite_schema", u"select * from norvane_fields", u"select * from Notes",
          u"select Title from Memos", u"select * from Memos order by Title"})
        EXPECT_EQ(errorOf([&] { rows(QStringView(sql).toString()); }), kErrorItemNotFound)
            << QStringView(sql).toString().toStdString();
}

TEST_F(ConditionTest, HostileConditionsEndSoon)
{
    QElapsedTimer timer;
    timer.start();
    const QString deep = QString(u'(').repeated(5000) + u"ID=1"_s + QString(u')').repeated(5000);
    EXPECT_EQ(numberOf(deep), kErrorSyntax);
    EXPECT_EQ(numberOf(u"not "_s.repeated(5000) + u"ID=1"_s), kErrorSyntax);
    EXPECT_EQ(numberOf(u"ID="_s + u"- "_s.repeated(5000) + u"1"_s), kErrorSyntax);
    EXPECT_EQ(numberOf(u"ID=1"_s + u"=1"_s.repeated(500)), kErrorSyntax);
    EXPECT_EQ(numberOf(u"ID=1"_s + u"+1"_s.repeated(500)), kErrorSyntax);
    EXPECT_EQ(numberOf(u"ID=1"_s + u" or ID=2"_s.repeated(100'000)), kErrorSyntax);
    EXPECT_EQ(numberOf(u"left("_s.repeated(60) + u"'a'"_s + u",1)"_s.repeated(60) + u"='a'"_s), kErrorSyntax);
    // Wide is not deep.
    EXPECT_EQ(idsWhere(u"ID=1"_s + u" or ID=2"_s.repeated(2000)), u"1 2 ");
    // The deepest that is allowed runs.
    EXPECT_EQ(idsWhere(u"(not "_s.repeated(24) + u"ID=1"_s + QString(u')').repeated(24)), u"1 ");
    add(u"long"_s, QString(100'000, u'a'));
    EXPECT_EQ(idsWhere(u"URL like '%1b'"_s.arg(u"*a"_s.repeated(40))), QString());
    EXPECT_LT(timer.elapsed(), 60'000);
}

TEST_F(ConditionTest, MutatedConditionsRaiseOnlyOurErrors)
{
    QStringList pieces = u"WindowName~URL~ID~LastUpdate~=~<>~ like ~'~\"~(~)~,~ and ~ or ~ not "
                         u"~instr(~left(~#~[~]~12~&~-~'*a?'~"
                         " between ~ in ~ is null~\U0001f600~[!a-~True~;"_s.split(u'~');
    pieces.append(QString(QChar(0)));
    QRandomGenerator random(20240305);
    const QString seed = u"left(LocationName,6)=\"Page -\" or instr(1,\"http://x\",URL)<>0 and "
                         "Active=True And URL <> ''"_s;
    int understood = 0;
    int refused = 0;
    for (int round = 0; round < 3000; ++round) {
        QString condition = round % 2 == 0 ? seed : QString();
        for (int i = random.bounded(1, 7); i > 0; --i) {
            const auto place = random.bounded(static_cast<int>(condition.size()) + 1);
            if (random.bounded(4) == 0)
                condition.remove(place, random.bounded(8));
            condition.insert(place, pieces[random.bounded(static_cast<int>(pieces.size()))]);
        }
        const int number = errorOf([&] { idsWhere(condition); });
        ASSERT_TRUE(number == 0 || number == kErrorSyntax || number == kErrorItemNotFound ||
                    number == kErrorTypeMismatch)
            << number << condition.toStdString();
        ++(number == 0 ? understood : refused);
    }
    EXPECT_GT(understood, 30);
    EXPECT_GT(refused, 1000);
    EXPECT_EQ(ids(u"select ID from Memos"_s), u"1 2 3 4 ");
}

} // namespace
} // namespace norvane::dao
