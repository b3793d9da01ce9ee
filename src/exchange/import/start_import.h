#pragma once

#include <QString>
#include <functional>
#include <optional>

namespace norvane {

class EventLoop;
class NoteStore;
class PasswordDialogModel;
class Prompts;

/// Where notes are imported from.
struct ImportPlace
{
    QString folder;   ///< ends in a separator
    QString password; ///< empty where the database has none
};

/// What the way to an import works with. Everything outlives it.
struct StartImportParts
{
    NoteStore &store; ///< the open database, which stays as it is
    Prompts &prompts;
    EventLoop &events;
    /// Shows `frmPassword` over the model, with "&Select Database" disabled, and waits for its end.
    std::function<void(PasswordDialogModel &)> askPassword;
};

/// Looks whether notes can be imported from the database of a folder, asks for its password where it has
/// one, and tells what stands in the way.
/// @param databaseBox the text of `txtDBName`: the folder that a locked database is told by
/// @return nothing when nothing can be imported
std::optional<ImportPlace> startImport(const StartImportParts &parts, const QString &folder,
                                       const QString &databaseBox);

} // namespace norvane
