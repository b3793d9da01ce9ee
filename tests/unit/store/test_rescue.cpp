#include "fakes/FakeClock.h"
#include "fakes/FakeFileSystem.h"
#include "fakes/FakeNotifier.h"
#include "platform/sqlite/SqliteEngine.h"
#include "store/NoteRescue.h"
#include "store/NoteStore.h"
#include "store/rescue_file.h"

#include <gtest/gtest.h>

using namespace norvane;
using namespace Qt::StringLiterals;

namespace {

TEST(RescueFile, IsNamedByTitleAndTimeAndNeverOverwrites)
{
    fakes::FakeFileSystem files;
    files.addFolder(u"/data/Notes/"_s);
    const QDateTime time(QDate(2001, 2, 3), QTime(4, 5, 6));
    for (const char *body : {"1", "2", "3"})
        writeRescueFile(files, u"/data/Notes/"_s, u"My page"_s, time, body);
    const QString name = u"/data/Notes/Rescued/My page 2001-02-03 04.05.06"_s;
    EXPECT_EQ(files.files.size(), 3);
    EXPECT_EQ(files.files.value(name + u".rtf"_s), "1");
    EXPECT_EQ(files.files.value(name + u" (3).rtf"_s), "3");
}

TEST(RescueFile, TakesAnyTitle)
{
    const std::pair<QString, QString> rows[] = {
        {QString(), u"Note"_s},
        {u"  ..  "_s, u"Note"_s},
        {u"../../etc/passwd"_s, u"_.._etc_passwd"_s},
        {u"a:b*c?\"d\"<e>|f\\g"_s, u"a_b_c__d__e__f_g"_s},
        {u"two\r\n\tlines"_s, u"two lines"_s},
        {QChar(0) + u"nul"_s, u"nul"_s},
        {u"\u202Etxt.exe"_s, u"txt.exe"_s},
        {u"שלום 😀"_s, u"שלום 😀"_s},
        {u"half "_s + QChar(0xD83D) + u" pair"_s, u"half pair"_s},
    };
    for (const auto &[title, name] : rows)
        EXPECT_EQ(fileNameOfTitle(title).toStdString(), name.toStdString());

    for (const QString &letter : {u"x"_s, u"Ж"_s, u"😀"_s, u"e\u0301"_s, QString(QChar(0xD83D))}) {
        const QByteArray name = fileNameOfTitle(letter.repeated(4000)).toUtf8();
        EXPECT_LE(name.size(), 150);
        EXPECT_FALSE(name.isEmpty());
        EXPECT_FALSE(QString::fromUtf8(name).contains(QChar(QChar::ReplacementCharacter)));
    }
}

TEST(NoteRescue, IsToldOnceAndALostNoteEachTime)
{
    const auto engine = dao::makeSqliteEngine();
    fakes::FakeFileSystem files;
    const fakes::FakeClock clock;
    fakes::FakeNotifier notifier;
    QStringList notices;
    NoteStore store(*engine, files);
    store.DatabaseFolder = u"/data/Notes/"_s;
    files.addFolder(store.DatabaseFolder);
    NoteRescue rescue(store, files, clock, notifier, [&](const QString &text) { notices.append(text); });

    EXPECT_FALSE(rescue.rescue(u"One"_s, "1").isEmpty());
    EXPECT_FALSE(rescue.rescue(u"Two"_s, "2").isEmpty());
    ASSERT_EQ(notifier.shown.size(), 1);
    EXPECT_TRUE(notifier.shown[0].contains(u"'One'"));
    EXPECT_TRUE(notifier.shown[0].contains(u"'/data/Notes/Rescued'"));

    files.failAllWrites = 3026;
    EXPECT_TRUE(rescue.rescue(u"Three"_s, "3").isEmpty());
    EXPECT_TRUE(rescue.rescue(u"Four"_s, "4").isEmpty());
    ASSERT_EQ(notifier.shown.size(), 3);
    EXPECT_TRUE(notifier.shown[2].contains(u"'Four'"));
    EXPECT_TRUE(notices.isEmpty());
    notifier.available = false;
    rescue.rescue(u"Five"_s, "5");
    ASSERT_EQ(notices.size(), 1);
    EXPECT_TRUE(notices[0].contains(u"'Five'"));
}

} // namespace
