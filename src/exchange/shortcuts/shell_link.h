#pragma once

#include <QByteArray>
#include <QString>

namespace norvane {

/// What a Shell Link file (".lnk") tells of what it leads to.
struct ShellLink
{
    QString target = {}; ///< native path of a file or folder
    QString arguments = {};
    QString workingFolder = {};
    QString iconPath = {}; ///< where empty, an icon by its number is the target's
    int iconIndex = 0;
    int showCommand = 1; ///< how its window opens: 1 is as usual, 3 maximised, 7 minimised
};

/// The file of a Shell Link. The target stands in it by its path alone, in Unicode too; all other texts are
/// in the western code page.
/// Raises 6 for a number outside 0 to 255, and 5 for a text of more than 255 characters, or with some that
/// the code page lacks.
QByteArray shellLinkBytes(const ShellLink &link);

} // namespace norvane
