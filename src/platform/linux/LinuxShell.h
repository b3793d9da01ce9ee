#pragma once

#include "platform/Shell.h"
#include "platform/linux/SessionFolders.h"

namespace norvane {

/// The desktop of a Linux session.
///
/// Whether a location can be opened is found out before the desktop is asked, since the desktop's
/// own launcher tells no result.
class LinuxShell : public Shell
{
public:
    explicit LinuxShell(SessionFolders folders = SessionFolders::fromEnvironment());

    /// A path relative to nowhere is looked for among the programs of PATH and the desktop's
    /// entries. A "file:" address is opened as its path.
    int open(const QString &location) override;
    /// Files that are marked executable count, and those whose kind other programs run: desktop
    /// entries, scripts, archives of programs.
    bool runsProgram(const QString &location) const override;
    bool isAddress(const QString &text) const override;
    /// A name is looked for in the folders of PATH; without arguments among the desktop's entries, too.
    int run(const QString &program, const QStringList &arguments) override;
    QStringList programNames() const override;
    QFuture<QStringList> namesIn(const QString &folder, bool withHidden) const override;
    QString typeName(const QString &path) const override;
    QString typeKey(const QString &path) const override;
    QStringList iconNames(const QString &path) const override;
    /// An entry of $XDG_CONFIG_HOME/autostart; one that the desktop's own settings have switched off counts
    /// as none.
    bool startsWithSession() const override;
    void setStartsWithSession(bool starts) override;
    /// The favorites are a folder "Favorites" among the user's documents.
    QString specialFolder(SpecialFolder folder) const override;
    /// $XDG_DATA_HOME/norvane; made, with its parents, where it does not exist.
    QString programFolder() const override;

private:
    int openAddress(const QString &address) const;
    int openPath(const QString &path) const;
    int openFile(const QByteArray &name, const QString &shown, const QString &target) const;
    int openByName(const QString &name, const QStringList &arguments) const;
    QString sessionEntry() const;

    SessionFolders m_folders;
};

} // namespace norvane
