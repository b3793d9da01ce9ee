#pragma once

#include <QFuture>
#include <QString>
#include <QStringList>

namespace norvane {

/// Folders that have a meaning to the desktop, by the system's numbers.
enum class SpecialFolder {
    Favorites = 6, ///< the user's favorite places
    Startup = 7,   ///< what the desktop starts with the user's session
    Recent = 8,    ///< what was used lately
};

/// What the desktop does with files, folders and addresses.
class Shell
{
public:
    virtual ~Shell();

    /// Result codes of open(): values above kShellLastError are success.
    enum OpenResult {
        kOutOfMemory = 0,
        kFileNotFound = 2,
        kPathNotFound = 3,
        kAccessDenied = 5,
        kBadExecutable = 11,
        kSharingViolation = 26,
        kAssociationIncomplete = 27,
        kTimeOut = 28,
        kTransactionFailed = 29,
        kBusy = 30,
        kNoAssociation = 31,
        kLibraryNotFound = 32,
        kShellLastError = 32,
        kOpened = 33,
    };
    /// Opens a document, folder, program or address with its program; does not wait for it.
    virtual int open(const QString &location) = 0;
    /// Whether open() would run what the location names as a program, or whether its program would.
    virtual bool runsProgram(const QString &location) const = 0;
    /// Whether open() would take the text for the address of something, by the text alone.
    virtual bool isAddress(const QString &text) const = 0;
    /// Starts a program in the home folder; does not wait for it. No shell reads the arguments.
    /// @param program a path, or the name of an installed program
    /// @return the codes of open()
    virtual int run(const QString &program, const QStringList &arguments) = 0;
    /// The names by which run() finds programs, sorted. Reads folders.
    virtual QStringList programNames() const = 0;
    /// The names in a folder, sorted, folders with a separator behind them; none where it cannot be read.
    /// Waits for nothing: a folder of another machine may take minutes to tell.
    /// @param folder     native path
    /// @param withHidden also those that the desktop does not show
    virtual QFuture<QStringList> namesIn(const QString &folder, bool withHidden) const = 0;

    /// The type of a path or address by its text alone ("Plain text document", "XYZ File", "File",
    /// "Application"; a folder told as such by its text: "File Folder"). Touches no disk. Empty
    /// when nothing can be told.
    virtual QString typeName(const QString &path) const = 0;
    /// What typeName() goes by: all paths with the same key have the same type. Quickly told, so that
    /// whoever asks for many may remember.
    virtual QString typeKey(const QString &path) const = 0;
    /// The names that the icon of a path or extension (".HTM") may have in the desktop's theme, the best
    /// one first. By the text alone, too.
    virtual QStringList iconNames(const QString &path) const = 0;

    /// Whether the desktop starts the program when the user's session begins.
    virtual bool startsWithSession() const = 0;
    /// Makes the desktop do so, by the program that runs now, or no longer. Raises 75, 76 or 3026.
    virtual void setStartsWithSession(bool starts) = 0;

    /// Native, no separator at the end; empty for one that the desktop does not have. Made where it does not
    /// exist.
    virtual QString specialFolder(SpecialFolder folder) const = 0;

    /// The folder that the program keeps its data in; native, no separator at the end.
    virtual QString programFolder() const = 0;
};

} // namespace norvane
