#include "platform/linux/FolderEntryProvider.h"

#include "platform/linux/DesktopBuses.h"
#include "platform/linux/folder_candidates.h"
#include "platform/linux/location_text.h"

namespace norvane {

namespace {

/// File managers keep a few entries in a window (path, search, rename); the path is among the first.
constexpr int kMostEntries = 8;

} // namespace

FolderEntryProvider::FolderEntryProvider(const DesktopBuses &buses, QString home)
    : m_buses(buses), m_home(std::move(home)), m_frames(buses)
{
}

void FolderEntryProvider::forget(WindowHandle window)
{
    m_frames.forget(window);
    m_entries.remove(window);
}

LookUpResult FolderEntryProvider::find(const LookUpRequest &request)
{
    using Outcome = LookUpResult::Outcome;
    LookUpResult result{m_buses.settled() ? Outcome::None : Outcome::NotReady, {}};
    if (const auto bus = m_buses.accessibility(); bus && m_frames.hasProgram(request.processId)) {
        ProgramCalls calls(*bus, request);
        result = ask(request, calls);
        if (result.outcome == Outcome::NotReady && !calls.ranOut()) {
            forget(request.window);
            result = ask(request, calls);
        }
        if (calls.ranOut())
            return {Outcome::NoAnswer, {}};
    }
    if (result.outcome == Outcome::Found)
        return result;
    const QString folder = watchedFolderOf(request, m_home);
    return folder.isEmpty() ? result : LookUpResult{Outcome::Found, folder};
}

LookUpResult FolderEntryProvider::ask(const LookUpRequest &request, ProgramCalls &calls)
{
    LookUpResult notReady{LookUpResult::Outcome::NotReady, {}};
    const AccessibleObject frame = m_frames.frameOf(request, calls);
    if (frame.isNull())
        return notReady;
    if (const auto kept = m_entries.constFind(request.window); kept != m_entries.cend()) {
        const auto folder = folderIn(*kept, request, calls);
        return folder ? LookUpResult{LookUpResult::Outcome::Found, *folder} : notReady;
    }
    const QVector<AccessibleObject> entries =
        calls.matches(frame, {ProgramCalls::kRoleText, ProgramCalls::kRoleEntry}, kMostEntries);
    for (const AccessibleObject &entry : entries) {
        if (const auto folder = folderIn(entry, request, calls)) {
            m_entries.insert(request.window, entry);
            return {LookUpResult::Outcome::Found, *folder};
        }
    }
    return notReady;
}

std::optional<QString> FolderEntryProvider::folderIn(const AccessibleObject &entry,
                                                     const LookUpRequest &request, ProgramCalls &calls) const
{
    auto folder = folderFromEntryText(calls.text(entry), m_home);
    if (!folder || *folder == request.lastLocation)
        return folder;
    // While the user types a path the entry holds a piece of it; the caption follows the folder.
    const bool typing = (calls.state(entry) >> ProgramCalls::kStateFocused & 1) != 0;
    if (!typing || captionNamesFolder(request.caption, *folder, m_home))
        return folder;
    return request.sameCaption && !request.lastLocation.isEmpty() ? std::optional(request.lastLocation)
                                                                  : std::nullopt;
}

} // namespace norvane
