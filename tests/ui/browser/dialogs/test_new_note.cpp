#include "NoteDialogs.h"

#include "browser/dialogs/NewNoteDialogs.h"
#include "browser/dialogs/frmNewNote.h"
#include "error_of.h"
#include "platform/errors.h"

#include <QTimer>

using namespace norvane;
using namespace norvane::tests;

namespace {

class NewNoteDialog : public NoteDialogs
{
protected:
    frmNewNote *open()
    {
        form = new frmNewNote(services, nullptr, &drop);
        showActive(form);
        return form;
    }
    QVariant made(const QString &column) const
    {
        const auto row = store.database()->openRecordset(u"select * from Memos order by ID"_qs);
        row->moveLast();
        return row->field(column);
    }

    NewNoteDrop drop;
    QPointer<frmNewNote> form;
};

TEST_F(NewNoteDialog, MakesWhatIsTyped)
{
    grid.shownCategory = categoryID(u"Tom & Jerry"_qs);
    open();
    EXPECT_FALSE(timer.isEnabled());
    EXPECT_TRUE(forms.FormIsLoaded(u"frmNewNote"_qs));
    EXPECT_EQ(in<QLineEdit>(form, u"Text1"_qs)->selectedText(), u"New Note"_qs);
    EXPECT_EQ(in<QComboBox>(form, u"Combo1"_qs)->currentText(), u"Tom & Jerry"_qs);
    EXPECT_FALSE(in(form, u"chkApply"_qs)->isVisible());

    QTest::keyClicks(QApplication::focusWidget(), u" Shopping 'list' "_qs); // over the selected text
    write(form, u"Text2"_qs, u" www.example.org "_qs);
    QTest::keyClick(form, Qt::Key_A, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return in<QAbstractButton>(form, u"Check1"_qs)->isChecked(); }));
    QTest::keyClick(in(form, u"Text2"_qs), Qt::Key_Return);
    EXPECT_FALSE(forms.FormIsLoaded(u"frmNewNote"_qs));
    EXPECT_TRUE(timer.isEnabled());
    EXPECT_EQ(noteCount(), 4);
    EXPECT_EQ(made(u"FriendlyName"_qs), u" Shopping 'list' "_qs);
    EXPECT_EQ(made(u"URL"_qs), u"http://www.example.org"_qs);
    EXPECT_EQ(made(u"ACTIVE"_qs), true);
    EXPECT_EQ(made(u"CAT_ID"_qs), categoryID(u"Tom & Jerry"_qs));
    EXPECT_EQ(grid.refreshes, 1);
    EXPECT_EQ(grid.aroundRefreshes, 1);
    EXPECT_FALSE(drop.newNoteCancelled);
}

TEST_F(NewNoteDialog, ControlsFollowTheTexts)
{
    open();
    EXPECT_FALSE(isOn(form, u"Check1"_qs));
    write(form, u"Text2"_qs, u"\"/home/me/a.txt\""_qs);
    EXPECT_TRUE(isOn(form, u"Check1"_qs));
    click(form, u"Check1"_qs);
    write(form, u"Text1"_qs, QString());
    EXPECT_EQ(text(form, u"Text2"_qs), u"/home/me/a.txt"_qs) << "cleaned when it lost the focus";
    EXPECT_FALSE(isOn(form, u"Command1"_qs)) << "no name, even with a location";
    write(form, u"Text1"_qs, QString(300, u'n'));
    EXPECT_EQ(text(form, u"Text1"_qs).size(), 255);
    form->setName(QString(254, u'n') + u"😀"_qs);
    EXPECT_EQ(text(form, u"Text1"_qs), QString(254, u'n')) << "no half of a character";
    write(form, u"Text2"_qs, QString());
    EXPECT_FALSE(isOn(form, u"Check1"_qs));
    click(form, u"Command1"_qs);
    EXPECT_EQ(made(u"ACTIVE"_qs), false) << "the tick of a disabled box does not count";
    EXPECT_EQ(made(u"FriendlyName"_qs).toString().size(), 254);
}

TEST_F(NewNoteDialog, BrowsesForFileAndCategory)
{
    open();
    choose(form, u"\"Quoted\""_qs);
    prompts.files << u"/home/me/\"a\".txt"_qs << QString();
    click(form, u"Command4"_qs);
    EXPECT_EQ(text(form, u"Text2"_qs), u"/home/me/a.txt"_qs);
    click(form, u"Command4"_qs);
    EXPECT_EQ(text(form, u"Text2"_qs), u"/home/me/a.txt"_qs) << "cancelled";
    EXPECT_EQ(prompts.fileRequests.first(), qMakePair(u"Select File"_qs, u"All File Types|*.*"_qs));

    addCategory(u"Added in there"_qs);
    click(form, u"Command3"_qs);
    EXPECT_EQ(views.opened, QStringList{u"categories"_qs});
    EXPECT_EQ(in<QComboBox>(form, u"Combo1"_qs)->currentText(), u"\"Quoted\""_qs);
    choose(form, u"Added in there"_qs);
    form->SetCatItem(4711);
    EXPECT_EQ(in<QComboBox>(form, u"Combo1"_qs)->currentText(), u"Added in there"_qs);
    form->SetCatItem(-1);
    EXPECT_EQ(in<QComboBox>(form, u"Combo1"_qs)->currentText(), u"(None)"_qs);
}

TEST_F(NewNoteDialog, TellsTheDropWhatWasChosen)
{
    open();
    form->setApplyShown(true);
    choose(form, u"Tom & Jerry"_qs);
    click(form, u"chkApply"_qs);
    EXPECT_TRUE(drop.applyToAll);
    EXPECT_EQ(drop.appliedCategory, categoryID(u"Tom & Jerry"_qs));
    choose(form, u"\"Quoted\""_qs);
    click(form, u"Command1"_qs);
    EXPECT_EQ(drop.appliedCategory, categoryID(u"\"Quoted\""_qs)) << "chosen after the box was checked";
    EXPECT_EQ(grid.refreshes, 1);

    auto *hidden = new frmNewNote(services, nullptr, &drop);
    hidden->setName(u"file.txt"_qs);
    hidden->setLocation(u"/home/me/file.txt"_qs);
    hidden->SetCatItem(drop.appliedCategory);
    hidden->Command1_Click();
    EXPECT_EQ(made(u"URL"_qs), u"/home/me/file.txt"_qs);
    EXPECT_EQ(grid.refreshes, 1) << "left to the caller";
    EXPECT_FALSE(forms.FormIsLoaded(u"frmNewNote"_qs));

    open();
    form->setApplyShown(true);
    click(form, u"chkApply"_qs);
    click(form, u"chkApply"_qs);
    EXPECT_FALSE(drop.applyToAll);
    QTest::keyClick(form, Qt::Key_Escape);
    EXPECT_TRUE(drop.newNoteCancelled);
    EXPECT_EQ(noteCount(), 5);
    EXPECT_TRUE(timer.isEnabled());
}

TEST_F(NewNoteDialog, ComesToTheFrontForADrop)
{
    NewNoteDialogs dialogs(services, [] { return nullptr; });
    drop.appliedCategory = categoryID(u"Tom & Jerry"_qs);
    dialogs.pressOk({u"two"_qs, u"/in/two.txt"_qs, true}, drop);
    EXPECT_EQ(made(u"FriendlyName"_qs), u"two"_qs);
    EXPECT_EQ(made(u"CAT_ID"_qs), drop.appliedCategory);
    const auto isAskedFor = [this](const frmNewNote *dialog) {
        return windows.actions.contains(u"setForegroundWindow %1"_qs.arg(dialog->hWnd()));
    };

    bool isChecked = false;
    QTimer::singleShot(0, &windows, [&] {
        form = dynamic_cast<frmNewNote *>(forms.named(u"frmNewNote"_qs).value(0));
        ASSERT_TRUE(form);
        EXPECT_TRUE(QTest::qWaitFor([&] { return isAskedFor(form); }));
        EXPECT_EQ(text(form, u"Text1"_qs), u"one"_qs);
        EXPECT_EQ(text(form, u"Text2"_qs), u"/in/one.txt"_qs);
        EXPECT_TRUE(in(form, u"chkApply"_qs)->isVisible());
        isChecked = true;
        QTest::keyClick(form, Qt::Key_Escape);
    });
    dialogs.show({u"one"_qs, u"/in/one.txt"_qs, true}, drop);
    EXPECT_TRUE(isChecked && drop.newNoteCancelled);

    store.close();
    EXPECT_EQ(errorOf([&] {
                  dialogs.pressOk({u"three"_qs, u"/in/three.txt"_qs, true}, drop);
              }),
              kErrorNothingThere);
    EXPECT_FALSE(forms.FormIsLoaded(u"frmNewNote"_qs)) << "released";
    store.open();
}

TEST_F(NewNoteDialog, StaysWhenTheRowCannotBeWritten)
{
    open();
    write(form, u"Text1"_qs, u"Precious"_qs);
    store.close();
    click(form, u"Command1"_qs);
    ASSERT_EQ(prompts.boxes.size(), 1);
    EXPECT_TRUE(prompts.boxes.first().text.contains(u"No note database is open."_qs));
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(text(form, u"Text1"_qs), u"Precious"_qs);
    store.open();
    click(form, u"Command1"_qs);
    EXPECT_EQ(made(u"FriendlyName"_qs), u"Precious"_qs);
}

TEST_F(NewNoteDialog, EndsWithTheProgramWhileItIsModal)
{
    QWidget frame;
    frame.show();
    form = new frmNewNote(services, &frame);
    QMetaObject::invokeMethod(
        form,
        [this] {
            EXPECT_TRUE(form->isVisible() && form->isModal());
            store.close();
            form->unload();
        },
        Qt::QueuedConnection);
    form->showModal();
    EXPECT_FALSE(forms.FormIsLoaded(u"frmNewNote"_qs));
    EXPECT_TRUE(timer.isEnabled());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(form);
    store.open();
}

} // namespace
