#pragma once

#include <QString>

namespace norvane {

/// Sounds; neither call waits for the sound to end, and silence is no error.
class Sound
{
public:
    virtual ~Sound();

    virtual void play(const QString &waveFile) = 0;
    virtual void beep() = 0;
};

} // namespace norvane
