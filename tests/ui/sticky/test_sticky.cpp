#include "StickyWindow.h"

#include "watcher/NotePreview.h"

#include <QAction>
#include <QToolBar>

using namespace norvane;
using namespace norvane::tests;

namespace {

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
    QTest::mouseMove(strip, {100, 1});
    EXPECT_EQ(note->cursor().shape(), Qt::SizeVerCursor);
    QTest::mouseMove(strip, {100, 10});
    EXPECT_EQ(note->cursor().shape(), Qt::ArrowCursor);

    windows.at(target).rect = QRect(-500, -500, 3000, 3000);
    const QRect before = embedding.windowRect(note->hWnd());
    const auto drag = [&](const QPoint &from, const QPoint &to) {
        QTest::mousePress(strip, Qt::LeftButton, {}, from);
        QTest::mouseMove(strip, to);
        QTest::mouseRelease(strip, Qt::LeftButton, {}, to);
    };
    drag({100, 10}, {130, 25});
    EXPECT_EQ(embedding.windowRect(note->hWnd()), before.translated(30, 15));
    note->SaveNote();
    EXPECT_EQ(storedPlace(), kPlace.translated(30 * 15, 15 * 15)) << "the size is as it was loaded";
    drag({100, 1}, {100, 21});
    EXPECT_EQ(embedding.windowRect(note->hWnd()), before.translated(30, 15).adjusted(0, 20, 0, 0));

    // The hand cannot take it out of the target.
    windows.at(target).rect = QRect(strip->mapToGlobal(QPoint(0, 0)), QSize(200, 100));
    drag({100, 10}, {100 + 2000, 10});
    EXPECT_EQ(embedding.windowRect(note->hWnd()).left(), before.left() + 30 + 99);
}

TEST_F(StickyWindow, aLostTargetSavesTextAndPlace)
{
    type(u"kept"_qs);
    embedding.destroyTarget(target);
    EXPECT_EQ(field(u"NoteText"_qs).toString(), u"kept"_qs);
    EXPECT_EQ(storedPlace(), kPlace);
    EXPECT_TRUE(field(u"Active"_qs).toBool());
    EXPECT_EQ(Clips.Count(), 0);
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
    EXPECT_EQ(timer.interval(), settings.WatchInterval);
    EXPECT_EQ(Clips.Count(), 0);
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
    store.database()->openRecordset(u"select * from Memos"_qs)->remove();
    note->mnuFile_Close_Click();
    EXPECT_EQ(Clips.Count(), 0);
    EXPECT_EQ(notifier.shown.size() + rescued(), 0);
    EXPECT_EQ(timer.interval(), settings.WatchInterval);
}

/// A preview that shows one note.
class OpenPreview : public Form, public NotePreview
{
public:
    OpenPreview(FormList &forms, int ID) : m_forms(forms), m_id(ID) { forms.add(this); }
    ~OpenPreview() override { m_forms.remove(this); }
    QString formName() const override { return u"frmQuickView"_qs; }
    WindowHandle hWnd() const override { return kNoWindow; }
    void unload() override {}
    int previewedNote() const override { return m_id; }

private:
    FormList &m_forms;
    int m_id;
};

TEST_F(StickyWindow, aSavedNoteIsPreviewedAnewAndNoOther)
{
    for (const int previewed : {id, id + 1}) {
        const OpenPreview preview(forms, previewed);
        grid.previewRefreshes = 0;
        type(u"a"_qs);
        note->SaveNote();
        EXPECT_EQ(grid.previewRefreshes, previewed == id ? 1 : 0);
    }
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
