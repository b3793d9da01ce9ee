#pragma once

#include <QObject>
#include <QPointer>

class QCompleter;
class QLineEdit;

namespace norvane {

class Shell;

/// Proposes how a command line may go on: the paths below what is typed once it has a separator, else the
/// installed programs. A path that does not begin at the root begins in the home folder; names that begin
/// with a dot are proposed to whoever begins so.
class CommandCompletion : public QObject
{
    Q_OBJECT

public:
    /// Belongs to the line. @p shell outlives it.
    CommandCompletion(QLineEdit &line, const Shell &shell, QString home);

private:
    void follow(const QString &text);
    QCompleter *newCompleter(const QStringList &proposals);
    void listFolder(const QString &typedFolder, bool withHidden);

    QLineEdit &m_line;
    const Shell &m_shell;
    QString m_home;
    QPointer<QCompleter> m_programs;
    QPointer<QCompleter> m_paths;
    QString m_listed; ///< what the paths are below, as it was typed; with a dot behind it if hidden ones are
                      ///< there
};

} // namespace norvane
