#pragma once

#include <cstdlib>
#include <memory>

namespace norvane {

struct FreeMemory
{
    void operator()(void *memory) const { std::free(memory); }
};

/// Owns a reply, an event or an error of xcb.
template <typename T> using XcbPointer = std::unique_ptr<T, FreeMemory>;

} // namespace norvane
