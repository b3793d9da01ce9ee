#pragma once

#include <QStringList>

namespace norvane {

/// The program's command line. Options are found anywhere in it, whatever their case and order;
/// unknown text means nothing.
class CommandLine
{
public:
    /// @param arguments without the program's name
    explicit CommandLine(const QStringList &arguments = {});

    /// The whole line in upper case.
    const QString &text() const { return m_text; }

    /// "/NOTIMER": the watch timer stays off.
    bool noTimer() const;
    /// "/NOIE": browser and folder windows are not asked for their location.
    bool noShellWindows() const;
    /// "/INTERVAL=": the period of the watch timer is given.
    bool hasInterval() const;
    /// What stands behind "/INTERVAL=", its first five characters, as milliseconds. Raises 6 when
    /// it does not fit 16 bits.
    qint16 interval() const;

private:
    QString m_text;
};

} // namespace norvane
