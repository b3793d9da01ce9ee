#pragma once

#include <QString>

namespace norvane {

/// A tool tip that shows a text as it is written, even if it looks like markup.
QString plainToolTip(const QString &text);

} // namespace norvane
