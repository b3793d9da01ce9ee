#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QVector>
#include <optional>
#include <variant>
#include <vector>

/// A rich text document as a flat list of operations, in reading order: what the interpreter of RTF
/// emits, what the writer takes, what a text document is filled from. Plain values, no windows.
///
/// Lengths are twips (1/1440 inch) and font sizes half points, as in the files.
namespace norvane::rtf {

enum class Underline : quint8 { None, Single, Words, Double, Thick, Dotted, Dash, DashDot, DashDotDot, Wave };
enum class Script : quint8 { Normal, Superscript, Subscript };
enum class Capitals : quint8 { Normal, All, Small };

struct CharacterFormat
{
    QString font;                      ///< family; empty: the document's default
    int halfPoints = 24;               ///< size
    std::optional<quint32> color;      ///< 0xRRGGBB; nothing: automatic
    std::optional<quint32> background; ///< 0xRRGGBB; nothing: the paper
    Underline underline = Underline::None;
    Script script = Script::Normal;
    Capitals capitals = Capitals::Normal;
    bool bold = false;
    bool italic = false;
    bool strikeOut = false;
    bool isProtected = false;
    bool hidden = false;
    bool symbol = false; ///< the font has a character set of its own: text is U+F000 to U+F0FF

    bool operator==(const CharacterFormat &) const = default;
};

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
    bool bullet = false;
    bool pageBreakBefore = false;
    QVector<Tab> tabs;

    bool operator==(const ParagraphFormat &) const = default;
};

size_t qHash(const CharacterFormat &format, size_t seed = 0) noexcept;
size_t qHash(const ParagraphFormat &format, size_t seed = 0) noexcept;

enum class PictureKind : quint8 { Png, Jpeg, Dib, Wmf, Emf, Mac };

struct Picture
{
    PictureKind kind = PictureKind::Png;
    int mapMode = 8; ///< of a metafile
    int width = 0;   ///< as the picture states it: pixels, or 0.01 mm of a metafile
    int height = 0;
    int displayWidth = 0; ///< twips; 0: the picture's natural size
    int displayHeight = 0;
    QByteArray bytes;
    /// The group that the picture stands for (an embedded object, say), as it came; empty if none.
    QByteArray original;

    bool operator==(const Picture &) const = default;
};

/// Text of one format. Holds no paragraph ends; U+2028 breaks a line within the paragraph.
struct TextRun
{
    QString text;
    int format = 0; ///< index into Document::characterFormats
};

/// Ends a paragraph and gives it its format. Text behind the last one has no paragraph format.
struct ParagraphEnd
{
    int paragraphFormat = 0; ///< index into Document::paragraphFormats
    int format = 0;          ///< of the paragraph mark: index into Document::characterFormats
};

struct PictureRun
{
    Picture picture;
    int format = 0; ///< index into Document::characterFormats
};

using Operation = std::variant<TextRun, ParagraphEnd, PictureRun>;

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

struct Document
{
    FormatPool<CharacterFormat> characterFormats;
    FormatPool<ParagraphFormat> paragraphFormats;
    std::vector<Operation> operations;
    QString defaultFont; ///< family of text that names none; may be empty

    /// The text alone, a paragraph end as "\n".
    QString plainText() const;
};

} // namespace norvane::rtf
