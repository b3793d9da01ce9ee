#include "EditorDesk.h"

#include "browser/editor/frmOpen.h"
#include "browser/grid/NoteGrid.h"
#include "controls/gridview/vbalGrid.h"
#include "richtext/NV_RTFEdit.h"

#include <QPointer>
#include <QPushButton>
#include <QTest>

using namespace norvane;
using namespace norvane::test;

namespace {

class OpenNote : public testing::Test, protected EditorDesk
{
protected:
    ~OpenNote() override
    {
        if (picker)
            picker->unload();
        finishUnloading();
    }

    void open(NV_RTFEdit &asker, const QString &caption = u"Import into 'x'"_s)
    {
        ShowOpenNote(services, asker, caption);
        const auto opened = forms.named(u"frmOpen"_s);
        picker = opened.isEmpty() ? nullptr : dynamic_cast<frmOpen *>(opened.first());
    }
    vbalGrid *grid() const { return picker->findChild<NoteGrid *>(u"NoteGrid1"_s)->grid(); }
    QPushButton *button(const QString &name) const { return picker->findChild<QPushButton *>(name); }
    void press(const QString &name) { QTest::mouseClick(button(name), Qt::LeftButton); }
    /// Picks a note by going down the list, as the user does.
    void pick(const QString &title)
    {
        QTest::keyClick(grid(), Qt::Key_Home);
        for (int row = 1; row < grid()->Rows() && grid()->CellText(row, 2).toString() != title; ++row)
            QTest::keyClick(grid(), Qt::Key_Down);
        ASSERT_EQ(grid()->CellText(grid()->SelectedRow(), 2).toString(), title);
    }
    bool isOpen() const
    {
        finishUnloading();
        return !picker.isNull();
    }

    NV_RTFEdit asking{edit};
    QPointer<frmOpen> picker;
};

TEST_F(OpenNote, replacesTheTextOrSetsItInAtTheCaret)
{
    addNoteWithBody(u"Bold"_s, "{\\b bold} text");
    addNoteWithBody(u"Other"_s, "other");
    addNote(u"Without body"_s);
    // A document that is set in ends with its last paragraph.
    const struct
    {
        QString note;
        QString command;
        QString expected;
    } cases[] = {{u"Bold"_s, u"Command3"_s, u"abbold text\r\ncd"_s},
                 {u"Other"_s, u"Command1"_s, u"other"_s},
                 {u"Without body"_s, u"Command3"_s, u"ab\r\ncd"_s},
                 {u"Without body"_s, u"Command1"_s, u""_s},
                 {u"Other"_s, u"Command2"_s, u"abcd"_s}};
    for (const auto &each : cases) {
        asking.setText(u"abcd"_s);
        asking.setSelStart(2);
        open(asking);
        pick(each.note);
        press(each.command);
        EXPECT_FALSE(isOpen());
        EXPECT_EQ(asking.Text(), each.expected) << each.note.toStdString() << each.command.toStdString();
        if (each.note == u"Bold") {
            asking.setSelStart(2);
            asking.setSelLength(4);
            EXPECT_EQ(asking.SelBold(), true);
        }
    }
}

TEST_F(OpenNote, listsAllNotesAndServesWhoeverAskedLast)
{
    addNoteWithBody(u"First"_s, "first");
    open(asking, u"Import into 'a'"_s);
    EXPECT_EQ(picker->windowTitle(), u"Import into 'a'");
    EXPECT_FALSE(picker->isModal());
    EXPECT_EQ(grid()->Rows(), 1);
    EXPECT_TRUE(picker->findChild<QWidget *>(u"RichTextBox1"_s)->isHidden());

    const frmOpen *before = picker;
    addNoteWithBody(u"Second"_s, "second");
    NV_RTFEdit other(edit);
    open(other, u"Import into 'b'"_s);
    EXPECT_EQ(picker.data(), before);
    EXPECT_EQ(picker->windowTitle(), u"Import into 'b'");
    EXPECT_EQ(grid()->Rows(), 2);
    pick(u"Second"_s);
    press(u"Command1"_s);
    EXPECT_EQ(other.Text(), u"second");
    EXPECT_EQ(asking.Text(), u"");

    open(asking);
    QTest::keyClick(picker, Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
    open(asking);
    picker->close();
    EXPECT_FALSE(isOpen());
}

TEST_F(OpenNote, neverPutsInWhatWasNotPicked)
{
    addNoteWithBody(u"Good"_s, "good");
    const int damaged = addNote(u"Worse"_s);
    files.write(store.bodyFile(damaged), "no rich text");
    asking.setText(u"mine"_s);
    open(asking);
    pick(u"Good"_s);
    EXPECT_TRUE(button(u"Command1"_s)->isEnabled());
    pick(u"Worse"_s);
    EXPECT_FALSE(button(u"Command1"_s)->isEnabled() || button(u"Command3"_s)->isEnabled());
    EXPECT_FALSE(picker->findChild<QWidget *>(u"lblFault"_s)->isHidden());
    pick(u"Good"_s);
    EXPECT_TRUE(button(u"Command1"_s)->isEnabled());
    EXPECT_TRUE(picker->findChild<QWidget *>(u"lblFault"_s)->isHidden());

    auto going = std::make_unique<NV_RTFEdit>(edit);
    open(*going);
    going.reset();
    QCoreApplication::processEvents();
    EXPECT_FALSE(button(u"Command1"_s)->isEnabled()) << "the note that asked has gone";
    press(u"Command2"_s);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(asking.Text(), u"mine");
}

TEST_F(OpenNote, tellsWhyThereIsNoList)
{
    store.close();
    open(asking);
    EXPECT_FALSE(isOpen());
    ASSERT_EQ(prompts.boxes.size(), 1);
    EXPECT_TRUE(prompts.boxes[0].text.startsWith(u"Run-time error '91'"_s));
}

} // namespace
