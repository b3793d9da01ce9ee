#include "NotesOnWindows.h"
#include "harness/PageServer.h"
#include "harness/Programs.h"

#include <QFile>
#include <cstdio>

using namespace norvane;
using namespace norvane::test;
using namespace Qt::StringLiterals;

namespace {

const QRect kBrowserPlace(560, 40, 700, 820);
const QRect kFolderPlace(10, 40, 530, 420);
/// The first file in a folder's window, from its corner.
constexpr QPoint kFirstFile(205, 96);
/// Beside the files of the first row.
constexpr QPoint kBesideFiles(300, 320);
/// In the list of notes, from the corner of the browser's frame: below its first rows.
constexpr QPoint kInList(200, 360);
/// In the frame, below the browser's own window.
constexpr int kAboveFrameEdge = 60;

/// Files and links that are dragged from other programs on the note browser.
class Drops : public NotesOnWindows
{
protected:
    /// Nothing here asks for locations, and the bus for them loses keys on a busy machine.
    VirtualDesktop::Options desktopOptions() const override { return {.accessibility = false}; }

    bool openNorvane()
    {
        // Without a word about the bus for locations, which is off.
        if (!m_norvane.start({u"/NOIE"_s}) || !waitFor([this] { return m_norvane.isArmed(); }))
            return false;
        browser = openBrowser();
        const auto isThere = [&] { return x().geometry(browser).size() == kBrowserPlace.size(); };
        for (int attempt = 0; attempt < 5 && browser != 0; ++attempt) {
            // Just shown, the frame may still find its own place.
            x().moveResize(browser, kBrowserPlace);
            if (waitFor(isThere, 4000) && !waitFor([&] { return !isThere(); }, kSeveralTicksMs))
                return true;
        }
        return false;
    }
    /// A folder's window with the keyboard in it. @return 0 if it did not come
    xcb_window_t openFiles(const QList<QByteArray> &names)
    {
        const QString folder = m_desktop.home() + u"/in"_s;
        QDir().mkpath(folder);
        for (const QByteArray &name : names) {
            // Any bytes are a name, but not any bytes are a text.
            const QByteArray path = QFile::encodeName(folder) + '/' + name;
            std::FILE *file = std::fopen(path.constData(), "w");
            EXPECT_TRUE(file && std::fclose(file) == 0);
        }
        m_desktop.run(u"pcmanfm"_s, {folder});
        return window(u"in"_s, u"pcmanfm"_s, kFolderPlace);
    }
    /// The dialog for a new note, when it is the active window; else 0.
    xcb_window_t dialog()
    {
        const xcb_window_t window = x().activeWindow();
        return m_norvane.shownWindows().contains(window) && x().title(window) == u"New Note" ? window : 0;
    }
    /// Drags all files from a folder's window, again until a dialog comes: a program that is busy when the
    /// button is let go has not said yet that it takes them.
    bool dragFiles(xcb_window_t folder, const QPoint &to)
    {
        for (int attempt = 0; attempt < 5; ++attempt) {
            const QPoint corner = x().geometry(folder).topLeft();
            x().activate(folder);
            if (!waitFor([&] { return x().activeWindow() == folder; }))
                return false;
            x().click(corner + kBesideFiles);
            x().press(u"ctrl+a"_s);
            x().carry(corner + kFirstFile, to);
            x().button(1, false);
            if (waitFor([&] { return dialog() != 0; }, 8000))
                return true;
        }
        return false;
    }
    /// Checks that box of the dialog. "Active" has the same key.
    void applyToAll()
    {
        x().press(u"alt+a"_s);
        x().press(u"alt+a"_s);
        x().press(u" "_s);
    }
    bool isGone(xcb_window_t window)
    {
        return waitFor([&] { return !x().exists(window) || !x().isViewable(window); });
    }
    std::string notes() const
    {
        return m_norvane.query(u"select FriendlyName, URL, CAT_ID from Memos order by URL"_s).toStdString();
    }

    xcb_window_t browser = 0;
};

TEST_F(Drops, FilesBecomeNotesWithOneDialog)
{
    ASSERT_TRUE(openNorvane());
    const xcb_window_t folder = openFiles({"a b.txt", "b%41#.v2.txt", "c\nd.txt", "e\xe9.txt"});
    ASSERT_NE(folder, 0u);
    ASSERT_TRUE(dragFiles(folder, x().geometry(browser).topLeft() + kInList));
    const xcb_window_t first = dialog();
    EXPECT_TRUE(notes().empty());
    applyToAll();
    x().press(u"alt+o"_s);
    ASSERT_TRUE(isGone(first));
    const std::string in = m_desktop.home().toStdString() + "/in/";
    const std::string all = "a b|" + in + "a b.txt|0\nb%41#|" + in + "b%41#.v2.txt|0\nc\nd|" + in +
                            "c\nd.txt|0\ne\xef\xbf\xbd|file://" + in + "e%E9.txt|0";
    EXPECT_TRUE(waitFor([&] { return notes() == all; })) << notes();
    EXPECT_EQ(dialog(), 0u);
    EXPECT_TRUE(QFile::exists(QString::fromStdString(in) + u"a b.txt"_s)) << "a copy, not a move";

    // On the frame itself; one that is cancelled leaves nothing.
    const QRect frame = x().geometry(browser);
    ASSERT_TRUE(dragFiles(folder, QPoint(frame.center().x(), frame.bottom() - kAboveFrameEdge)));
    const xcb_window_t second = dialog();
    applyToAll();
    x().press(u"Escape"_s);
    ASSERT_TRUE(isGone(second));
    EXPECT_FALSE(waitFor([&] { return dialog() != 0; }, kSeveralTicksMs));
    EXPECT_EQ(notes(), all);
    std::remove((in + "e\xe9.txt").c_str()); // what clears the home folder away knows texts alone
}

TEST_F(Drops, ALinkOfAPageBecomesANote)
{
    PageServer pages;
    const QString address =
        pages.addPage(u"/links"_s, u"Links"_s, {},
                      u"document.body.innerHTML = '<a href=\"http://norvane.example/a%20b?c=d&amp;e#f\" "
                      "style=\"position:fixed;inset:0;font-size:90px\">link link link link link link</a>'"_s);
    ASSERT_TRUE(openNorvane());
    startFirefox(m_desktop, u"links"_s, {address});
    const xcb_window_t page = window(u"Links"_s, u"firefox"_s, QRect(10, 40, 530, 600));
    ASSERT_NE(page, 0u);
    x().activate(browser); // above
    const QPoint link = x().geometry(page).topLeft() + QPoint(90, 300);
    bool hasCome = false;
    for (int attempt = 0; attempt < 5 && !hasCome; ++attempt) {
        x().carry(link, x().geometry(browser).topLeft() + kInList);
        x().button(1, false);
        hasCome = waitFor([&] { return dialog() != 0; }, 8000);
    }
    ASSERT_TRUE(hasCome);
    const xcb_window_t shown = dialog();
    x().press(u"Return"_s);
    ASSERT_TRUE(isGone(shown));
    const std::string location = "http://norvane.example/a%20b?c=d&e#f";
    EXPECT_TRUE(waitFor([&] { return notes() == location + '|' + location + "|0"; })) << notes();
}

} // namespace
