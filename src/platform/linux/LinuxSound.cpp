#include "platform/linux/LinuxSound.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QStringList>
#include <array>
#include <utility>

namespace norvane {

namespace {

/// A player of wave files and the arguments before the file; one is there with any sound server.
struct Player
{
    QStringView program;
    QStringView argument;
};
constexpr std::array<Player, 4> kPlayers{{
    {u"pw-play", {}},
    {u"paplay", {}},
    {u"aplay", u"--quiet"},
    {u"canberra-gtk-play", u"--file"},
}};

} // namespace

LinuxSound::LinuxSound(std::function<void()> bell, QObject *parent) : QObject(parent), m_bell(std::move(bell))
{
}

LinuxSound::~LinuxSound()
{
    LinuxSound::stop();
    // The players are ended and awaited with the processes, which are children of this object.
}

void LinuxSound::play(const QString &waveFile)
{
    stop();
    const QFileInfo file(waveFile);
    if (file.isFile())
        playWith(m_player, file.absoluteFilePath());
}

void LinuxSound::beep()
{
    m_bell();
}

QString LinuxSound::soundFolder() const
{
    const QString sounds = QStandardPaths::locate(QStandardPaths::GenericDataLocation,
                                                  QStringLiteral("sounds"), QStandardPaths::LocateDirectory);
    return sounds.isEmpty() ? QDir::homePath() : sounds;
}

void LinuxSound::playWith(std::size_t player, const QString &waveFile)
{
    QString program;
    while (player < kPlayers.size()) {
        program = QStandardPaths::findExecutable(kPlayers[player].program.toString());
        if (!program.isEmpty())
            break;
        ++player;
    }
    if (program.isEmpty())
        return;

    QStringList arguments{waveFile};
    if (!kPlayers[player].argument.isEmpty())
        arguments.prepend(kPlayers[player].argument.toString());
    m_process = new QProcess(this);
    m_process->setStandardInputFile(QProcess::nullDevice());
    m_process->setStandardOutputFile(QProcess::nullDevice());
    m_process->setStandardErrorFile(QProcess::nullDevice());
    connect(m_process, &QProcess::finished, this, [=, this](int code, QProcess::ExitStatus status) {
        std::exchange(m_process, nullptr)->deleteLater();
        if (status == QProcess::NormalExit && code == 0)
            m_player = player;
        else
            playWith(player + 1, waveFile);
    });
    connect(m_process, &QProcess::errorOccurred, this, [=, this](QProcess::ProcessError error) {
        if (error != QProcess::FailedToStart)
            return;
        std::exchange(m_process, nullptr)->deleteLater();
        playWith(player + 1, waveFile);
    });
    m_process->start(program, arguments);
}

/// Does not wait: a sound may be cut short at every key that is typed.
void LinuxSound::stop()
{
    if (!m_process)
        return;
    QProcess *process = std::exchange(m_process, nullptr);
    process->disconnect(this);
    connect(process, &QProcess::finished, process, &QObject::deleteLater);
    process->kill();
}

} // namespace norvane
