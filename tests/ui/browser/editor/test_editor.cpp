#include "EditorDesk.h"

#include "browser/editor/frmEditor.h"
#include "browser/editor/note_editors.h"
#include "platform/errors.h"
#include "richtext/NV_RTFEdit.h"
#include "shell/windows/StatusPanel.h"
#include "shell/windows/mdiMain.h"

#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QTest>
#include <QTextDocumentFragment>
#include <QToolButton>

using namespace norvane;
using namespace norvane::test;

namespace {

class Editor : public testing::Test, protected EditorDesk
{
protected:
    ~Editor() override
    {
        for (Form *form : forms.all())
            form->unload();
        finishUnloading();
    }

    frmEditor *open(int ID, const QString &title = u"Letters"_s, const QString &location = u"http://a/"_s)
    {
        editor = ShowNoteEditor(services, rescue, *frame, ID, title, location);
        EXPECT_TRUE(!editor || QTest::qWaitForWindowActive(editor->window()));
        return editor;
    }
    template <typename Kind> Kind *part(const QString &name) const { return editor->findChild<Kind *>(name); }
    void type(const QString &text) { QTest::keyClicks(part<QWidget>(u"RichTextBox1"_s), text); }
    void click(const QString &button) { QTest::mouseClick(part<QWidget>(button), Qt::LeftButton); }
    bool canSave() const { return part<QWidget>(u"cmdSave"_s)->isEnabled(); }
    QString body(int ID) const { return QString::fromLatin1(files.read(store.bodyFile(ID))); }
    bool isOpen() const
    {
        finishUnloading();
        return !editor.isNull();
    }

    mdiMain *frame = new mdiMain(forms, settings, clock, Twips(96, 96));
    QPointer<frmEditor> editor;
};

TEST_F(Editor, opensANoteAsItIsStored)
{
    const int ID = addNoteWithBody(u"Letters"_s, "stored text");
    setField(ID, u"BackColor"_s, 0x00C0FF);
    setField(ID, u"AutoURLDetect"_s, true);
    int shownWhileFilling = 0;
    events.duringYield = [&] {
        shownWhileFilling += forms.named(u"frmEditor2"_s).first()->hWnd() != kNoWindow;
    };
    ASSERT_TRUE(open(ID, u"<b>R&D</b>\r\nx"_s, u"/home/me/a b"_s));
    EXPECT_TRUE(editor->isWindow() && editor->isVisible());
    EXPECT_EQ(editor->windowTitle(), u"Norvane Editor");
    EXPECT_EQ(editor->formName(), u"frmEditor2");
    EXPECT_EQ(part<QLabel>(u"lblTitle"_s)->text(), u" <b>R&D</b>\r\nx");
    const QString tip = part<QLabel>(u"lblTitle"_s)->toolTip();
    EXPECT_TRUE(QTextDocumentFragment::fromHtml(tip).toPlainText().startsWith(u"<b>R&D</b>"_s))
        << "no markup";
    EXPECT_EQ(part<StatusPanel>(u"Panel1"_s)->panelText(), u"Location: /home/me/a b");
    EXPECT_EQ(editor->RTFEdit1()->Text(), u"stored text");
    EXPECT_EQ(editor->RTFEdit1()->BackColor(), 0x00C0FFU);
    EXPECT_TRUE(editor->RTFEdit1()->AutoURLDetect());
    EXPECT_TRUE(editor->RTFEdit1()->ToolBar());
    EXPECT_FALSE(part<QToolButton>(u"qt_toolbar_ext_button"_s)->icon().isNull()) << "for what has no room";
    EXPECT_FALSE(canSave() || editor->RTFEdit1()->EnableSaveButton()) << "loading is no change";
    EXPECT_EQ(editor->RTFFileName(), store.bodyFile(ID));
    EXPECT_EQ(shownWhileFilling, 1);
}

TEST_F(Editor, leavesNothingBehindWhereANoteCannotBeOpened)
{
    const int damaged = addNote(u"Damaged"_s);
    files.write(store.bodyFile(damaged), "no rich text");
    const qsizetype before = forms.all().size();
    for (const bool visible : {false, true}) {
        isFrameVisible = visible;
        EXPECT_EQ(errorOf([&] { open(damaged); }), kErrorFileFormat);
        EXPECT_EQ(errorOf([&] { open(9999); }), kErrorNoCurrentRecord);
    }
    events.duringYield = [&] { forms.all().last()->unload(); };
    EXPECT_FALSE(open(addNote(u"Gone"_s))) << "closed while it was opened";
    events.duringYield = nullptr;
    store.close();
    EXPECT_EQ(errorOf([&] { open(damaged); }), kErrorNothingThere);
    finishUnloading();
    EXPECT_EQ(forms.all().size(), before);
    EXPECT_TRUE(frame->findChildren<QMdiSubWindow *>().isEmpty());
}

TEST_F(Editor, savesTextAndBodyFileAndTellsTheBrowser)
{
    const int ID = addNote(u"Letters"_s);
    setField(ID, u"winWidth"_s, 4444);
    open(ID);
    int step = 0;
    for (const auto &save : std::initializer_list<std::function<void()>>{
             [&] { click(u"cmdSave"_s); }, [&] { click(u"C_SAVE"_s); },
             [&] { QTest::keyClick(part<QWidget>(u"RichTextBox1"_s), Qt::Key_S, Qt::ControlModifier); }}) {
        type(u"a"_s);
        EXPECT_TRUE(canSave() && editor->RTFEdit1()->EnableSaveButton());
        clock.advance(60);
        save();
        ++step;
        EXPECT_FALSE(canSave() || editor->RTFEdit1()->EnableSaveButton()) << step;
        EXPECT_EQ(field(ID, u"NoteText"_s).toString(), QString(step, u'a'));
        EXPECT_EQ(field(ID, u"LastUpdate"_s).toDateTime(), clock.time);
        EXPECT_TRUE(body(ID).contains(QString(step, u'a'))) << "the first save makes the file";
        EXPECT_EQ(browserView.refreshes, step);
        EXPECT_EQ(browserView.previewRefreshes, step);
    }
    EXPECT_EQ(field(ID, u"winWidth"_s).toInt(), 4444) << "its place is the sticky note's affair";
    EXPECT_TRUE(prompts.boxes.isEmpty());
}

TEST_F(Editor, savesTheBodyFileOfANoteWhoseRowIsGone)
{
    const int ID = addNote(u"Letters"_s);
    open(ID);
    removeRow(ID);
    type(u"still here"_s);
    click(u"cmdSave"_s);
    EXPECT_TRUE(body(ID).contains(u"still here"_s));
    EXPECT_EQ(store.database()->openRecordset(u"select * from Memos"_s)->recordCount(), 0);
    EXPECT_FALSE(canSave());
    EXPECT_TRUE(prompts.boxes.isEmpty());
}

TEST_F(Editor, showsWhyASaveFailedAndStaysDirty)
{
    const int ID = addNote(u"Letters"_s);
    open(ID);
    type(u"a"_s);
    ASSERT_TRUE(QDir().mkpath(store.bodyFile(ID))); // a folder stands where the file should
    click(u"cmdSave"_s);
    ASSERT_EQ(prompts.boxes.size(), 1);
    EXPECT_TRUE(prompts.boxes[0].text.startsWith(u"Run-time error '75':\r\n\r\n"_s))
        << prompts.boxes[0].text.toStdString();
    EXPECT_GT(prompts.boxes[0].text.size(), 30);
    EXPECT_TRUE(canSave() && editor->RTFEdit1()->EnableSaveButton());
    EXPECT_EQ(browserView.refreshes, 0);
    store.close();
    click(u"cmdSave"_s);
    EXPECT_EQ(prompts.boxes.size(), 2);
    EXPECT_TRUE(canSave());
}

TEST_F(Editor, asksBeforeChangesAreDroppedHoweverItIsClosed)
{
    const int ID = addNote(u"Letters"_s);
    for (const bool inFrame : {false, true}) {
        isFrameVisible = inFrame;
        frame->setVisible(inFrame);
        if (inFrame)
            frame->addChild(new QWidget)->show(); // with another window the keys are still the editor's
        open(ID);
        EXPECT_EQ(editor->formName(), inFrame ? u"frmEditor"_s : u"frmEditor2"_s);
        QWidget *window = inFrame ? editor->parentWidget() : editor.data();
        EXPECT_EQ(window->isWindow(), !inFrame);
        type(u"text"_s);
        std::vector<std::function<void()>> ways{[&] { click(u"cmdExit"_s); }, [&] { window->close(); }};
        for (const Qt::Key key : {Qt::Key_W, Qt::Key_F4})
            ways.emplace_back(
                [&, key] { QTest::keyClick(part<QWidget>(u"RichTextBox1"_s), key, Qt::ControlModifier); });
        if (inFrame)
            ways.emplace_back([&] { frame->findChild<QMdiArea *>()->closeActiveSubWindow(); });
        for (const auto &close : ways) {
            prompts.boxes.clear();
            close();
            ASSERT_EQ(prompts.boxes.size(), 1);
            EXPECT_EQ(prompts.boxes[0].text, u"Are you sure you want to close without saving this note?");
            EXPECT_EQ(prompts.boxes[0].style, Prompts::kYesNo | Prompts::kQuestion);
            ASSERT_TRUE(isOpen() && window->isVisible());
            EXPECT_EQ(editor->RTFEdit1()->Text(), u"text");
        }
        QTest::keyClick(part<QWidget>(u"RichTextBox1"_s), Qt::Key_Escape);
        EXPECT_TRUE(isOpen() && canSave());
        prompts.answers.enqueue(Prompts::kYes);
        click(u"cmdExit"_s);
        EXPECT_FALSE(isOpen());
        open(ID);
        prompts.boxes.clear();
        click(u"cmdExit"_s);
        EXPECT_FALSE(isOpen());
        EXPECT_TRUE(prompts.boxes.isEmpty()) << "a clean editor asks nothing";
    }
    EXPECT_EQ(frame->findChildren<QMdiSubWindow *>().size(), 1);
    EXPECT_FALSE(files.exists(store.bodyFile(ID)));
    EXPECT_TRUE(rescued().isEmpty());
}

TEST_F(Editor, isRescuedOnceWhenEverythingEnds)
{
    open(addNote(u"Letters"_s));
    type(u"precious"_s);
    store.close();
    RescueEditors(forms);
    editor->unload();
    EXPECT_TRUE(prompts.boxes.isEmpty());
    ASSERT_EQ(rescued().size(), 1);
    EXPECT_TRUE(files.read(folder.path() + u"/Rescued/"_s + rescued().first()).contains("precious"));
    EXPECT_EQ(notifier.shown.size(), 1);
    EXPECT_FALSE(isOpen());
}

TEST_F(Editor, allAreAskedBeforeAnythingIsUnloaded)
{
    const int ID = addNote(u"Letters"_s);
    QVector<frmEditor *> opened;
    frame->show();
    for (int i = 0; i < 3; ++i) {
        isFrameVisible = i == 1;
        opened.append(open(ID));
        if (i > 0)
            type(u"text"_s);
    }
    prompts.answers.append({Prompts::kYes, Prompts::kNo});
    EXPECT_FALSE(EditorsMayClose(forms));
    EXPECT_EQ(prompts.boxes.size(), 2);
    EXPECT_TRUE(opened[1]->isDirty() && opened[2]->isDirty());
    prompts.answers.append({Prompts::kYes, Prompts::kYes});
    EXPECT_TRUE(EditorsMayClose(forms));
    editor = opened[1];
    type(u"more"_s); // the end did not come, and the user went on
    editor = opened[2];
    prompts.boxes.clear();
    click(u"cmdExit"_s);
    EXPECT_EQ(prompts.boxes.size(), 1) << "an answer of then is none for now";
    for (frmEditor *each : opened)
        each->unload();
    EXPECT_EQ(rescued().size(), 1);
}

TEST_F(Editor, mayBeUnloadedWhileItAsks)
{
    const int ID = addNote(u"Letters"_s);
    frame->show();
    prompts.duringBox = [this](const auto &) {
        editor->unload();
        finishUnloading();
    };
    for (const bool inFrame : {false, true}) {
        isFrameVisible = inFrame;
        open(ID);
        type(u"precious"_s);
        editor->closeWindow();
        EXPECT_FALSE(isOpen());
    }
    EXPECT_EQ(rescued().size(), 2);
}

} // namespace
