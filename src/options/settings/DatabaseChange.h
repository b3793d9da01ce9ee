#pragma once

#include <QString>
#include <functional>

namespace norvane {

class EventLoop;
class NoteDatabaseSwitch;
class NoteStore;
class PasswordDialogModel;
class Prompts;
class SettingsStore;
class WatchTimer;
struct WatchSettings;

/// What a change of the database works with. Everything outlives it.
struct DatabaseChangeParts
{
    NoteStore &store;
    NoteDatabaseSwitch &databases;
    SettingsStore &settings;
    Prompts &prompts;
    EventLoop &events;
    WatchTimer &timer;
    const WatchSettings &watch;
    /// Shows `frmPassword` over the model, without "&Select Database", and waits for its end.
    std::function<void(PasswordDialogModel &)> askPassword;
    /// Asks for each editor with unsaved changes whether it may close without them; false aborts.
    std::function<bool()> editorsMayClose;
};

/// Leads from the open note database to that of another folder, with every question on the way. Until the
/// last one is answered nothing has changed, and the open database stays open.
class DatabaseChange
{
public:
    enum class Outcome {
        Same,     ///< it is the folder of the open database
        Stopped,  ///< something stands in the way, or was answered with No
        Declined, ///< the user does not want another database after all
        Changed,
        Failed, ///< the new database could not be opened, which was told: the program ends
    };

    explicit DatabaseChange(const DatabaseChangeParts &parts) : m_parts(parts) {}

    /// @param folder    ends in a separator; compared with the present one without regard to case
    /// @param asDefault whether the program is to start with it from now on
    Outcome changeTo(const QString &folder, bool asDefault);

private:
    bool isLocked(const QString &folder) const;
    bool askForPassword(const QString &file, QString &password) const;
    bool opens(const QString &file, const QString &password) const;

    DatabaseChangeParts m_parts;
};

} // namespace norvane
