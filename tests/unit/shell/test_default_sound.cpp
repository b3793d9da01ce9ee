#include "shell/default_sound.h"

#include <algorithm>
#include <gtest/gtest.h>

using namespace norvane;

namespace {

/// The farthest that samples of the range are from silence.
int loudest(const QByteArray &wave, qsizetype from, qsizetype to)
{
    int farthest = 0;
    for (qsizetype i = from; i < to; ++i)
        farthest = std::max(farthest, std::abs(static_cast<unsigned char>(wave.at(i)) - 128));
    return farthest;
}

} // namespace

TEST(DefaultSound, IsAWaveFileThatBeginsAndEndsInSilence)
{
    const QByteArray wave = defaultSound();
    ASSERT_EQ(wave.size(), 4636);
    EXPECT_EQ(wave.left(44).toHex(' '),
              "52 49 46 46 14 12 00 00 57 41 56 45 66 6d 74 20 " // "RIFF" 4628 "WAVEfmt "
              "10 00 00 00 01 00 01 00 22 56 00 00 22 56 00 00 " // PCM, mono, 22050 samples, 22050 bytes
              "01 00 08 00 64 61 74 61 f0 11 00 00");            // 1 byte, 8 bits, "data" 4592
    EXPECT_LE(loudest(wave, 44, 46), 8);
    EXPECT_GE(loudest(wave, 44, 44 + 400), 40);
    EXPECT_LE(loudest(wave, wave.size() - 100, wave.size()), 2);
}
