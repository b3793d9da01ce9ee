#include "NotesOnWindows.h"

#include <QImage>
#include <QRegularExpression>
#include <QUrl>
#include <QUrlQuery>

using namespace norvane::test;

namespace {

/// The pin, from the note's corner.
constexpr QPoint kPin(13, 12);
/// "Delete Note", from the menu's corner: the fourth row, each at least 22 pixels high.
constexpr QPoint kDeleteRow(60, 79);

/// The menu of a note, on a real window.
class NoteMenu : public NotesOnWindows
{
protected:
    /// An editor's window with a note that has a saved text.
    void openNote(const QString &text)
    {
        target = openEditor(kRight);
        ASSERT_TRUE(target != 0 && startNorvane());
        note = writeNote(target, text);
        ASSERT_NE(note, 0u);
    }

    xcb_window_t menu() { return x().menuOfProcess(m_norvane.process()->processId()); }

    /// Opens the note's menu by its pin. @return 0 if none came
    xcb_window_t openMenu()
    {
        x().click(x().geometry(note).topLeft() + kPin);
        waitFor([this] { return menu() != 0 && x().isViewable(menu()); });
        return menu();
    }

    /// Opens the menu and presses access keys, one after the other.
    bool choose(const QStringList &keys)
    {
        if (openMenu() == 0)
            return false;
        for (const QString &key : keys)
            x().press(key);
        return waitFor([this] { return menu() == 0; });
    }

    /// Types behind the text that is there, and waits until all of it shows.
    bool typeMore(const QString &text)
    {
        const bool shows = m_norvane.typeInto(note, text);
        m_norvane.settledPictureOf(note);
        return shows;
    }

    /// Answers a file dialog.
    bool giveName(const QString &title, const QString &path)
    {
        const xcb_window_t window = m_norvane.windowTitled(title);
        if (window == 0)
            return false;
        x().press(QStringLiteral("ctrl+a"));
        x().type(path);
        x().press(QStringLiteral("Return"));
        // What the dialog proposes while one types is a menu, too.
        return waitFor([&] { return (!x().exists(window) || !x().isViewable(window)) && menu() == 0; });
    }

    std::string noteText()
    {
        return m_norvane.query(QStringLiteral("select NoteText from Memos")).toStdString();
    }

    xcb_window_t target = 0;
    xcb_window_t note = 0;
};

TEST_F(NoteMenu, SavesAndCloses)
{
    ASSERT_NO_FATAL_FAILURE(openNote(QStringLiteral("one")));
    ASSERT_TRUE(typeMore(QStringLiteral(" two")));
    ASSERT_TRUE(choose({QStringLiteral("s")}));
    EXPECT_TRUE(waitFor([&] { return noteText() == "one two"; })) << noteText();

    ASSERT_TRUE(typeMore(QStringLiteral(" three")));
    // From no item, the key upwards goes to the last one, which closes.
    ASSERT_TRUE(choose({QStringLiteral("Up"), QStringLiteral("Return")}));
    EXPECT_TRUE(waitFor([&] { return !x().exists(note); }));
    EXPECT_EQ(noteText(), "one two three");
    EXPECT_EQ(m_norvane.query(QStringLiteral("select Active from Memos")).toStdString(), "0");
}

TEST_F(NoteMenu, DeletesAfterAsking)
{
    ASSERT_NO_FATAL_FAILURE(openNote(QStringLiteral("unwanted")));
    for (const QString &answer : {QStringLiteral("alt+n"), QStringLiteral("alt+y")}) {
        const xcb_window_t popup = openMenu();
        ASSERT_NE(popup, 0u);
        x().click(x().geometry(popup).topLeft() + kDeleteRow);
        const xcb_window_t question = m_norvane.windowTitled(QStringLiteral("Norvane"));
        ASSERT_NE(question, 0u);
        x().press(answer);
        ASSERT_TRUE(waitFor([&] { return !x().exists(question); }));
        if (answer == u"alt+n") {
            EXPECT_TRUE(stays(note, target));
            EXPECT_EQ(noteText(), "unwanted");
        }
    }
    EXPECT_TRUE(waitFor([&] { return !x().exists(note); }));
    EXPECT_EQ(m_norvane.query(QStringLiteral("select count(*) from Memos")).toStdString(), "0");
    EXPECT_TRUE(m_norvane.body(1).isEmpty());
    EXPECT_EQ(m_norvane.noteOn(target), 0u);
}

TEST_F(NoteMenu, SendsTheNoteByMail)
{
    ASSERT_NO_FATAL_FAILURE(openNote(QStringLiteral("sent")));
    ASSERT_TRUE(choose({QStringLiteral("m")}));
    const xcb_window_t notice = m_norvane.windowTitled(QStringLiteral("Norvane"));
    ASSERT_NE(notice, 0u) << "no mail program";
    x().press(QStringLiteral("Return"));
    ASSERT_TRUE(waitFor([&] { return !x().exists(notice); }));

    const QString applications = m_desktop.home() + QStringLiteral("/.local/share/applications");
    const QString program = m_desktop.home() + QStringLiteral("/mails");
    const QString given = m_desktop.home() + QStringLiteral("/given");
    const QByteArray script = "#!/bin/sh\nprintf '%s\\n' \"$#\" \"$@\" > '" + given.toLocal8Bit() +
                              ".new'\nmv '" + given.toLocal8Bit() + ".new' '" + given.toLocal8Bit() + "'\n";
    ASSERT_TRUE(QDir().mkpath(applications) && norvane::putBytes(program, script));
    QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    ASSERT_TRUE(norvane::putBytes(applications + QStringLiteral("/mails.desktop"),
                                  "[Desktop Entry]\nType=Application\nName=Mails\n"
                                  "MimeType=x-scheme-handler/mailto;\nExec=" +
                                      program.toLocal8Bit() + " %u\n"));
    ASSERT_TRUE(norvane::putBytes(m_desktop.home() + QStringLiteral("/.config/mimeapps.list"),
                                  "[Default Applications]\nx-scheme-handler/mailto=mails.desktop\n"));
    ASSERT_TRUE(m_norvane.bringToFront(target));
    const QString name = QStringLiteral("it''s \"100%\" \\t $HOME & more");
    m_norvane.query(QStringLiteral("update Memos set FriendlyName='%1'").arg(name));
    ASSERT_TRUE(choose({QStringLiteral("m")}));
    ASSERT_TRUE(waitFor([&] { return QFile::exists(given); }, 60000));
    const QStringList lines = QString::fromUtf8(norvane::bytesOf(given)).split(u'\n');
    ASSERT_EQ(lines.value(0).toStdString(), "1");
    const QUrlQuery mail{QUrl(lines.value(1))};
    const auto part = [&mail](const char *key) {
        return mail.queryItemValue(QString::fromLatin1(key), QUrl::FullyDecoded);
    };
    EXPECT_EQ(part("subject").toStdString(), "it's \"100%\" \\t $HOME & more");
    EXPECT_EQ(part("body").toStdString(),
              m_norvane.query(QStringLiteral("select URL from Memos")).toStdString());
    EXPECT_TRUE(part("attach").endsWith(QStringLiteral("/Norvane Note.rtf"))) << part("attach").toStdString();
    EXPECT_EQ(norvane::bytesOf(part("attach")), m_norvane.body(1));
}

TEST_F(NoteMenu, ExportsAndImportsDocuments)
{
    ASSERT_NO_FATAL_FAILURE(openNote(QStringLiteral("exported")));
    const QString folder = m_desktop.home() + QStringLiteral("/out");
    QDir().mkpath(folder);
    const QString rich = folder + QStringLiteral("/note.rtf");
    ASSERT_TRUE(choose({QStringLiteral("i"), QStringLiteral("e")}));
    ASSERT_TRUE(giveName(QStringLiteral("Save as"), rich));
    EXPECT_TRUE(waitFor([&] { return norvane::bytesOf(rich).contains("exported"); }));

    const QString plain = folder + QStringLiteral("/in.txt");
    ASSERT_TRUE(norvane::putBytes(plain, "imported text"));
    ASSERT_TRUE(choose({QStringLiteral("i"), QStringLiteral("i")}));
    ASSERT_TRUE(giveName(QStringLiteral("Open"), plain));
    ASSERT_TRUE(choose({QStringLiteral("s")}));
    EXPECT_TRUE(waitFor([&] { return noteText() == "imported text"; })) << noteText();
}

TEST_F(NoteMenu, CapturesItsWindow)
{
    ASSERT_NO_FATAL_FAILURE(openNote(QStringLiteral("See this:")));
    ASSERT_TRUE(m_norvane.bringToFront(target));
    const QRect frame = x().geometryInShadow(target);
    ASSERT_TRUE(choose({QStringLiteral("c"), QStringLiteral("w")}));
    ASSERT_TRUE(waitFor([&] { return m_norvane.noteOn(target) == note && x().activeWindow() == note; }));
    QByteArray body;
    ASSERT_TRUE(waitFor([&] {
        x().press(QStringLiteral("ctrl+s"));
        return waitFor([&] { return (body = m_norvane.body(1)).contains("\\pict"); }, 3000);
    }));

    // The picture in the body is the window without the note.
    const qsizetype begin = body.indexOf("\\pict");
    const qsizetype digits = body.indexOf('\n', begin);
    const QByteArray png = QByteArray::fromHex(body.mid(digits, body.indexOf('}', digits) - digits));
    QImage picture = QImage::fromData(png).convertToFormat(QImage::Format_RGB32);
    ASSERT_FALSE(picture.isNull());
    EXPECT_GE(picture.width(), frame.width());
    EXPECT_GE(picture.height(), frame.height());
    x().closeWindow(note);
    ASSERT_TRUE(waitFor([&] { return !x().exists(note); }));
    ASSERT_TRUE(m_norvane.bringToFront(target));
    // What the window manager puts around a window is in the picture, too.
    const QRect inside = frame - QMargins(10, 10, 10, 10);
    EXPECT_TRUE(waitFor([&] {
        const QImage screen = x().screenshot().convertToFormat(QImage::Format_RGB32).copy(inside);
        for (int down = 0; down <= picture.height() - frame.height(); ++down) {
            for (int right = 0; right <= picture.width() - frame.width(); ++right) {
                if (looksAlike(picture.copy(QRect(QPoint(10 + right, 10 + down), inside.size())), screen))
                    return true;
            }
        }
        return false;
    }));
}

TEST_F(NoteMenu, ATargetMayCloseUnderAMenuOrADialog)
{
    ASSERT_NO_FATAL_FAILURE(openNote(QStringLiteral("kept")));
    ASSERT_TRUE(typeMore(QStringLiteral(" and this")));
    ASSERT_NE(openMenu(), 0u);
    x().closeWindow(target);
    EXPECT_TRUE(waitFor([&] { return !x().exists(target) && !x().exists(note) && menu() == 0; }));
    EXPECT_EQ(noteText(), "kept and this");

    target = openEditor(kRight);
    ASSERT_TRUE(waitFor([&] { return (note = m_norvane.noteOn(target)) != 0; }));
    ASSERT_TRUE(typeMore(QStringLiteral(" More.")));
    ASSERT_TRUE(choose({QStringLiteral("i"), QStringLiteral("e")}));
    const xcb_window_t files = m_norvane.windowTitled(QStringLiteral("Save as"));
    ASSERT_NE(files, 0u);
    x().closeWindow(target);
    EXPECT_TRUE(waitFor([&] { return !x().exists(target) && !x().exists(note); }));
    EXPECT_NE(noteText().find("More."), std::string::npos);
    if (x().exists(files)) {
        x().press(QStringLiteral("Escape"));
        EXPECT_TRUE(waitFor([&] { return !x().exists(files); }));
    }
    EXPECT_TRUE(m_norvane.isRunning());
}

} // namespace
