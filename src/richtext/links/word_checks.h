#pragma once

#include "richtext/links/link_words.h"

#include <optional>

namespace norvane::links {

/// A part of a text, as much of it as a rule may look at, so that nobody copies the whole.
struct Piece
{
    QString text;
    int position = 0; ///< of its first unit in the whole text
};

/// What a blank or Enter, not inserted yet, does to the word before it.
struct TypingCheck
{
    /// What gets the look of a link; nothing: the caret is set where it is, and that is all.
    std::optional<Span> link;
};

/// @param before from the begin of the paragraph before the caret's to some units behind the caret
/// @param caret  where the key will go in
/// @return nothing when the check has no effect: at the begin of the text, and beyond what a 16-bit
/// position holds. The link's length is that of the whole text before the caret: it may reach
/// behind the word, and behind the end of the text.
std::optional<TypingCheck> typingCheck(const Piece &before, int caret);

/// How much typingCheck() looks at behind the caret.
inline constexpr int kLongestPrefix = 7;
/// The last position with a typing check.
inline constexpr int kLastCheckedPosition = 32767;

/// What stands under the pointer.
struct PointedWord
{
    enum class Place {
        Nowhere,       ///< before the second character: the pointer stays as it is
        BehindLineEnd, ///< the pointer is the default one, and the tool tip is cleared
        Word,
    };
    Place place = Place::Nowhere;
    QString word;        ///< may be empty
    bool isLink = false; ///< the pointer is the hand
};

/// @param around   from the unit before the character's paragraph up to and with its CR
/// @param position of the character under the pointer
PointedWord wordAt(const Piece &around, int position);

} // namespace norvane::links
