#pragma once

#include <QString>
#include <QStringList>

namespace norvane {

class FileSystem;
class Shell;

/// What a person types to start something: an address, the path of a document, folder or program, or a
/// program with its arguments.
class RunCommand
{
public:
    enum class Kind {
        Nothing,  ///< an empty line
        Location, ///< an address, or a path that is there
        Program,  ///< the first word, with the others as its arguments
    };

    /// Tells what a line means; asks the disk whether the line is a path. A path may stand in quotes and
    /// may begin in the home folder. Raises 5 when a quotation mark is not closed.
    /// @param home the home folder, no separator at the end
    RunCommand(const QString &line, const Shell &shell, const FileSystem &files, const QString &home);

    Kind kind() const { return m_kind; }
    const QString &location() const { return m_location; }
    const QString &program() const { return m_program; }
    const QStringList &arguments() const { return m_arguments; }

    /// Opens or starts it, without waiting and without a shell. Raises why it cannot, with the name.
    void start(Shell &shell) const;

private:
    bool isPathThere(const QString &path, const FileSystem &files, const QString &home);

    Kind m_kind = Kind::Nothing;
    QString m_location;
    QString m_program;
    QStringList m_arguments;
};

/// A path as it stands in a command line: in quotes where it holds blanks.
QString quotedPath(const QString &path);

} // namespace norvane
