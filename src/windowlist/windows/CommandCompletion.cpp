#include "windowlist/windows/CommandCompletion.h"

#include "platform/Shell.h"
#include "windowlist/list/command_words.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QStringListModel>

namespace norvane {

namespace {

/// Paths, as they were typed: from the root, from "~", or from the home folder.
class PathCompleter : public QCompleter
{
public:
    PathCompleter(const QString &home, QObject *parent)
        : QCompleter(parent), m_home(home), m_files(new QFileSystemModel(this))
    {
        m_files->setOption(QFileSystemModel::DontWatchForChanges);
        m_files->setRootPath(QString()); // read folder by folder, in its own thread
        setModel(m_files);
        setCaseSensitivity(Qt::CaseSensitive);
    }

    /// Files whose names begin with a dot are proposed to whoever begins so.
    void showHidden(bool shown)
    {
        const QDir::Filters usual = QDir::AllEntries | QDir::NoDotAndDotDot;
        const QDir::Filters wanted = shown ? usual | QDir::Hidden : usual;
        if (m_files->filter() != wanted)
            m_files->setFilter(wanted);
    }

    QStringList splitPath(const QString &path) const override
    {
        return QCompleter::splitPath(pathFromHome(path, m_home));
    }

    QString pathFromIndex(const QModelIndex &index) const override
    {
        QString path = m_files->filePath(index);
        if (m_files->isDir(index) && !path.endsWith(u'/'))
            path += u'/';
        const QString typed = completionPrefix();
        if (typed.startsWith(u'/') || !path.startsWith(m_home + u'/'))
            return path;
        return (typed.startsWith(u'~') ? QStringLiteral("~/") : QString()) + path.mid(m_home.size() + 1);
    }

private:
    QString m_home;
    QFileSystemModel *m_files;
};

} // namespace

CommandCompletion::CommandCompletion(QLineEdit &line, const Shell &shell, QString home)
    : QObject(&line), m_line(line), m_shell(shell), m_home(std::move(home))
{
    connect(&m_line, &QLineEdit::textEdited, this, &CommandCompletion::follow);
}

void CommandCompletion::follow(const QString &text)
{
    const bool isPath = text.contains(u'/') || text.startsWith(u'~');
    QCompleter *wanted = isPath ? paths() : programs();
    if (isPath)
        static_cast<PathCompleter *>(wanted)->showHidden(text.section(u'/', -1).startsWith(u'.'));
    if (m_line.completer() == wanted)
        return;
    if (m_line.completer())
        m_line.completer()->popup()->hide();
    m_line.setCompleter(wanted);
}

QCompleter *CommandCompletion::programs()
{
    if (!m_programs) {
        m_programs = new QCompleter(this);
        m_programs->setModel(new QStringListModel(m_shell.programNames(), m_programs));
        m_programs->setModelSorting(QCompleter::CaseSensitivelySortedModel);
        m_programs->setCaseSensitivity(Qt::CaseSensitive);
    }
    return m_programs;
}

QCompleter *CommandCompletion::paths()
{
    if (!m_paths)
        m_paths = new PathCompleter(m_home, this);
    return m_paths;
}

} // namespace norvane
