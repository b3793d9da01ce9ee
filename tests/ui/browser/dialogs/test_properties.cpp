#include "NoteDialogs.h"

#include "browser/dialogs/ColorButton.h"
#include "browser/dialogs/frmProperty.h"
#include "platform/errors.h"

#include <QCheckBox>
#include <QLabel>
#include <QTabWidget>

using namespace norvane;
using namespace norvane::tests;

namespace {

class PropertiesDialog : public NoteDialogs
{
protected:
    frmProperty *open(int ID)
    {
        form = new frmProperty(services, ID);
        showActive(form);
        return form;
    }
    frmProperty *open(const QVector<int> &IDs)
    {
        form = new frmProperty(services, IDs);
        showActive(form);
        return form;
    }
    void turnTo(int page)
    {
        auto *bar = in<QTabWidget>(form, u"SSTab1"_qs)->tabBar();
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(page).center());
    }
    QString label(const QString &name) const { return in<QLabel>(form, name)->text(); }
    bool canSave() const { return isOn(form, u"cmdOK"_qs) && isOn(form, u"cmdApply"_qs); }
    bool cannotSave() const { return !isOn(form, u"cmdOK"_qs) && !isOn(form, u"cmdApply"_qs); }
    Qt::CheckState check(const QString &name) const { return in<QCheckBox>(form, name)->checkState(); }

    QPointer<frmProperty> form;
};

TEST_F(PropertiesDialog, ShowsTheRow)
{
    files.files.insert(store.bodyFile(second), QByteArray(1536, 'x'));
    open(second);
    EXPECT_FALSE(timer.isEnabled());
    EXPECT_EQ(form->windowTitle(), u"Properties - Second"_qs);
    EXPECT_EQ(text(form, u"txtName"_qs), u"Second"_qs);
    EXPECT_EQ(label(u"Label2"_qs), u"File Folder"_qs);
    EXPECT_EQ(label(u"lblDateCreated"_qs), u"N/A"_qs);
    EXPECT_EQ(label(u"lblLastUpdate"_qs), QString());
    EXPECT_TRUE(label(u"lblFileSize"_qs).endsWith(u"5 Kb"_qs));
    EXPECT_EQ(in<QComboBox>(form, u"Combo1"_qs)->currentText(), u"Tom & Jerry"_qs);
    EXPECT_EQ(check(u"chkActive"_qs), Qt::Checked);
    EXPECT_EQ(check(u"chkShowToolbar"_qs), Qt::Unchecked);
    EXPECT_EQ(text(form, u"txtWAVFilename"_qs), u"(Default)"_qs);
    EXPECT_FALSE(isOn(form, u"txtWAVFilename"_qs) || isOn(form, u"cmdPlay"_qs));
    EXPECT_TRUE(cannotSave()) << "filling is no change";
    QTest::keyClick(form, Qt::Key_Escape);
    EXPECT_FALSE(forms.FormIsLoaded(u"frmProperty"_qs));
    EXPECT_TRUE(timer.isEnabled());

    open(third);
    EXPECT_EQ(label(u"Label2"_qs), u"Norvane"_qs);
    EXPECT_EQ(label(u"lblFileSize"_qs), u"0 Byte"_qs);
    form->unload();
    open(id);
    EXPECT_EQ(label(u"Label2"_qs), u"HTM File"_qs);
}

TEST_F(PropertiesDialog, AnyChangeCanBeSaved)
{
    open(third);
    const auto changes = [&](const QString &what, const std::function<void()> &change) {
        EXPECT_TRUE(cannotSave()) << what.toStdString();
        change();
        EXPECT_TRUE(canSave()) << what.toStdString();
        click(form, u"cmdApply"_qs);
    };
    changes(u"name"_qs, [&] { write(form, u"txtName"_qs, u"Other"_qs); });
    changes(u"location"_qs, [&] { write(form, u"txtURL"_qs, u"/a"_qs); });
    changes(u"words"_qs, [&] { write(form, u"txtKeywords"_qs, u"word"_qs); });
    changes(u"category"_qs, [&] { choose(form, u"\"Quoted\""_qs); });
    changes(u"active"_qs, [&] { click(form, u"chkActive"_qs); });
    turnTo(1);
    for (const QString &box :
         {u"chkAutosave"_qs, u"chkAutoURLDetect"_qs, u"chkTypeEffect"_qs, u"chkPlaySound"_qs})
        changes(box, [&] { click(form, box); });
    changes(u"sound"_qs, [&] { write(form, u"txtWAVFilename"_qs, u"/b.wav"_qs); });
    turnTo(2);
    changes(u"chkShowToolbar"_qs, [&] { click(form, u"chkShowToolbar"_qs); });
    const QPoint dot = in(form, u"Picture3"_qs)->pos();
    changes(u"position"_qs, [&] { click(form, u"optWindowPOS5"_qs); });
    EXPECT_GT(in(form, u"Picture3"_qs)->x(), dot.x());
    EXPECT_GT(in(form, u"Picture3"_qs)->y(), dot.y());
    prompts.colors << std::nullopt << 0x336699U;
    click(form, u"cmdBackcolor"_qs);
    changes(u"colour"_qs, [&] { click(form, u"cmdBackcolor"_qs); });
    EXPECT_EQ(prompts.boxes.size(), 0);

    const auto row = store.database()->openRecordset(u"select * from Memos where ID=%1"_qs.arg(third));
    const auto is = [&](const QString &column) { return row->field(column); };
    EXPECT_EQ(is(u"FriendlyName"_qs), u"Other"_qs);
    EXPECT_EQ(is(u"URL"_qs), u"/a"_qs);
    EXPECT_EQ(is(u"keyWords"_qs), u"word"_qs);
    EXPECT_EQ(is(u"CAT_ID"_qs), categoryID(u"\"Quoted\""_qs));
    EXPECT_EQ(is(u"Active"_qs), false);
    for (const QString &column :
         {u"AutoSave"_qs, u"AutoURLDetect"_qs, u"TypeEffect"_qs, u"PlaySound"_qs, u"ShowToolbar"_qs})
        EXPECT_EQ(is(column), true) << column.toStdString();
    EXPECT_EQ(is(u"WAVFileName"_qs), u"/b.wav"_qs);
    EXPECT_EQ(is(u"formposition"_qs), 5);
    EXPECT_EQ(is(u"BackColor"_qs).toUInt(), 0x336699U);
}

TEST_F(PropertiesDialog, TypeIsThatOfTheSavedLocation)
{
    open(third);
    write(form, u"txtURL"_qs, u"www.example.org"_qs);
    write(form, u"txtName"_qs, u"[*] Two\nlines"_qs.remove(u'\n'));
    EXPECT_EQ(text(form, u"txtURL"_qs), u"http://www.example.org"_qs);
    EXPECT_EQ(label(u"Label2"_qs), u"Norvane"_qs);
    EXPECT_EQ(form->windowTitle(), u"Properties - Third"_qs);
    click(form, u"cmdApply"_qs);
    EXPECT_EQ(label(u"Label2"_qs), u"HTM File"_qs);
    EXPECT_EQ(form->windowTitle(), u"Properties - [*][*] Twolines"_qs) << "a window shows that as [*]";
}

TEST_F(PropertiesDialog, KeepsOddTitlesWhole)
{
    const QString odd = u"\"a\" line\nbreak 😀 & more "_qs;
    const int ID = addNote(odd, QString(40000, u'u'));
    open(ID);
    write(form, u"txtKeywords"_qs, u"k"_qs);
    QTest::keyClick(in(form, u"txtKeywords"_qs), Qt::Key_Return);
    EXPECT_FALSE(forms.FormIsLoaded(u"frmProperty"_qs)) << "Enter is OK";
    EXPECT_EQ(noteField(ID, u"FriendlyName"_qs), odd);
    EXPECT_EQ(noteField(ID, u"URL"_qs).toString().size(), 40000);
}

TEST_F(PropertiesDialog, PlaysSounds)
{
    open(third);
    turnTo(1);
    click(form, u"chkPlaySound"_qs);
    EXPECT_TRUE(isOn(form, u"txtWAVFilename"_qs) && isOn(form, u"cmdBrowseWAV"_qs) &&
                isOn(form, u"cmdStop"_qs));
    click(form, u"cmdPlay"_qs);
    EXPECT_EQ(sound.beeps, 1);
    const QString tooLong = u"/home/me/"_qs + QString(50, u'x') + u".wav"_qs;
    prompts.files << u"/a.wav"_qs << tooLong;
    click(form, u"cmdBrowseWAV"_qs);
    EXPECT_EQ(prompts.fileStarts, QStringList{sound.folder});
    EXPECT_EQ(text(form, u"txtWAVFilename"_qs), u"/a.wav"_qs);
    click(form, u"cmdPlay"_qs);
    EXPECT_EQ(sound.played, QStringList()) << "there is no such file";
    files.files.insert(u"/a.wav"_qs, {});
    click(form, u"cmdPlay"_qs);
    EXPECT_EQ(sound.played, QStringList{u"/a.wav"_qs});
    click(form, u"cmdStop"_qs);
    EXPECT_EQ(sound.stops, 1);
    click(form, u"cmdBrowseWAV"_qs);
    EXPECT_EQ(text(form, u"txtWAVFilename"_qs), u"/a.wav"_qs) << "never a part of a path";
    EXPECT_EQ(prompts.boxes.size(), 1);
}

TEST_F(PropertiesDialog, ChangesTheNoteOnTheScreen)
{
    open(id);
    write(form, u"txtName"_qs, u"Mail"_qs);
    turnTo(2);
    prompts.colors << 0x00FF00U;
    click(form, u"cmdBackcolor"_qs);
    click(form, u"chkShowToolbar"_qs);
    click(form, u"cmdApply"_qs);
    EXPECT_EQ(note->caption(), u"Mail"_qs);
    EXPECT_EQ(note->Text1()->BackColor(), 0x00FF00U);
    EXPECT_TRUE(note->Text1()->ToolBar());
    EXPECT_EQ(storedPlace(), kPlace);
    EXPECT_FALSE(note->isDirty());
    const QRectF before = note->rectTwips();
    click(form, u"optWindowPOS5"_qs);
    click(form, u"cmdApply"_qs);
    EXPECT_GT(note->rectTwips().left(), before.left());
    EXPECT_EQ(note->rectTwips().size(), before.size());

    turnTo(0);
    click(form, u"chkActive"_qs);
    click(form, u"cmdOK"_qs);
    EXPECT_FALSE(forms.FormIsLoaded(u"frmSticky"_qs));
    EXPECT_EQ(field(u"Active"_qs), false);
}

TEST_F(PropertiesDialog, StaysWhenTheRowCannotBeWritten)
{
    open(id);
    write(form, u"txtName"_qs, u"Precious"_qs);
    turnTo(1);
    click(form, u"chkAutoURLDetect"_qs);
    store.close();
    click(form, u"cmdOK"_qs);
    ASSERT_EQ(prompts.boxes.size(), 1);
    EXPECT_TRUE(prompts.boxes.first().text.startsWith(u"Run-time error '91':"_qs));
    store.open();
    const auto row = store.database()->openRecordset(u"select * from Memos where ID=%1"_qs.arg(id));
    row->remove();
    click(form, u"cmdOK"_qs);
    ASSERT_EQ(prompts.boxes.size(), 2);
    EXPECT_EQ(prompts.boxes.last().text, u"Error writing properties."_qs);
    EXPECT_EQ(prompts.boxes.last().style, Prompts::kCritical);
    EXPECT_TRUE(form->isVisible() && canSave());
    EXPECT_EQ(text(form, u"txtName"_qs), u"Precious"_qs);
    EXPECT_EQ(note->caption(), u"Letters"_qs);
    EXPECT_FALSE(note->Text1()->AutoURLDetect());

    frmProperty::ShowPropertyPage(services, 4711);
    EXPECT_EQ(prompts.boxes.size(), 3) << "no dialog for a note that is gone";
    EXPECT_EQ(forms.named(u"frmProperty"_qs).size(), 1);
}

TEST_F(PropertiesDialog, OfSeveralNotesChangeWhatIsTouched)
{
    open({second, third});
    EXPECT_EQ(form->windowTitle(), u"Properties - Multiple Notes"_qs);
    for (const QString &name : {u"txtName"_qs, u"txtURL"_qs, u"Command2"_qs, u"txtWAVFilename"_qs})
        EXPECT_FALSE(isOn(form, name)) << name.toStdString();
    for (const QString &name : {u"chkActive"_qs, u"chkAutosave"_qs, u"chkAutoURLDetect"_qs,
                                u"chkPlaySound"_qs, u"chkShowToolbar"_qs, u"chkTypeEffect"_qs})
        EXPECT_EQ(check(name), Qt::PartiallyChecked) << name.toStdString();
    EXPECT_EQ(in<QComboBox>(form, u"Combo1"_qs)->currentText(), u"(Do Not Change)"_qs);
    EXPECT_FALSE(in(form, u"lblFileSize"_qs));
    EXPECT_TRUE(canSave()) << "what is always written can be saved at once";
    click(form, u"chkActive"_qs); // grey, checked, cleared
    click(form, u"chkActive"_qs);
    choose(form, u"(None)"_qs);
    click(form, u"Command1"_qs);
    EXPECT_EQ(in<QComboBox>(form, u"Combo1"_qs)->currentText(), u"(None)"_qs) << "kept over the refill";
    turnTo(2);
    prompts.colors << 0x336699U;
    click(form, u"cmdBackcolor"_qs);
    click(form, u"cmdApply"_qs);
    EXPECT_TRUE(cannotSave());
    for (const int ID : {second, third}) {
        EXPECT_EQ(noteField(ID, u"Active"_qs), false);
        EXPECT_EQ(noteField(ID, u"CAT_ID"_qs), 0);
        EXPECT_EQ(noteField(ID, u"TypeEffect"_qs), true);
        EXPECT_EQ(noteField(ID, u"BackColor"_qs).toUInt(), 0x336699U);
    }
    EXPECT_EQ(grid.refreshes, 1);
    EXPECT_EQ(field(u"Active"_qs), true);
}

} // namespace
