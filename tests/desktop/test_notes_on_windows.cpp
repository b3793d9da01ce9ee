#include "NotesOnWindows.h"

#include "harness/PageServer.h"
#include "harness/Programs.h"

using namespace norvane::test;

namespace {

TEST_F(NotesOnWindows, StayOnTheWorkspaceOfTheirTarget)
{
    const xcb_window_t folder = openFolder(QStringLiteral("letters"), kLeft);
    const xcb_window_t editor = openEditor(kRight);
    ASSERT_TRUE(folder != 0 && editor != 0 && startNorvane());
    xcb_window_t note = writeNote(editor, QStringLiteral("Second draft, ask Ada."));
    ASSERT_NE(note, 0u);
    const std::string place = text(m_norvane.placeIn(editor, note));

    // Its target is sent away.
    ASSERT_TRUE(m_norvane.bringToFront(folder));
    x().moveToDesktop(editor, 1);
    EXPECT_TRUE(waitFor([&] { return !x().isViewable(editor) && !x().isViewable(note); }));
    EXPECT_FALSE(waitFor([&] { return m_norvane.noteOn(editor) != 0; }, kSeveralTicksMs));
    EXPECT_EQ(m_norvane.hiddenNoteOn(editor), note);
    EXPECT_EQ(x().desktopOf(note), 1);
    EXPECT_EQ(x().currentDesktop(), 0);
    EXPECT_EQ(x().activeWindow(), folder);
    x().goToDesktop(1);
    EXPECT_TRUE(waitFor([&] { return m_norvane.noteOn(editor) == note; }));
    EXPECT_TRUE(stays(note, editor));
    EXPECT_EQ(text(m_norvane.placeIn(editor, note)), place);
    EXPECT_EQ(m_log->lifeOf(note).shown.size(), 1) << qPrintable(m_log->text(note));

    // It opens on a target that is away.
    x().goToDesktop(0);
    ASSERT_TRUE(waitFor([&] { return !x().isViewable(editor); }));
    ASSERT_TRUE(m_norvane.end());
    ASSERT_TRUE(m_norvane.bringToFront(folder));
    ASSERT_TRUE(startNorvane());
    ASSERT_TRUE(waitFor([&] { return m_norvane.hiddenNoteOn(editor) != 0; }));
    note = m_norvane.hiddenNoteOn(editor);
    EXPECT_FALSE(waitFor([&] { return m_norvane.noteOn(editor) != 0; }, kSeveralTicksMs));
    EXPECT_EQ(m_log->lifeOf(note).maps, 0) << qPrintable(m_log->text(note));
    EXPECT_EQ(x().desktopOf(note), 1);
    EXPECT_EQ(x().currentDesktop(), 0);
    EXPECT_EQ(x().activeWindow(), folder);
    x().goToDesktop(1);
    EXPECT_TRUE(waitFor([&] { return m_norvane.noteOn(editor) == note; }));
    EXPECT_TRUE(stays(note, editor));
    EXPECT_EQ(text(m_norvane.placeIn(editor, note)), place);
    EXPECT_EQ(m_log->lifeOf(note).shown.size(), 1) << qPrintable(m_log->text(note));
    EXPECT_EQ(x().desktopOf(editor), 1);
}

struct Browser
{
    const char *name;
    QProcess *(*start)(VirtualDesktop &, const QString &, const QStringList &);
};

void PrintTo(const Browser &browser, std::ostream *out)
{
    *out << browser.name;
}

class NotesInBrowser : public NotesOnWindows, public testing::WithParamInterface<Browser>
{
protected:
    /// Two pages, neither address inside the other, that go on by a key. @return the first's address
    QString addPages()
    {
        const QString keys =
            QStringLiteral("addEventListener('keydown', event => {"
                           " if (event.key === '1') location = '/reading';"
                           " if (event.key === '2') location = '/garden';"
                           " if (event.key === 'w' && !window.other)"
                           " window.other = open('/garden', '_blank', 'width=600,height=500');"
                           "});");
        m_pages.addPage(QStringLiteral("/garden"), QStringLiteral("Garden plan"),
                        QStringLiteral("Beds, seeds and dates."), keys);
        return m_pages.addPage(QStringLiteral("/reading"), QStringLiteral("Reading list"),
                               QStringLiteral("Books for the autumn."), keys);
    }

    /// Presses a key in a page, again if the browser has lost it, until something is seen.
    bool pressUntil(xcb_window_t window, const QString &key, const std::function<bool()> &seen)
    {
        for (int attempt = 0; attempt < 10; ++attempt) {
            if (!m_norvane.bringToFront(window))
                return false;
            x().press(key);
            if (waitFor(seen, 3000))
                return true;
        }
        return false;
    }

    /// Goes from one page's note to the other's and looks at what the screen showed meanwhile.
    void changePage(xcb_window_t window, const QString &key, const QString &title)
    {
        const xcb_window_t old = m_norvane.noteOn(window);
        ASSERT_NE(old, 0u);
        ASSERT_TRUE(pressUntil(window, key, [&] { return x().title(window).contains(title); }));
        xcb_window_t note = 0;
        ASSERT_TRUE(waitFor([&] {
            note = m_norvane.noteOn(window);
            return note != 0 && note != old;
        }));
        EXPECT_TRUE(stays(note, window));

        const WindowLog::Life gone = m_log->lifeOf(old);
        EXPECT_EQ(gone.maps, gone.unmaps) << qPrintable(m_log->text(old));
        EXPECT_FALSE(x().exists(old));
        // Once, whole, and where it belongs from the first moment.
        const WindowLog::Life come = m_log->lifeOf(note);
        SCOPED_TRACE(m_log->text(note).toStdString());
        EXPECT_EQ(come.maps, 1);
        EXPECT_EQ(come.unmaps, 0);
        EXPECT_EQ(text(come.asked), text(x().geometry(note)));
        ASSERT_EQ(come.shown.size(), 1);
        EXPECT_EQ(text(come.shown.first()), text(x().geometry(note)));
    }

    PageServer m_pages;
};

TEST_P(NotesInBrowser, EachWindowOfOneProcessHasItsPagesOwn)
{
    GetParam().start(m_desktop, QStringLiteral("main"), {addPages()});
    const xcb_window_t reading =
        window(QStringLiteral("Reading list"), QString::fromLatin1(GetParam().name), kLeft);
    ASSERT_NE(reading, 0u);
    ASSERT_TRUE(pressUntil(reading, QStringLiteral("w"),
                           [&] { return x().findClient(QStringLiteral("Garden plan")) != 0; }));
    const xcb_window_t garden =
        window(QStringLiteral("Garden plan"), QString::fromLatin1(GetParam().name), kRight);
    ASSERT_NE(garden, 0u);
    ASSERT_NE(garden, reading);
    ASSERT_EQ(x().processId(garden), x().processId(reading));
    ASSERT_TRUE(startNorvane());

    const xcb_window_t first = writeNote(reading, QStringLiteral("Which of these at Ada's?"));
    const xcb_window_t second = writeNote(garden, QStringLiteral("Beans before May."));
    ASSERT_TRUE(first != 0 && second != 0);
    EXPECT_EQ(m_norvane.noteOn(reading), first);
    EXPECT_TRUE(isInside(first, reading));
    EXPECT_TRUE(isInside(second, garden));
    EXPECT_EQ(texts(), "1|Which of these at Ada's?\n2|Beans before May.");
    EXPECT_EQ(m_norvane.query(QStringLiteral("select count(distinct URL) from Memos")).toInt(), 2);
    EXPECT_TRUE(m_norvane.drag(second, {90, 120}));
    const std::string place = text(m_norvane.placeIn(garden, second));

    x().closeWindow(garden);
    EXPECT_TRUE(waitFor([&] { return !x().exists(garden) && !x().exists(second); }));
    EXPECT_TRUE(stays(first, reading));

    // The second page in the first window.
    ASSERT_NO_FATAL_FAILURE(changePage(reading, QStringLiteral("2"), QStringLiteral("Garden plan")));
    EXPECT_EQ(text(m_norvane.placeIn(reading, m_norvane.noteOn(reading))), place);
    ASSERT_NO_FATAL_FAILURE(changePage(reading, QStringLiteral("1"), QStringLiteral("Reading list")));
}

INSTANTIATE_TEST_SUITE_P(Programs, NotesInBrowser,
                         testing::Values(Browser{"Firefox", startFirefox},
                                         Browser{"Chromium", startChromium}),
                         [](const auto &program) { return std::string(program.param.name); });

} // namespace
