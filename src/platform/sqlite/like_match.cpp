#include "platform/sqlite/like_match.h"

#include "platform/sqlite/text_fold.h"

#include <QString>
#include <algorithm>
#include <cstddef>

namespace norvane::dao {

namespace {

/// Comparisons for one text: a pattern with many wildcards against a very long text ends here.
constexpr std::size_t kMostSteps = 50'000'000;

/// One element of a pattern that is not "*".
struct Element
{
    std::size_t size = 1; ///< units of the pattern; 0 when the list does not end
    bool matches = false;
};

template <typename View> Element elementAt(View pattern, std::size_t place, char32_t unit)
{
    const auto at = [&pattern](std::size_t i) { return static_cast<char32_t>(pattern[i]); };
    switch (at(place)) {
    case U'?':
        return {1, true};
    case U'#':
        return {1, unit >= U'0' && unit <= U'9'};
    case U'[':
        break;
    default:
        return {1, at(place) == unit};
    }
    std::size_t i = place + 1;
    const bool negated = i < pattern.size() && at(i) == U'!';
    if (negated)
        ++i;
    bool found = false;
    bool empty = true;
    for (; i < pattern.size() && at(i) != U']'; ++i) {
        const char32_t low = at(i);
        char32_t high = low;
        if (i + 2 < pattern.size() && at(i + 1) == U'-' && at(i + 2) != U']') {
            high = at(i + 2);
            i += 2;
        }
        found = found || (unit >= low && unit <= high);
        empty = false;
    }
    if (i >= pattern.size())
        return {0, false};
    // "[]" is the empty text; it takes no character, and is not used by anyone.
    return {i + 1 - place, !empty && found != negated};
}

template <typename View> bool listsEnd(View pattern)
{
    for (std::size_t i = 0; i < pattern.size();) {
        const std::size_t size = elementAt(pattern, i, U' ').size;
        if (size == 0)
            return false;
        i += size;
    }
    return true;
}

/// The byte of a part that texts have least of.
std::size_t rarestOf(std::string_view part)
{
    static constexpr std::string_view kOften = "\xd0\xd1\xc3 etaoinsrhldcumfpgwybvk";
    const auto rarest = std::max_element(part.begin(), part.end(),
                                         [](char a, char b) { return kOften.find(a) < kOften.find(b); });
    return static_cast<std::size_t>(rarest - part.begin());
}

/// Where a part with that rarest byte begins: few places are looked at twice.
std::size_t findByRarest(std::string_view text, std::string_view part, std::size_t rarest)
{
    for (std::size_t at = rarest; at < text.size(); ++at) {
        at = text.find(part[rarest], at);
        if (at == std::string_view::npos)
            break;
        if (text.compare(at - rarest, part.size(), part) == 0)
            return at - rarest;
    }
    return std::string_view::npos;
}

/// What the pattern begins with before its first wildcard.
template <typename View> View plainText(View pattern)
{
    const auto isWildcard = [](auto unit) {
        return unit == '*' || unit == '?' || unit == '#' || unit == '[';
    };
    return pattern.substr(0, static_cast<std::size_t>(
                                 std::find_if(pattern.begin(), pattern.end(), isWildcard) - pattern.begin()));
}

/// Only the last "*" ever needs another try, so the work is at most text times pattern.
template <typename View> LikeResult match(View text, View pattern)
{
    constexpr auto kNone = static_cast<std::size_t>(-1);
    std::size_t t = 0;
    std::size_t p = 0;
    std::size_t star = kNone;
    std::size_t retry = 0;
    std::size_t steps = 0;
    View behindStar; // plain text that stands there
    const auto startBehindStar = [&] {
        retry = text.find(behindStar, retry);
        p = star + 1;
        t = retry;
        return retry != View::npos;
    };
    while (t < text.size()) {
        if (++steps > kMostSteps)
            return LikeResult::TooMuchWork;
        if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            retry = t;
            behindStar = plainText(pattern.substr(p));
            if (!startBehindStar())
                return LikeResult::No;
            continue;
        }
        if (p < pattern.size()) {
            const Element element = elementAt(pattern, p, static_cast<char32_t>(text[t]));
            if (element.matches) {
                p += element.size;
                ++t;
                continue;
            }
        }
        if (star == kNone)
            return LikeResult::No;
        ++retry;
        if (!startBehindStar())
            return LikeResult::No;
    }
    while (p < pattern.size() && pattern[p] == '*')
        ++p;
    return p == pattern.size() ? LikeResult::Yes : LikeResult::No;
}

std::u32string charactersOf(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())).toStdU32String();
}

} // namespace

LikePattern::LikePattern(std::string_view pattern)
    : m_pattern(pattern), m_isAscii(isAsciiText(pattern)), m_isGood(listsEnd(pattern))
{
    // Bytes do, unless "?" or a list is to take a whole character of several.
    if (pattern.find_first_of("?[") != pattern.npos)
        m_characters = charactersOf(pattern);
    if (pattern.size() < 3 || pattern.front() != '*' || pattern.back() != '*')
        return;
    const std::string_view inner = pattern.substr(1, pattern.size() - 2);
    if (plainText(inner) == inner) {
        m_part = inner;
        m_rarest = rarestOf(inner);
    }
}

LikeResult LikePattern::match(std::string_view text) const
{
    if (!m_part.empty())
        return findByRarest(text, m_part, m_rarest) != text.npos ? LikeResult::Yes : LikeResult::No;
    if (!m_isGood)
        return LikeResult::BadPattern;
    if (m_characters.empty() || (m_isAscii && isAsciiText(text)))
        return norvane::dao::match(text, std::string_view(m_pattern));
    const std::u32string characters = charactersOf(text);
    return norvane::dao::match(std::u32string_view(characters), std::u32string_view(m_characters));
}

} // namespace norvane::dao
