#include "fakes/FakeClock.h"
#include "fakes/FakeFileSystem.h"
#include "fakes/FakeNotifier.h"
#include "store/NoteRescue.h"
#include "store/NoteStore.h"
#include "store/rescue_file.h"

#include <gtest/gtest.h>

using namespace norvane;

namespace {

const QString kFolder = QStringLiteral("/data/Notes/");
const QDateTime kTime(QDate(2001, 2, 3), QTime(4, 5, 6));

TEST(RescueFile, isNamedByTitleAndTime)
{
    fakes::FakeFileSystem files;
    files.addFolder(kFolder);
    const QString path = writeRescueFile(files, kFolder, QStringLiteral("My page"), kTime, "{\\rtf1}");
    EXPECT_EQ(path, QStringLiteral("/data/Notes/Rescued/My page 2001-02-03 04.05.06.rtf"));
    EXPECT_EQ(files.files.value(path), "{\\rtf1}");
}

TEST(RescueFile, neverOverwrites)
{
    fakes::FakeFileSystem files;
    files.addFolder(kFolder);
    const QString first = writeRescueFile(files, kFolder, QStringLiteral("Page"), kTime, "1");
    writeRescueFile(files, kFolder, QStringLiteral("Page"), kTime, "2");
    const QString third = writeRescueFile(files, kFolder, QStringLiteral("Page"), kTime, "3");
    EXPECT_EQ(third, QStringLiteral("/data/Notes/Rescued/Page 2001-02-03 04.05.06 (3).rtf"));
    EXPECT_EQ(files.files.value(first), "1");
    EXPECT_EQ(files.files.size(), 3);
}

TEST(RescueFile, takesAnyTitle)
{
    const QVector<QPair<QString, QString>> rows = {
        {QString(), QStringLiteral("Note")},
        {QStringLiteral("  ..  "), QStringLiteral("Note")},
        {QStringLiteral("../../etc/passwd"), QStringLiteral("_.._etc_passwd")},
        {QStringLiteral("a:b*c?\"d\"<e>|f\\g"), QStringLiteral("a_b_c__d__e__f_g")},
        {QStringLiteral("two\r\n\tlines"), QStringLiteral("two lines")},
        {QString(QChar(QChar::Null)) + QStringLiteral("nul"), QStringLiteral("nul")},
        {QStringLiteral("\u202Etxt.exe"), QStringLiteral("txt.exe")},
        {QStringLiteral("שלום 😀"), QStringLiteral("שלום 😀")},
        {QStringLiteral("half ") + QChar(0xD83D) + QStringLiteral(" pair"), QStringLiteral("half pair")},
    };
    for (const auto &[title, name] : rows)
        EXPECT_EQ(fileNameOfTitle(title).toStdString(), name.toStdString());

    for (const QString &letter : {QStringLiteral("x"), QStringLiteral("Ж"), QStringLiteral("😀"),
                                  QStringLiteral("e\u0301"), QString(QChar(0xD83D))}) {
        const QByteArray name = fileNameOfTitle(letter.repeated(4000)).toUtf8();
        EXPECT_LE(name.size(), 150);
        EXPECT_FALSE(name.isEmpty());
        EXPECT_FALSE(QString::fromUtf8(name).contains(QChar(QChar::ReplacementCharacter)));
    }
}

class Rescuing : public testing::Test
{
protected:
    Rescuing()
    {
        store.DatabaseFolder = kFolder;
        files.addFolder(kFolder);
    }

    // The engine is never asked: nothing is opened here.
    struct NoEngine : dao::Engine
    {
        std::shared_ptr<dao::Workspace> workspace(int) override { return {}; }
        void compactDatabase(const QString &, const QString &, const QString &) override {}
        void replaceDatabase(const QString &, const QString &) override {}
        bool isLocked(const QString &) const override { return false; }
    };
    NoEngine engine;
    fakes::FakeFileSystem files;
    fakes::FakeClock clock;
    fakes::FakeNotifier notifier;
    NoteStore store{engine, files};
    QStringList notices;
    NoteRescue rescue{store, files, clock, notifier, [this](const QString &text) { notices.append(text); }};
};

TEST_F(Rescuing, isToldOnceAndNamesTheFolder)
{
    EXPECT_FALSE(rescue.rescue(QStringLiteral("One"), "1").isEmpty());
    EXPECT_FALSE(rescue.rescue(QStringLiteral("Two"), "2").isEmpty());
    ASSERT_EQ(notifier.shown.size(), 1);
    EXPECT_TRUE(notifier.shown.constFirst().contains(u"'One'"));
    EXPECT_TRUE(notifier.shown.constFirst().contains(u"'/data/Notes/Rescued'"));
    EXPECT_EQ(files.files.size(), 2);
}

TEST_F(Rescuing, saysSoWheneverANoteIsLost)
{
    files.failAllWrites = 3026;
    EXPECT_TRUE(rescue.rescue(QStringLiteral("One"), "1").isEmpty());
    EXPECT_TRUE(rescue.rescue(QStringLiteral("Two"), "2").isEmpty());
    ASSERT_EQ(notifier.shown.size(), 2);
    EXPECT_TRUE(notifier.shown.at(1).contains(u"'Two'"));
    EXPECT_TRUE(notices.isEmpty());
    notifier.available = false;
    rescue.rescue(QStringLiteral("Three"), "3");
    ASSERT_EQ(notices.size(), 1);
    EXPECT_TRUE(notices.at(0).contains(u"'Three'"));
}

} // namespace
