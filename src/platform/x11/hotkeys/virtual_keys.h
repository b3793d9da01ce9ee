#pragma once

#include <QVector>
#include <cstdint>

namespace norvane {

/// The key symbols that a virtual key code stands for, the best one first; empty for a code that
/// no keyboard here has. Punctuation is that of the US layout.
QVector<std::uint32_t> keySymbolsOf(int virtualKey);

} // namespace norvane
