#include "platform/linux/WatchedFolderProvider.h"

#include "platform/linux/folder_candidates.h"

namespace norvane {

LookUpResult WatchedFolderProvider::find(const LookUpRequest &request)
{
    const QString folder = watchedFolderOf(request, m_home);
    // The watch may come a moment after the caption.
    return folder.isEmpty() ? LookUpResult{LookUpResult::Outcome::NotReady, {}}
                            : LookUpResult{LookUpResult::Outcome::Found, folder};
}

} // namespace norvane
