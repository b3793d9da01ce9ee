#include "platform/linux/PosixFileSystem.h"
#include "platform/sqlite/database_file.h"
#include "store/note_database.h"
#include "unit/platform/dao_fixture.h"
#include "unit/platform/linux/in_child.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <csignal>
#include <ctime>
#include <sys/stat.h>

namespace norvane::dao {
namespace {

using namespace norvane::test;

constexpr int kNotes = 100;
constexpr qint64 kNanoseconds = 1'000'000'000;

/// From now on the process lives that long and no longer.
void limitLife(qint64 nanoseconds)
{
    sigevent kill{};
    kill.sigev_notify = SIGEV_SIGNAL;
    kill.sigev_signo = SIGKILL;
    timer_t timer{};
    const itimerspec once{.it_interval = {},
                          .it_value = {nanoseconds / kNanoseconds, nanoseconds % kNanoseconds}};
    if (timer_create(CLOCK_MONOTONIC, &kill, &timer) != 0 || timer_settime(timer, 0, &once, nullptr) != 0)
        ::_exit(1);
}

/// Processes of this program that rewrite the whole file, each killed at a moment somewhere between the
/// beginning of its work and the end.
class Kills : public DaoTest
{
protected:
    void SetUp() override
    {
        createNotes();
        const auto target = notes(u"false"_s);
        for (int i = 0; i < kNotes; ++i) {
            target->addNew();
            target->setField(u"WindowName"_s, QString::number(i));
            target->setField(u"URL"_s, u"note %1 "_s.arg(i).repeated(100));
            target->setField(u"CAT_ID"_s, 0);
            target->update();
        }
        m_texts = texts();
        database.reset();
    }

    /// Lets a process work until it is killed or over, again and again.
    /// @param work  of one process
    /// @param check after each; not whether the work was done, but whether all is whole
    void killAgainAndAgain(int kills, const std::function<void()> &work, const std::function<void()> &check)
    {
        double longest =
            0; // as long as the last one that was not killed; the machine may be busy now and then
        for (int round = 0; kills > 0 && round < 1000 && !HasFailure(); ++round) {
            const double life = QRandomGenerator::global()->generateDouble() * 1.2 * longest;
            QElapsedTimer time;
            time.start();
            const int result = inChild([&] {
                if (longest > 0)
                    limitLife(static_cast<qint64>(life) + 1);
                work();
                return 0;
            });
            ASSERT_TRUE(result == 0 || result == kKilled) << result;
            if (result == kKilled)
                --kills;
            else
                longest = static_cast<double>(time.nsecsElapsed());
            check();
        }
        EXPECT_EQ(kills, 0);
    }

    /// @return whether the file opens with the password; then it is whole
    bool isWholeWith(const QString &password)
    {
        const int error = errorOf([&] { database = open(password); });
        if (error != 0) {
            EXPECT_EQ(error, kErrorNotAPassword);
            return false;
        }
        EXPECT_EQ(texts(), m_texts);
        database.reset();
        checkIntegrity(file, password);
        return true;
    }
    /// What a kill has left beside the database goes with the next work.
    void expectNothingBeside() const
    {
        const QStringList there = QDir(folder.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
        EXPECT_EQ(there.join(u' '), u".Norvane.DAT.lock Norvane.DAT");
    }
    quint64 fileNumber() const
    {
        struct stat state = {};
        return stat(QFile::encodeName(file).constData(), &state) == 0 ? state.st_ino : 0;
    }

private:
    QStringList texts()
    {
        QStringList result;
        for (const auto set = rows(u"select ID,URL from Memos order by ID"_s); !set->eof(); set->moveNext())
            result.append(set->field(u"ID"_s).toString() + set->field(u"URL"_s).toString());
        return result;
    }

    QStringList m_texts;
};

TEST_F(Kills, DuringAChangeOfThePasswordLeaveTheOldOneOrTheNew)
{
    const QStringList passwords{QString(), u"first"_s, u"second"_s};
    QString now;
    QString next = passwords[1];
    int changed = 0;
    int kept = 0;
    killAgainAndAgain(
        100, [&] { open(now)->newPassword(now, next); },
        [&] {
            const bool isNew = isWholeWith(next);
            (isNew ? changed : kept) += 1;
            if (!isNew) {
                ASSERT_TRUE(isWholeWith(now));
                return;
            }
            now = next;
            next = passwords[(passwords.indexOf(now) + 1) % passwords.size()];
        });
    EXPECT_TRUE(changed > 0 && kept > 0) << changed << " " << kept;
    open(now)->newPassword(now, next);
    expectNothingBeside();
}

TEST_F(Kills, DuringCompactingLeaveItWhole)
{
    const QTemporaryDir program(fastFolder() + u"/norvane-dao-XXXXXX"_s);
    PosixFileSystem files;
    for (const auto &[password, kills] : {std::pair(QString(), 70), std::pair(u"secret"_s, 30)}) {
        if (!password.isEmpty())
            open()->newPassword({}, password);
        int replaced = 0;
        int kept = 0;
        const auto compact = [&] {
            if (!CompactNoteDatabase(*engine, files, file, program.path(), password))
                ::_exit(2);
        };
        quint64 before = fileNumber();
        killAgainAndAgain(kills, compact, [&] {
            EXPECT_TRUE(isWholeWith(password));
            (fileNumber() != before ? replaced : kept) += 1;
            before = fileNumber();
        });
        EXPECT_TRUE(replaced > 0 && kept > 0) << replaced << " " << kept;
        EXPECT_EQ(inChild([&] { return compact(), 0; }), 0);
        expectNothingBeside();
        EXPECT_TRUE(QDir(program.path()).isEmpty());
    }
}

} // namespace
} // namespace norvane::dao
