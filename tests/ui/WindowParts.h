#pragma once

#include "browser/BrowserServices.h"
#include "fakes/FakeNoteGridView.h"
#include "fakes/FakeNoteViews.h"
#include "fakes/FakePrinting.h"
#include "fakes/FakePrompts.h"
#include "fakes/MemorySettings.h"
#include "richtext/EditServices.h"
#include "richtext/commands/EditState.h"

namespace norvane::tests {

/// What windows on notes use besides the store and the desktop: prompts that are answered by a script,
/// settings in memory, and other windows that only count.
class WindowParts
{
public:
    WindowParts(FileSystem &files, Shell &shell, Clock &clock)
        : edit{files, shell, prompts, printing, clock, editState}
    {
    }

    /// These parts with those of a desk, which is to outlive them.
    template <typename Desk> BrowserServices browserServices(Desk &desk, const WatchSettings &watch)
    {
        return {.store = desk.store,
                .forms = desk.forms,
                .settings = settings,
                .shell = edit.shell,
                .clock = desk.clock,
                .sound = desk.sound,
                .events = desk.events,
                .windows = desk.windows,
                .timer = desk.timer,
                .watch = watch,
                .edit = edit,
                .browser = browserView,
                .views = views,
                .isFrameVisible = [this] { return isFrameVisible; },
                .twips = Twips(96, 96)};
    }

    fakes::MemorySettings settings;
    fakes::FakePrompts prompts;
    fakes::FakePrinting printing;
    EditState editState;
    EditServices edit;
    fakes::FakeNoteGridView browserView;
    fakes::FakeNoteViews views;
    bool isFrameVisible = true;
};

} // namespace norvane::tests
