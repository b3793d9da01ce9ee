#include "faults/NoteFaults.h"

#include <QFile>
#include <QRandomGenerator>
#include <QStringList>
#include <QTimer>
#include <csignal>

using namespace norvane::test;

namespace {

constexpr int kRounds = 15;
/// A round's kill comes within this time after its first save; milliseconds.
constexpr int kLatestKill = 500;

using Kills = FaultsAroundLetters;

/// Types words into the note that has the keyboard and saves each.
class Typist
{
public:
    Typist(VirtualDesktop &desktop, const RunningNorvane &norvane) : m_desktop(desktop), m_norvane(norvane) {}

    /// @return whether the save was seen to be over: the body is the last thing written
    bool typeAndSave()
    {
        const QString word = QStringLiteral("word%1.").arg(written.size() + 1);
        written.append(word);
        m_desktop.x().type(word);
        m_desktop.x().press(QStringLiteral("ctrl+s"));
        const auto isSaved = [&] { return m_norvane.body(1).contains(word.toLatin1()); };
        waitFor([&] { return isSaved() || !m_norvane.isRunning(); });
        if (!isSaved())
            return false;
        saved.append(word);
        return true;
    }

    QStringList written;
    QStringList saved;

private:
    VirtualDesktop &m_desktop;
    const RunningNorvane &m_norvane;
};

TEST_F(Kills, LoseNoSaveThatWasOver)
{
    Typist typist(desktop, norvane);
    int journals = 0;
    int rowsAhead = 0;
    for (int round = 1; round <= kRounds; ++round) {
        SCOPED_TRACE(round);
        ASSERT_TRUE(arm(norvane)) << qPrintable(norvane.errorOutput());
        const xcb_window_t note = round == 1 ? norvane.attach(window) : noteThatComesTo(window);
        ASSERT_NE(note, 0u);
        ASSERT_TRUE(append(note, QStringLiteral(" ")));
        ASSERT_TRUE(typist.typeAndSave());

        const auto process = static_cast<pid_t>(norvane.process()->processId());
        QTimer::singleShot(QRandomGenerator::global()->bounded(kLatestKill),
                           [process] { ::kill(process, SIGKILL); });
        while (norvane.isRunning())
            typist.typeAndSave();

        const DatabaseCopy database(norvane);
        EXPECT_TRUE(database.isWhole());
        const QString row = database.query(QStringLiteral("select NoteText from Memos where ID=1"));
        const QByteArray body = norvane.body(1);
        EXPECT_TRUE(isWholeRtf(body)) << body.constData();
        for (const QString &word : std::as_const(typist.saved)) {
            EXPECT_TRUE(row.contains(word)) << qPrintable(word) << " in " << qPrintable(row);
            EXPECT_TRUE(body.contains(word.toLatin1())) << qPrintable(word) << body.constData();
        }
        const QString last = typist.written.constLast();
        journals += QFile::exists(norvane.databaseFile() + QStringLiteral("-journal")) ? 1 : 0;
        rowsAhead += row.contains(last) && !body.contains(last.toLatin1()) ? 1 : 0;
    }
    tellFigure("saves", static_cast<double>(typist.saved.size()));
    tellFigure("killsInTheRow", journals);
    tellFigure("killsBetweenRowAndBody", rowsAhead);

    ASSERT_TRUE(arm(norvane));
    ASSERT_NE(noteThatComesTo(window), 0u);
    EXPECT_TRUE(norvane.end()) << qPrintable(norvane.errorOutput());
}

} // namespace
