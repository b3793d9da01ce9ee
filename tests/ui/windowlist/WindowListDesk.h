#pragma once

#include "fakes/FakeNotices.h"
#include "fakes/FakePrompts.h"
#include "fakes/MemorySettings.h"
#include "unit/watcher/Desk.h"
#include "windowlist/windows/WindowListServices.h"

namespace norvane::tests {

/// What the Window List and the Run window work with, on a scripted desktop.
class WindowListDesk : public Desk
{
public:
    fakes::MemorySettings userSettings;
    fakes::FakePrompts prompts;
    fakes::FakeNotices notices;
    QStringList attached; ///< "title|handle"
    WindowListServices services{.windows = windows,
                                .tasks = tasks,
                                .lookup = location,
                                .forms = forms,
                                .settings = userSettings,
                                .shell = shell,
                                .files = files,
                                .prompts = prompts,
                                .notices = notices,
                                .AttachWindow =
                                    [this](const QString &title, WindowHandle window) {
                                        attached.append(title + u'|' + QString::number(window));
                                    },
                                .home = QStringLiteral("/home/user"),
                                .twips = Twips(96, 96)};
};

} // namespace norvane::tests
