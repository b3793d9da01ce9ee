#pragma once

#include <QString>

namespace norvane {

class Sound;

/// Plays a note's wave file without waiting for its end; beeps when the name is empty or null.
void PlayNoteSound(Sound &sound, const QString &waveFile);

} // namespace norvane
