// What the interpreter does at control words and control symbols.

#include "richtext/rtf/Interpreter.h"
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

} // namespace

bool Interpreter::handleSymbol(const Token &token)
{
    m_starred = false;
    switch (token.value) {
    case '*':
        m_starred = true;
        return true;
    case '\n':
        m_toSkip = 0;
        endParagraph();
        return true;
    default:
        break;
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
    case Word::Unknown:
        m_toSkip = 0;
        return starred ? skipGroup() : true;
    case Word::Character:
        if (!consumeSkipped())
            addUnit(char16_t(word.argument));
        return true;
    case Word::Unicode:
        if (token.hasParameter)
            addUnicode(token.parameter);
        return true;
    case Word::UnicodeSkip:
        m_state.unicodeSkip = token.hasParameter ? qBound(0, token.parameter, 16) : 1;
        return true;
    default:
        break;
    }
    m_toSkip = 0; // characters that stand for a \u do not go on behind another word

    switch (word.word) {
    case Word::Destination:
        return enter(Destination(word.argument));
    case Word::Unpacked:
        return true;
    case Word::ShapePicture:
        m_state.shapePicture = true;
        m_shapePictureShown = false;
        return true;
    case Word::NoShapePicture:
        return std::exchange(m_shapePictureShown, false) ? skipGroup() : true;
    case Word::Alternative:
        m_state.besideAlternative = m_state.destination;
        m_state.destination = Destination::Alternative;
        return true;
    case Word::AlternativeUnicode:
        if (m_state.destination == Destination::Alternative)
            m_state.destination = m_state.besideAlternative;
        return true;
    default:
        break;
    }

    switch (m_state.destination) {
    case Destination::FontTable:
        handleFontWord(word, token);
        break;
    case Destination::ColorTable:
        if (word.word == Word::ColorPart)
            m_colors.setPart(word.argument, token.parameter);
        break;
    case Destination::Picture:
        m_picture.handle(word, token);
        break;
    case Destination::ListNumber:
        if (word.word == Word::ListNumber)
            m_listIsBullet = word.argument != 0;
        break;
    default:
        handleBodyWord(word, token);
        break;
    }
    return true;
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
    if (handleCharacterWord(word, token)) {
        charactersChanged();
        return;
    }
    if (handleParagraphWord(word, token)) {
        m_state.paragraphFormat = kUnknown;
        return;
    }
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
        if (!m_sink.paragraphIsEmpty())
            endParagraph();
        break;
    case Word::PageBreak:
        if (isBody) {
            if (!m_sink.paragraphIsEmpty())
                endParagraph();
            m_pageBreak = true;
        }
        break;
    case Word::Cell:
        addUnit(u'\t');
        break;
    case Word::Row:
        if (isBody) {
            m_sink.chopTab();
            endParagraph();
        }
        break;
    default:
        return false;
    }
    return true;
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
    case Word::Capitals:
        characters.capitals = isOn(token) ? Capitals(word.argument) : Capitals::Normal;
        break;
    case Word::Hidden:
        characters.hidden = isOn(token);
        break;
    case Word::Protected:
        characters.isProtected = isOn(token);
        break;
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
    default:
        return false;
    }
    return true;
}

bool Interpreter::handleParagraphWord(ControlWord word, const Token &token)
{
    ParagraphFormat &paragraph = m_state.paragraph;
    switch (word.word) {
    case Word::ParagraphDefaults:
        paragraph = {};
        m_state.nextTab = TabKind::Left;
        break;
    case Word::Alignment:
        paragraph.alignment = Alignment(word.argument);
        break;
    case Word::LeftIndent:
        paragraph.leftIndent = length(token);
        break;
    case Word::RightIndent:
        paragraph.rightIndent = length(token);
        break;
    case Word::FirstIndent:
        paragraph.firstIndent = length(token);
        break;
    case Word::SpaceBefore:
        paragraph.spaceBefore = distance(token);
        break;
    case Word::SpaceAfter:
        paragraph.spaceAfter = distance(token);
        break;
    case Word::LineSpacing:
        paragraph.lineSpacing = length(token);
        break;
    case Word::LineSpacingMultiple:
        paragraph.lineSpacingMultiple = isOn(token);
        break;
    case Word::Direction:
        paragraph.rightToLeft = word.argument != 0;
        break;
    case Word::PageBreakBefore:
        paragraph.pageBreakBefore = isOn(token);
        break;
    case Word::Tab:
        if (paragraph.tabs.size() < kMaximumTabs)
            paragraph.tabs.append({length(token), m_state.nextTab});
        m_state.nextTab = TabKind::Left;
        break;
    case Word::TabKind:
        m_state.nextTab = TabKind(word.argument);
        break;
    default:
        return false;
    }
    return true;
}

} // namespace norvane::rtf
