#pragma once

#include "platform/Sound.h"

#include <QObject>
#include <functional>

class QProcess;

namespace norvane {

/// Plays sounds by whichever player program the system has. One sound at a time: a new one ends
/// the one before it.
class LinuxSound : public QObject, public Sound
{
    Q_OBJECT

public:
    /// @param bell sounds the display's bell
    explicit LinuxSound(std::function<void()> bell, QObject *parent = nullptr);
    ~LinuxSound() override;

    void play(const QString &waveFile) override;
    void beep() override;
    void stop() override;
    QString soundFolder() const override;

private:
    /// Tries the players from the given place on.
    void playWith(std::size_t player, const QString &waveFile);

    std::function<void()> m_bell;
    QProcess *m_process = nullptr; ///< the player at work; owned
    std::size_t m_player = 0;      ///< those before it have failed
};

} // namespace norvane
