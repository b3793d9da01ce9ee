#pragma once

namespace norvane {

/// Whether the user's session is one of Wayland, by its environment: an X display in it shows the
/// windows of X programs alone.
bool isWaylandSession();

} // namespace norvane
