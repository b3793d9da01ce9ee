#pragma once

#include <QString>

namespace norvane {

/// Sounds; no call waits for the sound to end, and silence is no error.
class Sound
{
public:
    virtual ~Sound();

    virtual void play(const QString &waveFile) = 0;
    virtual void beep() = 0;
    /// Ends the sound that is playing, if one is.
    virtual void stop() = 0;
    /// The folder in which a person looks for sounds first: the desktop's own ones, else the home folder.
    /// Native, no separator at the end.
    virtual QString soundFolder() const = 0;
};

} // namespace norvane
