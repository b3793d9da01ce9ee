#include "fakes/FakeClock.h"
#include "fakes/FakeEmbedding.h"
#include "fakes/FakeEventLoop.h"
#include "fakes/FakeFileSystem.h"
#include "fakes/FakeHotKeys.h"
#include "fakes/FakeNotifier.h"
#include "fakes/FakePrinting.h"
#include "fakes/FakePrompts.h"
#include "fakes/FakeShell.h"
#include "fakes/FakeSound.h"
#include "fakes/FakeWindowSystem.h"
#include "fakes/ManualTimer.h"
#include "options/HotKeyModel.h"
#include "platform/sqlite/SqliteEngine.h"
#include "richtext/NV_RTFEdit.h"
#include "richtext/commands/EditState.h"
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
        const auto row = store.database()->openRecordset(QStringLiteral("select * from Memos where false"));
        row->addNew();
        row->setField(QStringLiteral("WindowName"), QStringLiteral("Letters"));
        row->setField(QStringLiteral("CAT_ID"), 0);
        row->setField(QStringLiteral("Active"), true);
        row->update();
        store.requeryNoteIndex();
        id = field(QStringLiteral("ID")).toInt();
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
        form->fields.FriendlyName = QStringLiteral("Letters");
        form->setParentWindow(kTarget);
        form->moveTwips(kPlace);
        form->setCaption(QStringLiteral("Letters"));
        form->fields.AutoSave = autoSave;
        form->resetSaveState();
        clips.Add(QStringLiteral("Letters"), kTarget, id, form->hWnd(), QString(), QStringLiteral("Letters"),
                  QString(), QString());
        form->showNote();
        form->nudge();
        form->fields.Loading = false;
        return form;
    }

    QVariant field(const QString &name)
    {
        const auto row = store.database()->openRecordset(QStringLiteral("select * from Memos"));
        return row->field(name);
    }

    QRectF storedPlace()
    {
        return {field(QStringLiteral("winLeft")).toDouble(), field(QStringLiteral("winTop")).toDouble(),
                field(QStringLiteral("winWidth")).toDouble(), field(QStringLiteral("winHeight")).toDouble()};
    }

    void type(const QString &text)
    {
        QTest::keyClicks(note->Text1()->findChild<QWidget *>(QStringLiteral("RichTextBox1")), text);
    }

    bool saved() const { return files.files.contains(store.bodyFile(id)); }

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
    fakes::FakeShell shell;
    fakes::FakePrompts prompts;
    fakes::FakePrinting printing;
    EditState editState;
    EditServices edit{files, shell, prompts, printing, clock, editState};
    StickyServices services{
        store, forms, clips,   windows, embedding, timer, watch,         events,
        clock, sound, hotKeys, grid,    rescue,    edit,  Twips(96, 96), QStringLiteral("/click.wav")};
    int id = 0;
    QPointer<frmSticky> note;
};

TEST_F(StickyWindow, isCleanAfterLoadingAndDirtyAfterTypingOrTakingHold)
{
    EXPECT_FALSE(note->isDirty());
    type(QStringLiteral("a"));
    EXPECT_TRUE(note->isDirty());
    EXPECT_TRUE(note->Text1()->EnableSaveButton());
    note->resetSaveState();
    // A drag that ends where it began is an edit too.
    auto *strip = note->findChild<QWidget *>(QStringLiteral("Picture1"));
    QTest::mousePress(strip, Qt::LeftButton, {}, {100, 10});
    QTest::mouseRelease(strip, Qt::LeftButton, {}, {100, 10});
    EXPECT_TRUE(note->isDirty());
}

TEST_F(StickyWindow, savesRowAndBodyAndKeepsTheTwipsOfAnUnmovedNote)
{
    type(QStringLiteral("Dear Ada"));
    note->findChild<QAction *>(QStringLiteral("mnuFile_Save"))->trigger();
    EXPECT_FALSE(note->isDirty());
    EXPECT_FALSE(note->Text1()->EnableSaveButton());
    EXPECT_EQ(field(QStringLiteral("NoteText")).toString(), QStringLiteral("Dear Ada"));
    EXPECT_EQ(storedPlace(), kPlace);
    EXPECT_TRUE(files.files.value(store.bodyFile(id)).startsWith("{\\rtf"));
    EXPECT_EQ(grid.refreshes, 1);
}

TEST_F(StickyWindow, whatIsTypedDuringASaveStaysDirty)
{
    type(QStringLiteral("one"));
    events.duringYield = [this] { type(QStringLiteral(" two")); };
    note->SaveNote();
    EXPECT_TRUE(note->isDirty());
}

TEST_F(StickyWindow, dragMovesAndSizesInsideTheTarget)
{
    auto *strip = note->findChild<QWidget *>(QStringLiteral("Picture1"));
    const QRect before = embedding.windowRect(note->hWnd());
    QTest::mousePress(strip, Qt::LeftButton, {}, {100, 10});
    QTest::mouseMove(strip, {130, 25});
    QTest::mouseRelease(strip, Qt::LeftButton, {}, {130, 25});
    EXPECT_EQ(embedding.windowRect(note->hWnd()), before.translated(30, 15));
    note->SaveNote();
    EXPECT_EQ(storedPlace().topLeft(), QPointF(300 + 30 * 15, 450 + 15 * 15));
}

TEST_F(StickyWindow, aLostTargetSavesTextAndPlace)
{
    type(QStringLiteral("kept"));
    embedding.destroyTarget(kTarget);
    EXPECT_EQ(field(QStringLiteral("NoteText")).toString(), QStringLiteral("kept"));
    EXPECT_EQ(storedPlace(), kPlace);
    EXPECT_TRUE(field(QStringLiteral("Active")).toBool());
    EXPECT_EQ(clips.Count(), 0);
    EXPECT_FALSE(forms.FormIsLoaded(QStringLiteral("frmSticky")));
    EXPECT_TRUE(saved());
}

TEST_F(StickyWindow, withoutAutoSaveChangesGoWithoutAQuestion)
{
    note->fields.AutoSave = false;
    type(QStringLiteral("lost"));
    note->unload();
    EXPECT_FALSE(saved());
    EXPECT_TRUE(notifier.shown.isEmpty());
}

TEST_F(StickyWindow, closeDetachesAndSetsTheTimerAgain)
{
    type(QStringLiteral("kept"));
    note->mnuFile_Close_Click();
    EXPECT_FALSE(field(QStringLiteral("Active")).toBool());
    EXPECT_TRUE(saved());
    EXPECT_EQ(timer.interval(), watch.WatchInterval);
    EXPECT_EQ(clips.Count(), 0);
}

TEST_F(StickyWindow, aNoteThatCannotBeSavedIsRescued)
{
    type(QStringLiteral("precious"));
    store.close();
    note->unload();
    ASSERT_EQ(notifier.shown.size(), 1);
    const auto paths = files.files.keys();
    ASSERT_EQ(std::count_if(paths.begin(), paths.end(),
                            [](const QString &path) { return path.contains(QStringLiteral("/Rescued/")); }),
              1);
}

TEST_F(StickyWindow, typeEffectClicksForEachKey)
{
    type(QStringLiteral("a"));
    EXPECT_TRUE(sound.played.isEmpty());
    note->fields.TypeEffect = true;
    type(QStringLiteral("bc"));
    EXPECT_EQ(sound.played, QStringList({QStringLiteral("/click.wav"), QStringLiteral("/click.wav")}));
}

TEST_F(StickyWindow, isNeverSmallerThanAHandCanHold)
{
    note->moveTwips(QRectF(0, 0, 0, 0));
    EXPECT_GE(embedding.windowRect(note->hWnd()).width(), kNoteLeast.width());
    type(QStringLiteral("a"));
    note->SaveNote();
    EXPECT_EQ(storedPlace(), QRectF(0, 0, 0, 0));
}

} // namespace
