#pragma once

#include <string_view>

namespace norvane::dao {

enum class LikeResult { No, Yes, BadPattern, TooMuchWork };

/// Whether the whole text has the form of the pattern: "*" any text, "?" one character, "#" one
/// digit, "[a-c]" one of a list, "[!a-c]" one that is not in it. Both are folded already, in UTF-8.
LikeResult likeMatch(std::string_view text, std::string_view pattern);

} // namespace norvane::dao
