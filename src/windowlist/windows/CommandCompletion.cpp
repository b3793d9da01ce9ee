#include "windowlist/windows/CommandCompletion.h"

#include "platform/Shell.h"
#include "windowlist/list/command_words.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QDir>
#include <QLineEdit>
#include <QStringListModel>

namespace norvane {

namespace {

/// Files and folders of a folder, as they are typed: with what was typed before them, folders with a
/// separator behind them.
QStringList pathsIn(const QString &folder, const QString &typed, bool withHidden)
{
    const QDir::Filters kinds = withHidden ? QDir::Hidden : QDir::Filters();
    const QDir found(folder);
    QStringList paths;
    for (const QString &name : found.entryList(QDir::Files | kinds, QDir::NoSort))
        paths.append(typed + name);
    for (const QString &name : found.entryList(QDir::Dirs | QDir::NoDotAndDotDot | kinds, QDir::NoSort))
        paths.append(typed + name + u'/');
    paths.sort();
    return paths;
}

} // namespace

CommandCompletion::CommandCompletion(QLineEdit &line, const Shell &shell, QString home)
    : QObject(&line), m_line(line), m_shell(shell), m_home(std::move(home))
{
    connect(&m_line, &QLineEdit::textEdited, this, &CommandCompletion::follow);
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
    return completer;
}

/// A folder is read when its name has been typed, and again when one has been somewhere else.
void CommandCompletion::listFolder(const QString &typedFolder, bool withHidden)
{
    const QString wanted = typedFolder + (withHidden ? QStringLiteral(".") : QString());
    if (wanted == m_listed)
        return;
    m_listed = wanted;
    auto *proposals = qobject_cast<QStringListModel *>(m_paths->model());
    proposals->setStringList(pathsIn(pathFromHome(typedFolder, m_home), typedFolder, withHidden));
}

} // namespace norvane
