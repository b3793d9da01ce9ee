#include "faults/OtherProgram.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace norvane::test {

const QByteArray OtherProgram::kClass = QByteArrayLiteral("Plainwindow");

void writeSettings(const VirtualDesktop &desktop)
{
    const QString folder = desktop.home() + QStringLiteral("/.config/norvane");
    QDir().mkpath(folder);
    QFile settings(folder + QStringLiteral("/norvane.conf"));
    if (settings.open(QIODevice::WriteOnly))
        settings.write("[ClassEx]\nItems=1\n01=" + OtherProgram::kClass + "\n[Main]\nFirstStartNotice=1\n");
}

OtherProgram::OtherProgram(VirtualDesktop &desktop, const QString &name)
    : m_desktop(desktop), m_file(desktop.home() + QStringLiteral("/programs/") + name)
{
}

bool OtherProgram::start()
{
    QDir().mkpath(QFileInfo(m_file).path());
    if (!QFile::exists(m_file) && !QFile::copy(QStringLiteral(NORVANE_WINDOW_PROGRAM), m_file))
        return false;
    m_process = m_desktop.run(m_file);
    return m_process != nullptr;
}

QByteArray OtherProgram::tell(const QByteArray &command)
{
    m_process->write(command + '\n');
    QByteArray answer;
    waitFor([&] {
        answer += m_process->readAllStandardOutput();
        return answer.endsWith('\n') || m_process->state() == QProcess::NotRunning;
    });
    return answer.trimmed();
}

xcb_window_t OtherProgram::open(const QByteArray &title, const QByteArray &wmClass)
{
    const xcb_window_t window = tell("open " + wmClass + ' ' + title.toHex()).toUInt();
    const bool listed = waitFor([&] { return m_desktop.x().clients().contains(window); });
    return listed ? window : 0;
}

xcb_window_t OtherProgram::openMany(int count, const QByteArray &title)
{
    xcb_window_t last = 0;
    for (int i = 1; i <= count; ++i)
        last = tell("open " + kClass + ' ' + (title + ' ' + QByteArray::number(i)).toHex()).toUInt();
    const bool listed =
        waitFor([&] { return m_desktop.x().clients().count() >= count && m_desktop.x().isViewable(last); });
    return listed ? last : 0;
}

void OtherProgram::close(xcb_window_t window)
{
    tell("close " + QByteArray::number(window));
}

} // namespace norvane::test
