#include "shell/command_line.h"

#include "shell/numeric_prefix.h"

namespace norvane {

namespace {

constexpr QStringView kNoTimer = u"/NOTIMER";
constexpr QStringView kNoShellWindows = u"/NOIE";
constexpr QStringView kInterval = u"/INTERVAL=";
constexpr int kIntervalCharacters = 5;

} // namespace

CommandLine::CommandLine(const QStringList &arguments) : m_text(arguments.join(u' ').toUpper()) {}

bool CommandLine::noTimer() const
{
    return m_text.contains(kNoTimer);
}

bool CommandLine::noShellWindows() const
{
    return m_text.contains(kNoShellWindows);
}

bool CommandLine::hasInterval() const
{
    return m_text.contains(kInterval);
}

qint16 CommandLine::interval() const
{
    const qsizetype equals = m_text.indexOf(u'=', m_text.indexOf(kInterval));
    return numericPrefixInt16(m_text.mid(equals + 1, kIntervalCharacters));
}

} // namespace norvane
