#include "windowlist/windows/CommandCompletion.h"

#include "platform/Shell.h"
#include "windowlist/list/command_words.h"

#include <QCompleter>
#include <QLineEdit>
#include <QListView>
#include <QStringListModel>

namespace norvane {

CommandCompletion::CommandCompletion(QLineEdit &line, const Shell &shell, QString home)
    : QObject(&line), m_line(line), m_shell(shell), m_home(std::move(home))
{
    connect(&m_line, &QLineEdit::textEdited, this, &CommandCompletion::follow);
    connect(&m_names, &QFutureWatcherBase::finished, this, &CommandCompletion::proposePaths);
}

void CommandCompletion::follow(const QString &text)
{
    const qsizetype nameStart = text.lastIndexOf(u'/') + 1;
    const bool isPath = nameStart > 0;
    if (!m_programs && !isPath)
        m_programs = newCompleter(m_shell.programNames());
    if (!m_paths)
        m_paths = newCompleter({});
    if (isPath)
        listFolder(text.left(nameStart), text.mid(nameStart).startsWith(u'.'));
    QCompleter *wanted = isPath ? m_paths : m_programs;
    if (m_line.completer() == wanted)
        return;
    if (m_line.completer())
        m_line.completer()->popup()->hide();
    m_line.setCompleter(wanted);
}

QCompleter *CommandCompletion::newCompleter(const QStringList &proposals)
{
    auto *completer = new QCompleter(this);
    completer->setModel(new QStringListModel(proposals, completer));
    completer->setModelSorting(QCompleter::CaseSensitivelySortedModel);
    completer->setCaseSensitivity(Qt::CaseSensitive);
    // Else every name of a large folder would be measured at each key.
    qobject_cast<QListView *>(completer->popup())->setUniformItemSizes(true);
    return completer;
}

/// A folder is read when its name has been typed, and again when one has been somewhere else.
void CommandCompletion::listFolder(const QString &typedFolder, bool withHidden)
{
    if (typedFolder == m_folder && withHidden == m_withHidden)
        return;
    m_folder = typedFolder;
    m_withHidden = withHidden;
    qobject_cast<QStringListModel *>(m_paths->model())->setStringList({});
    m_names.setFuture(m_shell.namesIn(pathFromHome(typedFolder, m_home), withHidden));
}

void CommandCompletion::proposePaths()
{
    QStringList paths = m_names.result();
    for (QString &path : paths)
        path.prepend(m_folder);
    qobject_cast<QStringListModel *>(m_paths->model())->setStringList(paths);
    if (m_line.completer() != m_paths || !m_line.hasFocus())
        return;
    m_paths->setCompletionPrefix(m_line.text());
    m_paths->complete();
}

} // namespace norvane
