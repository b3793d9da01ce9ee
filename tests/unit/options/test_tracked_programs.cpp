#include "fakes/MemorySettings.h"
#include "options/settings/TrackedPrograms.h"
#include "shell/tracked_classes.h"
#include "unit/watcher/Desk.h"

#include <gmock/gmock.h>

using namespace norvane;
using namespace norvane::tests;
using namespace Qt::StringLiterals;

namespace {

class Programs : public testing::Test, protected Desk
{
protected:
    Programs()
    {
        settings.TrackedClasses = trackedClasses(stored);
        browser = openPage(u"Page"_s, u"http://page/"_s);
        terminal = windows.open(u"XTerm"_s, u"shell"_s, 5);
        windows.open(u"XTerm"_s, u"second shell"_s, 5);
        processes.programs.insert(5, u"/usr/bin/xterm"_s);
        shell.typeNames.insert(u"/usr/bin/xterm"_s, u"Application"_s);
    }
    QStringList running() const
    {
        QStringList rows;
        for (const TrackedPrograms::Program &program : programs.running())
            rows.append(u"%1 %2 %3"_s.arg(program.className).arg(program.windows).arg(program.trackedAs));
        return rows;
    }

    fakes::MemorySettings stored;
    WindowHandle browser = kNoWindow;
    WindowHandle terminal = kNoWindow;
    TrackedPrograms programs{{stored, settings, windows, tasks, Clips, forms}};
};

TEST_F(Programs, AreTrackedAndForgottenWithoutARestart)
{
    const int pageNote = addNote(u"Page"_s, u"http://page/"_s);
    const int shellNote = addNote(u"shell"_s, u"/usr/bin/xterm"_s);
    tick();
    EXPECT_THAT(openNotes(), testing::ElementsAre(pageNote));
    EXPECT_EQ(running(), QStringList({u"IEFrame 1 Web browsers"_s, u"XTerm 2 "_s}));

    EXPECT_TRUE(programs.mayAdd(u" xterm "_s));
    programs.add(u" xterm "_s);
    EXPECT_FALSE(programs.mayAdd(u"XTERM"_s));
    EXPECT_EQ(running().last(), u"XTerm 2 xterm");
    tick(2);
    EXPECT_THAT(openNotes(), testing::ElementsAre(pageNote, shellNote));

    programs.remove(u"xterm"_s);
    EXPECT_THAT(openNotes(), testing::ElementsAre(pageNote)) << "at once, before any tick";
    EXPECT_EQ(tasks.Count(), 1);
    tick(2);
    EXPECT_THAT(openNotes(), testing::ElementsAre(pageNote));
    EXPECT_EQ(LiveWindows.Count(), 1);
    windows.setCaption(browser, u"Elsewhere"_s);
    shellWindows.setLocation(browser, u"http://elsewhere/"_s);
    tick(2);
    EXPECT_TRUE(openNotes().empty()) << "nothing of the terminal stands in the way";
}

TEST_F(Programs, AreStoredInTheKeysThatAreFree)
{
    stored.values[u"ClassEx"_s] = {{u"Items"_s, u"2"_s}, {u"01"_s, u"First"_s}, {u"02"_s, u"Second"_s}};
    programs.add(u"Third"_s);
    programs.remove(u"First"_s);
    EXPECT_EQ(stored.values[u"ClassEx"_s][u"01"_s], QString());
    EXPECT_EQ(programs.own(), QStringList({u"Second"_s, u"Third"_s}));
    programs.add(u"Fourth"_s);
    EXPECT_EQ(programs.own(), QStringList({u"Fourth"_s, u"Second"_s, u"Third"_s}));
    EXPECT_EQ(stored.values[u"ClassEx"_s][u"Items"_s], u"3");
    EXPECT_EQ(settings.TrackedClasses, trackedClasses(stored));
    EXPECT_FALSE(programs.mayAdd(u"  "_s));
}

} // namespace
