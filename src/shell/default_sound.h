#pragma once

#include <QByteArray>
#include <QStringView>

namespace norvane {

/// Name of the sound file in the program's folder. In spite of it a RIFF WAVE file: the name is
/// stored in the notes of earlier builds.
inline constexpr QStringView kDefaultSoundName = u"MMR1.DLL";

/// The program's own sound, a short soft click: a RIFF WAVE file of 4,636 bytes, 22050 Hz, 8 bit,
/// mono. It is the default of a note's sound and what typing sounds like.
QByteArray defaultSound();

} // namespace norvane
