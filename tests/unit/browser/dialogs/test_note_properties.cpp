#include "unit/watcher/Desk.h"

#include "browser/dialogs/note_properties.h"
#include "error_of.h"
#include "fakes/FakeNoteGridView.h"
#include "platform/errors.h"
#include "unit/platform/linux/in_child.h"
#include "watcher/WatchPause.h"

#include <QFile>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>

using namespace norvane;
using namespace norvane::tests;

namespace {

/// Counts as a browser that fails to read its rows.
class FailingGrid : public fakes::FakeNoteGridView
{
public:
    void Refresh_Grid() override
    {
        FakeNoteGridView::Refresh_Grid();
        if (fails)
            throw RuntimeError(kErrorFileAccess, QStringLiteral("Injected"));
    }
    bool fails = false;
};

class Properties : public testing::Test, protected Desk
{
protected:
    Properties()
    {
        id = addNote(u"Letters"_qs, u"http://letters/"_qs,
                     {{u"keyWords"_qs, QVariant()},
                      {u"DateCreated"_qs, clock.now()},
                      {u"winLeft"_qs, 300},
                      {u"winTop"_qs, 450},
                      {u"winWidth"_qs, 5100},
                      {u"winHeight"_qs, 3801}});
    }

    /// The note's window on its page; its calls so far are forgotten.
    fakes::FakeStickyNote *openNote()
    {
        page = openPage(u"Letters"_qs, u"http://letters/"_qs);
        tick();
        fakes::FakeStickyNote *opened = note(id);
        if (opened) {
            opened->calls.clear();
            opened->colors.clear();
        }
        return opened;
    }
    NoteProperties stored() const { return readProperties(store, id).properties; }
    bool save(const NoteProperties &properties) { return saveProperties(targets, id, properties); }
    QVariant field(const QString &column) const { return noteField(id, column); }

    FailingGrid grid;
    PropertyTargets targets{store, forms, windows, grid};
    WindowHandle page = kNoWindow;
    int id = 0;
};

TEST_F(Properties, ThatCannotBeWrittenLeaveRowAndWindow)
{
    fakes::FakeStickyNote *live = openNote();
    ASSERT_TRUE(live);
    NoteProperties properties = stored();
    properties.AutoURLDetect = kChecked;
    properties.BackColor = 0;
    properties.FriendlyName = QString(kLongestName + 1, u'x');
    EXPECT_EQ(errorOf([&] { save(properties); }), kErrorFieldTooLong);
    EXPECT_EQ(live->calls, QStringList());
    EXPECT_EQ(stored().BackColor, kDefaultNoteColor);
    EXPECT_EQ(grid.refreshes, 0);

    properties.FriendlyName = QString(kLongestName, u'x');
    properties.keyWords = QString(kLongestKeywords, u'x');
    properties.WAVFileName = QString(kLongestSoundFile, u'x');
    EXPECT_TRUE(save(properties)) << "what the boxes let in fits";

    grid.fails = true;
    properties.FriendlyName = u"Written"_qs;
    EXPECT_EQ(errorOf([&] { save(properties); }), kErrorFileAccess);
    EXPECT_EQ(field(u"FriendlyName"_qs), u"Written"_qs);
}

TEST_F(Properties, SurviveAFullDiskAndAFolderThatIsReadOnly)
{
    const fakes::FakeStickyNote *live = openNote();
    ASSERT_TRUE(live);
    NoteProperties properties = stored();
    properties.keyWords = u"word"_qs;
    properties.URL = QString(100'000, u'u'); // needs room in the file
    EXPECT_EQ(test::inChild([&] {
                  std::signal(SIGXFSZ, SIG_IGN);
                  rlimit limit = {0, RLIM_INFINITY};
                  setrlimit(RLIMIT_FSIZE, &limit);
                  if (errorOf([&] { save(properties); }) != kErrorDiskFull || !live->calls.isEmpty())
                      return 1;
                  limit.rlim_cur = RLIM_INFINITY;
                  setrlimit(RLIMIT_FSIZE, &limit);
                  return save(properties) && stored().keyWords == u"word"_qs ? 0 : 2;
              }),
              0);
    properties.keyWords = u"other"_qs;
    QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::ExeOwner);
    EXPECT_EQ(test::inChild([&] {
                  const bool refused = test::becomeOrdinaryUser() && errorOf([&] { save(properties); }) != 0;
                  return refused && live->calls.isEmpty() ? 0 : 1;
              }),
              0);
    QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    EXPECT_EQ(stored().keyWords, u"word"_qs);
}

TEST_F(Properties, OfSeveralNotesKeepWhatIsGreyExceptForTwo)
{
    const int second = addNote(u"Second"_qs, u"/second"_qs,
                               {{u"Active"_qs, false},
                                {u"AutoSave"_qs, true},
                                {u"ShowToolbar"_qs, true},
                                {u"keyWords"_qs, u"words"_qs},
                                {u"WAVFileName"_qs, u"/a.wav"_qs},
                                {u"BackColor"_qs, 0x123456},
                                {u"CAT_ID"_qs, 3},
                                {u"FormPosition"_qs, 4}});
    const int other = addNote(u"Other"_qs, u"/other"_qs, {{u"BackColor"_qs, 0x123456}});
    fakes::FakeStickyNote *live = openNote();
    ASSERT_TRUE(live);
    EXPECT_TRUE(saveProperties(targets, {id, second}, NoteProperties{}));
    const NoteProperties now = readProperties(store, second).properties;
    EXPECT_EQ(now.FriendlyName, u"Second"_qs);
    EXPECT_EQ(now.URL, u"/second"_qs);
    EXPECT_EQ(now.ACTIVE, kCleared);
    EXPECT_EQ(now.AutoSave, kChecked);
    EXPECT_EQ(now.PlaySound, kCleared);
    EXPECT_EQ(now.ShowToolbar, kChecked);
    EXPECT_EQ(now.keyWords, u"words"_qs);
    EXPECT_EQ(now.CAT_ID, 3);
    // Written in any case:
    EXPECT_EQ(now.AutoURLDetect, kChecked);
    EXPECT_EQ(now.TypeEffect, kChecked);
    EXPECT_EQ(now.BackColor, kDefaultNoteColor);
    EXPECT_EQ(now.WAVFileName, QString());
    EXPECT_EQ(now.formposition, 0);
    EXPECT_EQ(noteField(other, u"BackColor"_qs).toInt(), 0x123456);
    EXPECT_TRUE(live->autoURLDetect && live->fields.TypeEffect);
    EXPECT_FALSE(live->calls.contains(u"setCaption"_qs));
    EXPECT_EQ(grid.refreshes, 1) << "once for all";
    EXPECT_EQ(grid.aroundRefreshes, 1);

    NoteProperties changed;
    changed.ACTIVE = kCleared;
    changed.TypeEffect = kCleared;
    changed.AutoURLDetect = kCleared;
    changed.keyWords = u"new"_qs;
    changed.CAT_ID = 0;
    EXPECT_TRUE(saveProperties(targets, {id, second}, changed));
    EXPECT_TRUE(live->unloaded);
    const NoteProperties last = readProperties(store, second).properties;
    EXPECT_EQ(last.TypeEffect, kCleared);
    EXPECT_EQ(last.AutoURLDetect, kCleared);
    EXPECT_EQ(last.keyWords, u"new"_qs);
    EXPECT_EQ(last.CAT_ID, 0);
}

TEST_F(Properties, OfSeveralNotesEndAtARowThatIsGone)
{
    const int last = addNote(u"Last"_qs, {}, {{u"BackColor"_qs, 0x123456}});
    NoteProperties properties;
    properties.BackColor = 0xFF;
    EXPECT_FALSE(saveProperties(targets, {id, 4711, last}, properties));
    EXPECT_EQ(stored().BackColor, 0xFFU) << "written before";
    EXPECT_EQ(noteField(last, u"BackColor"_qs).toInt(), 0x123456);
}

TEST_F(Properties, LastPauseStartsTheWatch)
{
    auto first = std::make_unique<WatchPause>(timer);
    auto second = std::make_unique<WatchPause>(timer);
    first.reset();
    EXPECT_FALSE(timer.isEnabled()) << "the other still holds it";
    second.reset();
    EXPECT_TRUE(timer.isEnabled());
}

} // namespace
