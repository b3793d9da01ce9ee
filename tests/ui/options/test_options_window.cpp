#include "OptionsDesk.h"
#include "options/windows/FolderBox.h"
#include "options/windows/HotKeyBox.h"
#include "options/windows/frmAddCategory.h"
#include "options/windows/frmSetting.h"
#include "shell/windows/StatusPanel.h"

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

using namespace norvane;
using namespace norvane::tests;

namespace {

class OptionsWindow : public testing::Test, protected OptionsDesk
{
protected:
    ~OptionsWindow() override
    {
        if (window)
            window->unload();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void open(frmSetting::Page page = frmSetting::kDatabase)
    {
        window = new frmSetting(options, nullptr);
        window->showPage(page);
        window->show();
    }
    template <typename Widget> Widget *find(const QString &name) const
    {
        return window->findChild<Widget *>(name);
    }
    QPushButton *button(const QString &name) const { return find<QPushButton>(name); }
    void press(const QString &name) { button(name)->click(); }
    void type(const QString &box, const QString &text) { find<QLineEdit>(box)->setText(text); }
    bool canSave() const { return button(u"cmdOK"_s)->isEnabled() && button(u"cmdApply"_s)->isEnabled(); }
    QStringList categories() const
    {
        QStringList names;
        for (int row = 0; row < find<QListWidget>(u"lstCat"_s)->count(); ++row)
            names.append(find<QListWidget>(u"lstCat"_s)->item(row)->text());
        return names;
    }
    QString lastBox() const { return prompts.boxes.isEmpty() ? QString() : prompts.boxes.last().text; }

    QPointer<frmSetting> window;
};

TEST_F(OptionsWindow, QuietensTheProgramAsLongAsItIsLoaded)
{
    window = new frmSetting(options, nullptr);
    window->show();
    EXPECT_EQ(find<QTabWidget>(u"SSTab1"_s)->currentIndex(), 3);
    EXPECT_EQ(find<QLabel>(u"lblVersion"_s)->text(), u"version: 1.2.3");
    EXPECT_TRUE(keyboard.registered.isEmpty());
    EXPECT_FALSE(timer.isEnabled());
    EXPECT_TRUE(forms.FormIsLoaded(u"frmSetting"_s));
    EXPECT_FALSE(canSave());

    keyboard.taken.insert({3, 'L'});
    window->close();
    EXPECT_EQ(keyboard.registered.size(), 5);
    EXPECT_EQ(keyboard.registered.value({host.hotKeyOwner(), 6}), (fakes::FakeHotKeys::Combination(3, 'X')));
    EXPECT_TRUE(timer.isEnabled());
    EXPECT_FALSE(forms.FormIsLoaded(u"frmSetting"_s));
    EXPECT_EQ(told, QStringList(u"keys, 1 refused"_s));
}

TEST_F(OptionsWindow, SavesWhatIsChosenOnlyWhenToldTo)
{
    open();
    find<QCheckBox>(u"chkExactWindowName"_s)->click();
    find<QCheckBox>(u"chkDefaultDatabase"_s)->click();
    EXPECT_FALSE(canSave()) << "neither of the two asks for it";
    find<QCheckBox>(u"chkStartup"_s)->click();
    EXPECT_TRUE(canSave());
    press(u"Command3"_s);
    EXPECT_FALSE(shell.startsItself);
    EXPECT_TRUE(settings.values.isEmpty());

    open(frmSetting::kHotKeys);
    auto *attach = find<HotKeyBox>(u"HKC_Attach"_s);
    attach->setFocus();
    QTest::keyClick(attach, Qt::Key_W, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_TRUE(canSave());
    EXPECT_TRUE(find<QLabel>(u"HKC_Attach_Remark"_s)->text().contains(u"Show Norvane Manager"));
    EXPECT_TRUE(find<QLabel>(u"HKC_Main_Remark"_s)->text().contains(u"Attach note"));
    QTest::keyClick(attach, Qt::Key_N, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(find<QLabel>(u"HKC_Main_Remark"_s)->text(), QString());
    press(u"cmdApply"_s);
    EXPECT_FALSE(canSave());
    EXPECT_EQ(settings.values[u"HotKeys"_s][u"Attach.1"_s], QString::number('N'));
    EXPECT_TRUE(keyboard.registered.isEmpty()) << "not before it is closed";
    press(u"Command1"_s);
    EXPECT_EQ(attach->text(), u"Ctrl+Alt+A");
    press(u"Command3"_s);
    EXPECT_EQ(keyboard.registered.value({host.hotKeyOwner(), 3}), (fakes::FakeHotKeys::Combination(3, 'N')));
}

TEST_F(OptionsWindow, ChangesTheDatabaseAndShowsWhatIsInIt)
{
    addCategory(u"Here"_s);
    const QString other = folder.filePath(u"Other/"_s);
    QDir().mkpath(other);
    open();
    auto *box = find<FolderBox>(u"txtDBName"_s);
    EXPECT_EQ(box->folder(), store.DatabaseFolder);
    QTest::keyClicks(box, u"x"_s);
    EXPECT_EQ(box->folder(), store.DatabaseFolder);
    fakes::script(prompts.folders, {other.chopped(1), other.chopped(1)});
    fakes::script(prompts.answers, {Prompts::kNo, Prompts::kYes, Prompts::kYes});
    press(u"Command2"_s);
    EXPECT_EQ(box->folder(), store.DatabaseFolder);
    EXPECT_TRUE(canSave());
    press(u"Command2"_s);
    EXPECT_EQ(box->folder(), other);
    EXPECT_EQ(prompts.folderRequests.last().title, u"Select Norvane Database Folder:");

    press(u"cmdApply"_s);
    EXPECT_EQ(find<StatusPanel>(u"lblCurrentDatabase"_s)->panelText(), other);
    EXPECT_TRUE(categories().isEmpty());
    EXPECT_FALSE(timer.isEnabled()) << "the window is still there";
    EXPECT_EQ(told, QStringList({u"database"_s, u"categories"_s, u"bar"_s}));
    press(u"Command3"_s);
    EXPECT_TRUE(timer.isEnabled());
    EXPECT_EQ(timer.interval(), watch.WatchInterval);

    settings.save(u"DB"_s, u"MRU2"_s, u"/old/"_s);
    open();
    EXPECT_EQ(find<FolderBox>(u"txtDBName"_s)->count(), 2);
    EXPECT_EQ(find<FolderBox>(u"cmbImport"_s)->count(), 2);
    type(u"txtNewPassword"_s, u"secret"_s);
    find<FolderBox>(u"txtDBName"_s)->showPopup();
    EXPECT_TRUE(canSave() && find<QLineEdit>(u"txtNewPassword"_s)->text().isEmpty());
    find<FolderBox>(u"txtDBName"_s)->hidePopup();
    find<FolderBox>(u"txtDBName"_s)->setCurrentIndex(1);
    press(u"cmdOK"_s); // its database is not there, and is not wanted
    EXPECT_EQ(store.DatabaseFolder, other);
    EXPECT_FALSE(forms.FormIsLoaded(u"frmSetting"_s)) << "it closes in any case";
}

TEST_F(OptionsWindow, AsksForThePasswordOfAnotherDatabase)
{
    const QString other = folder.filePath(u"Other/"_s);
    QDir().mkpath(other);
    makeNoteDatabase(*engine, files, databaseFileIn(other));
    setPassword(databaseFileIn(other), u"sesame"_s);
    open();
    fakes::script(prompts.folders, {other});
    press(u"Command2"_s);
    fakes::script(prompts.answers, {Prompts::kYes});
    bool isHidden = false;
    QTimer::singleShot(0, window, [&] {
        QWidget *dialog = QApplication::activeModalWidget();
        ASSERT_TRUE(dialog);
        isHidden = !dialog->findChild<QPushButton *>(u"Command3"_s)->isVisible();
        QTest::keyClicks(dialog->findChild<QLineEdit *>(), u"sesame"_s);
        dialog->findChild<QPushButton *>(u"Command1"_s)->click();
    });
    press(u"cmdApply"_s);
    EXPECT_TRUE(isHidden);
    EXPECT_EQ(store.DatabasePassword, u"sesame");
    EXPECT_EQ(store.DatabaseFolder, other);

    EXPECT_FALSE(button(u"Command5"_s)->isEnabled());
    type(u"txtCurrentPassword"_s, u"sesame"_s);
    QTest::keyClick(find<QLineEdit>(u"txtCurrentPassword"_s), Qt::Key_Return);
    EXPECT_EQ(lastBox(), u"Database password has been changed.");
    EXPECT_TRUE(store.DatabasePassword.isEmpty());
    EXPECT_FALSE(button(u"Command5"_s)->isEnabled());
    EXPECT_TRUE(window->isVisible()) << "Enter is not the window's there";
}

TEST_F(OptionsWindow, LeadsToAnImport)
{
    const QString other = folder.filePath(u"Other/"_s);
    QDir().mkpath(other);
    makeNoteDatabase(*engine, files, databaseFileIn(other));
    setPassword(databaseFileIn(other), u"sesame"_s);
    store.DatabasePassword = u"mine"_s;
    open();
    press(u"Command7"_s);
    EXPECT_EQ(lastBox(), u"Database path is invalid.");
    QTest::keyClicks(find<FolderBox>(u"cmbImport"_s), other);
    fakes::script(prompts.folders, {QString(), other.chopped(1)});
    press(u"Command6"_s);
    EXPECT_EQ(find<FolderBox>(u"cmbImport"_s)->folder(), QString());
    press(u"Command6"_s);
    EXPECT_EQ(find<FolderBox>(u"cmbImport"_s)->folder(), other);
    EXPECT_EQ(prompts.folderRequests.last().title, u"Select Norvane Database Folder:");

    const auto answerPassword = [&](const QString &button) {
        QTimer::singleShot(0, window, [=] {
            QWidget *dialog = QApplication::activeModalWidget();
            ASSERT_TRUE(dialog && dialog->objectName() == u"frmPassword");
            auto *select = dialog->findChild<QPushButton *>(u"Command3"_s);
            EXPECT_TRUE(select->isVisible() && !select->isEnabled());
            QTest::keyClicks(dialog->findChild<QLineEdit *>(), u"sesame"_s);
            dialog->findChild<QPushButton *>(button)->click();
        });
    };
    answerPassword(u"Command2"_s);
    press(u"Command7"_s);
    EXPECT_TRUE(settings.values.isEmpty()) << "not among the recent folders yet";

    answerPassword(u"Command1"_s);
    bool isShown = false;
    QTimer::singleShot(0, window, [&] {
        // Behind the password dialog's own turn of the loop.
        QTimer::singleShot(0, window, [&] {
            QWidget *import = QApplication::activeModalWidget();
            ASSERT_TRUE(import && import->objectName() == u"frmImport");
            isShown = import->findChild<StatusPanel *>(u"lblCurrentDatabase"_s)->panelText() == other;
            import->close();
        });
    });
    press(u"Command7"_s);
    EXPECT_TRUE(isShown);
    EXPECT_EQ(settings.values[u"DB"_s][u"MRU1"_s], other);
    EXPECT_EQ(store.DatabasePassword, u"mine");
    EXPECT_FALSE(canSave()) << "an import is nothing to be saved";
    EXPECT_FALSE(timer.isEnabled()) << "the window is still there";
}

TEST_F(OptionsWindow, KeepsTheListOfCategories)
{
    const int work = addCategory(u"Work"_s);
    addCategory(u"Home"_s);
    setField(addNote(u"a note"_s), u"CAT_ID"_s, work);
    open(frmSetting::kCategories);
    EXPECT_EQ(categories(), QStringList({u"Home"_s, u"Work"_s}));
    EXPECT_FALSE(button(u"cmdCatRemove"_s)->isEnabled() || find<QLineEdit>(u"txtCat"_s)->isEnabled());
    find<QListWidget>(u"lstCat"_s)->setCurrentRow(1);
    EXPECT_EQ(find<QLineEdit>(u"txtCat"_s)->text(), u"Work");
    EXPECT_FALSE(button(u"cmdCatUpdate"_s)->isEnabled());
    press(u"cmdCatRemove"_s);
    EXPECT_EQ(lastBox(), u"This category can not be removed. It is in use by 1 Note(s).");

    type(u"txtCat"_s, u"Work "_s); // compares as equal, itself
    press(u"cmdCatUpdate"_s);
    EXPECT_EQ(lastBox(), u"Category already exist. Please use a different name and try again.");
    type(u"txtCat"_s, u"Arbeit"_s);
    press(u"cmdCatUpdate"_s);
    EXPECT_EQ(categories(), QStringList({u"Arbeit"_s, u"Home"_s}));
    EXPECT_EQ(find<QListWidget>(u"lstCat"_s)->currentRow(), 1) << "the same place";
    type(u"txtCat"_s, u"Ho'me"_s);
    press(u"cmdCatUpdate"_s);
    EXPECT_TRUE(lastBox().contains(u"3075"));

    fakes::script(prompts.inputs, {u"Zoo"_s, u"  "_s, u"zoo"_s});
    for (int i = 0; i < 3; ++i)
        press(u"cmdCatAddNew"_s);
    EXPECT_EQ(categories(), QStringList({u"Arbeit"_s, u"Home"_s, u"Zoo"_s}));
    press(u"cmdCatRemove"_s);
    find<QListWidget>(u"lstCat"_s)->setCurrentRow(1);
    press(u"cmdCatRemove"_s);
    EXPECT_EQ(categories(), QStringList(u"Arbeit"_s));
    EXPECT_EQ(find<QListWidget>(u"lstCat"_s)->currentRow(), 0);
    EXPECT_EQ(told.count(u"categories"_s), 4);
}

TEST_F(OptionsWindow, AddsProposedCategoriesThatAreMissing)
{
    addCategory(u"Books"_s);
    open(frmSetting::kCategories);
    const auto choose = [&](const QStringList &names, const QString &end) {
        QTimer::singleShot(0, window, [=, this] {
            auto *dialog = qobject_cast<frmAddCategory *>(QApplication::activeModalWidget());
            ASSERT_TRUE(dialog);
            auto *list = dialog->findChild<QListWidget *>(u"List1"_s);
            EXPECT_EQ(list->count(), 55);
            EXPECT_EQ(list->item(0)->text(), u"Arts");
            EXPECT_FALSE(dialog->findChild<QPushButton *>(u"Command1"_s)->isEnabled());
            for (const QString &name : names)
                list->findItems(name, Qt::MatchExactly).constFirst()->setSelected(true);
            dialog->findChild<QPushButton *>(end)->click();
        });
        press(u"cmdAddPreset"_s);
    };
    choose({u"Home"_s}, u"Command2"_s);
    EXPECT_EQ(categories(), QStringList(u"Books"_s));
    choose({u"Books"_s, u"Autos"_s}, u"Command1"_s);
    EXPECT_EQ(categories(), QStringList({u"Autos"_s, u"Books"_s}));
    EXPECT_TRUE(prompts.boxes.isEmpty());
    EXPECT_FALSE(forms.FormIsLoaded(u"frmAddCategory"_s));
}

TEST_F(OptionsWindow, OffersTheProgramsOnTheDesktop)
{
    windows.open(u"XTerm"_s, u"shell"_s);
    open(frmSetting::kPrograms);
    auto *running = find<QTreeWidget>(u"lstRunning"_s);
    auto *tracked = find<QTreeWidget>(u"lstTracked"_s);
    const int builtIn = tracked->topLevelItemCount();
    ASSERT_EQ(running->topLevelItemCount(), 1);
    EXPECT_FALSE(button(u"cmdProgramAdd"_s)->isEnabled());
    running->setCurrentItem(running->topLevelItem(0));
    press(u"cmdProgramAdd"_s);
    EXPECT_EQ(settings.values[u"ClassEx"_s][u"01"_s], u"XTerm");
    EXPECT_EQ(running->topLevelItem(0)->text(2), u"Added by you");
    EXPECT_EQ(tracked->topLevelItemCount(), builtIn + 1);
    tracked->setCurrentItem(tracked->topLevelItem(0));
    EXPECT_FALSE(button(u"cmdProgramRemove"_s)->isEnabled()) << "a family stays";
    tracked->setCurrentItem(tracked->topLevelItem(builtIn));
    press(u"cmdProgramRemove"_s);
    EXPECT_EQ(tracked->topLevelItemCount(), builtIn);
    EXPECT_EQ(settings.values[u"ClassEx"_s][u"01"_s], QString());
}

} // namespace
