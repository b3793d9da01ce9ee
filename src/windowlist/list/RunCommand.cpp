#include "windowlist/list/RunCommand.h"

#include "platform/FileSystem.h"
#include "platform/RuntimeError.h"
#include "platform/Shell.h"
#include "platform/errors.h"
#include "watcher/open_location.h"
#include "windowlist/list/command_words.h"

namespace norvane {

namespace {

/// Without the quotes around it, if it stands in such and holds none.
QString withoutQuotes(const QString &text)
{
    const bool isQuoted = text.size() > 2 && (text.startsWith(u'"') || text.startsWith(u'\'')) &&
                          text.back() == text.front() && text.count(text.front()) == 2;
    return isQuoted ? text.mid(1, text.size() - 2) : text;
}

[[noreturn]] void raise(const RuntimeError &error, const QString &name)
{
    if (error.number() == kErrorFileNotFound || error.number() == kErrorPathNotFound)
        throw RuntimeError(error.number(),
                           QStringLiteral("\"%1\" was not found. Type the name of a program, the path of a "
                                          "document or folder, or an address.")
                               .arg(name),
                           error.source());
    throw RuntimeError(error.number(),
                       QStringLiteral("\"%1\" cannot be opened. ").arg(name) + error.description(),
                       error.source());
}

} // namespace

RunCommand::RunCommand(const QString &line, const Shell &shell, const FileSystem &files, const QString &home)
{
    const QString text = line.trimmed();
    if (text.isEmpty())
        return;
    const QString plain = withoutQuotes(text);
    if (shell.isAddress(plain)) {
        m_kind = Kind::Location;
        m_location = plain;
        return;
    }
    // As it stands first: a name may hold quotes.
    if (isPathThere(text, files, home) || isPathThere(plain, files, home))
        return;
    const QStringList words = commandWords(text, home);
    if (words.constFirst().isEmpty())
        return;
    m_kind = Kind::Program;
    m_program = words.constFirst();
    if (m_program.contains(u'/'))
        m_program = pathFromHome(m_program, home);
    m_arguments = words.mid(1);
}

bool RunCommand::isPathThere(const QString &path, const FileSystem &files, const QString &home)
{
    const QString whole = pathFromHome(path, home);
    if (!files.exists(whole))
        return false;
    m_kind = Kind::Location;
    m_location = whole;
    return true;
}

void RunCommand::start(Shell &shell) const
{
    try {
        if (m_kind == Kind::Location)
            OpenLocation(shell, m_location);
        else if (m_kind == Kind::Program)
            RunProgram(shell, m_program, m_arguments);
    } catch (const RuntimeError &error) {
        raise(error, m_kind == Kind::Location ? m_location : m_program);
    }
}

QString quotedPath(const QString &path)
{
    const bool hasBlanks = path.contains(u' ') || path.contains(u'\t');
    return hasBlanks && !path.contains(u'"') ? u'"' + path + u'"' : path;
}

} // namespace norvane
