#include "exchange/shortcuts/FavoriteDialog.h"
#include "fakes/FakePrompts.h"
#include "platform/linux/PosixFileSystem.h"

#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>
#include <gmock/gmock.h>

using namespace norvane;
using namespace Qt::StringLiterals;

namespace {

class FavoriteDialogTest : public testing::Test
{
protected:
    FavoriteDialogTest()
    {
        QDir(folder.path()).mkpath(u"News/Sport"_s);
        QDir(folder.path()).mkpath(u"work"_s);
        files.write(path(u"News/Plan.url"_s), "[InternetShortcut]\r\n");
    }

    QString path(const QString &of) const { return folder.filePath(of); }

    std::unique_ptr<FavoriteDialog> show(const QString &title)
    {
        auto dialog = std::make_unique<FavoriteDialog>(files, prompts, title, folder.path() + u'/', nullptr);
        dialog->show();
        folders = dialog->findChild<QTreeWidget *>(u"FavoriteFolders"_s);
        name = dialog->findChild<QLineEdit *>(u"FavoriteName"_s);
        ok = dialog->findChild<QPushButton *>(u"OkButton"_s);
        return dialog;
    }

    void choose(const QString &text)
    {
        const QList<QTreeWidgetItem *> found =
            folders->findItems(text, Qt::MatchRecursive | Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1);
        folders->setCurrentItem(found.first());
    }

    QTemporaryDir folder;
    PosixFileSystem files;
    fakes::FakePrompts prompts;
    QTreeWidget *folders = nullptr;
    QLineEdit *name = nullptr;
    QPushButton *ok = nullptr;
};

TEST_F(FavoriteDialogTest, NameAndFolderMakeThePath)
{
    const auto dialog = show(u"Plan  v1.5 "_s);
    EXPECT_EQ(dialog->path(), path(u"Plan v1.5.url"_s));
    EXPECT_EQ(folders->topLevelItem(0)->childCount(), 2);
    choose(u"News"_s);
    folders->currentItem()->setExpanded(true);
    choose(u"Sport"_s);
    name->setText(u"  .a/b: c"_s);
    EXPECT_EQ(dialog->path(), path(u"News/Sport/a b  c.url"_s));
    for (const QString &nothing : {QString(), u" / "_s, u"..."_s}) {
        name->setText(nothing);
        EXPECT_FALSE(ok->isEnabled()) << nothing.toStdString();
    }
}

TEST_F(FavoriteDialogTest, OneThatIsThereIsReplacedOnlyWhenTheUserSaysSo)
{
    const auto dialog = show(u"Plan"_s);
    choose(u"News"_s);
    QTest::keyClick(name, Qt::Key_Return);
    ASSERT_EQ(prompts.boxes.size(), 1);
    EXPECT_TRUE(dialog->isVisible());
    prompts.answers.enqueue(Prompts::kYes);
    ok->click();
    EXPECT_EQ(dialog->result(), QDialog::Accepted);

    const auto other = show(u"Plan"_s);
    ok->click();
    EXPECT_EQ(other->result(), QDialog::Accepted);
    EXPECT_EQ(prompts.boxes.size(), 2) << "another folder has none of that name";
}

TEST_F(FavoriteDialogTest, ANewFolderIsMadeBelowTheChosenOne)
{
    const auto dialog = show(u"Plan"_s);
    auto *newFolder = dialog->findChild<QPushButton *>(u"NewFolderButton"_s);
    choose(u"News"_s);
    fakes::script(prompts.inputs, {u"1/2"_s, u"1/2"_s, QString()});
    newFolder->click();
    EXPECT_TRUE(QDir(path(u"News/1 2"_s)).exists());
    EXPECT_EQ(dialog->path(), path(u"News/1 2/Plan.url"_s));

    choose(u"News"_s);
    newFolder->click();
    EXPECT_EQ(prompts.boxes.size(), 1) << "it is there already";
    newFolder->click();
    EXPECT_EQ(prompts.boxes.size(), 1) << "cancelled";
    EXPECT_EQ(folders->currentItem()->text(0), u"News"_s);
    EXPECT_EQ(folders->currentItem()->childCount(), 2);
}

} // namespace
