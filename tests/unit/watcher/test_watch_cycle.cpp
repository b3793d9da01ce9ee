#include "Desk.h"

#include <gmock/gmock.h>

using namespace norvane;
using namespace norvane::fakes;
using namespace norvane::tests;

namespace {

using Ids = std::vector<int>;

class Cycle : public testing::Test, protected Desk
{
protected:
    /// A page with a note, in a window of its own.
    WindowHandle openNoted(const QString &title, const QString &url,
                           const QMap<QString, QVariant> &values = {})
    {
        lastNote = addNote(title, url, values);
        return openPage(title, url);
    }
    /// Ticks until the timer rests. @return whether it does
    bool comesToRest()
    {
        int left = 20;
        while (left > 0 && timer.fire())
            --left;
        return left > 0 && timer.running();
    }
    int lastNote = 0;
};

} // namespace

TEST_F(Cycle, FillsANoteInTheOrderThatItsWindowReliesOn)
{
    const QDateTime saved(QDate(2000, 1, 2), QTime(3, 4, 5));
    const int id = addNote(u"Page"_qs, u"http://a/"_qs,
                           {{u"winLeft"_qs, 150},
                            {u"winTop"_qs, 300},
                            {u"ShowToolbar"_qs, true},
                            {u"TypeEffect"_qs, true},
                            {u"AutoSave"_qs, true},
                            {u"AutoURLDetect"_qs, true},
                            {u"PlaySound"_qs, true},
                            {u"WAVFileName"_qs, u"/ding.wav"_qs},
                            {u"BackColor"_qs, 0x123456},
                            {u"LastUpdate"_qs, saved},
                            {u"FriendlyName"_qs, u"My page"_qs}});
    files.files.insert(store.bodyFile(id), "{\\rtf1 text}");
    const WindowHandle target = openPage(u" Page "_qs, u" http://a/ "_qs);
    stickies.onCreate = [&](FakeStickyNote &note) {
        note.onCall = [&](FakeStickyNote &each, const QString &name) {
            EXPECT_TRUE(each.fields.Loading) << name.toStdString();
            EXPECT_EQ(windows.locked != kNoWindow, name != u"setParentWindow") << name.toStdString();
            EXPECT_EQ(Clips.Count(), each.calls.contains(u"setCaption"_qs) ? 1 : 0) << name.toStdString();
        };
    };
    tick();

    FakeStickyNote *open = note(id);
    ASSERT_NE(open, nullptr);
    EXPECT_EQ(open->calls,
              (QStringList{u"setParentWindow"_qs, u"setTextBackColor"_qs, u"setToolBar"_qs, u"moveTwips"_qs,
                           u"setTextBackColor"_qs, u"setCaption"_qs, u"clearText"_qs, u"loadBody"_qs,
                           u"setAutoURLDetect"_qs, u"resetSaveState"_qs, u"SetSaveMode"_qs, u"showNote"_qs,
                           u"nudge"_qs}));
    EXPECT_FALSE(open->fields.Loading || open->dirty);
    EXPECT_EQ(open->fields.LastUpdate, saved);
    EXPECT_TRUE(open->fields.TypeEffect && open->fields.AutoSave && open->toolBar && open->autoURLDetect);
    EXPECT_EQ(open->colors, (QVector<quint32>{0xC0FFFF, 0x123456}));
    EXPECT_EQ(open->twips, QRectF(150, 300, 5100, 3800));
    EXPECT_EQ(open->caption(), u"My page"_qs);
    EXPECT_EQ(open->body, store.bodyFile(id));
    EXPECT_EQ(sound.played, QStringList{u"/ding.wav"_qs});

    const clsClip &clip = Clips.Item(1);
    EXPECT_EQ(clip.hWnd, open->hWnd());
    EXPECT_EQ(clip.ParentHwnd, target);
    EXPECT_EQ(clip.ParentClassName, u"IEFrame"_qs);
    EXPECT_EQ(clip.SavedTitle, u"Page"_qs);
    EXPECT_EQ(clip.wURL, u"http://a/"_qs);
    EXPECT_EQ(windows.actions,
              (QStringList{u"lockWindowUpdate 1"_qs, u"setFocus %1"_qs.arg(target),
                           u"bringWindowToTop %1"_qs.arg(open->hWnd()), u"lockWindowUpdate 0"_qs}));
    EXPECT_EQ(timer.intervals, (QVector<int>{0, 400, 0, 400}));
}

TEST_F(Cycle, FillsWhatARowLeavesOut)
{
    const int id = addNote(u"Page"_qs, u"http://a/"_qs, {{u"FormPosition"_qs, 5}, {u"PlaySound"_qs, true}});
    openPage(u"Page"_qs, u"http://a/"_qs);
    tick();
    FakeStickyNote *open = note(id);
    ASSERT_NE(open, nullptr);
    EXPECT_EQ(open->fields.LastUpdate, clock.time);
    EXPECT_EQ(open->body, QString()) << "no body file, an empty note";
    EXPECT_EQ(sound.beeps, 1);
    EXPECT_EQ(open->twips.size(), QSizeF(5100, 3800));
    EXPECT_EQ(open->pixels, QPoint(800 - 340 - 7, 600 - 253 - 27));
    EXPECT_EQ(open->fields.formposition, 5);
}

TEST_F(Cycle, ANoteIsOpenOnceAndAWindowShowsItsFirstNoteOnly)
{
    const int first = addNote(u"Page"_qs, u"http://a/"_qs);
    addNote(u"Page"_qs, u"http://a/"_qs);
    openPage(u"Page"_qs, u"http://a/"_qs);
    tick(3);
    EXPECT_EQ(openNotes(), Ids{first});
    openPage(u"Page"_qs, u"http://a/"_qs);
    tick(3);
    EXPECT_EQ(openNotes(), Ids{first});
}

TEST_F(Cycle, AMinimisedTargetWaitsForItsNoteButKeepsAnOpenOne)
{
    const WindowHandle target = openNoted(u"Page"_qs, u"http://a/"_qs);
    windows.setMinimized(target, true);
    tick(2);
    EXPECT_EQ(openNotes(), Ids());
    windows.setMinimized(target, false);
    tick();
    EXPECT_EQ(openNotes(), Ids{lastNote});
    windows.setMinimized(target, true);
    tick(2);
    EXPECT_EQ(openNotes(), Ids{lastNote});
}

TEST_F(Cycle, InactiveAndPlainNotesDoNotOpenThoughTheirTitlesMatch)
{
    const int inactive = addNote(u"One"_qs, u"http://one/"_qs, {{u"Active"_qs, false}});
    addNote(u"Two"_qs, QString());
    openPage(u"One"_qs, u"http://one/"_qs);
    openDocument(u"Two"_qs, u"/usr/bin/editor"_qs);
    tick(2);
    EXPECT_EQ(openNotes(), Ids());

    store.NoteSet()->findFirst(u"ID=%1"_qs.arg(inactive));
    store.NoteSet()->edit();
    store.NoteSet()->setField(u"Active"_qs, true);
    store.NoteSet()->update();
    tick(2);
    EXPECT_EQ(openNotes(), Ids()) << "nobody told of the change";
    store.requeryNoteIndex();
    tick();
    EXPECT_EQ(openNotes(), Ids{inactive});
}

TEST_F(Cycle, AnotherPageClosesTheNoteAndOpensItsOwnInOneTick)
{
    const int first = addNote(u"First Page"_qs, u"http://site/first"_qs);
    const int second = addNote(u"Second Page"_qs, u"http://site/second"_qs);
    const WindowHandle window = openPage(u"First Page"_qs, u"http://site/first"_qs);
    tick();
    EXPECT_EQ(openNotes(), Ids{first});
    goTo(window, u"Second Page"_qs, u"http://site/second"_qs);
    tick();
    EXPECT_EQ(openNotes(), Ids{second});
    goTo(window, u"First Page"_qs, u"http://site/first"_qs);
    tick();
    EXPECT_EQ(openNotes(), Ids{first});
}

TEST_F(Cycle, ANoteStaysOnPagesBelowItsOwnAndOnTitlesThatStartAlike)
{
    const WindowHandle window = openNoted(u"News - Today"_qs, u"http://site/"_qs);
    tick();
    goTo(window, u"News - Yesterday"_qs, u"http://elsewhere/"_qs);
    tick(2);
    EXPECT_EQ(openNotes(), Ids{lastNote});
    goTo(window, u"Another title"_qs, u"http://site/below"_qs);
    tick(2);
    EXPECT_EQ(openNotes(), Ids{lastNote});
    EXPECT_EQ(stickies.made.size(), 1u) << "it stayed, and was not opened again";
    goTo(window, u"Nothing alike"_qs, u"http://elsewhere/"_qs);
    tick(2);
    EXPECT_EQ(openNotes(), Ids());
}

TEST_F(Cycle, ATitleWhoseLocationIsNotKnownYetChangesNothing)
{
    const WindowHandle window = openNoted(u"First Page"_qs, u"http://site/first"_qs);
    tick();
    shellWindows.setUnknown(window);
    windows.setCaption(window, u"Second Page"_qs);
    tick(3);
    EXPECT_EQ(openNotes(), Ids{lastNote});
    shellWindows.setLocation(window, u"http://site/second"_qs);
    EXPECT_TRUE(timer.tickRequested);
    timer.fireIfRequested();
    EXPECT_EQ(openNotes(), Ids());
}

TEST_F(Cycle, ANoteThatOpenedBeforeItsPageWasToldGoesWithItsTitle)
{
    const int id = addNote(u"First Page"_qs, u"http://site/first"_qs);
    const WindowHandle window = openPage(u"First Page"_qs, {});
    tick();
    EXPECT_EQ(openNotes(), Ids{id});
    shellWindows.setLocation(window, u"http://site/first"_qs);
    tick(2);
    EXPECT_EQ(openNotes(), Ids{id});
    goTo(window, u"Second Page"_qs, u"http://site/second"_qs);
    tick(2);
    EXPECT_EQ(openNotes(), Ids());
}

TEST_F(Cycle, OneNoteClosesPerTick)
{
    QVector<WindowHandle> targets;
    for (int i = 0; i < 3; ++i)
        targets.append(openNoted(u"%1 page"_qs.arg(i), u"http://%1/"_qs.arg(i)));
    tick();
    ASSERT_EQ(openNotes().size(), 3);
    for (const WindowHandle target : targets)
        goTo(target, u"elsewhere"_qs, u"about:blank"_qs);
    for (const int left : {2, 1, 0}) {
        tick();
        EXPECT_EQ(openNotes().size(), left);
        EXPECT_EQ(Clips.Count(), left);
    }
}

TEST_F(Cycle, AFolderNoteGoesWhenNoWindowHasItsTitle)
{
    const int id = addNote(u"lib"_qs, u"/usr/lib"_qs);
    const WindowHandle window = openFolder(u"lib"_qs, u"/usr/lib"_qs);
    tick();
    ASSERT_EQ(openNotes(), Ids{id});
    windows.actions.clear();
    windows.change();
    tick();
    EXPECT_EQ(windows.actions, QStringList{u"bringWindowToTop %1"_qs.arg(note(id)->hWnd())});
    EXPECT_EQ(openNotes(), Ids{id});

    goTo(window, u"bin"_qs, u"/usr/bin"_qs);
    openFolder(u" LIB "_qs, u"/home/lib"_qs);
    tick();
    EXPECT_EQ(openNotes(), Ids{id}) << "another window has the title";
    windows.destroy(windows.order.first());
    tick();
    EXPECT_EQ(openNotes(), Ids());
}

TEST_F(Cycle, ExactModeGoesByTheWholeTitleOfADocument)
{
    settings.ExactWindowName = true;
    const int id = addNote(u"a.txt - Editor"_qs, u"/usr/bin/editor"_qs);
    const WindowHandle window = openDocument(u"a.txt - Editor"_qs, u"/usr/bin/editor"_qs);
    tick(2);
    EXPECT_EQ(openNotes(), Ids{id});
    windows.setCaption(window, u"a.txt - Editor *"_qs);
    tick();
    EXPECT_EQ(note(id)->calls.count(u"showNote"_qs), 1) << "closed, and opened again by the program";
    EXPECT_EQ(stickies.made.size(), 2u);
    settings.ExactWindowName = false;
    windows.setCaption(window, u"b.txt - Editor"_qs);
    tick(2);
    EXPECT_EQ(stickies.made.size(), 2u) << "the program is the same";
}

TEST_F(Cycle, DeadTargetsGiveUpTheirNotesBySavingThem)
{
    const WindowHandle a = openNoted(u"Kept"_qs, u"http://kept/"_qs, {{u"AutoSave"_qs, true}});
    const int kept = lastNote;
    const WindowHandle b = openNoted(u"Lost"_qs, u"http://lost/"_qs, {{u"AutoSave"_qs, false}});
    tick();
    FakeStickyNote *saving = note(kept);
    FakeStickyNote *losing = note(lastNote);
    ASSERT_TRUE(saving && losing);
    saving->dirty = losing->dirty = true;
    windows.destroy(a);
    windows.destroy(b);
    tick();
    EXPECT_EQ(Clips.Count(), 0);
    EXPECT_TRUE(saving->unloaded && losing->unloaded);
    EXPECT_TRUE(saving->calls.contains(u"SaveNote"_qs));
    EXPECT_FALSE(losing->calls.contains(u"SaveNote"_qs));
    EXPECT_EQ(saving->fields.ParentHwnd, kNoWindow);
    EXPECT_TRUE(noteField(kept, u"Active"_qs).toBool()) << "it comes back with its page";
}

TEST_F(Cycle, ATargetThatDiesAtAnyStepLeavesNothingBehind)
{
    const QStringList steps = {u"create"_qs,      u"setParentWindow"_qs, u"setToolBar"_qs,
                               u"moveTwips"_qs,   u"setCaption"_qs,      u"loadBody"_qs,
                               u"SetSaveMode"_qs, u"showNote"_qs,        u"nudge"_qs};
    const int id = addNote(u"Page"_qs, u"http://a/"_qs);
    files.files.insert(store.bodyFile(id), "{\\rtf1 text}");
    for (const bool noteGoesToo : {false, true}) {
        for (const QString &step : steps) {
            const WindowHandle target = openPage(u"Page"_qs, u"http://a/"_qs);
            const auto die = [&](FakeStickyNote &note) {
                note.onCall = nullptr;
                windows.destroy(target);
                // What the window system's own signal makes the note do.
                if (noteGoesToo)
                    note.unload();
            };
            stickies.onCreate = [&](FakeStickyNote &note) {
                note.onCall = [&](FakeStickyNote &each, const QString &name) {
                    if (name == step)
                        die(each);
                };
                if (step == u"create")
                    die(note);
            };
            tick();
            EXPECT_EQ(windows.locked, kNoWindow) << step.toStdString();
            EXPECT_EQ(timer.interval(), 400) << step.toStdString();
            tick();
            EXPECT_EQ(Clips.Count(), 0) << step.toStdString();
            EXPECT_EQ(openNotes(), Ids()) << step.toStdString();
            EXPECT_TRUE(forms.all().isEmpty()) << step.toStdString();
        }
    }
    EXPECT_EQ(stickies.made.size(), 2 * static_cast<size_t>(steps.size()));
}

TEST_F(Cycle, ABodyThatCannotBeReadLeavesNoHalfNote)
{
    const int id = addNote(u"Page"_qs, u"http://a/"_qs, {{u"AutoSave"_qs, true}});
    files.files.insert(store.bodyFile(id), "no rich text");
    openPage(u"Page"_qs, u"http://a/"_qs);
    stickies.onCreate = [](FakeStickyNote &note) { note.bodyError = 75; };
    tick();
    ASSERT_EQ(stickies.made.size(), 1u);
    EXPECT_TRUE(stickies.made[0]->unloaded);
    EXPECT_FALSE(stickies.made[0]->calls.contains(u"SaveNote"_qs)) << "the body would be overwritten";
    EXPECT_EQ(Clips.Count(), 0);
    EXPECT_EQ(windows.locked, kNoWindow);
    stickies.onCreate = nullptr;
    tick();
    EXPECT_EQ(openNotes(), Ids{id});
}

TEST_F(Cycle, AnUnparsableTitleEndsThePassWithoutAWord)
{
    const int before = addNote(u"Before"_qs, u"http://before/"_qs);
    const int after = addNote(u"After"_qs, u"http://after/"_qs);
    openPage(u"After"_qs, u"http://after/"_qs);
    const WindowHandle bad = openPage(u"Bad"_qs, u"http://bad/\"x\" y"_qs);
    openPage(u"Before"_qs, u"http://before/"_qs);
    tick();
    EXPECT_EQ(openNotes(), Ids{before});
    EXPECT_EQ(timer.interval(), 400);

    const quint64 statements = this->statements();
    for (int i = 0; i < 3; ++i)
        cycle.tick();
    EXPECT_EQ(this->statements(), statements);
    EXPECT_EQ(openNotes(), Ids{before});

    goTo(bad, u"Good"_qs, u"http://good/"_qs);
    tick();
    EXPECT_EQ(openNotes(), (Ids{before, after}));
}

TEST_F(Cycle, ATickWithoutAChangeAsksNobody)
{
    for (int i = 0; i < 10; ++i)
        openNoted(u"%1 page"_qs.arg(i), u"http://%1/"_qs.arg(i));
    for (int i = 0; i < 10; ++i)
        openPage(u"other %1"_qs.arg(i), u"http://other/%1"_qs.arg(i));
    openFolder(u"5 page"_qs, u"/usr/lib"_qs);
    tick(3);
    ASSERT_EQ(openNotes().size(), 10);

    const quint64 statements = this->statements();
    const int trips = windows.roundTrips;
    const int queries = shellWindows.queries + processes.queries;
    for (int i = 0; i < 5; ++i)
        cycle.tick();
    EXPECT_EQ(this->statements(), statements);
    EXPECT_EQ(windows.roundTrips, trips);
    EXPECT_EQ(shellWindows.queries + processes.queries, queries);

    // One window's change asks for that window alone (a count, and the first of the notes), even when
    // its note goes: the notes of the other windows are the same.
    goTo(windows.order.last(), u"Elsewhere"_qs, u"about:blank"_qs);
    tick(3);
    EXPECT_EQ(openNotes().size(), 9);
    EXPECT_LE(this->statements(), statements + 3);
    EXPECT_GT(this->statements(), statements);
}

TEST_F(Cycle, TheClockRestsUntilSomethingThatATickDependsOnChanges)
{
    const WindowHandle page = openNoted(u"Page"_qs, u"http://a/"_qs);
    openPage(u"Other"_qs, u"http://other/"_qs);
    const WindowHandle terminal = windows.open(u"XTerm"_qs, u"Terminal"_qs);
    const std::vector<std::pair<const char *, std::function<void()>>> changes = {
        {"a new window", [&] { openFolder(u"Folder"_qs, u"/usr/lib"_qs); }},
        {"a window that was minimised", [&] { windows.setMinimized(page, true); }},
        {"a location", [&] { shellWindows.setLocation(page, u"http://a/b"_qs); }},
        {"a note that belongs to a window", [&] { addNote(u"Other"_qs, u"http://other/"_qs); }},
        {"a note that belongs to none", [&] { addNote(u"Nowhere"_qs, u"http://nowhere/"_qs); }},
        {"a note that was closed", [&] { forms.byHwnd(Clips.Item(1).hWnd)->unload(); }},
        {"exact titles", [&] { settings.ExactWindowName = true; }},
        {"the length that titles are compared by", [&] { settings.PartialMatchLength = 1; }},
        {"a class that is tracked now",
         [&] {
             settings.TrackedClasses.append(u"XTerm"_qs);
             tasks.followTrackedClasses();
         }},
        {"a row that went",
         [&] {
             windows.at(terminal).visible = false;
             tasks.Valid(0, terminal);
         }},
    };
    ASSERT_TRUE(comesToRest());
    for (const auto &[what, change] : changes) {
        change();
        EXPECT_TRUE(timer.fire()) << what;
        EXPECT_TRUE(comesToRest()) << what;
    }
}

TEST_F(Cycle, TheClockGoesOnWhileSomethingWaitsForTime)
{
    const WindowHandle page = openNoted(u"Page"_qs, u"http://a/"_qs);
    const auto goesOn = [this] {
        bool ticks = true;
        for (int i = 0; i < 40; ++i)
            ticks = timer.fire() && ticks;
        return ticks;
    };
    shellWindows.setUnknown(page);
    EXPECT_TRUE(goesOn()) << "the location is being looked up";
    windows.at(page).hung = true;
    shellWindows.setLocation(page, u"http://a/"_qs);
    EXPECT_TRUE(goesOn()) << "the window does not answer";
    windows.at(page).hung = false;
    store.close();
    EXPECT_TRUE(goesOn()) << "the notes cannot be asked for";
    store.open();
    EXPECT_TRUE(comesToRest());
    EXPECT_EQ(openNotes(), Ids{lastNote});
}

TEST_F(Cycle, AStoppedClockOpensAndClosesNothing)
{
    openNoted(u"Page"_qs, u"http://a/"_qs);
    events.duringYield = [&] { timer.setEnabled(false); };
    tick();
    EXPECT_EQ(openNotes(), Ids()) << "stopped while the tick yielded";
    timer.setEnabled(true);
    events.duringYield = [&] { cycle.end(); };
    tick();
    EXPECT_EQ(openNotes(), Ids());
    EXPECT_EQ(timer.interval(), 0) << "shut-down is final";
    cycle.rearm();
    EXPECT_EQ(timer.interval(), 0);
}

TEST_F(Cycle, ATickDoesNotRunInsideItself)
{
    openNoted(u"Page"_qs, u"http://a/"_qs);
    events.duringYield = [&] { cycle.tick(); };
    stickies.onCreate = [&](FakeStickyNote &) { cycle.tick(); };
    tick();
    EXPECT_EQ(openNotes(), Ids{lastNote});
    EXPECT_EQ(events.yields, 1);
}

TEST_F(Cycle, WithoutADatabaseATickIsQuiet)
{
    openPage(u"Page"_qs, u"http://a/"_qs);
    store.close();
    tick();
    EXPECT_EQ(openNotes(), Ids());
    EXPECT_EQ(timer.interval(), 400);
}
