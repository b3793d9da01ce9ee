#pragma once

namespace norvane {

/// Lets accessibility tools see the rows of menu windows: names, kinds, states, actions. May be called
/// more than once.
void installMenuAccessibility();

} // namespace norvane
