#pragma once

#include <string>
#include <string_view>

namespace norvane::dao {

enum class LikeResult { No, Yes, BadPattern, TooMuchWork };

/// A pattern of `like`: "*" any text, "?" one character, "#" one digit, "[a-c]" one of a list, "[!a-c]" one
/// that is not in it. What depends on the pattern alone is found out once.
class LikePattern
{
public:
    /// @param pattern folded, in UTF-8; copied
    explicit LikePattern(std::string_view pattern);

    /// Whether the whole of a text has the form. @param text folded, in UTF-8
    LikeResult match(std::string_view text) const;

private:
    std::string m_pattern;
    std::u32string m_characters; ///< the pattern, where a wildcard takes a whole character
    bool m_isAscii = true;
    bool m_isGood = true;     ///< whether its lists end
    std::string m_part;       ///< the text of "*text*", where it has no wildcards itself; else empty
    std::size_t m_rarest = 0; ///< its byte that texts have least of
};

} // namespace norvane::dao
