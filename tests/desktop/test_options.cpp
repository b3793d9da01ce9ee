#include "OptionsOnTheDesktop.h"

using namespace norvane;
using namespace norvane::test;

namespace {

TEST_F(OptionsOnTheDesktop, AnotherKeyAttachesAndAnotherProgramIsTracked)
{
    m_desktop.run(u"xmessage"_s, {u"-title"_s, u"Reminder"_s, u"An old program."_s});
    const xcb_window_t message = window(u"Reminder"_s, u"xmessage"_s, kLeft);
    const xcb_window_t editor = openEditor(kRight);
    ASSERT_TRUE(message != 0 && editor != 0 && startNorvane());

    ASSERT_TRUE(openOptions());
    EXPECT_FALSE(x().isTaken(u"ctrl+alt+a"_s)) << "withdrawn while the window is open";
    goTo(-1, 3);
    x().press(u"ctrl+alt+n"_s);
    x().press(u"Return"_s);
    ASSERT_TRUE(isClosed(u"Norvane Options"_s));
    EXPECT_TRUE(waitFor([&] { return x().isTaken(u"ctrl+alt+n"_s); }));
    EXPECT_FALSE(x().isTaken(u"ctrl+alt+a"_s));
    EXPECT_TRUE(waitFor([&] { return settings().contains(u"Attach.1=78"_s); }));

    const auto attachByNewKey = [&](xcb_window_t target) {
        if (!m_norvane.bringToFront(target))
            return false;
        for (int attempt = 0; attempt < 5 && m_norvane.noteOn(target) == 0; ++attempt) {
            x().press(u"ctrl+alt+n"_s);
            waitFor([&] { return m_norvane.noteOn(target) != 0; }, 4000);
        }
        return m_norvane.noteOn(target) != 0;
    };
    EXPECT_TRUE(attachByNewKey(editor));
    ASSERT_TRUE(m_norvane.bringToFront(message));
    x().press(u"ctrl+alt+n"_s);
    EXPECT_FALSE(waitFor([&] { return m_norvane.noteOn(message) != 0; }, kSeveralTicksMs));

    ASSERT_TRUE(openOptions());
    goTo(1, 3);
    x().type(u"xmessage"_s);
    x().press(u"Return"_s);
    EXPECT_TRUE(waitFor([&] { return settings().contains(u"01=xmessage"_s); }));
    x().press(u"Escape"_s);
    ASSERT_TRUE(isClosed(u"Norvane Options"_s));
    EXPECT_TRUE(attachByNewKey(message));
}

TEST_F(OptionsOnTheDesktop, APasswordLocksTheDatabase)
{
    const xcb_window_t editor = openEditor(kRight);
    ASSERT_TRUE(editor != 0 && startNorvane());
    ASSERT_NE(writeNote(editor, u"Secret recipe of aunt Ada."_s), 0u);
    EXPECT_TRUE(bytesOf(m_norvane.databaseFile()).contains("Secret recipe"));

    ASSERT_TRUE(openOptions());
    goTo(-3, 11);
    x().type(u"sesame"_s);
    x().press(u"Tab"_s);
    x().type(u"sesame"_s);
    x().press(u"Return"_s);
    ASSERT_TRUE(becomesTitled(u"Norvane"_s)) << "told";
    x().press(u"Return"_s);
    ASSERT_TRUE(becomesTitled(u"Norvane Options"_s));
    x().press(u"Escape"_s);
    ASSERT_TRUE(isClosed(u"Norvane Options"_s));
    ASSERT_TRUE(m_norvane.end());
    const QByteArray locked = bytesOf(m_norvane.databaseFile());
    EXPECT_FALSE(locked.startsWith("SQLite format") || locked.contains("Secret recipe") ||
                 locked.contains("FriendlyName") || locked.contains("draft.txt"));
    EXPECT_TRUE(m_norvane.query(u"select count(*) from Memos"_s).contains(u"not a database"_s));

    // Not without it.
    ASSERT_TRUE(m_norvane.start());
    ASSERT_TRUE(becomesTitled(u"Norvane Password"_s));
    x().type(u"open"_s);
    x().press(u"Return"_s);
    ASSERT_TRUE(becomesTitled(u"Norvane Security"_s));
    x().press(u"Return"_s);
    ASSERT_TRUE(becomesTitled(u"Norvane Password"_s));
    x().press(u"Escape"_s);
    ASSERT_TRUE(becomesTitled(u"Norvane Internal Error"_s));
    x().press(u"Return"_s);
    EXPECT_TRUE(waitFor([&] { return !m_norvane.isRunning(); }));
    EXPECT_EQ(bytesOf(m_norvane.databaseFile()), locked);

    ASSERT_TRUE(m_norvane.start());
    ASSERT_TRUE(becomesTitled(u"Norvane Password"_s));
    x().type(u"sesame"_s);
    x().press(u"Return"_s);
    ASSERT_TRUE(waitFor([&] { return m_norvane.isArmed(); }));
    EXPECT_TRUE(waitFor([&] { return m_norvane.noteOn(editor) != 0; })) << "its note is back";
}

} // namespace
