#include "richtext/rtf/Interpreter.h"

#include "richtext/rtf/limits.h"
#include "richtext/rtf/read.h"

#include <algorithm>

namespace norvane::rtf {
namespace {

bool isAscii(QByteArrayView bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), [](char byte) { return byte >= 0; });
}

bool isEscapedByte(int symbol)
{
    return symbol == '\\' || symbol == '{' || symbol == '}';
}

/// Whether the text of a list mark is a mere sign: no number and no letter, but the "o" that some
/// fonts draw as a ring.
bool isBulletSign(const QString &text)
{
    if (text.isEmpty() || text.size() > 2 || (text.size() == 2 && !text.at(0).isHighSurrogate()))
        return false;
    return !text.at(0).isLetterOrNumber() || text == u"o";
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
        if (token.kind == Token::Kind::Hex) {
            const char byte = char(token.value);
            addBytes(QByteArrayView(&byte, 1));
            continue;
        }
        if (token.kind == Token::Kind::Symbol && isEscapedByte(token.value)) {
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
                m_picture.addBytes(token.bytes);
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
    const Font *font = m_fonts.font(m_defaultFont);
    return m_sink.take(font ? font->name : QString());
}

void Interpreter::beginGroup(qsizetype position)
{
    m_outer.push_back(m_state);
    m_state.begin = position;
}

bool Interpreter::endGroup()
{
    if (m_outer.size() <= 1)
        return false;
    const State inner = std::exchange(m_state, std::move(m_outer.back()));
    m_outer.pop_back();
    if (inner.inFont && !m_state.inFont)
        m_fonts.endName();
    if (inner.destination == m_state.destination)
        return true;
    switch (inner.destination) {
    case Destination::FontTable:
    case Destination::ColorTable:
        m_state.format = kUnknown; // what numbers mean has changed
        m_state.codePage = kUnknown;
        break;
    case Destination::Picture:
        if (m_state.destination == Destination::Body)
            endPicture();
        break;
    case Destination::Marker:
        endMarker();
        break;
    case Destination::ListNumber:
        m_state.paragraph.bullet = m_listIsBullet;
        m_state.paragraphFormat = kUnknown;
        break;
    case Destination::Object:
        endObject(inner, m_tokenizer.position());
        break;
    default:
        break;
    }
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

bool Interpreter::enter(Destination destination)
{
    if (destination == Destination::Skipped)
        return skipGroup();
    if (m_outer.size() <= 1)
        return true;
    if (destination == Destination::Body) { // the result of an object
        if (m_state.destination == Destination::Object)
            m_state.destination = destination;
        return true;
    }
    if (m_state.destination == Destination::FontTable || m_state.destination == Destination::Picture)
        return skipGroup();
    if (destination == Destination::Picture)
        m_picture.begin();
    else if (destination == Destination::Marker)
        m_marker.clear();
    else if (destination == Destination::ListNumber)
        m_listIsBullet = false;
    else if (destination == Destination::Object)
        m_state.objectOperations = m_sink.operations().size();
    m_state.destination = destination;
    return true;
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
    if (m_toSkip > 0) {
        const qsizetype skipped = qMin<qsizetype>(m_toSkip, bytes.size());
        m_toSkip -= int(skipped);
        bytes = bytes.sliced(skipped);
    }
    if (bytes.isEmpty())
        return;
    switch (m_state.destination) {
    case Destination::Body:
        if (m_bytes.isEmpty() && isAscii(bytes) && codePage() != kSymbolCodePage) {
            beginText();
            m_sink.addAscii(bytes, characterFormat());
            break;
        }
        [[fallthrough]];
    case Destination::Marker:
        m_bytes.append(bytes.data(), bytes.size());
        break;
    case Destination::FontTable:
        m_fonts.addBytes(bytes);
        break;
    case Destination::ColorTable:
        m_colors.addText(bytes);
        break;
    case Destination::Picture:
        m_picture.addHex(bytes);
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
    m_codePages.decode(std::exchange(m_bytes, {}), codePage(), text);
    addText(text);
}

void Interpreter::addText(QStringView text)
{
    if (m_state.destination == Destination::Body) {
        beginText();
        m_sink.addText(text, characterFormat());
    } else if (m_state.destination == Destination::Marker) {
        m_marker += text;
    }
}

void Interpreter::addUnit(char16_t unit)
{
    if (m_state.destination == Destination::FontTable)
        m_fonts.addUnit(unit);
    else
        addText(QStringView(&unit, 1));
}

void Interpreter::addUnicode(int value)
{
    if (value > 0xFFFF && value <= 0x10FFFF) { // beyond the format, but written
        addUnit(QChar::highSurrogate(char32_t(value)));
        addUnit(QChar::lowSurrogate(char32_t(value)));
    } else {
        addUnit(char16_t(value & 0xFFFF));
    }
    m_toSkip = m_state.unicodeSkip;
}

/// Before the first text of a paragraph comes the number that its list gives it.
void Interpreter::beginText()
{
    if (m_markerText.isEmpty())
        return;
    const QString number = std::exchange(m_markerText, {});
    if (!m_state.paragraph.bullet)
        m_sink.addText(number, characterFormat());
}

void Interpreter::endParagraph()
{
    if (m_state.destination != Destination::Body)
        return;
    beginText();
    m_sink.endParagraph(paragraphFormat(), characterFormat());
    m_markedAsBullet = false;
    m_pageBreak = false;
}

void Interpreter::endMarker()
{
    const bool isBullet = isBulletSign(m_marker.trimmed());
    m_markedAsBullet = isBullet;
    m_markerText = isBullet ? QString() : m_marker;
}

void Interpreter::endPicture()
{
    const std::optional<Picture> picture = m_picture.end();
    if (!picture)
        return;
    beginText();
    m_sink.addPicture(*picture, characterFormat());
    if (m_state.shapePicture)
        m_shapePictureShown = true;
}

/// An object whose result is one picture is shown as this picture, and kept whole behind it. One
/// that shows nothing is kept behind an empty picture.
void Interpreter::endObject(const State &object, qsizetype end)
{
    if (m_state.destination != Destination::Body)
        return;
    const QByteArrayView group = m_rtf.sliced(object.begin, end - object.begin);
    if (group.size() > kMaximumPictureBytes ||
        std::any_of(group.begin(), group.end(), [](char byte) { return byte <= 0; }))
        return; // binary data has no place in the ASCII that is written
    std::vector<Operation> &operations = m_sink.operations();
    if (operations.size() == object.objectOperations) {
        Picture empty;
        empty.original = group.toByteArray();
        m_sink.addPicture(empty, characterFormat());
    } else if (operations.size() == object.objectOperations + 1) {
        if (auto *run = std::get_if<PictureRun>(&operations.back()))
            run->picture.original = group.toByteArray();
    }
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
        const int own = font && font->codePage > 0 ? font->codePage : m_codePage;
        m_state.codePage = m_utf8 ? kUtf8CodePage : own;
    }
    return m_state.codePage;
}

int Interpreter::characterFormat()
{
    if (m_state.format != kUnknown)
        return m_state.format;
    const Characters &characters = m_state.characters;
    CharacterFormat format;
    const Font *font = currentFont();
    if (font) {
        format.font = font->name;
        format.symbol = font->isSymbol();
    }
    format.halfPoints = characters.halfPoints;
    format.color = m_colors.color(characters.color);
    if (characters.background > 0)
        format.background = m_colors.color(characters.background);
    format.underline = characters.underline;
    format.script = characters.script;
    format.capitals = characters.capitals;
    format.bold = characters.bold;
    format.italic = characters.italic;
    format.strikeOut = characters.strikeOut;
    format.isProtected = characters.isProtected;
    format.hidden = characters.hidden;
    m_state.format = m_sink.characterFormats().indexOf(format);
    return m_state.format;
}

int Interpreter::paragraphFormat()
{
    const bool own = (m_markedAsBullet && !m_state.paragraph.bullet) ||
                     (m_pageBreak && !m_state.paragraph.pageBreakBefore);
    if (m_state.paragraphFormat != kUnknown && !own)
        return m_state.paragraphFormat;
    ParagraphFormat format = m_state.paragraph;
    if (format.alignment == Alignment::Left && !format.rightToLeft)
        format.alignment = Alignment::Leading;
    if (format.lineSpacing == 0)
        format.lineSpacingMultiple = false;
    format.bullet = format.bullet || m_markedAsBullet;
    format.pageBreakBefore = format.pageBreakBefore || m_pageBreak;
    const int index = m_sink.paragraphFormats().indexOf(format);
    if (!own)
        m_state.paragraphFormat = index;
    return index;
}

} // namespace norvane::rtf
