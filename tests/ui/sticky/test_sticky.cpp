#include "fakes/FakeClock.h"
#include "fakes/FakeEmbedding.h"
#include "fakes/FakeEventLoop.h"
#include "fakes/FakeFileSystem.h"
#include "fakes/FakeHotKeys.h"
#include "fakes/FakeNotifier.h"
#include "fakes/FakeSound.h"
#include "fakes/FakeWindowSystem.h"
#include "fakes/ManualTimer.h"
#include "options/HotKeyModel.h"
#include "platform/sqlite/SqliteEngine.h"
#include "richtext/NV_RTFEdit.h"
#include "shell/Forms.h"
#include "sticky/frmSticky.h"
#include "store/NoteRescue.h"
#include "store/NoteStore.h"
#include "store/note_schema.h"
#include "watcher/NoteGridView.h"
#include "watcher/WatchSettings.h"
#include "watcher/clsClips.h"

#include <QAction>
#include <QPointer>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>
#include <gtest/gtest.h>

using namespace norvane;

namespace {

constexpr WindowHandle kTarget = 77;
const QRectF kPlace(300, 450, 5100, 3801); // 3801 twips are no whole number of pixels

struct CountingGrid : NoteGridView
{
    int refreshes = 0;
    void Refresh_Grid() override { ++refreshes; }
    int category() const override { return 0; }
};

/// A note of a real database in a target that is only told of.
class StickyWindow : public testing::Test
{
protected:
    void SetUp() override
    {
        store.DatabaseFolder = folder.path() + QLatin1Char('/');
        store.DatabaseFile = databaseFileIn(store.DatabaseFolder);
        files.addFolder(store.DatabaseFolder);
        ASSERT_TRUE(CreateNoteDatabase(*engine, files, store.DatabaseFile));
        store.open();
        const auto row = store.database()->openRecordset(u"select * from Memos where false"_qs);
        row->addNew();
        row->setField(u"WindowName"_qs, u"Letters"_qs);
        row->setField(u"CAT_ID"_qs, 0);
        row->setField(u"Active"_qs, true);
        row->update();
        store.requeryNoteIndex();
        id = field(u"ID"_qs).toInt();
        note = load();
    }

    void TearDown() override
    {
        if (note)
            note->unload();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    frmSticky *load(bool autoSave = true)
    {
        auto *form = new frmSticky(services);
        form->fields.Loading = true;
        form->fields.ID = id;
        form->fields.ParentHwnd = kTarget;
        form->fields.FriendlyName = u"Letters"_qs;
        form->setParentWindow(kTarget);
        form->moveTwips(kPlace);
        form->setCaption(u"Letters"_qs);
        form->fields.AutoSave = autoSave;
        form->resetSaveState();
        clips.Add(u"Letters"_qs, kTarget, id, form->hWnd(), QString(), u"Letters"_qs, QString(), QString());
        form->showNote();
        form->nudge();
        form->fields.Loading = false;
        return form;
    }

    QVariant field(const QString &name)
    {
        const auto row = store.database()->openRecordset(u"select * from Memos"_qs);
        return row->field(name);
    }

    QRectF storedPlace()
    {
        return {field(u"winLeft"_qs).toDouble(), field(u"winTop"_qs).toDouble(),
                field(u"winWidth"_qs).toDouble(), field(u"winHeight"_qs).toDouble()};
    }

    template <typename Kind> Kind *part(const QString &name) { return note->findChild<Kind *>(name); }
    void type(const QString &text) { QTest::keyClicks(part<QWidget>(u"RichTextBox1"_qs), text); }
    void press(QWidget *widget) { QTest::mouseClick(widget, Qt::LeftButton, {}, {100, 10}); }
    void deleteRow() { store.database()->openRecordset(u"select * from Memos"_qs)->remove(); }

    bool saved() const { return files.files.contains(store.bodyFile(id)); }
    int rescued() const
    {
        const auto paths = files.files.keys();
        return static_cast<int>(std::count_if(
            paths.begin(), paths.end(), [](const QString &path) { return path.contains(u"/Rescued/"); }));
    }

    QTemporaryDir folder;
    std::unique_ptr<dao::Engine> engine = dao::makeSqliteEngine();
    fakes::FakeFileSystem files;
    NoteStore store{*engine, files};
    FormList forms;
    clsClips clips;
    fakes::FakeWindowSystem windows;
    fakes::FakeEmbedding embedding;
    fakes::ManualTimer timer;
    WatchSettings watch;
    fakes::FakeEventLoop events;
    fakes::FakeClock clock;
    fakes::FakeSound sound;
    fakes::FakeHotKeys hotKeys;
    fakes::FakeNotifier notifier;
    CountingGrid grid;
    NoteRescue rescue{store, files, clock, notifier};
    StickyServices services{store, files,  forms,         clips,           windows, embedding,
                            timer, watch,  events,        clock,           sound,   hotKeys,
                            grid,  rescue, Twips(96, 96), u"/click.wav"_qs};
    int id = 0;
    QPointer<frmSticky> note;
};

TEST_F(StickyWindow, isCleanAfterLoadingAndDirtyAfterTypingOrTakingHold)
{
    EXPECT_FALSE(note->isDirty());
    type(u"a"_qs);
    EXPECT_TRUE(note->isDirty());
    EXPECT_TRUE(note->Text1()->EnableSaveButton());
    note->resetSaveState();
    // A drag that ends where it began is an edit too; but only the strip and the edges take hold.
    press(part<QWidget>(u"Picture1"_qs));
    EXPECT_TRUE(note->isDirty());
    note->resetSaveState();
    note->setToolBar(true);
    press(part<QWidget>(u"li"_qs));
    EXPECT_FALSE(note->isDirty());
    // A size that the program sets counts as one that is set by hand, unless the note is being filled.
    note->moveTwips(kPlace);
    EXPECT_FALSE(note->isDirty()) << "it had that size";
    note->moveTwips(kPlace.adjusted(0, 0, 300, 0));
    EXPECT_TRUE(note->isDirty());
}

TEST_F(StickyWindow, toolBarIsReadableOnThePaperWhateverTheDesktop)
{
    const QPalette desktop = QGuiApplication::palette();
    QPalette dark(QColor(49, 54, 59), QColor(42, 46, 50));
    dark.setColor(QPalette::ButtonText, Qt::white);
    QGuiApplication::setPalette(dark);
    const auto *bar = part<QToolBar>(u"li"_qs);
    note->setTextBackColor(0xC0FFFF);
    EXPECT_LT(bar->palette().color(QPalette::ButtonText).lightness(), 60);
    EXPECT_LT(part<QWidget>(u"Combo1"_qs)->palette().color(QPalette::Text).lightness(), 60);
    note->setTextBackColor(0x402010);
    EXPECT_GT(bar->palette().color(QPalette::ButtonText).lightness(), 200);
    for (const QAction *action : bar->actions())
        EXPECT_EQ(action->icon().isNull(), action->objectName().isEmpty());
    QGuiApplication::setPalette(desktop);
}

TEST_F(StickyWindow, savesRowAndBodyAndKeepsTheTwipsOfAnUnmovedNote)
{
    type(u"Dear Ada"_qs);
    part<QAction>(u"mnuFile_Save"_qs)->trigger();
    EXPECT_FALSE(note->isDirty());
    EXPECT_FALSE(note->Text1()->EnableSaveButton());
    EXPECT_EQ(field(u"NoteText"_qs).toString(), u"Dear Ada"_qs);
    EXPECT_EQ(storedPlace(), kPlace);
    EXPECT_TRUE(files.files.value(store.bodyFile(id)).startsWith("{\\rtf"));
    EXPECT_EQ(grid.refreshes, 1);
}

TEST_F(StickyWindow, whatIsTypedDuringASaveStaysDirty)
{
    type(u"one"_qs);
    events.duringYield = [this] { type(u" two"_qs); };
    note->SaveNote();
    EXPECT_TRUE(note->isDirty());
    // At the end there is no later save for it.
    note->unload();
    EXPECT_EQ(field(u"NoteText"_qs).toString(), u"one two two"_qs);
    EXPECT_EQ(rescued(), 0);
}

TEST_F(StickyWindow, dragMovesAndSizesInsideTheTarget)
{
    auto *strip = part<QWidget>(u"Picture1"_qs);
    const QRect before = embedding.windowRect(note->hWnd());
    QTest::mousePress(strip, Qt::LeftButton, {}, {100, 10});
    QTest::mouseMove(strip, {130, 25});
    QTest::mouseRelease(strip, Qt::LeftButton, {}, {130, 25});
    EXPECT_EQ(embedding.windowRect(note->hWnd()), before.translated(30, 15));
    note->SaveNote();
    EXPECT_EQ(storedPlace(), kPlace.translated(30 * 15, 15 * 15)) << "the size is as it was loaded";
}

TEST_F(StickyWindow, aLostTargetSavesTextAndPlace)
{
    type(u"kept"_qs);
    embedding.destroyTarget(kTarget);
    EXPECT_EQ(field(u"NoteText"_qs).toString(), u"kept"_qs);
    EXPECT_EQ(storedPlace(), kPlace);
    EXPECT_TRUE(field(u"Active"_qs).toBool());
    EXPECT_EQ(clips.Count(), 0);
    EXPECT_FALSE(forms.FormIsLoaded(u"frmSticky"_qs));
    EXPECT_TRUE(saved());
}

TEST_F(StickyWindow, withoutAutoSaveChangesGoWithoutAQuestion)
{
    note->fields.AutoSave = false;
    type(u"lost"_qs);
    note->unload();
    EXPECT_FALSE(saved());
    EXPECT_TRUE(notifier.shown.isEmpty());
}

TEST_F(StickyWindow, closeDetachesAndSetsTheTimerAgain)
{
    type(u"kept"_qs);
    note->mnuFile_Close_Click();
    EXPECT_FALSE(field(u"Active"_qs).toBool());
    EXPECT_TRUE(saved());
    EXPECT_EQ(timer.interval(), watch.WatchInterval);
    EXPECT_EQ(clips.Count(), 0);
}

TEST_F(StickyWindow, aNoteThatCannotBeSavedIsRescuedOnce)
{
    type(u"precious"_qs);
    store.close();
    note->saveAtExit();
    note->unload();
    EXPECT_EQ(notifier.shown.size(), 1);
    EXPECT_EQ(rescued(), 1);
}

TEST_F(StickyWindow, aNoteWhoseRowWasDeletedGoesWithoutAWord)
{
    type(u"unwanted"_qs);
    deleteRow();
    note->mnuFile_Close_Click();
    EXPECT_EQ(clips.Count(), 0);
    EXPECT_EQ(notifier.shown.size() + rescued(), 0);
    EXPECT_EQ(timer.interval(), watch.WatchInterval);
}

TEST_F(StickyWindow, typeEffectClicksForEachKey)
{
    type(u"a"_qs);
    EXPECT_TRUE(sound.played.isEmpty());
    note->fields.TypeEffect = true;
    type(u"bc"_qs);
    EXPECT_EQ(sound.played, QStringList({u"/click.wav"_qs, u"/click.wav"_qs}));
}

TEST_F(StickyWindow, isNeverSmallerThanAHandCanHold)
{
    note->moveTwips(QRectF(0, 0, 0, 0));
    EXPECT_GE(embedding.windowRect(note->hWnd()).width(), kNoteLeast.width());
    type(u"a"_qs);
    note->SaveNote();
    EXPECT_EQ(storedPlace(), QRectF(0, 0, 0, 0));
}

} // namespace
