#pragma once

#include <QFutureWatcher>
#include <QObject>
#include <QPointer>
#include <QStringList>

class QCompleter;
class QLineEdit;

namespace norvane {

class Shell;

/// Proposes how a command line may go on: the paths below what is typed once it has a separator, else the
/// installed programs. A path that does not begin at the root begins in the home folder; names that begin
/// with a dot are proposed to whoever begins so. Paths are proposed when the folder has told them.
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
    void proposePaths();

    QLineEdit &m_line;
    const Shell &m_shell;
    QString m_home;
    QPointer<QCompleter> m_programs;
    QPointer<QCompleter> m_paths;
    QFutureWatcher<QStringList> m_names;
    QString m_folder; ///< whose names these are, as it was typed
    bool m_withHidden = false;
};

} // namespace norvane
