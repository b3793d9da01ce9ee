#pragma once

#include "windowlist/windows/WindowListServices.h"

#include <memory>

class QWidget;

namespace norvane {

class ShellForms;
class WindowLocation;
struct Backends;
struct SharedState;

/// The Window List and the Run window of the program.
class ProgramWindowList
{
public:
    /// All must outlive this object; @p forms need not be made yet.
    /// @param attach puts a note on a window
    ProgramWindowList(Backends &backends, SharedState &state, WindowLocation &location, Notices &notices,
                      ShellForms &forms, Twips twips,
                      std::function<void(const QString &title, WindowHandle window)> attach);

    // Nothing before start-up is over.
    void show();
    /// Hot key 2: unloads the list if it is loaded, else shows it.
    void toggle();
    void showRun();

private:
    const WindowListServices *services();

    Backends &m_backends;
    SharedState &m_state;
    WindowLocation &m_location;
    Notices &m_notices;
    ShellForms &m_forms;
    Twips m_twips;
    std::function<void(const QString &title, WindowHandle window)> m_attach;
    std::unique_ptr<WindowListServices> m_services;
};

} // namespace norvane
