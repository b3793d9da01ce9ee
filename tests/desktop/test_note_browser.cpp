#include "NotesOnWindows.h"

#include "harness/PageServer.h"
#include "harness/Programs.h"

using namespace norvane::test;

namespace {

/// More pixels than a text cursor that stands in one picture of two, and less than a word.
constexpr int kCursorPixels = 60;
/// Pixels of paper, of the 85,000 of a new note with its tool bar.
constexpr int kMostOfANote = 40000;
/// Fewer pixels than an editor covers, more than a preview.
constexpr int kEditorPixels = 20000;

/// The note browser of the whole program, driven by its keys.
class NoteBrowser : public NotesOnWindows
{
protected:
    /// Presses a key for a dialog, again if a window that has just got the keyboard has missed it.
    /// @return 0 if none came
    xcb_window_t dialogBy(const QString &key, const QString &title)
    {
        xcb_window_t dialog = 0;
        for (int attempt = 0; attempt < 5 && dialog == 0; ++attempt) {
            x().press(key);
            waitFor(
                [&] {
                    dialog = active(title);
                    return dialog != 0;
                },
                4000);
        }
        return dialog;
    }

    qint64 paperPixels(xcb_window_t note, const QColor &color) const
    {
        const QImage picture = m_norvane.pictureOf(note);
        QImage plain = picture;
        plain.fill(color);
        return static_cast<qint64>(picture.width()) * picture.height() - differentPixels(picture, plain);
    }

    bool isGone(xcb_window_t window)
    {
        return waitFor([&] { return !x().exists(window) || !x().isViewable(window); });
    }

    std::string column(const QString &name) const
    {
        return m_norvane.query(QStringLiteral("select %1 from Memos order by ID").arg(name)).toStdString();
    }
    bool becomes(const QString &name, const std::string &value)
    {
        return waitFor([&] { return column(name) == value; });
    }
};

TEST_F(NoteBrowser, ChangesANoteThatIsOnTheScreen)
{
    const xcb_window_t editor = openEditor(kRight);
    ASSERT_TRUE(editor != 0 && startNorvane());
    xcb_window_t note = writeNote(editor, QStringLiteral("Second draft, ask Ada."));
    ASSERT_NE(note, 0u);
    const QPoint place = m_norvane.placeIn(editor, note).topLeft();
    const xcb_window_t browser = openBrowser();
    ASSERT_NE(browser, 0u);

    // Off and on again.
    x().press(QStringLiteral("alt+a"));
    EXPECT_TRUE(isGone(note));
    EXPECT_TRUE(becomes(QStringLiteral("Active"), "0"));
    x().press(QStringLiteral("alt+a"));
    ASSERT_TRUE(waitFor([&] { return m_norvane.noteOn(editor) != 0; }));
    note = m_norvane.noteOn(editor);

    // Its tool bar, its colour and its place.
    ASSERT_TRUE(waitFor([&] { return x().activeWindow() == browser; }));
    const xcb_window_t properties = dialogBy(QStringLiteral("alt+p"), QStringLiteral("Properties - "));
    ASSERT_NE(properties, 0u);
    x().press(QStringLiteral("alt+r")); // the page of its appearance
    x().press(QStringLiteral("alt+s"));
    x().press(QStringLiteral("shift+Tab"));
    const xcb_window_t colors = dialogBy(QStringLiteral(" "), QStringLiteral("Select Color"));
    ASSERT_NE(colors, 0u);
    x().press(QStringLiteral("alt+h"));
    x().type(QStringLiteral("#ff8040"));
    x().press(QStringLiteral("Return"));
    EXPECT_TRUE(isGone(colors));
    ASSERT_TRUE(waitFor([&] { return x().activeWindow() == properties; }));
    x().press(QStringLiteral("Tab"));
    x().press(QStringLiteral("Tab")); // the first of the places
    for (int step = 0; step < 5; ++step)
        x().press(QStringLiteral("Down"));
    x().press(QStringLiteral("alt+y")); // apply
    EXPECT_TRUE(becomes(QStringLiteral("ShowToolbar <> 0, FormPosition, BackColor"), "1|5|4227327"))
        << column(QStringLiteral("ShowToolbar, FormPosition, BackColor"));
    EXPECT_TRUE(waitFor([&] { return m_norvane.placeIn(editor, note).topLeft() != place; }))
        << "it moves where it stands";
    x().press(QStringLiteral("Escape"));
    EXPECT_TRUE(isGone(properties));
    ASSERT_TRUE(m_norvane.bringToFront(editor)); // the browser covers it
    EXPECT_TRUE(waitFor([&] { return paperPixels(note, QColor(0xff, 0x80, 0x40)) > kMostOfANote; }));
    ASSERT_TRUE(m_norvane.bringToFront(browser));

    // Gone: window, row and file.
    ASSERT_TRUE(waitFor([&] { return x().activeWindow() == browser; }));
    const QString body = m_norvane.notesFolder() + QStringLiteral("/Norvane_00000001");
    EXPECT_TRUE(QFile::exists(body));
    ASSERT_NE(dialogBy(QStringLiteral("Delete"), QStringLiteral("Delete Note")), 0u);
    x().press(QStringLiteral("alt+y"));
    EXPECT_TRUE(isGone(note));
    EXPECT_TRUE(becomes(QStringLiteral("ID"), ""));
    EXPECT_TRUE(waitFor([&] { return !QFile::exists(body); }));
}

TEST_F(NoteBrowser, EditsANoteBesideItsPreviewAndOpensItsPage)
{
    PageServer pages;
    const QString address = pages.addPage(QStringLiteral("/reading"), QStringLiteral("Reading list"),
                                          QStringLiteral("Books for the autumn."));
    ASSERT_TRUE(startNorvane());
    const xcb_window_t browser = openBrowser();
    ASSERT_NE(browser, 0u);
    const xcb_window_t newNote = dialogBy(QStringLiteral("Insert"), QStringLiteral("New Note"));
    ASSERT_NE(newNote, 0u);
    x().type(QStringLiteral("Books"));
    x().press(QStringLiteral("Tab"));
    x().type(address);
    x().press(QStringLiteral("Return"));
    ASSERT_TRUE(isGone(newNote));
    EXPECT_EQ(column(QStringLiteral("FriendlyName, URL")), "Books|" + address.toStdString());

    ASSERT_TRUE(waitFor([&] { return x().activeWindow() == browser; }));
    const QImage empty = m_norvane.settledPictureOf(browser);
    x().press(QStringLiteral("Menu"));
    ASSERT_TRUE(waitFor([&] {
        const xcb_window_t menu = x().menuOfProcess(m_norvane.process()->processId());
        return menu != 0 && x().isViewable(menu);
    }));
    x().press(QStringLiteral("e"));
    ASSERT_TRUE(waitFor([&] { return differentPixels(m_norvane.pictureOf(browser), empty) > 20000; }));
    // An editor that has just come up may not have the keyboard yet: keys that get lost are typed again.
    ASSERT_TRUE(waitFor([&] {
        x().type(QStringLiteral("Which at Ada's? "));
        x().press(QStringLiteral("ctrl+s"));
        return waitFor(
            [&] { return column(QStringLiteral("NoteText")).find("Which at Ada's?") != std::string::npos; },
            3000);
    }));
    EXPECT_TRUE(waitFor([&] { return m_norvane.body(1).contains("Which at Ada"); }));
    x().press(QStringLiteral("ctrl+w"));
    // Behind the editor the preview shows what was written.
    EXPECT_TRUE(waitFor([&] {
        const qint64 changed = differentPixels(m_norvane.pictureOf(browser), empty);
        return changed > kCursorPixels && changed < kEditorPixels;
    }));

    ASSERT_TRUE(makeFirefoxTheBrowser(m_desktop, QStringLiteral("reader")));
    x().press(QStringLiteral("Return"));
    EXPECT_TRUE(waitFor([&] { return x().findClient(QStringLiteral("Reading list")) != 0; }, 60000));
}

} // namespace
