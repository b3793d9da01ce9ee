#include "app/ProgramWindowList.h"

#include "app/Backends.h"
#include "shell/forms/ShellForms.h"
#include "shell/lifecycle/SharedState.h"
#include "shell/windows/mdiMain.h"
#include "watcher/window_location.h"
#include "windowlist/windows/FTaskMgr.h"
#include "windowlist/windows/MRunDialog.h"

#include <QDir>
#include <QIcon>

namespace norvane {

ProgramWindowList::ProgramWindowList(Backends &backends, SharedState &state, WindowLocation &location,
                                     Notices &notices, ShellForms &forms, Twips twips,
                                     std::function<void(const QString &title, WindowHandle window)> attach)
    : m_backends(backends), m_state(state), m_location(location), m_notices(notices), m_forms(forms),
      m_twips(twips), m_attach(std::move(attach))
{
}

const WindowListServices *ProgramWindowList::services()
{
    if (!m_services && m_state.TaskList)
        m_services = std::make_unique<WindowListServices>(WindowListServices{.windows = m_backends.windows,
                                                                             .tasks = *m_state.TaskList,
                                                                             .lookup = m_location,
                                                                             .forms = m_state.forms,
                                                                             .settings = m_backends.settings,
                                                                             .shell = m_backends.shell,
                                                                             .files = m_backends.files,
                                                                             .prompts = m_backends.prompts,
                                                                             .notices = m_notices,
                                                                             .AttachWindow = m_attach,
                                                                             .home = QDir::homePath(),
                                                                             .twips = m_twips});
    return m_services.get();
}

void ProgramWindowList::show()
{
    if (const WindowListServices *parts = services())
        ShowWindowList(*parts);
}

void ProgramWindowList::toggle()
{
    if (const WindowListServices *parts = services())
        ToggleWindowList(*parts);
}

void ProgramWindowList::showRun()
{
    if (const WindowListServices *parts = services())
        ShowNewTask(*parts, m_forms.isFrameVisible() ? m_forms.frame() : nullptr);
}

} // namespace norvane
