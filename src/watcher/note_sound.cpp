#include "watcher/note_sound.h"

#include "platform/Sound.h"

namespace norvane {

void PlayNoteSound(Sound &sound, const QString &waveFile)
{
    if (waveFile.isEmpty())
        sound.beep();
    else
        sound.play(waveFile);
}

} // namespace norvane
