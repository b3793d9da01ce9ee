#pragma once

#include "platform/linux/LocationProvider.h"

namespace norvane {

/// The folders in the windows of file managers that tell no path: a folder that fits the caption
/// and that the program watches.
class WatchedFolderProvider final : public LocationProvider
{
public:
    /// @param home the home folder
    explicit WatchedFolderProvider(QString home) : m_home(std::move(home)) {}

    LookUpResult find(const LookUpRequest &request) override;
    void forget(WindowHandle) override {}

private:
    const QString m_home;
};

} // namespace norvane
