#pragma once

#include "platform/RuntimeError.h"

#include <gtest/gtest.h>

namespace norvane {

/// The number of the run-time error that an action raises, with words to it; 0 when it raises none.
template <typename Action> int errorOf(const Action &action)
{
    try {
        action();
    } catch (const RuntimeError &error) {
        EXPECT_FALSE(error.description().isEmpty());
        return error.number();
    }
    return 0;
}

} // namespace norvane
