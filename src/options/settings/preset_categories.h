#pragma once

#include <QStringList>

namespace norvane {

/// The categories that are proposed, in no order that means anything.
QStringList presetCategories();

} // namespace norvane
