#include "richtext/rtf/Interpreter.h"

#include "richtext/rtf/clean_text.h"
#include "richtext/rtf/limits.h"
#include "richtext/rtf/read.h"
#include "richtext/rtf/symbol_fonts.h"

#include <algorithm>

namespace norvane::rtf {
namespace {

constexpr int kFirstPrivate = 0xF020;
constexpr int kLastPrivate = 0xF0FF;

bool isAscii(QByteArrayView bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), [](char byte) { return byte >= 0; });
}

void addUpTo(qsizetype length, QString &whole, QStringView text)
{
    whole += text.left(qMax(qsizetype(0), length - whole.size()));
}

bool isEscapedByte(int symbol)
{
    return symbol == '\\' || symbol == '{' || symbol == '}';
}

} // namespace

bool isRichText(QByteArrayView rtf)
{
    return rtf.startsWith("{\\rtf") || rtf.startsWith("{\\urtf");
}

std::optional<Document> read(QByteArrayView rtf)
{
    if (!isRichText(rtf) || rtf.size() > kMaximumInputBytes)
        return std::nullopt;
    return Interpreter(rtf).run();
}

Document Interpreter::run()
{
    for (bool goOn = true; goOn;) {
        const Token token = m_tokenizer.next();
        if (token.kind == Token::Kind::Text) {
            addBytes(token.bytes);
            continue;
        }
        const bool isEscaped = token.kind == Token::Kind::Symbol && isEscapedByte(token.value);
        if (token.kind == Token::Kind::Hex || isEscaped) {
            const char byte = char(token.value); // may be the second byte of a character
            addBytes(QByteArrayView(&byte, 1));
            continue;
        }
        decodeBytes();
        switch (token.kind) {
        case Token::Kind::GroupBegin:
            m_toSkip = 0;
            m_starred = false;
            if (int(m_outer.size()) >= kMaximumDepth)
                goOn = skipNested();
            else
                beginGroup(token.position);
            break;
        case Token::Kind::GroupEnd:
            m_toSkip = 0;
            m_starred = false;
            goOn = endGroup();
            break;
        case Token::Kind::Word:
            goOn = handleWord(token);
            break;
        case Token::Kind::Symbol:
            goOn = handleSymbol(token);
            break;
        case Token::Kind::Binary:
            if (m_state.destination == Destination::Picture)
                m_picture.data().addBytes(token.bytes);
            else if (m_state.destination == Destination::ObjectData)
                m_openObjects.back().data.addBytes(token.bytes);
            break;
        case Token::Kind::End:
            goOn = false;
            break;
        case Token::Kind::Text:
        case Token::Kind::Hex:
            break;
        }
    }
    decodeBytes();
    while (m_outer.size() > 1) // a file that is cut ends its groups
        endGroup();
    m_fonts.endName();
    Document document = m_sink.take();
    document.wrappers = std::move(m_wrappers);
    document.styles = m_styles;
    document.prologue = m_prologue;
    if (const Font *font = m_fonts.font(m_defaultFont))
        document.defaultFont = font->name;
    return document;
}

void Interpreter::beginGroup(qsizetype position)
{
    m_outer.push_back(m_state);
    m_state.begin = position;
    m_fresh = true;
}

bool Interpreter::endGroup()
{
    if (m_outer.size() <= 1)
        return false;
    const State inner = std::exchange(m_state, std::move(m_outer.back()));
    m_outer.pop_back();
    m_fresh = false;
    if (inner.inFont && !m_state.inFont)
        m_fonts.endName();
    if (inner.shapePicture && !m_state.shapePicture) {
        m_shapeBegin = inner.begin;
        m_shapeEnd = m_tokenizer.position();
    }
    // The text in Unicode of two goes on what is around both.
    if (inner.destination != m_state.destination && m_state.destination != Destination::Alternative)
        leave(inner);
    return true;
}

bool Interpreter::skipNested()
{
    for (int depth = 1; depth > 0;) {
        const Token token = m_tokenizer.next();
        if (token.kind == Token::Kind::GroupBegin)
            ++depth;
        else if (token.kind == Token::Kind::GroupEnd)
            --depth;
        else if (token.kind == Token::Kind::End)
            return false;
    }
    return true;
}

bool Interpreter::skipGroup()
{
    if (m_outer.size() <= 1)
        return true; // a word that is out of place must not take the whole document with it
    m_toSkip = 0;
    return skipNested() && endGroup();
}

/// One character that stands for a \u: true when it is to be dropped.
bool Interpreter::consumeSkipped()
{
    if (m_toSkip == 0)
        return false;
    --m_toSkip;
    return true;
}

void Interpreter::addBytes(QByteArrayView bytes)
{
    m_starred = false;
    m_fresh = false;
    if (m_toSkip > 0) {
        const qsizetype skipped = qMin<qsizetype>(m_toSkip, bytes.size());
        m_toSkip -= int(skipped);
        bytes = bytes.sliced(skipped);
    }
    if (bytes.isEmpty())
        return;
    if (m_state.destination != Destination::Body) {
        addBytesElsewhere(bytes);
    } else if (m_bytes.isEmpty() && isAscii(bytes) && codePage() != kSymbolCodePage) {
        if (isNothing(bytes))
            return;
        beginText();
        m_sink.addAscii(bytes, characterFormat());
    } else {
        m_bytes.append(bytes.data(), bytes.size());
    }
}

void Interpreter::addBytesElsewhere(QByteArrayView bytes)
{
    switch (m_state.destination) {
    case Destination::MarkText:
    case Destination::FieldInstruction:
    case Destination::ObjectClass:
        m_bytes.append(bytes.data(), bytes.size());
        break;
    case Destination::FontTable:
        m_fonts.addBytes(bytes);
        break;
    case Destination::ColorTable:
        m_colors.addText(bytes);
        break;
    case Destination::LevelText:
        if (MarkText *text = m_lists.levelText())
            text->addBytes(bytes);
        break;
    case Destination::MarkBefore:
        m_mark.before().addBytes(bytes);
        break;
    case Destination::MarkAfter:
        m_mark.after().addBytes(bytes);
        break;
    case Destination::Picture:
        m_picture.data().addDigits(bytes);
        break;
    case Destination::ObjectData:
        m_openObjects.back().data.addDigits(bytes);
        break;
    default:
        break;
    }
}

void Interpreter::decodeBytes()
{
    if (m_bytes.isEmpty())
        return;
    QString text;
    const Font *font = codePage() == kSymbolCodePage ? currentFont() : nullptr;
    if (font && font->isSymbol()) {
        for (const char byte : std::as_const(m_bytes))
            text += QChar(symbolCharacter(font->name, static_cast<unsigned char>(byte)));
    } else {
        m_codePages.decode(m_bytes, codePage(), text);
    }
    m_bytes.clear();
    addText(text);
}

void Interpreter::addText(QStringView text)
{
    switch (m_state.destination) {
    case Destination::Body:
        if (isNothing(text))
            break;
        beginText();
        m_sink.addText(text, characterFormat());
        break;
    case Destination::MarkText:
        m_markText += text;
        break;
    case Destination::FieldInstruction:
        addUpTo(kMaximumLinkLength, m_openFields.back().text, text);
        break;
    case Destination::ObjectClass:
        addUpTo(kMaximumFontNameLength, m_openObjects.back().className, text);
        break;
    default:
        break;
    }
}

void Interpreter::addUnit(char16_t unit)
{
    switch (m_state.destination) {
    case Destination::FontTable:
        m_fonts.addUnit(unit);
        break;
    case Destination::LevelText:
        if (MarkText *text = m_lists.levelText())
            text->addUnit(unit);
        break;
    case Destination::MarkBefore:
        m_mark.before().addUnit(unit);
        break;
    case Destination::MarkAfter:
        m_mark.after().addUnit(unit);
        break;
    default:
        addText(QStringView(&unit, 1));
        break;
    }
}

void Interpreter::addUnicode(int value)
{
    const int unit = value & 0xFFFF;
    const Font *font = unit >= kFirstPrivate && unit <= kLastPrivate ? currentFont() : nullptr;
    if (value > 0xFFFF && value <= 0x10FFFF) { // beyond the format, but written
        addUnit(QChar::highSurrogate(char32_t(value)));
        addUnit(QChar::lowSurrogate(char32_t(value)));
    } else if (font && font->isSymbol() && m_state.destination == Destination::Body) {
        addUnit(symbolCharacter(font->name, static_cast<unsigned char>(unit & 0xFF)));
    } else {
        addUnit(char16_t(unit));
    }
    m_toSkip = m_state.unicodeSkip;
}

/// Before the first text of a paragraph comes the number that its list gives it, if that list is
/// not known.
void Interpreter::beginText(int leastDepth)
{
    m_sink.beginParagraph(qMax(depth(), leastDepth), int(m_row.row().format.cells.size()));
    if (m_announced.number.isEmpty())
        return;
    const QString number = std::exchange(m_announced.number, {});
    if (!listItem().list)
        m_sink.addText(number, characterFormat());
}

void Interpreter::endParagraph()
{
    if (m_state.destination != Destination::Body)
        return;
    beginText();
    m_sink.endParagraph(paragraphFormat(), characterFormat());
    m_announced = {};
}

void Interpreter::endCell(int level)
{
    if (m_state.destination != Destination::Body)
        return;
    beginText(level > 1 ? level : 0);
    if (!m_sink.takesTables(level)) {
        m_sink.addText(u"\t", characterFormat());
        return;
    }
    m_sink.endCell(level, paragraphFormat(), characterFormat());
    m_announced = {};
}

void Interpreter::endRow(int level, const RowDescription &row)
{
    m_announced.number.clear();
    if (m_sink.takesTables(level)) {
        m_sink.endRow(level, row, paragraphFormat(), characterFormat());
    } else {
        m_sink.chopTab();
        endParagraph();
    }
}

int Interpreter::depth() const
{
    const Paragraph &paragraph = m_state.paragraph;
    return paragraph.depth > 0 ? paragraph.depth : int(paragraph.inTable);
}

/// Of the table whose row ends: the innermost one, if no deeper one was stated.
int Interpreter::nestedLevel() const
{
    return qMax(2, qMax(depth(), m_sink.depth()));
}

const Font *Interpreter::currentFont() const
{
    const Font *font = m_fonts.font(m_state.characters.font);
    return font ? font : m_fonts.font(m_defaultFont);
}

int Interpreter::codePage()
{
    if (m_state.codePage == kUnknown) {
        const Font *font = currentFont();
        // What is not shown has no signs.
        const bool isName = m_state.destination == Destination::FieldInstruction ||
                            m_state.destination == Destination::ObjectClass;
        const bool hasOwn = font && font->codePage > 0 && !(isName && font->isSymbol());
        m_state.codePage = m_utf8 ? kUtf8CodePage : hasOwn ? font->codePage : m_codePage;
    }
    return m_state.codePage;
}

int Interpreter::characterFormat()
{
    if (m_state.format != kUnknown)
        return m_state.format;
    const Characters &characters = m_state.characters;
    CharacterFormat format;
    static_cast<CharacterLook &>(format) = characters;
    const Font *font = currentFont();
    if (font) {
        format.font = font->name;
        format.symbol = font->isSymbol();
    }
    format.color = m_colors.color(characters.color);
    if (characters.background > 0)
        format.background = m_colors.color(characters.background);
    if (characters.underlineColor > 0)
        format.underlineColor = m_colors.color(characters.underlineColor);
    if (m_state.link != kUnknown) {
        format.link = m_links[size_t(m_state.link)].address;
        format.linkTip = m_links[size_t(m_state.link)].tip;
    }
    format.wrapper = m_state.wrapper;
    m_state.format = m_sink.characterFormats().indexOf(format);
    return m_state.format;
}

ListItem Interpreter::listItem()
{
    const Paragraph &paragraph = m_state.paragraph;
    if (paragraph.list != 0) {
        if (std::shared_ptr<const List> list = m_lists.list(paragraph.list)) {
            const int deepest = int(list->levels.size()) - 1;
            return {std::move(list), qMin(paragraph.format.item.level, deepest)};
        }
    }
    return paragraph.format.item.list ? ListItem{paragraph.format.item.list, 0} : ListItem();
}

int Interpreter::paragraphFormat()
{
    const bool own = m_announced.isBullet || m_announced.pageBreak;
    if (m_state.paragraphFormat != kUnknown && !own)
        return m_state.paragraphFormat;
    const Paragraph &paragraph = m_state.paragraph;
    ParagraphFormat format = paragraph.format;
    format.item = listItem();
    if (const ListLevel *level = format.item.format(); level && !paragraph.indentStated && paragraph.list) {
        format.leftIndent = level->leftIndent;
        format.firstIndent = level->firstIndent;
    }
    if (!format.item.list && m_announced.isBullet)
        format.item = ListItem::bullet();
    if (format.alignment == Alignment::Left && !format.rightToLeft)
        format.alignment = Alignment::Leading;
    if (format.lineSpacing == 0)
        format.lineSpacingMultiple = false;
    format.background = paragraph.shading.color();
    format.pageBreakBefore = format.pageBreakBefore || m_announced.pageBreak;
    const int index = m_sink.paragraphFormats().indexOf(format);
    if (!own)
        m_state.paragraphFormat = index;
    return index;
}

} // namespace norvane::rtf
