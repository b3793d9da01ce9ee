#include "shell/default_sound.h"

#include <QtEndian>
#include <cmath>
#include <numbers>

namespace norvane {

namespace {

constexpr quint32 kFileSize = 4636;
constexpr quint32 kRiffHeader = 8;  // "RIFF" and a size, which counts what follows it
constexpr quint32 kHeaderSize = 44; // up to the first sample
constexpr quint32 kSampleRate = 22050;
constexpr quint16 kBitsPerSample = 8;
constexpr quint16 kPulseCodeModulation = 1;
constexpr quint16 kMono = 1;

void append16(QByteArray &bytes, quint16 value)
{
    const quint16 little = qToLittleEndian(value);
    bytes.append(reinterpret_cast<const char *>(&little), sizeof little);
}

void append32(QByteArray &bytes, quint32 value)
{
    const quint32 little = qToLittleEndian(value);
    bytes.append(reinterpret_cast<const char *>(&little), sizeof little);
}

/// Two tones a fifth apart that die away within a tenth of a second. The first two milliseconds
/// swell, so that the loudspeaker does not crack.
double amplitude(double seconds)
{
    const double swell = std::min(1.0, seconds / 0.002);
    const double decay = std::exp(-seconds / 0.022);
    const double angle = 2.0 * std::numbers::pi * seconds;
    return swell * decay * (0.6 * std::sin(angle * 880.0) + 0.25 * std::sin(angle * 1320.0));
}

} // namespace

QByteArray defaultSound()
{
    QByteArray wave;
    wave.reserve(kFileSize);
    wave.append("RIFF");
    append32(wave, kFileSize - kRiffHeader);
    wave.append("WAVEfmt ");
    append32(wave, 16); // size of the format that follows
    append16(wave, kPulseCodeModulation);
    append16(wave, kMono);
    append32(wave, kSampleRate);
    append32(wave, kSampleRate * kBitsPerSample / 8); // bytes per second
    append16(wave, kBitsPerSample / 8);               // bytes per sample
    append16(wave, kBitsPerSample);
    wave.append("data");
    append32(wave, kFileSize - kHeaderSize);
    for (quint32 i = 0; i < kFileSize - kHeaderSize; ++i) {
        // Eight-bit samples are unsigned, with silence in the middle.
        const double sample = 128.0 + 127.0 * amplitude(static_cast<double>(i) / kSampleRate);
        wave.append(static_cast<char>(static_cast<unsigned char>(std::lround(sample))));
    }
    return wave;
}

} // namespace norvane
