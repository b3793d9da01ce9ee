#pragma once

#include "platform/Shell.h"

#include <QString>
#include <functional>

namespace norvane {

class FileSystem;
class Prompts;
struct ShellLink;

/// What shortcuts and favorites are made with. All must outlive the call.
struct ShortcutParts
{
    Shell &shell;
    FileSystem &files;
    Prompts &prompts;
};

/// The path of a folder of the desktop, ending in a separator; empty where the desktop has none.
QString GetSpecialFolder(const Shell &shell, SpecialFolder folder);

/// Writes the Shell Link @p LinkName into a folder, over one that is there. That of a target that does not
/// exist is not written, and the user is told; so is that for a folder that does not.
/// Raises what shellLinkBytes() and FileSystem::write() raise.
/// @param Folder native path, without a separator at its end
void CreateShortcut(const ShortcutParts &parts, const QString &Folder, const QString &LinkName,
                    const ShellLink &link);

/// Asks the user for the name and the folder of a favorite. @return the path of its file; empty when
/// cancelled
/// @param folder that of all favorites, ending in a separator
using FavoriteChooser = std::function<QString(const QString &title, const QString &folder)>;

/// A title as the name of a favorite: without what file names have a use for.
QString favoriteName(const QString &title);

/// Lets the user make an Internet shortcut among the favorites. Raises what FileSystem raises.
/// @return its path; empty when there is none to make, or the user cancels
QString AddToFavorites(const ShortcutParts &parts, const FavoriteChooser &choose, const QString &Title,
                       const QString &URL);

/// Sets a value of a file of sections ("[Section]") and values ("Key=Value"); makes file, section and key
/// where they are not there and keeps all else. Raises what FileSystem raises.
void WriteProfileString(FileSystem &files, const QString &Section, const QString &Key, const QString &Value,
                        const QString &File);

} // namespace norvane
