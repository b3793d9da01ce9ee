#pragma once

#include "platform/linux/AccessibleFrames.h"
#include "platform/linux/LocationProvider.h"

namespace norvane {

/// The folders in the windows of file managers that show the path in a text entry, which is there
/// on the accessibility bus even while a row of buttons stands in its place.
class FolderEntryProvider final : public LocationProvider
{
public:
    /// @param home the home folder, which entries write as "~"
    FolderEntryProvider(const DesktopBuses &buses, QString home);

    LookUpResult find(const LookUpRequest &request) override;
    void forget(WindowHandle window) override;

private:
    LookUpResult ask(const LookUpRequest &request, ProgramCalls &calls);
    std::optional<QString> folderIn(const AccessibleObject &entry, const LookUpRequest &request,
                                    ProgramCalls &calls) const;

    const DesktopBuses &m_buses;
    const QString m_home;
    AccessibleFrames m_frames;
    QHash<WindowHandle, AccessibleObject> m_entries;
};

} // namespace norvane
