#include "PasswordEngine.h"
#include "fakes/FakeEventLoop.h"
#include "fakes/FakeFileSystem.h"
#include "fakes/FakePrompts.h"
#include "shell/windows/frmPassword.h"
#include "store/NoteStore.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

using namespace norvane;

namespace {

const QString kSecret = QStringLiteral("/notes/Norvane.DAT");
const QString kOpen = QStringLiteral("/open/Norvane.DAT");
const QString kForeign = QStringLiteral("/foreign/Norvane.DAT");

class PasswordDialog : public testing::Test
{
protected:
    PasswordDialog()
    {
        for (const QString &file : {kSecret, kOpen, kForeign}) {
            files.addFolder(file.chopped(12));
            files.files.insert(file, "x");
        }
        engine.passwords.insert(kSecret, QStringLiteral("sesame"));
        engine.passwords.insert(kOpen, QString());
        open(kSecret);
    }

    void open(const QString &path)
    {
        dialog.reset();
        model = std::make_unique<PasswordDialogModel>(store, prompts, events, path);
        dialog = std::make_unique<frmPassword>(forms, *model);
        dialog->show();
        dialog->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    }
    QLineEdit *box() const { return dialog->findChild<QLineEdit *>(QStringLiteral("txtPassword")); }
    void press(const char *button)
    {
        QTest::mouseClick(dialog->findChild<QPushButton *>(QString::fromLatin1(button)), Qt::LeftButton);
    }
    QString explanation() const
    {
        return dialog->findChild<QLabel *>(QStringLiteral("lblExplanation"))->text();
    }

    FormList forms;
    fakes::PasswordEngine engine;
    fakes::FakeFileSystem files;
    fakes::FakePrompts prompts;
    fakes::FakeEventLoop events;
    NoteStore store{engine, files};
    std::unique_ptr<PasswordDialogModel> model;
    std::unique_ptr<frmPassword> dialog;
};

} // namespace

TEST_F(PasswordDialog, TakesTheRightPasswordTypedBlind)
{
    EXPECT_TRUE(box()->hasFocus());
    EXPECT_EQ(box()->toolTip(), QStringLiteral("Database: /notes/"));
    QTest::keyClicks(box(), QStringLiteral("sesame"));
    EXPECT_FALSE(box()->displayText().contains(u's'));
    QTest::keyClick(box(), Qt::Key_Return);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(model->password(), QStringLiteral("sesame"));
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_TRUE(prompts.boxes.isEmpty());
}

TEST_F(PasswordDialog, SelectsAWrongPasswordToBeTypedOver)
{
    QTest::keyClicks(box(), QStringLiteral("guess"));
    press("Command1");
    ASSERT_EQ(prompts.boxes.size(), 1);
    EXPECT_EQ(prompts.boxes[0].text, QStringLiteral("Invalid Password!"));
    EXPECT_EQ(prompts.boxes[0].title, QStringLiteral("Norvane Security"));
    EXPECT_EQ(prompts.boxes[0].style, Prompts::kCritical);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_TRUE(box()->hasFocus());
    QTest::keyClicks(box(), QStringLiteral("sesame"));
    EXPECT_EQ(box()->text(), QStringLiteral("sesame"));
}

TEST_F(PasswordDialog, SelectsItsTextWhenItGetsTheFocus)
{
    QTest::keyClicks(box(), QStringLiteral("guess"));
    QTest::keyClick(box(), Qt::Key_Tab);
    EXPECT_FALSE(box()->hasFocus());
    QTest::keyClick(dialog->focusWidget(), Qt::Key_Backtab);
    EXPECT_TRUE(box()->hasFocus());
    EXPECT_TRUE(QTest::qWaitFor([this] { return box()->selectedText().size() == 5; }));
}

TEST_F(PasswordDialog, CancelEscapeAndCloseGiveNoPassword)
{
    QTest::keyClicks(box(), QStringLiteral("sesame"));
    press("Command2");
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(model->password(), QString());

    open(kSecret);
    QTest::keyClick(box(), Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());

    open(kSecret);
    dialog->close();
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(dialog->result(), QDialog::Rejected);
}

TEST_F(PasswordDialog, MovesToAnotherDatabase)
{
    open(kForeign);
    EXPECT_FALSE(explanation().isEmpty());
    prompts.folders.enqueue(QStringLiteral("/notes"));
    press("Command3");
    EXPECT_TRUE(dialog->isVisible()) << "this one has a password, too";
    EXPECT_TRUE(box()->hasFocus());
    EXPECT_EQ(box()->toolTip(), QStringLiteral("Database: /notes/"));
    EXPECT_EQ(explanation(), model->explanation());

    prompts.folders.enqueue(QString());
    press("Command3");
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(model->path(), kSecret);

    prompts.folders.enqueue(QStringLiteral("/open"));
    press("Command3");
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(store.DatabaseFile, kOpen);
}

TEST_F(PasswordDialog, HidesTheSelectButtonForASwitchAndLeavesTheListOfForms)
{
    dialog->setSelectDatabaseVisible(false);
    EXPECT_FALSE(dialog->findChild<QPushButton *>(QStringLiteral("Command3"))->isVisible());
    EXPECT_TRUE(forms.FormIsLoaded(QStringLiteral("frmPassword")));
    dialog.reset();
    EXPECT_FALSE(forms.FormIsLoaded(QStringLiteral("frmPassword")));
}
