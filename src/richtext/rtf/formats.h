#pragma once

#include "richtext/rtf/lists.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QVector>
#include <array>
#include <optional>

/// The formats of a rich text document: plain values.
///
/// Lengths are twips (1/1440 inch), font sizes half points and colours 0xRRGGBB, as in the files.
/// What a format calls `kept` are words that are not shown and are written back (KeptWords).
namespace norvane::rtf {

enum class Underline : quint8 { None, Single, Words, Double, Thick, Dotted, Dash, DashDot, DashDotDot, Wave };
enum class Script : quint8 { Normal, Superscript, Subscript };
enum class Capitals : quint8 { Normal, All, Small };

/// What a character's format is besides font, colours and link.
struct CharacterLook
{
    int halfPoints = 24; ///< size
    Underline underline = Underline::None;
    Script script = Script::Normal;
    Capitals capitals = Capitals::Normal;
    bool bold = false;
    bool italic = false;
    bool strikeOut = false;
    bool isProtected = false;
    bool hidden = false;
    int raise = 0;    ///< half points above the line, below it if negative
    int spacing = 0;  ///< twips more between characters
    int language = 0; ///< number of the language; 0 if it is not stated
    QByteArray kept;

    bool operator==(const CharacterLook &) const = default;
};

struct CharacterFormat : CharacterLook
{
    QString font;                          ///< family; empty: the document's default
    bool symbol = false;                   ///< the font has a character set of its own: see symbol_fonts.h
    std::optional<quint32> color;          ///< nothing: automatic
    std::optional<quint32> background;     ///< nothing: the paper
    std::optional<quint32> underlineColor; ///< nothing: as the text
    QString link;     ///< address that the text leads to; "#name" is a place in the document
    QString linkTip;  ///< what the link says about itself
    int wrapper = -1; ///< index into Document::wrappers; -1 if none

    bool operator==(const CharacterFormat &) const = default;
};

enum class BorderStyle : quint8 {
    None,
    Single,
    Thick,
    Double,
    Dotted,
    Dashed,
    DashDot,
    DashDotDot,
    Hairline,
    Triple,
    Inset,
    Outset,
    Wavy,
};

struct Border
{
    BorderStyle style = BorderStyle::None;
    int width = 0;
    int space = 0; ///< to the text
    std::optional<quint32> color;

    bool operator==(const Border &) const = default;
};

enum class Side : quint8 { Top, Left, Bottom, Right };
inline constexpr std::array kSides = {Side::Top, Side::Left, Side::Bottom, Side::Right};

/// A value for each side of a box.
template <typename Value> struct Sides
{
    std::array<Value, 4> values{};

    Value &operator[](Side side) { return values[size_t(side)]; }
    const Value &operator[](Side side) const { return values[size_t(side)]; }
    bool operator==(const Sides &) const = default;
};
using Borders = Sides<Border>;

enum class Alignment : quint8 { Leading, Left, Right, Center, Justify };
enum class TabKind : quint8 { Left, Right, Center, Decimal };

struct Tab
{
    int position = 0;
    TabKind kind = TabKind::Left;

    bool operator==(const Tab &) const = default;
};

struct ParagraphFormat
{
    int leftIndent = 0;
    int rightIndent = 0;
    int firstIndent = 0; ///< relative to leftIndent; negative hangs
    int spaceBefore = 0;
    int spaceAfter = 0;
    int lineSpacing = 0;              ///< 0 automatic; else at least this, exactly its amount if negative
    bool lineSpacingMultiple = false; ///< lineSpacing counts 240ths of a line
    Alignment alignment = Alignment::Leading;
    bool rightToLeft = false;
    bool pageBreakBefore = false;
    ListItem item; ///< the list that it is an item of
    std::optional<quint32> background;
    Borders borders;
    QVector<Tab> tabs;
    QByteArray kept;

    bool isBullet() const { return item.isBullet(); }
    /// Makes it an item of a plain bullet list, or of none.
    void setBullet(bool on) { item = on ? ListItem::bullet() : ListItem(); }

    bool operator==(const ParagraphFormat &) const = default;
};

enum class VerticalMerge : quint8 { None, First, Continued };
enum class VerticalAlignment : quint8 { Top, Middle, Bottom };

struct CellFormat
{
    int right = 0; ///< where it ends, from the text's margin
    VerticalMerge merge = VerticalMerge::None;
    VerticalAlignment alignment = VerticalAlignment::Top;
    std::optional<quint32> background;
    Borders borders;
    Sides<std::optional<int>> padding; ///< nothing: the row's
    QByteArray kept;

    bool operator==(const CellFormat &) const = default;
};

enum class RowAlignment : quint8 { Left, Center, Right };

/// A row of a table. The columns of two rows need not be the same.
struct RowFormat
{
    QVector<CellFormat> cells; ///< at least one; each ends further right than the one before
    int left = 0;              ///< where the first cell begins; may be negative
    int gap = 0;               ///< half the space between the texts of two cells
    int height = 0;            ///< 0 as needed; at least this, exactly its amount if negative
    RowAlignment alignment = RowAlignment::Left;
    bool header = false;
    bool rightToLeft = false;
    Sides<std::optional<int>> padding; ///< left and right: nothing is the gap
    QByteArray kept;

    bool operator==(const RowFormat &) const = default;
};

size_t qHash(const CharacterFormat &format, size_t seed = 0) noexcept;
size_t qHash(const ParagraphFormat &format, size_t seed = 0) noexcept;
size_t qHash(const RowFormat &format, size_t seed = 0) noexcept;

/// Formats, each kept once, by index in the order of their first use.
template <typename Format> class FormatPool
{
public:
    int indexOf(const Format &format)
    {
        const auto known = m_indexes.constFind(format);
        if (known != m_indexes.constEnd())
            return *known;
        const int index = int(m_formats.size());
        m_formats.append(format);
        m_indexes.insert(format, index);
        return index;
    }
    const Format &at(int index) const { return m_formats.at(index); }
    int size() const { return int(m_formats.size()); }

private:
    QVector<Format> m_formats;
    QHash<Format, int> m_indexes;
};

} // namespace norvane::rtf
