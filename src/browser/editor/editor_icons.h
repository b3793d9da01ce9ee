#pragma once

#include <QIcon>

namespace norvane {

enum class EditorIcon { Close, Edit, Open, Save };

/// The desktop theme's icons if it has them all, so that they match; else our own.
QIcon editorIcon(EditorIcon icon);

} // namespace norvane
