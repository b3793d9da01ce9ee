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
    int stops = 0;
    QString folder = QStringLiteral("/usr/share/sounds");

    void play(const QString &waveFile) override { played.append(waveFile); }
    void beep() override { ++beeps; }
    void stop() override { ++stops; }
    QString soundFolder() const override { return folder; }
};

} // namespace norvane::fakes
