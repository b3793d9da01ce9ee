#include "fakes/FakeEventLoop.h"
#include "fakes/FakePrompts.h"
#include "store/PasswordDialogModel.h"
#include "unit/store/StoreOnDisk.h"

#include <QDir>
#include <QFileInfo>

using namespace norvane;
using namespace norvane::test;
using Next = PasswordDialogModel::Next;

namespace {

/// The dialog over a database with the password "secret", and a second folder to go to.
class PasswordDialog : public testing::Test, protected StoreOnDisk
{
protected:
    void SetUp() override
    {
        makeDatabase();
        setPassword(QStringLiteral("secret"));
        protectedFile = store.DatabaseFile;
        otherFolder = folder.filePath(QStringLiteral("other"));
        otherFile = databaseFileIn(otherFolder + u'/');
        QDir().mkpath(otherFolder);
        prompts.folders.enqueue(otherFolder);
    }
    PasswordDialogModel dialog() { return {store, prompts, events, store.DatabaseFile}; }

    QString protectedFile;
    QString otherFolder;
    QString otherFile;
    fakes::FakePrompts prompts;
    fakes::FakeEventLoop events;
};

TEST_F(PasswordDialog, takesOnlyTheRightPassword)
{
    PasswordDialogModel model = dialog();
    EXPECT_EQ(model.Command1_Click(QString()), Next::SelectText);
    EXPECT_EQ(model.Command1_Click(QStringLiteral("Secret")), Next::SelectText);
    EXPECT_EQ(prompts.boxes.size(), 2);
    EXPECT_EQ(prompts.boxes.constLast().style, Prompts::kCritical);
    EXPECT_TRUE(store.DatabasePassword.isEmpty());
    EXPECT_EQ(events.yields, 0);

    EXPECT_EQ(model.Command1_Click(QStringLiteral("secret")), Next::Hide);
    EXPECT_EQ(model.password(), QStringLiteral("secret"));
    EXPECT_EQ(store.DatabasePassword, QStringLiteral("secret"));
    EXPECT_EQ(store.DatabaseFile, protectedFile);
    EXPECT_EQ(events.yields, 1);
}

TEST_F(PasswordDialog, movesToADatabaseWithoutAPassword)
{
    makeNoteDatabase(*engine, files, otherFile);
    PasswordDialogModel model = dialog();
    EXPECT_EQ(model.Command3_Click(), Next::Hide);
    EXPECT_EQ(store.DatabaseFile, otherFile);
    EXPECT_EQ(store.DatabaseFolder, otherFolder + u'/');
    EXPECT_TRUE(model.password().isEmpty());
    ASSERT_EQ(prompts.folderRequests.size(), 1);
    EXPECT_EQ(prompts.folderRequests.constFirst().title, QStringLiteral("Select Norvane Database Folder:"));
}

TEST_F(PasswordDialog, goesOnForAnotherDatabaseWithAPassword)
{
    makeNoteDatabase(*engine, files, otherFile);
    const auto database = engine->workspace(0)->openDatabase(otherFile, false, false, QString());
    database->newPassword(QString(), QStringLiteral("other"));
    database->close();

    PasswordDialogModel model = dialog();
    EXPECT_EQ(model.Command3_Click(), Next::FocusText);
    EXPECT_EQ(store.DatabaseFile, protectedFile);
    EXPECT_EQ(model.toolTip(), QStringLiteral("Database: ") + otherFolder + u'/');
    EXPECT_EQ(model.Command1_Click(QStringLiteral("secret")), Next::SelectText);
    EXPECT_EQ(model.Command1_Click(QStringLiteral("other")), Next::Hide);
    EXPECT_EQ(store.DatabaseFile, otherFile);
}

TEST_F(PasswordDialog, makesADatabaseOnlyWhenToldTo)
{
    PasswordDialogModel model = dialog();
    EXPECT_EQ(model.Command3_Click(), Next::Stay);
    ASSERT_EQ(prompts.boxes.size(), 1);
    EXPECT_EQ(prompts.boxes.constFirst().style, 36);
    EXPECT_EQ(prompts.boxes.constFirst().text,
              QStringLiteral("Norvane database not found. Do you want to create a new database?"));
    EXPECT_FALSE(QFileInfo::exists(otherFile));
    EXPECT_EQ(store.DatabaseFile, protectedFile);

    prompts.folders.enqueue(otherFolder + u'/');
    prompts.answers.enqueue(Prompts::kYes);
    EXPECT_EQ(model.Command3_Click(), Next::Hide);
    EXPECT_EQ(store.DatabaseFile, otherFile);
    EXPECT_TRUE(QFileInfo::exists(otherFile));
}

TEST_F(PasswordDialog, saysWhyNoneCanBeMade)
{
    prompts.folders.clear();
    prompts.folders.enqueue(folder.filePath(QStringLiteral("nowhere")));
    prompts.answers.enqueue(Prompts::kYes);
    PasswordDialogModel model = dialog();
    EXPECT_EQ(model.Command3_Click(), Next::Stay);
    ASSERT_EQ(prompts.boxes.size(), 2);
    EXPECT_EQ(prompts.boxes.constLast().style, Prompts::kCritical);
    EXPECT_TRUE(prompts.boxes.constLast().text.contains(u"nowhere"))
        << prompts.boxes.constLast().text.toStdString();
    EXPECT_EQ(store.DatabaseFile, protectedFile);
}

TEST_F(PasswordDialog, explainsAChosenFileThatIsNoDatabase)
{
    put(otherFile, "shopping list");
    PasswordDialogModel model = dialog();
    EXPECT_TRUE(model.passwordCanHelp());
    EXPECT_EQ(model.Command3_Click(), Next::FocusText);
    EXPECT_FALSE(model.passwordCanHelp());
    EXPECT_TRUE(model.explanation().contains(u"text file")) << model.explanation().toStdString();
    EXPECT_EQ(store.DatabaseFile, protectedFile);
}

TEST_F(PasswordDialog, cancellingChangesNothing)
{
    prompts.folders.clear();
    PasswordDialogModel model = dialog();
    EXPECT_EQ(model.Command3_Click(), Next::Stay);
    EXPECT_EQ(model.Command2_Click(), Next::Hide);
    EXPECT_TRUE(model.password().isEmpty());
    EXPECT_EQ(store.DatabaseFile, protectedFile);
    EXPECT_TRUE(prompts.boxes.isEmpty());
}

} // namespace
