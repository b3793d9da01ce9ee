#include "richtext/rtf/format_writer.h"

#include "richtext/rtf/list_numbers.h"
#include "richtext/rtf/symbol_fonts.h"

namespace norvane::rtf {
namespace {

template <typename Enumerator> constexpr int number(Enumerator value)
{
    return static_cast<int>(value);
}

/// Text in a font of signs goes by the numbers of its signs.
void writeSigns(RtfOutput &out, QStringView text, const QString &font)
{
    for (const QChar &character : text) {
        const char16_t unit = character.unicode();
        const unsigned char sign = unit == u' ' ? 0 : symbolNumber(font, unit);
        if (sign != 0)
            out.put("\\'" + QByteArray::number(sign, 16));
        else if (unit == u' ' || unit == u'\t' || unit == QChar::LineSeparator)
            out.text(QStringView(&character, 1));
        else if (unit >= 0x20)
            out.put("\\u" + QByteArray::number(qint16(unit)) + '?');
    }
}

} // namespace

void FormatWriter::restore(const State &before, bool inParagraph)
{
    m_characters = before.characters;
    const bool isOther = m_depth != before.depth || m_paragraph != before.paragraph;
    if (isOther && inParagraph) {
        m_out.word(Word::ParagraphDefaults);
        if (m_paragraph->item.list && m_paragraph->item.list->number == 0)
            ownMark(*m_paragraph->item.format());
        paragraphWords();
    } else if (isOther) {
        m_paragraph = before.paragraph;
        m_depth = before.depth;
    }
}

void FormatWriter::beginParagraph(const ParagraphFormat &format, int depth, const std::vector<int> &numbers)
{
    if (format.item.format() && m_characters && m_characters->script == Script::Superscript) {
        // LibreOffice loses raised text before a mark, unless it is over.
        m_out.word(Word::Script, number(Script::Normal));
        m_out.word(Word::Plain);
        m_characters = nullptr;
    }
    const bool isNew = !m_paragraph || depth != m_depth || *m_paragraph != format;
    if (isNew)
        m_out.word(Word::ParagraphDefaults);
    if (const ListLevel *level = format.item.format()) {
        mark(format.item, numbers);
        if (isNew && format.item.list->number == 0)
            ownMark(*level);
    }
    if (!isNew)
        return;
    m_paragraph = format;
    m_depth = depth;
    paragraphWords();
}

void FormatWriter::markText(const ListLevel &level, QStringView text)
{
    if (level.symbol)
        writeSigns(m_out, text, level.font);
    else
        m_out.text(text);
}

/// The mark as text, for readers that know no lists.
void FormatWriter::mark(const ListItem &item, const std::vector<int> &numbers)
{
    const ListLevel &level = *item.format();
    const bool isOwn = item.list->number == 0;
    m_out.put(isOwn ? "{\\pntext" : "{\\listtext");
    m_out.setAfterWord();
    if (isOwn || !level.font.isEmpty())
        m_out.number(Word::Font, m_tables.font(level.font, level.symbol));
    markText(level, rtf::markText(item, numbers));
    if (level.follow == 0)
        m_out.text(u"\t");
    else if (level.follow == 1)
        m_out.text(u" ");
    m_out.put("}");
}

/// What a mark is that its paragraphs state themselves.
void FormatWriter::ownMark(const ListLevel &level)
{
    const qsizetype place = level.text.indexOf(QChar(1));
    const QStringView text(level.text);
    const QStringView before = place < 0 ? text : text.left(place);
    const QStringView after = place < 0 ? QStringView() : text.mid(place + 1);
    m_out.put(level.style == kBulletSign ? "{\\*\\pn\\pnlvlblt" : "{\\*\\pn\\pnlvlbody");
    if (!level.font.isEmpty())
        m_out.number(Word::MarkFont, m_tables.font(level.font, level.symbol));
    m_out.put("\\pnindent0");
    if (level.style != kBulletSign) {
        m_out.number(Word::MarkStart, level.start);
        const bool isKnown = !lettersOf(Word::MarkStyle, level.style).empty();
        m_out.word(Word::MarkStyle, isKnown ? level.style : int(kArabic));
    }
    for (const auto &[part, destination] : {std::pair(before, "{\\pntxtb"), std::pair(after, "{\\pntxta")}) {
        if (part.isEmpty())
            continue;
        m_out.put(destination);
        m_out.setAfterWord();
        markText(level, part);
        m_out.put("}");
    }
    m_out.put("}");
}

void FormatWriter::paragraphWords()
{
    const ParagraphFormat &format = *m_paragraph;
    if (m_depth > 0)
        m_out.word(Word::InTable);
    if (m_depth > 1)
        m_out.number(Word::TableDepth, m_depth);
    if (format.item.list && format.item.list->number != 0) {
        m_out.number(Word::ListNumber, m_tables.listNumber(format.item.list));
        m_out.number(Word::ListLevelNumber, format.item.level);
    }
    if (format.rightToLeft)
        m_out.word(Word::Direction, 1);
    if (format.pageBreakBefore)
        m_out.word(Word::PageBreakBefore);
    const bool statesIndent = format.item.list && format.item.list->number != 0;
    if (format.firstIndent != 0 || statesIndent)
        m_out.number(Word::FirstIndent, format.firstIndent);
    if (format.leftIndent != 0 || statesIndent)
        m_out.number(Word::LeftIndent, format.leftIndent);
    m_out.numberUnless0(Word::RightIndent, format.rightIndent);
    m_out.numberUnless0(Word::SpaceBefore, format.spaceBefore);
    m_out.numberUnless0(Word::SpaceAfter, format.spaceAfter);
    if (format.lineSpacing != 0) {
        m_out.number(Word::LineSpacing, format.lineSpacing);
        m_out.number(Word::LineSpacingMultiple, format.lineSpacingMultiple ? 1 : 0);
    }
    if (format.alignment != Alignment::Leading)
        m_out.word(Word::Alignment, number(format.alignment));
    for (const Tab &tab : format.tabs) {
        if (tab.kind != TabKind::Left)
            m_out.word(Word::TabKind, number(tab.kind));
        m_out.number(Word::Tab, tab.position);
    }
    paragraphLook(format);
    if (!format.kept.isEmpty()) {
        m_out.put(format.kept);
        m_out.setAfterWord();
    }
}

void FormatWriter::paragraphLook(const ParagraphFormat &format)
{
    if (format.background)
        m_out.number(Word::ParagraphBackground, m_tables.color(format.background));
    for (const Side side : kSides)
        border(Word::ParagraphBorder, number(side), format.borders[side]);
}

void FormatWriter::border(Word side, int argument, const Border &border)
{
    if (border == Border())
        return;
    m_out.word(side, argument);
    m_out.word(Word::BorderStyle, number(border.style));
    m_out.numberUnless0(Word::BorderWidth, border.width);
    m_out.numberUnless0(Word::BorderSpace, border.space);
    if (border.color)
        m_out.number(Word::BorderColor, m_tables.color(border.color));
}

void FormatWriter::characters(const CharacterFormat &to)
{
    if (&to == m_characters)
        return;
    static const CharacterFormat kDefaults;
    const CharacterFormat *from = m_characters;
    m_characters = &to;
    if (from && from->kept != to.kept && !from->kept.isEmpty()) {
        m_out.word(Word::Plain); // takes away what has no word of its own for that
        from = nullptr;
    }
    const bool isFirst = !from;
    if (isFirst)
        from = &kDefaults;

    if (const int color = m_tables.color(to.color); color != m_tables.color(from->color))
        m_out.number(Word::Color, color);
    if (const int color = m_tables.color(to.background); color != m_tables.color(from->background))
        m_out.number(Word::Background, color);
    if (const int font = m_tables.font(to.font, to.symbol);
        isFirst || font != m_tables.font(from->font, from->symbol))
        m_out.number(Word::Font, font);
    if (isFirst || to.halfPoints != from->halfPoints)
        m_out.number(Word::FontSize, to.halfPoints);
    effects(*from, to);
    if (to.kept != from->kept) {
        m_out.put(to.kept);
        m_out.setAfterWord();
    }
}

void FormatWriter::effects(const CharacterFormat &from, const CharacterFormat &to)
{
    toggle(Word::Bold, 0, from.bold, to.bold);
    toggle(Word::Italic, 0, from.italic, to.italic);
    toggle(Word::StrikeOut, 0, from.strikeOut, to.strikeOut);
    toggle(Word::Protected, 0, from.isProtected, to.isProtected);
    toggle(Word::Hidden, 0, from.hidden, to.hidden);
    if (to.underline != from.underline)
        m_out.word(Word::Underline, number(to.underline));
    if (const int color = m_tables.color(to.underlineColor); color != m_tables.color(from.underlineColor))
        m_out.number(Word::UnderlineColor, color);
    if (to.script != from.script)
        m_out.word(Word::Script, number(to.script));
    if (to.capitals != from.capitals) {
        toggle(Word::Capitals, number(Capitals::All), from.capitals == Capitals::All,
               to.capitals == Capitals::All);
        toggle(Word::Capitals, number(Capitals::Small), from.capitals == Capitals::Small,
               to.capitals == Capitals::Small);
        if (to.capitals == Capitals::All && from.capitals == Capitals::Small)
            m_out.word(Word::Capitals, number(Capitals::All)); // the last word counts
    }
    if (to.raise != from.raise)
        m_out.numberOf(Word::Raise, to.raise < 0 ? -1 : 1, qAbs(to.raise));
    if (to.spacing != from.spacing)
        m_out.number(Word::Spacing, to.spacing);
    if (to.language != from.language)
        m_out.number(Word::Language, to.language);
}

void FormatWriter::toggle(Word word, int argument, bool from, bool to)
{
    if (from == to)
        return;
    if (to)
        m_out.word(word, argument);
    else
        m_out.numberOf(word, argument, 0);
}

void FormatWriter::text(QStringView text, const CharacterFormat &format)
{
    if (format.symbol)
        writeSigns(m_out, text, format.font.isEmpty() ? m_tables.defaultFont() : format.font);
    else
        m_out.text(text);
}

void FormatWriter::row(const RowFormat &format)
{
    m_out.word(Word::RowDefaults);
    m_out.numberUnless0(Word::RowGap, format.gap);
    m_out.numberUnless0(Word::RowLeft, format.left);
    m_out.numberUnless0(Word::RowHeight, format.height);
    if (format.header)
        m_out.word(Word::RowHeader);
    if (format.alignment != RowAlignment::Left)
        m_out.word(Word::RowAlignment, number(format.alignment));
    if (format.rightToLeft)
        m_out.word(Word::RowDirection, 1);
    padding(Word::RowPadding, Word::RowPaddingUnit, format.padding);
    m_out.put(format.kept);
    for (const CellFormat &each : format.cells)
        cell(each);
}

void FormatWriter::padding(Word width, Word unit, const Sides<std::optional<int>> &sides)
{
    constexpr int kTwips = 3;
    for (const Side side : kSides) {
        if (!sides[side])
            continue;
        m_out.numberOf(unit, number(side), kTwips);
        m_out.numberOf(width, number(side), *sides[side]);
    }
}

void FormatWriter::cell(const CellFormat &format)
{
    if (format.merge != VerticalMerge::None)
        m_out.word(Word::CellVerticalMerge, number(format.merge));
    if (format.alignment != VerticalAlignment::Top)
        m_out.word(Word::CellAlignment, number(format.alignment));
    for (const Side side : kSides)
        border(Word::CellBorder, number(side), format.borders[side]);
    if (format.background)
        m_out.number(Word::CellBackground, m_tables.color(format.background));
    padding(Word::CellPadding, Word::CellPaddingUnit, format.padding);
    m_out.put(format.kept);
    m_out.number(Word::CellRight, format.right);
}

} // namespace norvane::rtf
