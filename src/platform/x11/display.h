#pragma once

namespace norvane {

/// Whether the display that DISPLAY names answers.
bool isDisplayThere();

} // namespace norvane
