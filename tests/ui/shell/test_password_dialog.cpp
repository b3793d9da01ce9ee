#include "fakes/FakeEventLoop.h"
#include "fakes/FakePrompts.h"
#include "shell/windows/frmPassword.h"
#include "unit/store/StoreOnDisk.h"

#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace norvane;
using namespace norvane::test;

namespace {

class PasswordDialog : public testing::Test, protected StoreOnDisk
{
protected:
    PasswordDialog()
    {
        makeDatabase(u"sesame"_s);
        open();
    }

    void open()
    {
        dialog.reset();
        model = std::make_unique<PasswordDialogModel>(store, prompts, events, store.DatabaseFile);
        dialog = std::make_unique<frmPassword>(forms, *model);
        dialog->show();
        dialog->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    }
    QLineEdit *box() const { return dialog->findChild<QLineEdit *>(u"txtPassword"_s); }
    void press(const QString &button)
    {
        QTest::mouseClick(dialog->findChild<QPushButton *>(button), Qt::LeftButton);
    }

    FormList forms;
    fakes::FakePrompts prompts;
    fakes::FakeEventLoop events;
    std::unique_ptr<PasswordDialogModel> model;
    std::unique_ptr<frmPassword> dialog;
};

TEST_F(PasswordDialog, TakesTheRightPasswordTypedBlind)
{
    EXPECT_TRUE(forms.FormIsLoaded(u"frmPassword"_s));
    EXPECT_EQ(box()->toolTip(), model->toolTip());
    QTest::keyClicks(box(), u"guess"_s);
    press(u"Command1"_s);
    EXPECT_EQ(prompts.boxes.size(), 1);
    EXPECT_TRUE(dialog->isVisible() && box()->hasFocus());
    QTest::keyClicks(box(), u"ses"_s); // over the wrong one, which is selected
    QCoreApplication::processEvents(); // what the focus may have left to be done takes nothing away
    QTest::keyClicks(box(), u"ame"_s);
    EXPECT_FALSE(box()->displayText().contains(u's'));
    QTest::keyClick(box(), Qt::Key_Return);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(model->password(), u"sesame");
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
}

TEST_F(PasswordDialog, CancelEscapeAndCloseGiveNoPassword)
{
    const std::function<void()> ways[] = {[this] { press(u"Command2"_s); },
                                          [this] { QTest::keyClick(box(), Qt::Key_Escape); },
                                          [this] { dialog->close(); }};
    for (const auto &way : ways) {
        open();
        QTest::keyClicks(box(), u"sesame"_s);
        way();
        EXPECT_FALSE(dialog->isVisible());
        EXPECT_EQ(model->password(), QString());
        EXPECT_EQ(dialog->result(), QDialog::Rejected);
    }
}

TEST_F(PasswordDialog, FollowsItsModelToAnotherDatabase)
{
    const QString other = folder.filePath(u"other"_s);
    QDir().mkpath(other);
    files.write(databaseFileIn(other + u'/'), "no database");
    prompts.folders.enqueue(other);
    box()->clearFocus();
    press(u"Command3"_s);
    EXPECT_TRUE(dialog->isVisible() && box()->hasFocus());
    EXPECT_EQ(box()->toolTip(), u"Database: "_s + other + u'/');
    EXPECT_EQ(dialog->findChild<QLabel *>(u"lblExplanation"_s)->text(), model->explanation());
    dialog->setSelectDatabase(SelectDatabaseButton::Hidden);
    EXPECT_FALSE(dialog->findChild<QPushButton *>(u"Command3"_s)->isVisible());
}

} // namespace
