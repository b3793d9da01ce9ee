#include "shell/default_sound.h"

#include <QtEndian>
#include <algorithm>
#include <gtest/gtest.h>

using namespace norvane;

namespace {

quint32 number32(const QByteArray &bytes, int at)
{
    return qFromLittleEndian<quint32>(bytes.constData() + at);
}

quint16 number16(const QByteArray &bytes, int at)
{
    return qFromLittleEndian<quint16>(bytes.constData() + at);
}

/// The farthest that samples of the range are from silence.
int loudest(const QByteArray &wave, qsizetype from, qsizetype to)
{
    int farthest = 0;
    for (qsizetype i = from; i < to; ++i)
        farthest = std::max(farthest, std::abs(static_cast<unsigned char>(wave.at(i)) - 128));
    return farthest;
}

TEST(DefaultSound, isAWaveFileThatPlayersTake)
{
    const QByteArray wave = defaultSound();
    ASSERT_EQ(wave.size(), 4636);
    EXPECT_EQ(wave.left(4), "RIFF");
    EXPECT_EQ(number32(wave, 4), 4636u - 8u);
    EXPECT_EQ(wave.mid(8, 8), "WAVEfmt ");
    EXPECT_EQ(number32(wave, 16), 16u);
    EXPECT_EQ(number16(wave, 20), 1);      // PCM
    EXPECT_EQ(number16(wave, 22), 1);      // mono
    EXPECT_EQ(number32(wave, 24), 22050u); // samples a second
    EXPECT_EQ(number32(wave, 28), 22050u); // bytes a second
    EXPECT_EQ(number16(wave, 32), 1);      // bytes a sample
    EXPECT_EQ(number16(wave, 34), 8);      // bits a sample
    EXPECT_EQ(wave.mid(36, 4), "data");
    EXPECT_EQ(number32(wave, 40), 4636u - 44u);
}

TEST(DefaultSound, isHeardAndBeginsAndEndsInSilence)
{
    const QByteArray wave = defaultSound();
    EXPECT_LE(loudest(wave, 44, 46), 8);
    EXPECT_GE(loudest(wave, 44, 44 + 400), 40);
    EXPECT_LE(loudest(wave, wave.size() - 100, wave.size()), 2);
}

} // namespace
