#pragma once

#include <QtGlobal>
#include <algorithm>
#include <numeric>
#include <optional>
#include <utility>
#include <vector>

namespace norvane {

/// The numbers from 0 to @p count - 1 in their order, where they stand so already, upward or downward, but
/// for a few: after a change of a row or two. Nothing where more than that do not.
/// @param isBelow tells of two numbers whether the first comes before the second
template <class IsBelow> std::optional<std::vector<qint32>> nearlySorted(qint32 count, const IsBelow &isBelow)
{
    constexpr std::size_t kFew = 64;
    std::vector<qint32> standing(static_cast<std::size_t>(count));
    std::iota(standing.begin(), standing.end(), 0);
    for (int turn = 0; turn < 2; ++turn) {
        std::vector<qint32> rising;
        std::vector<qint32> others;
        rising.reserve(standing.size());
        for (const qint32 number : standing) {
            if (!rising.empty() && isBelow(number, rising.back())) {
                // One of the two is out of place: the one that does not suit the number before them.
                const bool suits = rising.size() < 2 || !isBelow(number, rising[rising.size() - 2]);
                others.push_back(suits ? std::exchange(rising.back(), number) : number);
                if (others.size() > kFew)
                    break;
            } else {
                rising.push_back(number);
            }
        }
        if (others.size() <= kFew) {
            std::sort(others.begin(), others.end(), isBelow);
            std::vector<qint32> all(standing.size());
            std::merge(rising.begin(), rising.end(), others.begin(), others.end(), all.begin(), isBelow);
            return all;
        }
        std::reverse(standing.begin(), standing.end());
    }
    return std::nullopt;
}

} // namespace norvane
