#include "OptionsOnTheDesktop.h"

#include <algorithm>

using namespace norvane;
using namespace norvane::test;

namespace {

/// Notes of another database, imported by the windows of the whole program.
class ImportOnTheDesktop : public OptionsOnTheDesktop
{
protected:
    /// Presses a key until a window has come up. One that comes too early does nothing.
    bool pressFor(const QString &key, const QString &title)
    {
        for (int attempt = 0; attempt < 10; ++attempt) {
            x().press(key);
            if (waitFor([&] { return titled(title) != 0; }, 3000))
                return true;
        }
        return false;
    }
    /// From the options to the import window.
    void openImport(const QString &folder)
    {
        goTo(-3, 8);
        ASSERT_TRUE(pressFor(u"Return"_s, u"Select Norvane Database Folder:"_s));
        x().type(folder);
        // The first may be for the proposed names.
        ASSERT_TRUE(pressFor(u"Return"_s, u"Norvane Options"_s));
        ASSERT_TRUE(pressFor(u"alt+i"_s, u"Norvane Import"_s));
    }
    /// Selects all and imports; the box that tells of it is closed again.
    void importAll()
    {
        x().press(u"alt+s"_s);
        ASSERT_TRUE(pressFor(u"Return"_s, u"Norvane"_s));
        ASSERT_TRUE(pressFor(u"Return"_s, u"Norvane Import"_s));
    }
    static QStringList entriesOf(const QString &folder)
    {
        return QDir(folder).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
    }
    std::string names() const
    {
        return m_norvane.query(u"select FriendlyName from Memos order by ID"_s).toStdString();
    }
};

TEST_F(ImportOnTheDesktop, NotesOfAnotherDatabaseComeOnceAndToTheirWindows)
{
    // They were written with this program, in a folder that is elsewhere now.
    const xcb_window_t editor = openEditor(kRight);
    ASSERT_TRUE(editor != 0 && startNorvane());
    ASSERT_NE(writeNote(editor, u"Ask Ada for the plan."_s), 0u);
    ASSERT_TRUE(m_norvane.end());
    ASSERT_NE(m_norvane
                  .query(u"insert into Memos(ID, WindowName, FriendlyName, URL, Active, CAT_ID) "
                         "values (7, 'Ideas', 'Ideas', 'https://example.org/ideas', -1, 3);"
                         "select count(*) from Memos"_s)
                  .toInt(),
              1);
    const QByteArray body = m_norvane.body(1);
    ASSERT_FALSE(body.isEmpty());
    const QString other = m_desktop.home() + u"/other"_s;
    ASSERT_TRUE(QDir().rename(m_norvane.notesFolder(), other));
    const QStringList entries = entriesOf(other);
    const QByteArray source = bytesOf(other + u"/Norvane.DAT"_s);

    ASSERT_TRUE(startNorvane());
    EXPECT_EQ(names(), "");
    ASSERT_TRUE(openOptions());
    ASSERT_NO_FATAL_FAILURE(openImport(other));
    ASSERT_NO_FATAL_FAILURE(importAll());
    const std::string imported = names();
    EXPECT_EQ(std::count(imported.begin(), imported.end(), '\n'), 1) << imported;
    EXPECT_NE(imported.find("Ideas"), std::string::npos);
    EXPECT_TRUE(m_norvane.body(1) == body || m_norvane.body(2) == body);
    ASSERT_NO_FATAL_FAILURE(importAll());
    EXPECT_EQ(names(), imported) << "all of them bypassed";
    EXPECT_EQ(m_norvane.query(u"select CAT_ID from Memos where FriendlyName='Ideas'"_s).toStdString(), "3");
    EXPECT_EQ(entriesOf(other), entries);
    EXPECT_EQ(bytesOf(other + u"/Norvane.DAT"_s), source);

    x().press(u"Escape"_s);
    ASSERT_TRUE(becomesTitled(u"Norvane Options"_s));
    x().press(u"Escape"_s);
    ASSERT_TRUE(isClosed(u"Norvane Options"_s));
    EXPECT_TRUE(waitFor([&] { return m_norvane.noteOn(editor) != 0; })) << "an imported note on its window";
    EXPECT_TRUE(settings().contains(u"MRU1="_s + other + u'/'));
}

} // namespace
