#include "richtext/rtf/control_words.h"

#include "richtext/rtf/operations.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

namespace norvane::rtf {
namespace {

using namespace std::string_view_literals;

struct Entry
{
    std::string_view letters;
    Word word;
    int argument = 0;
};

constexpr int skipped = int(Destination::Skipped);
constexpr int marker = int(Destination::Marker);

template <typename Enumerator> constexpr int number(Enumerator value)
{
    return static_cast<int>(value);
}

constexpr Entry kWords[] = {
    // Of the document
    {"ansi"sv, Word::CodePage, 1252},
    {"ansicpg"sv, Word::CodePage},
    {"deff"sv, Word::DefaultFont},
    {"mac"sv, Word::CodePage, 10000},
    {"pc"sv, Word::CodePage, 437},
    {"pca"sv, Word::CodePage, 850},
    {"urtf"sv, Word::Utf8},

    // Text
    {"bullet"sv, Word::Character, 0x2022},
    {"cell"sv, Word::Cell},
    {"emdash"sv, Word::Character, 0x2014},
    {"emspace"sv, Word::Character, 0x2003},
    {"endash"sv, Word::Character, 0x2013},
    {"enspace"sv, Word::Character, 0x2002},
    {"ldblquote"sv, Word::Character, 0x201C},
    {"line"sv, Word::Character, 0x2028},
    {"lquote"sv, Word::Character, 0x2018},
    {"ltrmark"sv, Word::Character, 0x200E},
    {"nestcell"sv, Word::Cell},
    {"nestrow"sv, Word::Row},
    {"page"sv, Word::PageBreak},
    {"par"sv, Word::ParagraphEnd},
    {"qmspace"sv, Word::Character, 0x2005},
    {"rdblquote"sv, Word::Character, 0x201D},
    {"row"sv, Word::Row},
    {"rquote"sv, Word::Character, 0x2019},
    {"rtlmark"sv, Word::Character, 0x200F},
    {"sect"sv, Word::SectionEnd},
    {"tab"sv, Word::Character, 0x0009},
    {"u"sv, Word::Unicode},
    {"uc"sv, Word::UnicodeSkip},
    {"zwbo"sv, Word::Character, 0x200B},
    {"zwj"sv, Word::Character, 0x200D},
    {"zwnbo"sv, Word::Character, 0x2060},
    {"zwnj"sv, Word::Character, 0x200C},

    // Destinations
    {"annotation"sv, Word::Destination, skipped},
    {"atnauthor"sv, Word::Destination, skipped},
    {"atnid"sv, Word::Destination, skipped},
    {"bkmkend"sv, Word::Destination, skipped},
    {"bkmkstart"sv, Word::Destination, skipped},
    {"buptim"sv, Word::Destination, skipped},
    {"colortbl"sv, Word::Destination, number(Destination::ColorTable)},
    {"comment"sv, Word::Destination, skipped},
    {"datafield"sv, Word::Destination, skipped},
    {"do"sv, Word::Destination, skipped},
    {"docvar"sv, Word::Destination, skipped},
    {"falt"sv, Word::Destination, skipped},
    {"fldinst"sv, Word::Destination, skipped},
    {"fldtype"sv, Word::Destination, skipped},
    {"fontemb"sv, Word::Destination, skipped},
    {"fonttbl"sv, Word::Destination, number(Destination::FontTable)},
    {"footer"sv, Word::Destination, skipped},
    {"footerf"sv, Word::Destination, skipped},
    {"footerl"sv, Word::Destination, skipped},
    {"footerr"sv, Word::Destination, skipped},
    {"footnote"sv, Word::Destination, skipped},
    {"formfield"sv, Word::Destination, skipped},
    {"ftncn"sv, Word::Destination, skipped},
    {"ftnsep"sv, Word::Destination, skipped},
    {"ftnsepc"sv, Word::Destination, skipped},
    {"generator"sv, Word::Destination, skipped},
    {"header"sv, Word::Destination, skipped},
    {"headerf"sv, Word::Destination, skipped},
    {"headerl"sv, Word::Destination, skipped},
    {"headerr"sv, Word::Destination, skipped},
    {"info"sv, Word::Destination, skipped},
    {"listoverridetable"sv, Word::Destination, skipped},
    {"listtable"sv, Word::Destination, skipped},
    {"listtext"sv, Word::Destination, marker},
    {"nesttableprops"sv, Word::Unpacked},
    {"nonesttables"sv, Word::Destination, skipped},
    {"nonshppict"sv, Word::NoShapePicture},
    {"objalias"sv, Word::Destination, skipped},
    {"objclass"sv, Word::Destination, skipped},
    {"objdata"sv, Word::Destination, skipped},
    {"object"sv, Word::Destination, number(Destination::Object)},
    {"objname"sv, Word::Destination, skipped},
    {"objsect"sv, Word::Destination, skipped},
    {"pict"sv, Word::Destination, number(Destination::Picture)},
    {"picprop"sv, Word::Destination, skipped},
    {"pn"sv, Word::Destination, number(Destination::ListNumber)},
    {"pnseclvl"sv, Word::Destination, skipped},
    {"pntext"sv, Word::Destination, marker},
    {"pntxta"sv, Word::Destination, skipped},
    {"pntxtb"sv, Word::Destination, skipped},
    {"private"sv, Word::Destination, skipped},
    {"result"sv, Word::Destination, number(Destination::Body)},
    {"revtbl"sv, Word::Destination, skipped},
    {"rxe"sv, Word::Destination, skipped},
    {"shppict"sv, Word::ShapePicture},
    {"stylesheet"sv, Word::Destination, skipped},
    {"tc"sv, Word::Destination, skipped},
    {"txe"sv, Word::Destination, skipped},
    {"ud"sv, Word::AlternativeUnicode},
    {"upr"sv, Word::Alternative},
    {"xe"sv, Word::Destination, skipped},
    {"pnlvlblt"sv, Word::ListNumber, 1},
    {"pnlvlbody"sv, Word::ListNumber, 0},

    // Characters
    {"b"sv, Word::Bold},
    {"caps"sv, Word::Capitals, number(Capitals::All)},
    {"cb"sv, Word::Background},
    {"cf"sv, Word::Color},
    {"chcbpat"sv, Word::Background},
    {"dn"sv, Word::Script, number(Script::Subscript)},
    {"f"sv, Word::Font},
    {"fs"sv, Word::FontSize},
    {"highlight"sv, Word::Background},
    {"i"sv, Word::Italic},
    {"nosupersub"sv, Word::Script, number(Script::Normal)},
    {"plain"sv, Word::Plain},
    {"protect"sv, Word::Protected},
    {"scaps"sv, Word::Capitals, number(Capitals::Small)},
    {"strike"sv, Word::StrikeOut},
    {"striked"sv, Word::StrikeOut},
    {"sub"sv, Word::Script, number(Script::Subscript)},
    {"super"sv, Word::Script, number(Script::Superscript)},
    {"ul"sv, Word::Underline, number(Underline::Single)},
    {"uld"sv, Word::Underline, number(Underline::Dotted)},
    {"uldash"sv, Word::Underline, number(Underline::Dash)},
    {"uldashd"sv, Word::Underline, number(Underline::DashDot)},
    {"uldashdd"sv, Word::Underline, number(Underline::DashDotDot)},
    {"uldb"sv, Word::Underline, number(Underline::Double)},
    {"ulhwave"sv, Word::Underline, number(Underline::Wave)},
    {"ulldash"sv, Word::Underline, number(Underline::Dash)},
    {"ulnone"sv, Word::Underline, number(Underline::None)},
    {"ulth"sv, Word::Underline, number(Underline::Thick)},
    {"ulthd"sv, Word::Underline, number(Underline::Dotted)},
    {"ulthdash"sv, Word::Underline, number(Underline::Dash)},
    {"ulthdashd"sv, Word::Underline, number(Underline::DashDot)},
    {"ulthdashdd"sv, Word::Underline, number(Underline::DashDotDot)},
    {"ulthldash"sv, Word::Underline, number(Underline::Dash)},
    {"ululdbwave"sv, Word::Underline, number(Underline::Wave)},
    {"ulw"sv, Word::Underline, number(Underline::Words)},
    {"ulwave"sv, Word::Underline, number(Underline::Wave)},
    {"up"sv, Word::Script, number(Script::Superscript)},
    {"v"sv, Word::Hidden},

    // Paragraphs
    {"fi"sv, Word::FirstIndent},
    {"li"sv, Word::LeftIndent},
    {"ltrpar"sv, Word::Direction, 0},
    {"pagebb"sv, Word::PageBreakBefore},
    {"pard"sv, Word::ParagraphDefaults},
    {"qc"sv, Word::Alignment, number(Alignment::Center)},
    {"qd"sv, Word::Alignment, number(Alignment::Justify)},
    {"qj"sv, Word::Alignment, number(Alignment::Justify)},
    {"ql"sv, Word::Alignment, number(Alignment::Left)},
    {"qr"sv, Word::Alignment, number(Alignment::Right)},
    {"ri"sv, Word::RightIndent},
    {"rtlpar"sv, Word::Direction, 1},
    {"sa"sv, Word::SpaceAfter},
    {"sb"sv, Word::SpaceBefore},
    {"sl"sv, Word::LineSpacing},
    {"slmult"sv, Word::LineSpacingMultiple},
    {"tqc"sv, Word::TabKind, number(TabKind::Center)},
    {"tqdec"sv, Word::TabKind, number(TabKind::Decimal)},
    {"tqr"sv, Word::TabKind, number(TabKind::Right)},
    {"tx"sv, Word::Tab},

    // Tables of fonts and colours
    {"blue"sv, Word::ColorPart, 0},
    {"cpg"sv, Word::FontCodePage},
    {"fcharset"sv, Word::FontCharset},
    {"green"sv, Word::ColorPart, 8},
    {"red"sv, Word::ColorPart, 16},

    // Pictures
    {"dibitmap"sv, Word::PictureKind, number(PictureKind::Dib)},
    {"emfblip"sv, Word::PictureKind, number(PictureKind::Emf)},
    {"jpegblip"sv, Word::PictureKind, number(PictureKind::Jpeg)},
    {"macpict"sv, Word::PictureKind, number(PictureKind::Mac)},
    {"pich"sv, Word::PictureHeight},
    {"pichgoal"sv, Word::PictureGoalHeight},
    {"picscalex"sv, Word::PictureScaleX},
    {"picscaley"sv, Word::PictureScaleY},
    {"picw"sv, Word::PictureWidth},
    {"picwgoal"sv, Word::PictureGoalWidth},
    {"pngblip"sv, Word::PictureKind, number(PictureKind::Png)},
    {"wmetafile"sv, Word::PictureKind, number(PictureKind::Wmf)},
};

/// The words in order, for looking them up by halves.
constexpr auto kSortedWords = [] {
    std::array<Entry, std::size(kWords)> sorted{};
    std::copy(std::begin(kWords), std::end(kWords), sorted.begin());
    std::sort(sorted.begin(), sorted.end(),
              [](const Entry &left, const Entry &right) { return left.letters < right.letters; });
    return sorted;
}();

} // namespace

ControlWord controlWord(QByteArrayView letters)
{
    const std::string_view key(letters.data(), size_t(letters.size()));
    const auto found =
        std::lower_bound(kSortedWords.begin(), kSortedWords.end(), key,
                         [](const Entry &entry, std::string_view sought) { return entry.letters < sought; });
    if (found == kSortedWords.end() || found->letters != key)
        return {};
    return {found->word, found->argument};
}

} // namespace norvane::rtf
