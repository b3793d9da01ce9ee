#pragma once

#include <QString>

namespace norvane {

class FileSystem;

namespace dao {
class Engine;
}

enum class FileContent {
    Opens,         ///< a note database without a password
    NeedsPassword, ///< a note database, as far as can be told without its password
    Missing,
    Unusable, ///< of another kind, empty, damaged, of a newer version, not readable
};

struct FoundInFile
{
    FileContent kind = FileContent::Opens;
    QString text; ///< what it is and, where that is not plain, what to do; empty for Opens
};

/// Looks at a file that should be a note database, and says in words what it is. Changes nothing.
/// Raises nothing.
FoundInFile whatIsInFile(dao::Engine &engine, const FileSystem &files, const QString &path);

} // namespace norvane
