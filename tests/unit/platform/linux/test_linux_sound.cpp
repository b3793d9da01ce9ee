#include "platform/linux/LinuxSound.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <gmock/gmock.h>

using namespace norvane;

namespace {

constexpr int kPatience = 20000;

/// Plays into a log, by players that the test writes.
class LinuxSoundTest : public testing::Test
{
protected:
    LinuxSoundTest() : m_path(qgetenv("PATH"))
    {
        qputenv("PATH", QFile::encodeName(m_folder.path()));
        makeFile(QStringLiteral("ding.wav"), "RIFF");
    }
    ~LinuxSoundTest() override { qputenv("PATH", m_path); }

    QString path(const QString &name) const { return m_folder.path() + u'/' + name; }
    void makeFile(const QString &name, const QByteArray &text)
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(text), text.size());
    }
    void makePlayer(const QString &name, const QByteArray &script)
    {
        makeFile(name, "#!/bin/sh\necho \"" + name.toUtf8() + " $*\" >> \"${0%/*}/log\"\n" + script + '\n');
        ASSERT_TRUE(
            QFile::setPermissions(path(name), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }
    QStringList log() const
    {
        QFile file(path(QStringLiteral("log")));
        if (!file.open(QIODevice::ReadOnly))
            return {};
        QString text = QString::fromUtf8(file.readAll());
        text.replace(m_folder.path() + u'/', QString());
        return text.split(u'\n', Qt::SkipEmptyParts);
    }
    bool waitForLog(const QStringList &expected)
    {
        return QTest::qWaitFor([&] { return log() == expected; }, kPatience);
    }

    QTemporaryDir m_folder;
    int bells = 0;
    LinuxSound sound{[this] { ++bells; }};

private:
    QByteArray m_path;
};

TEST_F(LinuxSoundTest, PlaysByTheFirstPlayerThatCan)
{
    makePlayer(QStringLiteral("pw-play"), "exit 1");
    makePlayer(QStringLiteral("aplay"), "exit 0");
    sound.play(path(QStringLiteral("ding.wav")));
    ASSERT_TRUE(waitForLog({QStringLiteral("pw-play ding.wav"), QStringLiteral("aplay --quiet ding.wav")}));
    // The player that failed is not asked again.
    ASSERT_TRUE(QTest::qWaitFor([&] { return !sound.findChild<QObject *>(); }, kPatience));
    sound.play(path(QStringLiteral("ding.wav")));
    EXPECT_TRUE(waitForLog({QStringLiteral("pw-play ding.wav"), QStringLiteral("aplay --quiet ding.wav"),
                            QStringLiteral("aplay --quiet ding.wav")}))
        << log().join(u'|').toStdString();
}

TEST_F(LinuxSoundTest, NewSoundEndsTheOneBeforeIt)
{
    makeFile(QStringLiteral("dong.wav"), "RIFF");
    makePlayer(QStringLiteral("paplay"), "case $1 in *ding*) read x < \"${0%/*}/never\";; esac");
    ASSERT_TRUE(QProcess::execute(QStringLiteral("/usr/bin/mkfifo"), {path(QStringLiteral("never"))}) == 0);
    sound.play(path(QStringLiteral("ding.wav")));
    ASSERT_TRUE(waitForLog({QStringLiteral("paplay ding.wav")}));
    sound.play(path(QStringLiteral("dong.wav")));
    ASSERT_TRUE(waitForLog({QStringLiteral("paplay ding.wav"), QStringLiteral("paplay dong.wav")}));
    EXPECT_TRUE(QTest::qWaitFor([&] { return sound.findChildren<QObject *>().isEmpty(); }, kPatience))
        << "a player was left";
}

TEST_F(LinuxSoundTest, SilenceIsNoError)
{
    sound.play(path(QStringLiteral("ding.wav"))); // no player
    makePlayer(QStringLiteral("pw-play"), "exit 0");
    sound.play(path(QStringLiteral("missing.wav")));
    EXPECT_TRUE(sound.findChildren<QObject *>().isEmpty());
    sound.beep();
    EXPECT_EQ(bells, 1);
}

} // namespace
