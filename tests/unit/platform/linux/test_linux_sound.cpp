#include "platform/linux/LinuxSound.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <gmock/gmock.h>

using namespace norvane;
using namespace Qt::StringLiterals;

namespace {

constexpr int kPatience = 20000;

/// Plays into a log, by players that the test writes.
class LinuxSoundTest : public testing::Test
{
protected:
    LinuxSoundTest() : m_path(qgetenv("PATH"))
    {
        qputenv("PATH", QFile::encodeName(m_folder.path()));
        makeFile(u"ding.wav"_s, "RIFF");
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
        QFile file(path(u"log"_s));
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
    makePlayer(u"pw-play"_s, "exit 1");
    makePlayer(u"aplay"_s, "exit 0");
    sound.play(path(u"ding.wav"_s));
    ASSERT_TRUE(waitForLog({u"pw-play ding.wav"_s, u"aplay --quiet ding.wav"_s}));
    // The player that failed is not asked again.
    ASSERT_TRUE(QTest::qWaitFor([&] { return !sound.findChild<QObject *>(); }, kPatience));
    sound.play(path(u"ding.wav"_s));
    EXPECT_TRUE(waitForLog({u"pw-play ding.wav"_s, u"aplay --quiet ding.wav"_s, u"aplay --quiet ding.wav"_s}))
        << log().join(u'|').toStdString();
}

TEST_F(LinuxSoundTest, NewSoundEndsTheOneBeforeIt)
{
    makeFile(u"dong.wav"_s, "RIFF");
    makePlayer(u"paplay"_s, "case $1 in *ding*) read x < \"${0%/*}/never\";; esac");
    ASSERT_TRUE(QProcess::execute(u"/usr/bin/mkfifo"_s, {path(u"never"_s)}) == 0);
    sound.play(path(u"ding.wav"_s));
    ASSERT_TRUE(waitForLog({u"paplay ding.wav"_s}));
    sound.play(path(u"dong.wav"_s));
    ASSERT_TRUE(waitForLog({u"paplay ding.wav"_s, u"paplay dong.wav"_s}));
    EXPECT_TRUE(QTest::qWaitFor([&] { return sound.findChildren<QObject *>().isEmpty(); }, kPatience))
        << "a player was left";
}

TEST_F(LinuxSoundTest, SilenceIsNoError)
{
    sound.play(path(u"ding.wav"_s)); // no player
    makePlayer(u"pw-play"_s, "exit 0");
    sound.play(path(u"missing.wav"_s));
    EXPECT_TRUE(sound.findChildren<QObject *>().isEmpty());
    sound.beep();
    EXPECT_EQ(bells, 1);
}

} // namespace
