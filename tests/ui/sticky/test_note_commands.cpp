#include "StickyWindow.h"

#include "platform/errors.h"
#include "sticky/note_menu.h"
#include "store/note_row.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QTimer>

using namespace norvane;
using namespace norvane::tests;

namespace {

class NoteCommands : public StickyWindow
{
protected:
    NVPopupMenu &menu() { return note->File_Menu(); }
    /// Chooses an entry of the note's menu.
    void choose(const QString &key)
    {
        const int item = menu().IndexForKey(key);
        ASSERT_NE(item, 0);
        ASSERT_TRUE(menu().Enabled(item)) << key.toStdString();
        menu().EmulateMenuClick(menu().IDForItem(item));
        QCoreApplication::processEvents();
    }
    void writeFile(const QString &path, const QByteArray &bytes)
    {
        files.addFolder(path.section(u'/', 0, -2));
        files.files.insert(path, bytes);
    }
    bool rowIsThere() const { return !openNoteRow(store, id)->eof(); }
    /// Runs while the next question or file dialog stands open.
    void behindTheQuestion(std::function<void()> action)
    {
        prompts.duringBox = [action = std::move(action)](const fakes::FakePrompts::Box &) { action(); };
    }
};

TEST_F(NoteCommands, saveIsThereForADirtyNoteOnly)
{
    const int save = menu().IndexForKey(note_menu::kSave);
    EXPECT_FALSE(menu().Enabled(save));
    type(u"a"_qs);
    EXPECT_TRUE(menu().Enabled(save));
    choose(note_menu::kSave);
    EXPECT_FALSE(menu().Enabled(save));
    EXPECT_EQ(field(u"NoteText"_qs).toString(), u"a"_qs);
    note->show(); // the other keys of the menu are taken and do nothing
    for (const Qt::Key key : {Qt::Key_N, Qt::Key_O, Qt::Key_P})
        QTest::keyClick(part<QWidget>(u"RichTextBox1"_qs), key, Qt::ControlModifier);
    EXPECT_TRUE(prompts.boxes.isEmpty() && prompts.fileRequests.isEmpty() && printing.offers.isEmpty());
    QTest::keyClicks(part<QWidget>(u"RichTextBox1"_qs), u"b"_qs);
    QTest::keyClick(part<QWidget>(u"RichTextBox1"_qs), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(field(u"NoteText"_qs).toString(), u"ab"_qs);
}

TEST_F(NoteCommands, newEmptiesTheDocumentAndKeepsTheNote)
{
    type(u"old"_qs);
    note->Text1()->setSelBold(true);
    note->resetSaveState();
    choose(note_menu::kNew); // No
    EXPECT_EQ(note->Text1()->Text(), u"old"_qs);
    EXPECT_FALSE(note->isDirty());
    prompts.answers.enqueue(Prompts::kYes);
    choose(note_menu::kNew);
    EXPECT_EQ(prompts.boxes.last().text, u"Are you sure?"_qs);
    EXPECT_EQ(note->Text1()->Text(), QString());
    EXPECT_EQ(note->Text1()->SelBold(), false);
    EXPECT_EQ(note->Text1()->SelFontSize(), 9.75);
    EXPECT_TRUE(note->isDirty());
    EXPECT_TRUE(rowIsThere());
}

TEST_F(NoteCommands, deleteTakesRowFileAndWindowAfterAsking)
{
    type(u"unwanted"_qs);
    note->SaveNote();
    type(u" still"_qs);
    choose(note_menu::kDelete);
    EXPECT_EQ(prompts.boxes.last().text, u"Are you sure you want to delete 'Letters'?"_qs);
    EXPECT_TRUE(rowIsThere() && saved() && note);
    prompts.answers.enqueue(Prompts::kYes);
    grid.refreshes = 0;
    choose(note_menu::kDelete);
    EXPECT_FALSE(rowIsThere());
    EXPECT_FALSE(saved()) << "the unload has no row to save to";
    EXPECT_EQ(Clips.Count(), 0);
    EXPECT_EQ(grid.refreshes, 1);
    EXPECT_EQ(rescued() + notifier.shown.size(), 0);
}

TEST_F(NoteCommands, deleteGoesOnWhenTheTargetClosesBehindTheQuestion)
{
    type(u"unwanted"_qs);
    prompts.answers.enqueue(Prompts::kYes);
    behindTheQuestion([this] {
        embedding.destroyTarget(target);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    });
    choose(note_menu::kDelete);
    EXPECT_FALSE(note);
    EXPECT_FALSE(rowIsThere());
    EXPECT_FALSE(saved());
}

TEST_F(NoteCommands, aNoteThatCannotBeDeletedStaysWhole)
{
    type(u"kept"_qs);
    note->SaveNote();
    store.close();
    prompts.answers.enqueue(Prompts::kYes);
    choose(note_menu::kDelete);
    EXPECT_EQ(prompts.boxes.size(), 2);
    EXPECT_TRUE(note && saved());
}

TEST_F(NoteCommands, documentsComeAndGoByTheirExtension)
{
    struct Row
    {
        QString path;
        bool isRich;
    };
    type(u"Text"_qs);
    files.addFolder(u"/out"_qs);
    files.addFolder(u"/o.rtf"_qs);
    for (const Row &row :
         {Row{u"/out/a.rtf"_qs, true}, Row{u"/out/a.TXT"_qs, false}, Row{u"/out/a.doc"_qs, true},
          Row{u"/out/a.xyz"_qs, false}, Row{u"/out/a"_qs, false}, Row{u"/o.rtf/a.txt"_qs, true}}) {
        prompts.files.enqueue(row.path);
        choose(note_menu::kExport);
        EXPECT_EQ(files.files.value(row.path).startsWith("{\\rtf"), row.isRich) << row.path.toStdString();
        EXPECT_TRUE(files.files.value(row.path).contains("Text")) << row.path.toStdString();
    }
    EXPECT_EQ(prompts.saveRequests.first().title, u"Save as"_qs);
    EXPECT_EQ(prompts.saveRequests.first().extension, u"RTF"_qs);
    EXPECT_EQ(prompts.saveRequests.first().name, note->caption());

    note->resetSaveState();
    writeFile(u"/in/rich.rtf"_qs, "{\\rtf1 \\b rich}");
    for (const QString &key : {note_menu::kOpen, note_menu::kImport}) {
        prompts.files.enqueue(u"/in/rich.rtf"_qs);
        choose(key);
        EXPECT_EQ(note->Text1()->Text(), u"rich"_qs);
        EXPECT_TRUE(note->isDirty());
        type(u"!"_qs);
        choose(key); // cancelled
        EXPECT_EQ(note->Text1()->Text().size(), 5);
    }
    EXPECT_TRUE(prompts.boxes.isEmpty());
}

TEST_F(NoteCommands, aFileThatCannotBeWrittenIsToldAndNothingIsLost)
{
    type(u"kept"_qs);
    files.addFolder(u"/out"_qs);
    files.writeErrors.insert(u"/out/a.rtf"_qs, kErrorFileAccess);
    prompts.files.enqueue(u"/out/a.rtf"_qs);
    choose(note_menu::kExport);
    EXPECT_EQ(prompts.boxes.size(), 1);
    files.writeErrors.insert(store.bodyFile(id), kErrorFileAccess);
    choose(note_menu::kSave);
    EXPECT_TRUE(note->isDirty());
    EXPECT_EQ(note->Text1()->Text(), u"kept"_qs);
}

TEST_F(NoteCommands, capturesPutAPictureIntoTheNote)
{
    windows.at(target).rect = QRect(0, 0, 500, 400);
    bool wasHidden = false;
    capture.duringCapture = [&] { wasHidden = !note->isVisible(); };
    choose(note_menu::kCaptureWindow);
    EXPECT_EQ(capture.captured, QVector<WindowHandle>{target});
    EXPECT_TRUE(wasHidden) << "the note is not in the picture";
    EXPECT_TRUE(note->isVisible());
    EXPECT_EQ(note->Text1()->TextRTF().count("\\pict"), 1);
    EXPECT_TRUE(QGuiApplication::clipboard()->image().isNull());

    choose(note_menu::kCaptureDesktop);
    EXPECT_EQ(capture.captured.last(), kNoWindow);
    EXPECT_FALSE(wasHidden) << "it is a part of the desktop";
    EXPECT_EQ(note->Text1()->TextRTF().count("\\pict"), 2);

    capture.mayLook = false;
    QGuiApplication::clipboard()->setText(u"mine"_qs);
    choose(note_menu::kCaptureWindow);
    EXPECT_EQ(prompts.boxes.size(), 1);
    EXPECT_TRUE(note->isVisible());
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"mine"_qs);
    EXPECT_EQ(note->Text1()->TextRTF().count("\\pict"), 2);
}

TEST_F(NoteCommands, aCaptureOutlivesItsNote)
{
    capture.duringCapture = [this] {
        embedding.destroyTarget(target);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    choose(note_menu::kCaptureWindow);
    EXPECT_FALSE(note);
    EXPECT_TRUE(QGuiApplication::clipboard()->image().isNull());
}

TEST_F(NoteCommands, mailSavesOrAsksFirst)
{
    choose(note_menu::kMail); // clean: at once
    type(u"a"_qs);
    choose(note_menu::kMail);
    EXPECT_TRUE(prompts.boxes.isEmpty());
    EXPECT_FALSE(note->isDirty());
    note->fields.AutoSave = false;
    type(u"b"_qs);
    choose(note_menu::kMail); // No
    EXPECT_EQ(prompts.boxes.last().text, u"'Letters' has not been saved?\r\nSave it now?"_qs);
    EXPECT_TRUE(note->isDirty());
    prompts.answers.enqueue(Prompts::kYes);
    choose(note_menu::kMail);
    EXPECT_FALSE(note->isDirty());
    EXPECT_EQ(views.opened, QStringList(4, u"mail %1"_qs.arg(id)));
}

TEST_F(NoteCommands, leadsToTheOtherWindows)
{
    type(u"Text"_qs);
    for (const QString &key : {note_menu::kImportNote, note_menu::kExportOutlook, note_menu::kProperties})
        choose(key);
    EXPECT_EQ(views.opened,
              QStringList({u"Import into 'Letters'"_qs, u"outlook Text"_qs, u"properties %1"_qs.arg(id)}));
    choose(note_menu::kPrint);
    EXPECT_EQ(printing.offers.size(), 1);
    choose(note_menu::kClose);
    EXPECT_EQ(Clips.Count(), 0);
    EXPECT_FALSE(field(u"Active"_qs).toBool());
}

TEST_F(NoteCommands, thePinOpensTheMenuAndATickMayTakeTheNoteFromUnderIt)
{
    note->show();
    QTimer::singleShot(0, [this] {
        EXPECT_TRUE(menu().isOpen());
        embedding.destroyTarget(target);
    });
    QTest::mouseClick(part<QWidget>(u"BtnPin"_qs), Qt::LeftButton);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(note);
}

} // namespace
