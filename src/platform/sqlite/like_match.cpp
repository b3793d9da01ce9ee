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

template <typename View> std::size_t findPart(View text, View part, std::size_t from)
{
    return text.find(part, from);
}

/// By the byte of the part that texts have least of, so that few places are looked at twice.
template <> std::size_t findPart(std::string_view text, std::string_view part, std::size_t from)
{
    constexpr std::string_view kOften = "\xd0\xd1\xc3 etaoinsrhldcumfpgwybvk";
    if (part.size() < 2)
        return text.find(part, from);
    const auto rarest = static_cast<std::size_t>(
        std::max_element(part.begin(), part.end(),
                         [&kOften](char a, char b) { return kOften.find(a) < kOften.find(b); }) -
        part.begin());
    for (std::size_t at = from + rarest; at < text.size(); ++at) {
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

/// The text between the stars of "*text*", where it has no wildcards itself; else nothing.
template <typename View> View starredText(View pattern)
{
    if (pattern.size() < 3 || pattern.front() != '*' || pattern.back() != '*')
        return {};
    const View inner = pattern.substr(1, pattern.size() - 2);
    return plainText(inner) == inner ? inner : View();
}

/// Only the last "*" ever needs another try, so the work is at most text times pattern.
template <typename View> LikeResult match(View text, View pattern)
{
    if (const View inner = starredText(pattern); !inner.empty())
        return findPart(text, inner, 0) != View::npos ? LikeResult::Yes : LikeResult::No;
    if (!listsEnd(pattern))
        return LikeResult::BadPattern;
    constexpr auto kNone = static_cast<std::size_t>(-1);
    std::size_t t = 0;
    std::size_t p = 0;
    std::size_t star = kNone;
    std::size_t retry = 0;
    std::size_t steps = 0;
    View behindStar; // plain text that stands there
    const auto startBehindStar = [&] {
        retry = findPart(text, behindStar, retry);
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

} // namespace

LikeResult likeMatch(std::string_view text, std::string_view pattern)
{
    // Bytes do, unless "?" or a list is to take a whole character of several.
    if (pattern.find_first_of("?[") == std::string_view::npos || (isAsciiText(text) && isAsciiText(pattern)))
        return match(text, pattern);
    const std::u32string wideText = QString::fromUtf8(text.data(), qsizetype(text.size())).toStdU32String();
    const std::u32string widePattern =
        QString::fromUtf8(pattern.data(), qsizetype(pattern.size())).toStdU32String();
    return match(std::u32string_view(wideText), std::u32string_view(widePattern));
}

} // namespace norvane::dao
