#include "platform/linux/PosixFileSystem.h"
#include "platform/sqlite/database_file.h"
#include "store/note_database.h"
#include "unit/platform/dao_fixture.h"
#include "unit/platform/linux/in_child.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <csignal>
#include <ctime>

namespace norvane::dao {
namespace {

using namespace norvane::test;

constexpr int kNotes = 400;
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
        QElapsedTimer time;
        time.start();
        ASSERT_EQ(inChild([&] { return work(), 0; }), 0);
        const qint64 wholeWork = time.nsecsElapsed();
        check();
        for (int round = 0; kills > 0 && round < 1000 && !HasFailure(); ++round) {
            // Longer than the work took at first: the machine may be busy now.
            const auto life = static_cast<qint64>(QRandomGenerator::global()->generateDouble() * 1.5 *
                                                  static_cast<double>(wholeWork));
            const int result = inChild([&] {
                limitLife(std::max<qint64>(life, 1));
                work();
                return 0;
            });
            ASSERT_TRUE(result == 0 || result == kKilled) << result;
            kills -= result == kKilled ? 1 : 0;
            check();
        }
        EXPECT_EQ(kills, 0);
    }

    bool opensWith(const QString &password) { return PasswordIsValid(*engine, file, password); }
    void expectWhole(const QString &password)
    {
        database = open(password);
        EXPECT_EQ(texts(), m_texts);
        database.reset();
        checkIntegrity(file, password);
    }
    /// The files of the database's folder; what a kill has left lying there goes with the next work.
    QStringList filesThere() const { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden); }

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
        130, [&] { open(now)->newPassword(now, next); },
        [&] {
            const bool isNew = opensWith(next);
            ASSERT_NE(isNew, opensWith(now));
            (isNew ? changed : kept) += 1;
            expectWhole(isNew ? next : now);
            if (isNew) {
                now = next;
                next = passwords[(passwords.indexOf(now) + 1) % passwords.size()];
            }
        });
    EXPECT_TRUE(changed > 0 && kept > 0) << changed << " " << kept;
    open(now)->newPassword(now, next);
    EXPECT_EQ(filesThere(), QStringList(u"Norvane.DAT"_s));
}

TEST_F(Kills, DuringCompactingLeaveItWhole)
{
    const QTemporaryDir program(fastFolder() + u"/norvane-dao-XXXXXX"_s);
    PosixFileSystem files;
    for (const char16_t *word : {u"", u"secret"}) {
        const QString password = QStringView(word).toString();
        if (!password.isEmpty())
            open()->newPassword({}, password);
        QSet<quint64> states;
        const auto compact = [&] {
            if (!CompactNoteDatabase(*engine, files, file, program.path(), password))
                ::_exit(2);
        };
        killAgainAndAgain(50, compact, [&] {
            expectWhole(password);
            states.insert(qHash(fingerprint(file)));
        });
        EXPECT_GT(states.size(), 2) << "some came before the new file was in place, some after";
        EXPECT_LT(states.size(), 51);
        compact();
        EXPECT_EQ(filesThere(), QStringList(u"Norvane.DAT"_s));
        EXPECT_TRUE(QDir(program.path()).isEmpty());
    }
}

} // namespace
} // namespace norvane::dao
