#include "watcher/open_location.h"

#include "platform/RuntimeError.h"
#include "platform/Shell.h"
#include "platform/errors.h"

namespace norvane {

namespace {

struct Failure
{
    int number;
    QString message;
};

Failure failure(int result)
{
    switch (result) {
    case 0:
    case 8:
        return {7, QStringLiteral("Out of memory")};
    case 2:
        return {kErrorFileNotFound, QStringLiteral("File not found")};
    case 3:
        return {kErrorPathNotFound, QStringLiteral("Path not found")};
    case 5:
        return {kErrorFileAccess, QStringLiteral("Path/file access error")};
    case 11:
        return {0, QStringLiteral("The executable file is invalid or corrupt")};
    case 26:
        return {0, QStringLiteral("A sharing violation occurred.")};
    case 27:
        return {0, QStringLiteral("This file type does not have a valid file association.")};
    case 28:
        return {286, QStringLiteral("The file could not be opened due to time out.  Please try again in a "
                                    "moment.")};
    case 29:
        return {285, QStringLiteral("The file could not be opened because the DDE transaction failed.  "
                                    "Please try again in a moment.")};
    case 30:
        return {0, QStringLiteral("The file could not be opened because the target application is busy.  "
                                  "Please try again in a moment.")};
    case 31:
        return {0, QStringLiteral("No application is associated with this file type.")};
    case 32:
        return {48, QStringLiteral("The specified dynamic-link library was not found.")};
    default:
        return {0, QStringLiteral("An error occurred occurred whilst trying to open or print the selected "
                                  "file.")};
    }
}

void raiseFailure(int result)
{
    if (result > Shell::kShellLastError)
        return;
    const Failure told = failure(result);
    throw RuntimeError(told.number, told.message, QStringLiteral("Norvane.GShell"));
}

} // namespace

bool OpenLocation(Shell &shell, const QString &location)
{
    if (location.isEmpty())
        return false;
    raiseFailure(shell.open(location));
    return true;
}

void RunProgram(Shell &shell, const QString &program, const QStringList &arguments)
{
    raiseFailure(shell.run(program, arguments));
}

} // namespace norvane
