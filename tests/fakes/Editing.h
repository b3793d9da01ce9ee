#pragma once

#include "fakes/FakeClock.h"
#include "fakes/FakeFileSystem.h"
#include "fakes/FakePrinting.h"
#include "fakes/FakePrompts.h"
#include "fakes/FakeShell.h"
#include "richtext/EditServices.h"
#include "richtext/commands/EditState.h"

namespace norvane {

/// What editors need, scripted.
struct Editing
{
    fakes::FakeFileSystem files;
    fakes::FakeShell shell;
    fakes::FakePrompts prompts;
    fakes::FakePrinting printing;
    fakes::FakeClock clock;
    EditState state;
    EditServices services{files, shell, prompts, printing, clock, state};
};

} // namespace norvane
