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
    PasswordDialog()
    {
        makeDatabase(u"secret"_s);
        QDir().mkpath(otherFolder);
        prompts.folders.enqueue(otherFolder);
    }

    const QString protectedFile = store.DatabaseFile;
    const QString otherFolder = folder.filePath(u"other"_s);
    const QString otherFile = databaseFileIn(otherFolder + u'/');
    fakes::FakePrompts prompts;
    fakes::FakeEventLoop events;
    /// Made when it is first asked for: it looks at the file at once.
    PasswordDialogModel &model()
    {
        if (!m_model)
            m_model.emplace(store, prompts, events, store.DatabaseFile);
        return *m_model;
    }

private:
    std::optional<PasswordDialogModel> m_model;
};

TEST_F(PasswordDialog, TakesOnlyTheRightPassword)
{
    EXPECT_TRUE(model().passwordCanHelp());
    EXPECT_EQ(model().toolTip(), u"Database: "_s + store.DatabaseFolder);
    EXPECT_EQ(model().Command1_Click(QString()), Next::SelectText);
    EXPECT_EQ(model().Command1_Click(u"Secret"_s), Next::SelectText);
    ASSERT_EQ(prompts.boxes.size(), 2);
    EXPECT_EQ(prompts.boxes[1].text, u"Invalid Password!");
    EXPECT_EQ(prompts.boxes[1].title, u"Norvane Security");
    EXPECT_EQ(prompts.boxes[1].style, Prompts::kCritical);
    EXPECT_TRUE(store.DatabasePassword.isEmpty());
    EXPECT_EQ(events.yields, 0);

    EXPECT_EQ(model().Command1_Click(u"secret"_s), Next::Hide);
    EXPECT_EQ(model().password(), u"secret");
    EXPECT_EQ(events.yields, 1);
    EXPECT_TRUE(store.DatabasePassword.isEmpty()) << "it is for the caller to take";
}

TEST_F(PasswordDialog, MovesToADatabaseWithoutAPassword)
{
    makeNoteDatabase(*engine, files, otherFile);
    EXPECT_EQ(model().Command3_Click(), Next::Hide);
    EXPECT_EQ(store.DatabaseFile, otherFile);
    EXPECT_EQ(store.DatabaseFolder, otherFolder + u'/');
    EXPECT_TRUE(model().password().isEmpty());
    ASSERT_EQ(prompts.folderRequests.size(), 1);
    EXPECT_EQ(prompts.folderRequests[0].title, u"Select Norvane Database Folder:");
}

TEST_F(PasswordDialog, GoesOnForAnotherDatabaseWithAPassword)
{
    makeNoteDatabase(*engine, files, otherFile);
    setPassword(otherFile, u"other"_s);
    EXPECT_EQ(model().Command3_Click(), Next::FocusText);
    EXPECT_EQ(store.DatabaseFile, protectedFile);
    EXPECT_EQ(model().toolTip(), u"Database: "_s + otherFolder + u'/');
    EXPECT_EQ(model().Command1_Click(u"secret"_s), Next::SelectText);
    EXPECT_EQ(model().Command1_Click(u"other"_s), Next::Hide);
    EXPECT_EQ(store.DatabaseFile, otherFile);
}

TEST_F(PasswordDialog, MakesADatabaseOnlyWhenToldTo)
{
    EXPECT_EQ(model().Command3_Click(), Next::Stay);
    ASSERT_EQ(prompts.boxes.size(), 1);
    EXPECT_EQ(prompts.boxes[0].style, 36);
    EXPECT_EQ(prompts.boxes[0].text, u"Norvane database not found. Do you want to create a new database?");
    EXPECT_FALSE(QFileInfo::exists(otherFile));

    prompts.folders.enqueue(folder.filePath(u"nowhere"_s));
    prompts.answers.enqueue(Prompts::kYes);
    EXPECT_EQ(model().Command3_Click(), Next::Stay);
    ASSERT_EQ(prompts.boxes.size(), 3);
    EXPECT_EQ(prompts.boxes[2].style, Prompts::kCritical);
    EXPECT_TRUE(prompts.boxes[2].text.contains(u"nowhere")) << prompts.boxes[2].text.toStdString();
    EXPECT_EQ(store.DatabaseFile, protectedFile);

    prompts.folders.enqueue(otherFolder + u'/');
    prompts.answers.enqueue(Prompts::kYes);
    EXPECT_EQ(model().Command3_Click(), Next::Hide);
    EXPECT_EQ(store.DatabaseFile, otherFile);
    EXPECT_TRUE(QFileInfo::exists(otherFile));
}

TEST_F(PasswordDialog, ExplainsAChosenFileThatIsNoDatabaseAndMayBeCancelled)
{
    files.write(otherFile, "shopping list");
    EXPECT_EQ(model().Command3_Click(), Next::FocusText);
    EXPECT_FALSE(model().passwordCanHelp());
    EXPECT_TRUE(model().explanation().contains(u"text file")) << model().explanation().toStdString();
    EXPECT_EQ(model().Command3_Click(), Next::Stay) << "no folder was chosen";
    EXPECT_EQ(model().Command2_Click(), Next::Hide);
    EXPECT_TRUE(model().password().isEmpty());
    EXPECT_EQ(store.DatabaseFile, protectedFile);
    EXPECT_TRUE(prompts.boxes.isEmpty());
}

} // namespace
