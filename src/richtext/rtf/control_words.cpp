#include "richtext/rtf/control_words.h"

#include "richtext/rtf/word_table.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace norvane::rtf {
namespace {

constexpr std::string_view kFontWords[] = {"f", "af", "pnf"};
constexpr std::string_view kColorWords[] = {"cf",      "cb",      "highlight", "ulc",     "chcbpat",
                                            "chcfpat", "cbpat",   "cfpat",     "clcbpat", "clcfpat",
                                            "brdrcf",  "trcbpat", "trcfpat",   "pncf"};

std::string_view text(QByteArrayView letters)
{
    return {letters.data(), size_t(letters.size())};
}

/// The table in the order of the letters, for looking words up by halves.
constexpr auto kByLetters = [] {
    std::array<WordEntry, std::size(kWordTable)> sorted{};
    std::copy(std::begin(kWordTable), std::end(kWordTable), sorted.begin());
    std::sort(sorted.begin(), sorted.end(),
              [](const WordEntry &left, const WordEntry &right) { return left.letters < right.letters; });
    return sorted;
}();

constexpr bool meansLess(const WordEntry &left, const WordEntry &right)
{
    return left.word != right.word ? left.word < right.word : left.argument < right.argument;
}

/// The places of the table in the order of what the words do; of several that do the same, first
/// comes first.
constexpr auto kByMeaning = [] {
    std::array<unsigned short, std::size(kWordTable)> places{};
    for (size_t i = 0; i < places.size(); ++i)
        places[i] = static_cast<unsigned short>(i);
    std::sort(places.begin(), places.end(), [](unsigned short left, unsigned short right) {
        const WordEntry &a = kWordTable[left];
        const WordEntry &b = kWordTable[right];
        return meansLess(a, b) || (!meansLess(b, a) && left < right);
    });
    return places;
}();

} // namespace

ControlWord controlWord(QByteArrayView letters)
{
    const std::string_view key = text(letters);
    const auto found = std::lower_bound(
        kByLetters.begin(), kByLetters.end(), key,
        [](const WordEntry &entry, std::string_view sought) { return entry.letters < sought; });
    if (found == kByLetters.end() || found->letters != key)
        return {};
    return {found->word, found->argument};
}

std::string_view lettersOf(Word word, int argument)
{
    const WordEntry key({}, word, argument);
    const auto found = std::lower_bound(
        kByMeaning.begin(), kByMeaning.end(), key,
        [](unsigned short place, const WordEntry &sought) { return meansLess(kWordTable[place], sought); });
    if (found == kByMeaning.end() || meansLess(key, kWordTable[*found]))
        return {};
    return kWordTable[*found].letters;
}

bool namesFont(QByteArrayView letters)
{
    return std::find(std::begin(kFontWords), std::end(kFontWords), text(letters)) != std::end(kFontWords);
}

bool namesColor(QByteArrayView letters)
{
    return std::find(std::begin(kColorWords), std::end(kColorWords), text(letters)) != std::end(kColorWords);
}

} // namespace norvane::rtf
