#pragma once

#include "platform/Sound.h"

#include <QStringList>

namespace norvane::fakes {

/// Keeps what would have been heard.
class FakeSound : public Sound
{
public:
    QStringList played;
    int beeps = 0;

    void play(const QString &waveFile) override { played.append(waveFile); }
    void beep() override { ++beeps; }
};

} // namespace norvane::fakes
