#include "platform/sqlite/database_file.h"
#include "unit/platform/dao_fixture.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
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
        m_process.setProcessChannelMode(QProcess::SeparateChannels);
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
    QByteArray errors() { return m_process.readAllStandardError(); }
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
        const auto notes = rows(QStringLiteral("select ID,URL from Memos"));
        QSet<QString> there;
        for (; !notes->eof(); notes->moveNext()) {
            const QString id = notes->field(QStringLiteral("ID")).toString();
            there.insert(id);
            EXPECT_EQ(notes->field(QStringLiteral("URL")).toString().size(), size);
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
    const QStringList arguments = {
        QStringLiteral("save"),  file, QString(), QString::number(kSaves), QStringLiteral("300"),
        QStringLiteral("reopen")};
    Helper first(arguments);
    Helper second(arguments);
    const QString copy = folder.filePath(QStringLiteral("Norvane.tmp"));
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
    EXPECT_EQ(saved.size(), 2 * kSaves) << first.errors().constData() << second.errors().constData();
    EXPECT_EQ(QSet<QString>(saved.begin(), saved.end()).size(), 2 * kSaves)
        << "no number was given out twice";
    EXPECT_GT(compacted, 0);
    expectNotes(saved, 300);
}

TEST_F(ProcessTest, ChangesOfAnotherProgramComeWithRequery)
{
    add(QStringLiteral("mine"));
    const auto snapshot = rows(QStringLiteral("select ID from Memos"), RecordsetType::Snapshot);
    const auto dynaset = rows(QStringLiteral("select ID from Memos order by WindowName"));
    Helper other({QStringLiteral("save"), file, QString(), QStringLiteral("3"), QStringLiteral("5")});
    EXPECT_EQ(other.rest().size(), 3);
    snapshot->findFirst(QStringLiteral("ID=3"));
    EXPECT_TRUE(snapshot->noMatch());
    EXPECT_EQ(snapshot->recordCount(), 1);
    snapshot->requery();
    dynaset->requery();
    EXPECT_EQ(snapshot->recordCount(), 4);
    EXPECT_EQ(ids(*dynaset), u"1 2 3 4 ");
}

TEST_F(ProcessTest, TheLockIsSeenAndEndsWithItsProgram)
{
    database.reset();
    Helper holder({QStringLiteral("hold"), file, QString()});
    EXPECT_EQ(holder.line(), u"open");
    EXPECT_TRUE(engine->isLocked(file));
    EXPECT_EQ(errorOf([&] { engine->compactDatabase(file, file + u'c', {}); }), kErrorLocked);
    EXPECT_EQ(errorOf([&] { open({}, true, true); }), kErrorLocked);
    database = open();
    EXPECT_EQ(errorOf([&] { database->newPassword({}, QStringLiteral("x")); }), kErrorLocked);
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
            Helper saver(
                {QStringLiteral("save"), file, password, QStringLiteral("100000"), QStringLiteral("40000")});
            for (int i = 0; i < 3 + round * 2; ++i)
                acknowledged.append(saver.line());
            saver.kill();
            acknowledged += saver.rest();
            ASSERT_FALSE(acknowledged.contains(QString())) << saver.errors().constData();
            expectNotes(acknowledged, 40000, password);
        }
    }
}

TEST_F(ProcessTest, WithoutRightsNothingIsWrittenAndTheMessageIsClear)
{
    add(QStringLiteral("one"));
    database.reset();
    const auto tryIt = [this](const char16_t *how) {
        Helper helper({QStringLiteral("try"), file, QStringView(how).toString()});
        return helper.rest();
    };
    const auto permit = [](const QString &path, QFile::Permissions permissions) {
        ASSERT_TRUE(QFile::setPermissions(path, permissions));
    };
    const auto kRead = QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther;
    const auto kWrite = QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;
    const auto kEnter = QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther;
    const QString side = folder.filePath(QStringLiteral(".Norvane.DAT.lock"));
    QFile before(file);
    ASSERT_TRUE(before.open(QIODevice::ReadOnly));
    const QByteArray bytes = before.readAll();

    permit(folder.path(), kRead | kWrite | kEnter); // a read-only file
    permit(file, kRead);
    EXPECT_EQ(tryIt(u"rw"), QStringList(QStringLiteral("error %1").arg(kErrorReadOnly)));
    EXPECT_EQ(tryIt(u"ro"), QStringList(QStringLiteral("1 notes")));
    permit(file, kRead | kWrite); // a read-only folder, with and without the side file
    permit(folder.path(), kRead | kEnter);
    EXPECT_EQ(tryIt(u"rw"), QStringList(QStringLiteral("error %1").arg(kErrorFileAccess)));
    EXPECT_EQ(tryIt(u"ro"), QStringList(QStringLiteral("1 notes")));
    permit(folder.path(), kRead | kWrite | kEnter);
    ASSERT_TRUE(QFile::remove(side));
    permit(folder.path(), kRead | kEnter);
    EXPECT_EQ(tryIt(u"ro"), QStringList(QStringLiteral("1 notes")));
    permit(file, QFile::WriteOther); // not to be read
    EXPECT_EQ(tryIt(u"ro"), QStringList(QStringLiteral("error %1").arg(kErrorFileAccess)));
    permit(folder.path(), kRead | kWrite | kEnter);
    permit(file, kRead | kWrite);
    QFile after(file);
    ASSERT_TRUE(after.open(QIODevice::ReadOnly));
    EXPECT_EQ(after.readAll(), bytes);
}

TEST_F(ProcessTest, AFullDiskLeavesTheFileAsItWas)
{
    for (int i = 0; i < 20; ++i)
        add(QStringLiteral("n"), QString(3000, u'u'));
    database.reset();
    const QString number = QString::number(kErrorDiskFull);
    for (const char16_t *room : {u"0", u"8192", u"500000"}) {
        Helper helper({QStringLiteral("full"), file, QStringView(room).toString()});
        EXPECT_EQ(helper.rest(), QStringList({number, QStringLiteral("0"), number, number}))
            << "save, save with room again, password, compact: " << helper.errors().constData();
        EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 2)
            << "nothing is left over";
        checkIntegrity(file, {});
    }
    database = open();
    EXPECT_EQ(rows(QStringLiteral("select ID from Memos"))->recordCount(), 20 + 3);
}

} // namespace
} // namespace norvane::dao
