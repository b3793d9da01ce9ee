#pragma once

#include <QString>
#include <memory>
#include <vector>

/// Bulleted and numbered lists: what their items are marked with.
namespace norvane::rtf {

/// How the numbers of a level are written; values as in the files. Others are kept and counted in
/// Arabic digits.
enum NumberStyle {
    kArabic = 0,
    kUpperRoman = 1,
    kLowerRoman = 2,
    kUpperLetters = 3,
    kLowerLetters = 4,
    kOrdinal = 5,
    kLeadingZero = 22,
    kBulletSign = 23,
    kNoNumber = 255,
};

/// The deepest level of a list, counted from 0.
inline constexpr int kDeepestLevel = 8;

struct ListLevel
{
    int style = kArabic; ///< NumberStyle
    int start = 1;
    /// Text of the mark; U+0001 to U+0009 stand for the numbers of levels 0 to 8.
    QString text;
    QString font;        ///< family; empty: as the item's text
    bool symbol = false; ///< the font has a character set of its own
    int alignment = 0;   ///< of the mark: 0 left, 1 centre, 2 right
    int follow = 0;      ///< behind the mark: 0 tab, 1 blank, 2 nothing
    int leftIndent = 0;  ///< of items that state none, twips
    int firstIndent = 0;

    bool operator==(const ListLevel &) const = default;
};

/// A list, or what a run of marked paragraphs shares.
struct List
{
    /// Number in the document's table of lists, whose items count through the whole document; 0 for
    /// a mark that its paragraphs state themselves, and whose count begins again behind each
    /// paragraph without it.
    int number = 0;
    int identity = 0;              ///< equal in lists of the table that count together
    std::vector<ListLevel> levels; ///< at least one, at most kDeepestLevel + 1

    bool operator==(const List &) const = default;
};

/// What makes a paragraph an item of a list.
struct ListItem
{
    std::shared_ptr<const List> list; ///< nullptr: no item
    int level = 0;

    /// The usual bullet.
    static ListItem bullet();
    /// Nothing, or the item's level; a level that the list lacks is its last.
    const ListLevel *format() const;
    bool isBullet() const;

    bool operator==(const ListItem &other) const;
};

/// A number in the digits or letters of a style.
QString numberText(int number, int style);
/// The mark of an item; empty for a paragraph that is none.
/// @param numbers of all levels down to the item's own
QString markText(const ListItem &item, const std::vector<int> &numbers);

} // namespace norvane::rtf
