#pragma once

namespace norvane {

/// Makes grids known to screen readers: as tables, whose cells are made when somebody asks for them.
void installGridAccessibility();

} // namespace norvane
