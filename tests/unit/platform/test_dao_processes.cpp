#include "platform/sqlite/database_file.h"
#include "unit/platform/dao_fixture.h"

#include <QFile>
#include <QProcess>
#include <QSet>

namespace norvane::dao {
namespace {

constexpr int kPatience = 60'000;

/// A running helper program.
class Helper
{
public:
    explicit Helper(const QStringList &arguments)
    {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QStringLiteral(DAO_HELPER), arguments);
        EXPECT_TRUE(m_process.waitForStarted());
    }
    ~Helper()
    {
        if (m_process.state() != QProcess::NotRunning)
            m_process.kill();
        m_process.waitForFinished(kPatience);
    }
    Helper(const Helper &) = delete;
    Helper &operator=(const Helper &) = delete;

    /// The next line; empty at the end.
    QString line()
    {
        while (!m_process.canReadLine())
            if (!m_process.waitForReadyRead(kPatience))
                break;
        return QString::fromUtf8(m_process.readLine()).trimmed();
    }
    /// All lines up to the end.
    QStringList rest()
    {
        EXPECT_TRUE(m_process.state() == QProcess::NotRunning || m_process.waitForFinished(kPatience));
        return QString::fromUtf8(m_process.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
    }
    void kill() { m_process.kill(); }

private:
    QProcess m_process;
};

class ProcessTest : public DaoTest
{
protected:
    void SetUp() override { createNotes(); }

    /// Whether all these notes are there and whole.
    void expectNotes(const QStringList &acknowledged, int size, const QString &password = {})
    {
        database = open(password);
        QSet<QString> there;
        for (const auto set = rows(u"select ID,URL from Memos"_s); !set->eof(); set->moveNext()) {
            there.insert(set->field(u"ID"_s).toString());
            EXPECT_EQ(set->field(u"URL"_s).toString().size(), size);
        }
        for (const QString &id : acknowledged)
            EXPECT_TRUE(there.contains(id)) << id.toStdString();
        database.reset();
        checkIntegrity(file, password);
    }
};

TEST_F(ProcessTest, TwoProgramsAndOneThatCompactsLoseNothing)
{
    database.reset();
    constexpr int kSaves = 500;
    const QStringList arguments = {u"save"_s, file,       QString(), QString::number(kSaves),
                                   u"300"_s,  u"reopen"_s};
    Helper first(arguments);
    Helper second(arguments);
    const QString copy = folder.filePath(u"Norvane.tmp"_s);
    QStringList saved;
    int compacted = 0;
    for (QString id = first.line(); !id.isEmpty(); id = first.line()) {
        saved.append(id);
        if (saved.size() % 50 != 0)
            continue;
        QFile::remove(copy);
        try {
            engine->compactDatabase(file, copy, {});
            engine->replaceDatabase(copy, file);
            ++compacted;
        } catch (const RuntimeError &error) {
            ASSERT_EQ(error.number(), kErrorLocked) << error.description().toStdString();
        }
    }
    EXPECT_TRUE(first.rest().isEmpty());
    saved += second.rest();
    EXPECT_EQ(saved.size(), 2 * kSaves);
    EXPECT_EQ(QSet<QString>(saved.begin(), saved.end()).size(), 2 * kSaves)
        << "no number was given out twice";
    EXPECT_GT(compacted, 0);
    expectNotes(saved, 300);
}

TEST_F(ProcessTest, TheLockIsSeenAndEndsWithItsProgram)
{
    database.reset();
    Helper holder({u"hold"_s, file, QString()});
    EXPECT_EQ(holder.line(), u"open");
    EXPECT_TRUE(engine->isLocked(file));
    EXPECT_EQ(errorOf([&] { engine->compactDatabase(file, file + u'c', {}); }), kErrorLocked);
    EXPECT_EQ(errorOf([&] { open({}, true, true); }), kErrorLocked);
    database = open();
    EXPECT_EQ(errorOf([&] { database->newPassword({}, u"x"_s); }), kErrorLocked);
    database.reset();
    holder.kill();
    holder.rest();
    EXPECT_FALSE(engine->isLocked(file));
    engine->compactDatabase(file, file + u'c', {});
}

TEST_F(ProcessTest, KilledWhileSavingNothingAcknowledgedIsLost)
{
    for (const char16_t *word : {u"", u"secret"}) {
        const QString password = QStringView(word).toString();
        if (!password.isEmpty()) {
            database = open();
            database->newPassword({}, password);
        }
        database.reset();
        QStringList acknowledged;
        for (int round = 0; round < 6; ++round) {
            Helper saver({u"save"_s, file, password, u"100000"_s, u"40000"_s});
            for (int i = 0; i < 3 + round * 2; ++i)
                acknowledged.append(saver.line());
            saver.kill();
            acknowledged += saver.rest();
            ASSERT_FALSE(acknowledged.contains(QString()));
            expectNotes(acknowledged, 40000, password);
        }
    }
}

} // namespace
} // namespace norvane::dao
