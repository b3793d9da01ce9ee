#include "faults/NoteFaults.h"
#include "faults/NotificationService.h"

#include <QDir>
#include <QFile>
#include <QUrl>
#include <sys/resource.h>

using namespace norvane::test;

namespace {

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// What becomes of a note's files.
class Bodies : public NoteFaults
{
protected:
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(startPlainDesktop());
        ASSERT_TRUE(other.start());
        window = other.open("Letters");
        ASSERT_NE(window, 0u);
    }

    OtherProgram other{desktop, QStringLiteral("letters")};
    xcb_window_t window = 0;
};

/// Files of a process cannot grow beyond a number of bytes: to the process a full disk.
bool limitFiles(qint64 process, rlim_t bytes)
{
    const rlimit limit = {bytes, RLIM_INFINITY};
    return ::prlimit(static_cast<pid_t>(process), RLIMIT_FSIZE, &limit, nullptr) == 0;
}

TEST_F(Bodies, AFullDiskHarmsNoFileAndLosesNoText)
{
    const QString bus = desktop.environment().value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"));
    NotificationService notifications(bus);
    ASSERT_TRUE(notifications.isThere());
    // A disk that is full sends no signal, as the limit would.
    RunningNorvane limited(desktop, QStringLiteral("env"));
    ASSERT_TRUE(arm(limited, {QStringLiteral("--ignore-signal=XFSZ"), QStringLiteral(NORVANE_PROGRAM)}));
    const qint64 process = limited.process()->processId();
    const xcb_window_t note = limited.attach(window);
    ASSERT_NE(note, 0u);
    ASSERT_TRUE(append(note, QStringLiteral("First.")));
    desktop.x().press(QStringLiteral("ctrl+s"));
    ASSERT_TRUE(waitFor([&] { return limited.body(1).contains("First."); }));
    const QByteArray body = limited.body(1);
    const QByteArray database = bytesOf(limited.databaseFile());

    // A save that fails, and one that goes well when there is room again: the note had stayed dirty.
    ASSERT_TRUE(limitFiles(process, 0));
    ASSERT_TRUE(append(note, QStringLiteral(" Second.")));
    desktop.x().press(QStringLiteral("ctrl+s"));
    ASSERT_TRUE(append(note, QStringLiteral(" Third."))); // what shows came after the save
    EXPECT_EQ(limited.body(1), body);
    EXPECT_EQ(bytesOf(limited.databaseFile()), database);
    ASSERT_TRUE(limitFiles(process, RLIM_INFINITY));
    desktop.x().press(QStringLiteral("ctrl+s"));
    EXPECT_TRUE(waitFor([&] { return limited.body(1).contains("First. Second. Third."); }));
    EXPECT_EQ(limited.query(QStringLiteral("select NoteText from Memos")).toStdString(),
              "First. Second. Third.");

    // The window goes while there is no room for the database: the text is in a file of its own.
    const QByteArray saved = limited.body(1);
    ASSERT_TRUE(append(note, QStringLiteral(" Fourth.")));
    constexpr rlim_t kRoomForSmallFiles = 3000;
    ASSERT_TRUE(limitFiles(process, kRoomForSmallFiles));
    other.close(window);
    ASSERT_TRUE(waitFor([&] { return !desktop.x().exists(note); }));
    const QDir rescued(limited.notesFolder() + QStringLiteral("/Rescued"));
    ASSERT_TRUE(waitFor([&] { return !notifications.texts().isEmpty(); }));
    const QStringList files = rescued.entryList(QDir::Files);
    ASSERT_EQ(files.size(), 1) << qPrintable(notifications.texts().join(u'\n'));
    const QByteArray rescue = bytesOf(rescued.filePath(files.constFirst()));
    EXPECT_TRUE(isWholeRtf(rescue));
    EXPECT_TRUE(rescue.contains("First. Second. Third. Fourth.")) << rescue.constData();
    EXPECT_TRUE(notifications.texts().constFirst().contains(rescued.path()));
    EXPECT_EQ(limited.body(1), saved);
    EXPECT_TRUE(DatabaseCopy(limited).isWhole());

    // No room at all: that is told too, each time.
    ASSERT_TRUE(limitFiles(process, RLIM_INFINITY));
    window = other.open("Letters");
    ASSERT_TRUE(waitFor([&] { return limited.noteOn(window) != 0; }));
    const xcb_window_t again = limited.noteOn(window);
    ASSERT_TRUE(append(again, QStringLiteral(" Lost.")));
    ASSERT_TRUE(limitFiles(process, 0));
    other.close(window);
    ASSERT_TRUE(waitFor([&] { return notifications.texts().size() == 2; }));
    EXPECT_TRUE(notifications.texts().constLast().contains(QStringLiteral("its last changes are lost")));
    ASSERT_TRUE(limitFiles(process, RLIM_INFINITY));
    EXPECT_EQ(limited.body(1), saved);
    EXPECT_TRUE(DatabaseCopy(limited).isWhole());
    EXPECT_TRUE(limited.end()) << qPrintable(limited.errorOutput());
}

TEST_F(Bodies, AnOfficeReadsTheTextThatWasTyped)
{
    // What a keyboard of this desktop has not comes from a body that is there already.
    const QString written = QStringLiteral("Grüße, 你好, שלום \U0001F600 {and} \\braces\n");
    const QString typed = QStringLiteral("100% \\o/ {x} #1 \"quoted\" & 'more'\nLast line.");
    ASSERT_TRUE(arm(norvane));
    ASSERT_NE(norvane.attach(window), 0u);
    other.close(window);
    QByteArray rtf = "{\\rtf1\\ansi\\uc1 ";
    for (const QChar unit : written) {
        if (unit == u'\n')
            rtf += "\\par ";
        else if (unit == u'{' || unit == u'}' || unit == u'\\')
            rtf += '\\' + QByteArray(1, unit.toLatin1());
        else
            rtf += "\\u" + QByteArray::number(static_cast<qint16>(unit.unicode())) + '?';
    }
    QFile body(norvane.notesFolder() + QStringLiteral("/Norvane_00000001"));
    ASSERT_TRUE(body.open(QIODevice::WriteOnly));
    body.write(rtf + "\\par }");
    body.close();

    window = other.open("Letters");
    const xcb_window_t note = noteThatComesTo(window);
    ASSERT_NE(note, 0u);
    ASSERT_TRUE(append(note, typed));
    desktop.x().press(QStringLiteral("ctrl+s"));
    ASSERT_TRUE(waitFor([&] { return norvane.body(1).contains("Last line."); }));
    EXPECT_EQ(norvane.query(QStringLiteral("select NoteText from Memos")).remove(u'\r').toStdString(),
              (written + typed).toStdString());

    const QString copy = desktop.home() + QStringLiteral("/body.rtf");
    ASSERT_TRUE(QFile::copy(body.fileName(), copy));
    const QUrl profile = QUrl::fromLocalFile(desktop.home() + QStringLiteral("/office"));
    QProcess *office =
        desktop.run(QStringLiteral("soffice"), {QStringLiteral("-env:UserInstallation=") + profile.toString(),
                                                QStringLiteral("--headless"), QStringLiteral("--convert-to"),
                                                QStringLiteral("txt:Text (encoded):UTF8"),
                                                QStringLiteral("--outdir"), desktop.home(), copy});
    ASSERT_NE(office, nullptr);
    ASSERT_TRUE(waitFor([&] { return office->state() == QProcess::NotRunning; }, 180000));
    QString found = QString::fromUtf8(bytesOf(desktop.home() + QStringLiteral("/body.txt")));
    found.remove(QChar::ByteOrderMark).remove(u'\r');
    EXPECT_EQ(found.trimmed().toStdString(), (written + typed).toStdString());
    EXPECT_TRUE(norvane.end()) << qPrintable(norvane.errorOutput());
}

} // namespace
