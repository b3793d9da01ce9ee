#pragma once

#include <QObject>
#include <QPointer>

class QCompleter;
class QLineEdit;

namespace norvane {

class Shell;

/// Proposes how a command line may go on: the paths below what is typed once it has a separator or begins
/// with "~", else the installed programs. A path that does not begin at the root begins in the home folder.
class CommandCompletion : public QObject
{
    Q_OBJECT

public:
    /// Belongs to the line. @p shell outlives it.
    CommandCompletion(QLineEdit &line, const Shell &shell, QString home);

private:
    void follow(const QString &text);
    QCompleter *programs();
    QCompleter *paths();

    QLineEdit &m_line;
    const Shell &m_shell;
    QString m_home;
    QPointer<QCompleter> m_programs;
    QPointer<QCompleter> m_paths;
};

} // namespace norvane
