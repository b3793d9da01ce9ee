#include "ScriptedPrograms.h"

#include "platform/linux/LinuxSound.h"

#include <QProcess>

using namespace norvane;
using namespace norvane::test;

namespace {

class LinuxSoundTest : public testing::Test, protected ScriptedPrograms
{
protected:
    LinuxSoundTest() { makeFile(u"ding.wav"_qs, "RIFF"); }

    bool comesToRest()
    {
        return QTest::qWaitFor([&] { return sound.findChildren<QObject *>().isEmpty(); }, 20000);
    }

    int bells = 0;
    LinuxSound sound{[this] { ++bells; }};
};

TEST_F(LinuxSoundTest, PlaysByTheFirstPlayerThatCan)
{
    makeProgram(u"bin/pw-play"_qs, "exit 1");
    makeProgram(u"bin/aplay"_qs, "exit 0");
    QStringList calls{u"pw-play ding.wav"_qs, u"aplay --quiet ding.wav"_qs};
    sound.play(path(u"ding.wav"_qs));
    ASSERT_TRUE(waitForLog(calls));
    // The player that failed is not asked again.
    ASSERT_TRUE(comesToRest());
    sound.play(path(u"ding.wav"_qs));
    EXPECT_TRUE(waitForLog(calls << calls.last())) << log().join(u'|').toStdString();
}

TEST_F(LinuxSoundTest, NewSoundEndsTheOneBeforeIt)
{
    makeFile(u"dong.wav"_qs, "RIFF");
    makeProgram(u"bin/paplay"_qs, "case $1 in *ding*) read x < \"${0%/*}/never\";; esac");
    ASSERT_TRUE(QProcess::execute(u"/usr/bin/mkfifo"_qs, {path(u"bin/never"_qs)}) == 0);
    sound.play(path(u"ding.wav"_qs));
    ASSERT_TRUE(waitForLog({u"paplay ding.wav"_qs}));
    sound.play(path(u"dong.wav"_qs));
    ASSERT_TRUE(waitForLog({u"paplay ding.wav"_qs, u"paplay dong.wav"_qs}));
    EXPECT_TRUE(comesToRest()) << "a player was left";
}

TEST_F(LinuxSoundTest, SilenceIsNoError)
{
    sound.play(path(u"ding.wav"_qs)); // no player
    makeProgram(u"bin/pw-play"_qs, "exit 0");
    sound.play(path(u"missing.wav"_qs));
    EXPECT_TRUE(sound.findChildren<QObject *>().isEmpty());
    sound.beep();
    EXPECT_EQ(bells, 1);
}

} // namespace
