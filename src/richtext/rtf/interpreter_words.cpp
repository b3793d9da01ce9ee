// What the interpreter does at control words and control symbols.

#include "richtext/rtf/Interpreter.h"
#include "richtext/rtf/kept_words.h"
#include "richtext/rtf/limits.h"

namespace norvane::rtf {
namespace {

bool isOn(const Token &token)
{
    return !token.hasParameter || token.parameter != 0;
}

int length(const Token &token)
{
    return qBound(-kMaximumTwips, token.parameter, kMaximumTwips);
}

int distance(const Token &token)
{
    return qBound(0, token.parameter, kMaximumTwips);
}

QByteArray written(const Token &token)
{
    const QByteArray word = "\\" + token.bytes.toByteArray();
    return token.hasParameter ? word + QByteArray::number(token.parameter) : word;
}

} // namespace

bool Interpreter::handleSymbol(const Token &token)
{
    m_starred = false;
    if (token.value == '*') {
        m_starred = true;
        return true;
    }
    m_fresh = false;
    if (token.value == '\n') {
        m_toSkip = 0;
        endParagraph();
        return true;
    }
    if (consumeSkipped())
        return true;
    switch (token.value) {
    case '~':
        addUnit(QChar::Nbsp);
        break;
    case '_':
        addUnit(u'\u2011');
        break;
    case '-':
        addUnit(QChar::SoftHyphen);
        break;
    case '\t':
        addUnit(u'\t');
        break;
    default:
        break;
    }
    return true;
}

bool Interpreter::handleWord(const Token &token)
{
    const ControlWord word = controlWord(token.bytes);
    const bool starred = std::exchange(m_starred, false);
    switch (word.word) {
    case Word::Character:
        m_fresh = false;
        if (!consumeSkipped())
            addUnit(char16_t(word.argument));
        return true;
    case Word::Unicode:
        m_fresh = false;
        if (token.hasParameter)
            addUnicode(token.parameter);
        return true;
    case Word::UnicodeSkip:
        m_fresh = false;
        m_state.unicodeSkip = token.hasParameter ? qBound(0, token.parameter, 16) : 1;
        return true;
    default:
        break;
    }
    m_toSkip = 0; // characters that stand for a \u do not go on behind another word

    bool goOn = true;
    switch (word.word) {
    case Word::Unknown:
        if (starred && !namesFont(token.bytes) && token.bytes != "bin")
            goOn = keepGroup(Destination::KeptOfStart);
        break;
    case Word::Destination:
        goOn = enter(Destination(word.argument));
        break;
    case Word::ShapePicture:
        m_state.shapePicture = true;
        m_shapePicture = ShapePicture::None;
        break;
    case Word::NoShapePicture:
        if (m_shapePicture == ShapePicture::Shown) {
            m_shapePicture = ShapePicture::None;
            goOn = skipGroup();
        }
        break;
    case Word::Alternative:
        if (m_fresh) {
            m_state.besideAlternative = m_state.destination;
            m_state.destination = Destination::Alternative;
        }
        break;
    case Word::AlternativeUnicode:
        if (m_state.destination == Destination::Alternative)
            m_state.destination = m_state.besideAlternative;
        break;
    default:
        handleBodyWord(word, token);
        break;
    }
    m_fresh = false;
    return goOn;
}

void Interpreter::handleFontWord(ControlWord word, const Token &token)
{
    if (word.word == Word::Font) {
        m_fonts.beginFont(token.parameter);
        m_state.inFont = true;
    } else if (word.word == Word::FontCharset) {
        m_fonts.setCharset(token.parameter);
    } else if (word.word == Word::FontCodePage) {
        m_fonts.setCodePage(token.parameter);
    }
}

void Interpreter::handleBodyWord(ControlWord word, const Token &token)
{
    switch (m_state.destination) {
    case Destination::FontTable:
        handleFontWord(word, token);
        return;
    case Destination::ColorTable:
        if (word.word == Word::ColorPart)
            m_colors.setPart(word.argument, token.parameter);
        return;
    case Destination::ListTable:
        m_lists.handle(word, token);
        return;
    case Destination::Picture:
        m_picture.handle(word, token);
        return;
    case Destination::Mark:
        m_mark.handle(word, token);
        return;
    case Destination::Object:
        if (word.word == Word::KeptOfObject)
            setKeptWord(m_openObjects.back().object.words, token, false);
        return;
    case Destination::Field:
        if (word.word == Word::KeptOfField)
            setKeptWord(m_openFields.back().words, token, false);
        return;
    case Destination::NestedRow:
        if (word.word == Word::NestedRow)
            endRow(nestedLevel(), m_nestedRow.row());
        else if (!m_nestedRow.handle(word, token, m_colors, m_border))
            m_border.handle(word, token, m_colors);
        return;
    default:
        break;
    }
    if (handleCharacterWord(word, token)) {
        charactersChanged();
        return;
    }
    if (handleParagraphWord(word, token)) {
        m_state.paragraphFormat = kUnknown;
        return;
    }
    const bool isBody = m_state.destination == Destination::Body;
    if (!isBody || !handleTableWord(word, token))
        handleDocumentWord(word, token);
}

bool Interpreter::handleDocumentWord(ControlWord word, const Token &token)
{
    const bool isBody = m_state.destination == Destination::Body;
    switch (word.word) {
    case Word::CodePage:
        if (word.argument != 0 || token.parameter > 0)
            m_codePage = word.argument != 0 ? word.argument : token.parameter;
        m_state.codePage = kUnknown;
        break;
    case Word::Utf8:
        m_utf8 = true;
        m_state.codePage = kUnknown;
        break;
    case Word::DefaultFont:
        m_defaultFont = token.parameter;
        m_state.codePage = kUnknown;
        charactersChanged();
        break;
    case Word::ParagraphEnd:
        endParagraph();
        break;
    case Word::SectionEnd:
        if (isBody) {
            if (!m_sink.paragraphIsEmpty())
                endParagraph();
            m_sink.addKept("\\sect");
        }
        break;
    case Word::PageBreak:
        if (isBody) {
            if (!m_sink.paragraphIsEmpty())
                endParagraph();
            m_announced.pageBreak = true;
        }
        break;
    case Word::KeptOfDocument:
        if (isBody)
            keep(written(token), true);
        break;
    case Word::KeptInText:
        if (isBody) {
            const bool isRaised = m_state.characters.script == Script::Superscript;
            m_sink.addKept((isRaised ? "{\\super" : "{\\nosupersub") + written(token) + '}');
        }
        break;
    default:
        return false;
    }
    return true;
}

bool Interpreter::handleTableWord(ControlWord word, const Token &token)
{
    switch (word.word) {
    case Word::Cell:
        endCell(1);
        return true;
    case Word::NestedCell:
        endCell(qMax(2, depth()));
        return true;
    case Word::Row:
        if (m_state.destination == Destination::Body)
            endRow(1, m_row.row());
        return true;
    case Word::NestedRow:
        if (m_state.destination == Destination::Body)
            endRow(nestedLevel(), m_nestedRow.row());
        return true;
    default:
        return m_row.handle(word, token, m_colors, m_border);
    }
}

bool Interpreter::handleCharacterWord(ControlWord word, const Token &token)
{
    Characters &characters = m_state.characters;
    switch (word.word) {
    case Word::Plain:
        characters = {};
        m_state.codePage = kUnknown;
        break;
    case Word::Bold:
        characters.bold = isOn(token);
        break;
    case Word::Italic:
        characters.italic = isOn(token);
        break;
    case Word::StrikeOut:
        characters.strikeOut = isOn(token);
        break;
    case Word::Underline:
        characters.underline = isOn(token) ? Underline(word.argument) : Underline::None;
        break;
    case Word::Script:
        characters.script = isOn(token) ? Script(word.argument) : Script::Normal;
        break;
    case Word::Raise: {
        constexpr int kUsual = 6; ///< half points, when none are stated
        characters.raise =
            word.argument * (token.hasParameter ? qBound(0, token.parameter, kMaximumHalfPoints) : kUsual);
        break;
    }
    case Word::Capitals:
        characters.capitals = isOn(token) ? Capitals(word.argument) : Capitals::Normal;
        break;
    case Word::Hidden:
        characters.hidden = isOn(token);
        break;
    case Word::Protected:
        characters.isProtected = isOn(token);
        break;
    case Word::Spacing:
        characters.spacing = length(token);
        break;
    case Word::Language:
        characters.language = qBound(0, token.parameter, 0xFFFF);
        break;
    case Word::KeptOfCharacters:
        setKeptWord(characters.kept, token, true);
        break;
    default:
        return handleFontOrColor(word, token);
    }
    return true;
}

bool Interpreter::handleFontOrColor(ControlWord word, const Token &token)
{
    Characters &characters = m_state.characters;
    switch (word.word) {
    case Word::Font:
        characters.font = token.parameter;
        m_state.codePage = kUnknown;
        break;
    case Word::FontSize:
        if (token.parameter > 0)
            characters.halfPoints = qMin(token.parameter, kMaximumHalfPoints);
        else
            characters.halfPoints = Characters().halfPoints;
        break;
    case Word::Color:
        characters.color = token.parameter;
        break;
    case Word::Background:
        characters.background = token.parameter;
        break;
    case Word::UnderlineColor:
        characters.underlineColor = token.parameter;
        break;
    default:
        return false;
    }
    return true;
}

bool Interpreter::handleParagraphWord(ControlWord word, const Token &token)
{
    Paragraph &paragraph = m_state.paragraph;
    ParagraphFormat &format = paragraph.format;
    switch (word.word) {
    case Word::ParagraphDefaults:
        paragraph = {};
        m_border.begin({});
        break;
    case Word::Alignment:
        format.alignment = Alignment(word.argument);
        break;
    case Word::LeftIndent:
        format.leftIndent = length(token);
        paragraph.indentStated = true;
        break;
    case Word::RightIndent:
        format.rightIndent = length(token);
        break;
    case Word::FirstIndent:
        format.firstIndent = length(token);
        paragraph.indentStated = true;
        break;
    case Word::SpaceBefore:
        format.spaceBefore = distance(token);
        break;
    case Word::SpaceAfter:
        format.spaceAfter = distance(token);
        break;
    case Word::LineSpacing:
        format.lineSpacing = length(token);
        break;
    case Word::LineSpacingMultiple:
        format.lineSpacingMultiple = isOn(token);
        break;
    case Word::Direction:
        format.rightToLeft = word.argument != 0;
        break;
    case Word::PageBreakBefore:
        format.pageBreakBefore = isOn(token);
        break;
    case Word::Tab:
        if (format.tabs.size() < kMaximumTabs)
            format.tabs.append({length(token), paragraph.nextTab});
        paragraph.nextTab = TabKind::Left;
        break;
    case Word::TabKind:
        paragraph.nextTab = TabKind(word.argument);
        break;
    default:
        return handleParagraphExtra(word, token);
    }
    return true;
}

/// Lists, shading, borders, the tables around.
bool Interpreter::handleParagraphExtra(ControlWord word, const Token &token)
{
    Paragraph &paragraph = m_state.paragraph;
    switch (word.word) {
    case Word::ListNumber:
        paragraph.list = token.parameter;
        break;
    case Word::ListLevelNumber:
        paragraph.format.item.level = qBound(0, token.parameter, kDeepestLevel);
        break;
    case Word::InTable:
        paragraph.inTable = isOn(token);
        break;
    case Word::TableDepth:
        paragraph.depth = qMax(0, token.parameter);
        break;
    case Word::ParagraphBackground:
        paragraph.shading.background = m_colors.color(token.parameter);
        break;
    case Word::ParagraphForeground:
        paragraph.shading.foreground = m_colors.color(token.parameter);
        break;
    case Word::ParagraphShading:
        paragraph.shading.percent100 = token.parameter;
        break;
    case Word::ParagraphBorder: {
        Borders &borders = paragraph.format.borders;
        if (word.argument == kNoSide)
            m_border.begin({});
        else if (word.argument == kAllSides)
            m_border.begin(
                {&borders[Side::Top], &borders[Side::Left], &borders[Side::Bottom], &borders[Side::Right]});
        else
            m_border.begin({&borders[Side(word.argument)]});
        break;
    }
    case Word::BorderStyle:
    case Word::BorderWidth:
    case Word::BorderSpace:
    case Word::BorderColor:
        return m_border.handle(word, token, m_colors);
    case Word::KeptOfParagraph:
        setKeptWord(paragraph.format.kept, token, true);
        break;
    default:
        return false;
    }
    return true;
}

} // namespace norvane::rtf
