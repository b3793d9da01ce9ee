#include "fakes/FakeProcesses.h"
#include "fakes/FakeShellWindows.h"
#include "fakes/FakeWindowSystem.h"
#include "watcher/WatchSettings.h"
#include "watcher/window_location.h"

#include <gmock/gmock.h>

using namespace norvane;
using namespace norvane::fakes;

namespace {

class Location : public testing::Test
{
protected:
    Location() { settings.IEAvailable = true; }

    /// A chain of controls, each the only child of the one before; the last holds the text.
    WindowHandle chain(WindowHandle parent, const QStringList &classNames, const QString &text)
    {
        for (const QString &className : classNames)
            parent = windows.addChild(parent, className);
        windows.at(parent).text = text;
        return parent;
    }

    FakeWindowSystem windows;
    FakeShellWindows shellWindows;
    FakeProcesses processes;
    WatchSettings settings;
    WindowLocation location{windows, shellWindows, processes, settings};
};

} // namespace

TEST_F(Location, UrlsOfShellWindows)
{
    struct Row
    {
        const char16_t *url;
        const char16_t *location;
    };
    const Row rows[] = {
        {u"https://example.org/a%20b", u"https://example.org/a%20b"},
        {u"file:///home/user/My%20Notes", u"/home/user/My Notes"},
        {u"file://server/share", u"//server/share"},
        {u"/home/user/file:x", u"/home/user/file:x"},
        {u"", u""},
    };
    const WindowHandle window = windows.open(u"ExploreWClass"_qs, u"caption"_qs);
    for (const Row &row : rows) {
        shellWindows.setLocation(window, QString::fromUtf16(row.url));
        EXPECT_EQ(location.GetWindowLocation(window), QString::fromUtf16(row.location));
    }

    // Not yet known is not empty.
    shellWindows.setUnknown(window);
    EXPECT_EQ(location.GetWindowLocation(window), std::nullopt);

    shellWindows.fresh[window] = u"file:///a%20b"_qs;
    EXPECT_EQ(location.freshLocation(window), u"/a b"_qs);
    EXPECT_EQ(shellWindows.lastTimeout, 300);
    EXPECT_EQ(location.GetWindowLocation(window), u"/a b"_qs);
}

TEST_F(Location, WithoutShellWindowsTheAddressBarIsRead)
{
    settings.IEAvailable = false;
    for (const QString &worker : {u"WorkerA"_qs, u"WorkerW"_qs}) {
        const WindowHandle window = windows.open(u"IEFrame"_qs, u"Page"_qs);
        shellWindows.setLocation(window, u"http://not.asked/"_qs);
        windows.addChild(window, u"Other"_qs);
        chain(window, {worker, u"ReBarWindow32"_qs, u"ComboBoxEx32"_qs, u"ComboBox"_qs, u"Edit"_qs},
              u"  http://typed|by hand "_qs);
        const QString expected = u"http://typed"_qs + QChar(0xff) + u"by hand"_qs;
        EXPECT_EQ(location.GetWindowLocation(window), expected);
        EXPECT_EQ(location.freshLocation(window), expected);
    }
    const WindowHandle broken = windows.open(u"IEFrame"_qs, u"Page"_qs);
    chain(broken, {u"WorkerA"_qs, u"ReBarWindow32"_qs, u"ComboBox"_qs, u"Edit"_qs}, u"http://x"_qs);
    EXPECT_EQ(location.GetWindowLocation(broken), QString());
    EXPECT_EQ(shellWindows.queries + shellWindows.freshQueries, 0);
}

TEST_F(Location, OtherWindowsAreKnownByTheirProgram)
{
    processes.programs = {{42, QString::fromUtf16(u" /usr/bin/editor\0x", 18)}};
    EXPECT_EQ(location.GetWindowLocation(windows.open(u"WordPadClass"_qs, u"a"_qs, 42)),
              u"/usr/bin/editor"_qs);
    EXPECT_EQ(location.GetWindowLocation(windows.open(u"WordPadClass"_qs, u"a"_qs, 43)), QString());
    EXPECT_EQ(location.GetWindowLocation(4711), QString()) << "a window that has gone";
    EXPECT_EQ(location.GetClassText(4711), QString());
    EXPECT_EQ(location.GetWindowTitle(4711), QString());
}

TEST_F(Location, DocumentWindowsAndTrackedClasses)
{
    const auto isDocument = [&](const QString &className) {
        return location.IsDocumentWindow(windows.open(className, u"a"_qs));
    };
    for (const QString &className :
         {u"IEFrame"_qs, u"CabinetWClass"_qs, u"ExploreWClass"_qs, u"Afx:400000:b:147e:6:x"_qs,
          u"Afx:400000:b:10008:6"_qs, u"Afx:400000:b:10011:6"_qs})
        EXPECT_TRUE(isDocument(className)) << className.toStdString();
    for (const QString &className : {u"ieframe"_qs, u"Afx:400000:b:147e:7"_qs, u"Afx:400000:b:10008:"_qs})
        EXPECT_FALSE(isDocument(className)) << className.toStdString();

    settings.TrackedClasses = {u"IEFrame"_qs, u"OMain"_qs};
    EXPECT_TRUE(location.IsTrackedClass(u"my IEFRAME window"_qs));
    EXPECT_TRUE(location.IsTrackedClass(u"omain"_qs));
    EXPECT_FALSE(location.IsTrackedClass(u"IEFram"_qs));

    const WindowHandle longClass = windows.open(QString(60, u'c'), u"  title "_qs);
    EXPECT_EQ(location.GetClassText(longClass).size(), 49);
    EXPECT_EQ(location.GetWindowTitle(longClass), u"title"_qs);
}
