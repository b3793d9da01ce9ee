#pragma once

#include <QTest>

/// How long anything may take on a machine that does other things too.
inline constexpr int kPatienceMs = 15000;

/// Runs the event loop until the condition holds; false when it does not in time.
template <typename Condition> bool eventually(Condition condition)
{
    return QTest::qWaitFor(condition, kPatienceMs);
}
