// What the interpreter does where groups of a destination begin and end.

#include "richtext/rtf/Interpreter.h"
#include "richtext/rtf/clean_text.h"
#include "richtext/rtf/field_instruction.h"
#include "richtext/rtf/kept_pieces.h"
#include "richtext/rtf/limits.h"
#include "richtext/rtf/object_groups.h"
#include "richtext/rtf/symbol_fonts.h"

namespace norvane::rtf {
namespace {

/// Whether the text of a list mark is a mere sign: no number and no letter, but the "o" that some
/// fonts draw as a ring.
bool isBulletSign(const QString &text)
{
    if (text.isEmpty() || text.size() > 2 || (text.size() == 2 && !text.at(0).isHighSurrogate()))
        return false;
    return !text.at(0).isLetterOrNumber() || text == u"o";
}

/// The parameter of a word among those that an object keeps; 0 if it is not there.
int parameterOf(const QByteArray &words, const QByteArray &word)
{
    const qsizetype place = words.indexOf(word);
    if (place < 0)
        return 0;
    qsizetype end = place + word.size();
    while (end < words.size() && words.at(end) >= '0' && words.at(end) <= '9')
        ++end;
    return qMin(words.mid(place + word.size(), end - place - word.size()).toInt(), kMaximumTwips);
}

/// The destinations that begin in another one alone; Body for those of the text.
Destination around(Destination destination)
{
    switch (destination) {
    case Destination::LevelText:
    case Destination::LevelNumbers:
        return Destination::ListTable;
    case Destination::MarkBefore:
    case Destination::MarkAfter:
        return Destination::Mark;
    case Destination::FieldInstruction:
    case Destination::FieldResult:
        return Destination::Field;
    case Destination::ObjectClass:
    case Destination::ObjectData:
    case Destination::ObjectResult:
        return Destination::Object;
    default:
        return Destination::Body;
    }
}

/// Tables that stand before the text.
bool isHeader(Destination destination)
{
    return destination == Destination::FontTable || destination == Destination::ColorTable ||
           destination == Destination::ListTable;
}

} // namespace

bool Interpreter::enter(Destination destination)
{
    const Destination now = m_state.destination;
    switch (destination) {
    case Destination::Skipped:
        return skipGroup();
    case Destination::KeptAlone:
    case Destination::KeptOfStart:
    case Destination::StyleSheet:
    case Destination::PictureKept:
        return keepGroup(destination);
    default:
        break;
    }
    const bool isKeptWhole = destination == Destination::Field || destination == Destination::Object;
    if (m_outer.size() <= 1 || (isKeptWhole && !m_fresh))
        return true; // a word that is out of place
    if (isHeader(destination) && !m_openFields.empty())
        return skipGroup();
    if (now == Destination::FieldInstruction)
        return true; // a field within an instruction is a part of its text
    const bool isResult = destination == Destination::FieldResult || destination == Destination::ObjectResult;
    if (isResult && now == Destination::Body)
        return true;
    if (now != around(destination))
        return skipGroup();
    const bool isOwnGroup = isResult ? m_outer.back().destination == now : m_fresh;
    if (now != Destination::Body && !isOwnGroup)
        return true;

    switch (destination) {
    case Destination::Picture:
        m_picture.begin();
        break;
    case Destination::MarkText:
        m_markText.clear();
        break;
    case Destination::Mark:
        m_mark.begin();
        break;
    case Destination::Field:
        m_openFields.emplace_back();
        m_openFields.back().contentBefore = m_sink.contentCount();
        m_openFields.back().keptBefore = {m_styles.size(), m_prologue.size(), m_sink.keptSize()};
        m_openFields.back().announcedBefore = m_announced;
        m_openFields.back().rowBefore = m_row;
        break;
    case Destination::FieldInstruction:
        m_openFields.back().text.clear();
        break;
    case Destination::FieldResult:
        beginFieldResult();
        destination = Destination::Body;
        break;
    case Destination::Object:
        beginObject();
        break;
    case Destination::ObjectResult:
        beginObjectResult();
        destination = Destination::Body;
        break;
    default:
        break;
    }
    m_state.destination = destination;
    m_state.codePage = kUnknown;
    return true;
}

void Interpreter::leave(const State &inner)
{
    const bool toBody = m_state.destination == Destination::Body;
    switch (inner.destination) {
    case Destination::FontTable:
    case Destination::ColorTable:
        m_state.format = kUnknown; // what numbers mean has changed
        m_state.codePage = kUnknown;
        break;
    case Destination::Picture:
        if (toBody)
            endPicture(inner.begin);
        break;
    case Destination::MarkText:
        endMarkText();
        break;
    case Destination::Mark:
        m_state.paragraph.format.item = m_mark.end();
        m_state.paragraphFormat = kUnknown;
        break;
    case Destination::FieldInstruction:
        if (m_state.destination == Destination::Field)
            m_openFields.back().instruction = pieceOf(inner.begin, m_tokenizer.position());
        break;
    case Destination::Field:
        endField(inner);
        break;
    case Destination::Object:
        endObject();
        break;
    default:
        break;
    }
}

/// A group as it stands in the file, fit to be kept; empty when it cannot be, or is too much.
QByteArray Interpreter::pieceOf(qsizetype begin, qsizetype end)
{
    if (end - begin > kMaximumKeptBytes - m_keptSize)
        return {};
    const KeptContext context{m_fonts,
                              m_colors,
                              m_codePages,
                              m_utf8 ? kUtf8CodePage : m_codePage,
                              m_state.characters.font,
                              m_state.unicodeSkip};
    const std::optional<QByteArray> piece = keptPiece(m_rtf.sliced(begin, end - begin), context);
    if (!piece || piece->size() > kMaximumKeptBytes - m_keptSize)
        return {};
    m_keptSize += piece->size();
    return *piece;
}

/// Keeps the group whose destination has just been named.
bool Interpreter::keepGroup(Destination destination)
{
    const Destination now = m_state.destination;
    const qsizetype begin = m_state.begin;
    const bool isTaken = destination == Destination::PictureKept
                             ? now == Destination::Picture
                             : now == Destination::Body || now == Destination::Object;
    if (!isTaken || !m_fresh || m_outer.size() <= 1)
        return skipGroup();
    if (!skipGroup())
        return false; // it has no end
    const QByteArray piece = pieceOf(begin, m_tokenizer.position());
    if (now == Destination::Picture)
        m_picture.addKept(piece);
    else if (now == Destination::Object)
        m_openObjects.back().object.kept += piece;
    else if (destination == Destination::StyleSheet && !m_sink.hasContent())
        m_styles += piece;
    else if (destination != Destination::StyleSheet)
        keep(piece, destination == Destination::KeptOfStart);
    return true;
}

/// @param ofStart it belongs to the document, when no text has come so far
void Interpreter::keep(const QByteArray &piece, bool ofStart)
{
    if (ofStart && !m_sink.hasContent())
        m_prologue += piece;
    else
        m_sink.addKept(piece);
}

/// @return its index, or that of the wrapper around when there are too many
int Interpreter::addWrapper(const QByteArray &begin)
{
    int depth = 0;
    for (int outer = m_state.wrapper; outer != kUnknown; outer = m_wrappers[size_t(outer)].outer)
        ++depth;
    if (depth >= kMaximumWrapperDepth || m_wrappers.size() >= size_t(kMaximumWrappers))
        return m_state.wrapper;
    m_wrappers.push_back({begin, m_state.wrapper});
    return int(m_wrappers.size()) - 1;
}

void Interpreter::beginFieldResult()
{
    Field &field = m_openFields.back();
    charactersChanged();
    if (const std::optional<LinkTarget> link = linkOf(field.text)) {
        m_links.push_back({link->address, link->tip});
        m_state.link = int(m_links.size()) - 1;
    } else if (!field.instruction.isEmpty()) {
        m_state.wrapper = addWrapper("{\\field" + field.words + field.instruction + "{\\fldrslt");
    }
}

/// A field that shows nothing is kept whole, unless it names a sign.
void Interpreter::endField(const State &field)
{
    const Field ended = std::move(m_openFields.back());
    m_openFields.pop_back();
    if (m_state.destination != Destination::Body || m_sink.contentCount() != ended.contentBefore)
        return;
    m_styles.truncate(ended.keptBefore.styles);
    m_prologue.truncate(ended.keptBefore.prologue);
    m_sink.chopKept(ended.keptBefore.inText);
    m_announced = ended.announcedBefore;
    m_row = ended.rowBefore;
    if (symbolOf(ended.text))
        addSymbolOfField(ended.text);
    else
        m_sink.addKept(pieceOf(field.begin, m_tokenizer.position()));
}

void Interpreter::addSymbolOfField(const QString &instruction)
{
    const SymbolSign sign = *symbolOf(instruction);
    beginText();
    CharacterFormat format = m_sink.characterFormats().at(characterFormat());
    char16_t character = char16_t(sign.number);
    if (!sign.font.isEmpty())
        format.font = sign.font;
    if (!sign.isUnicode && sign.number <= 0xFF) {
        format.symbol = true;
        character = symbolCharacter(format.font, static_cast<unsigned char>(sign.number));
    }
    m_sink.addText(QStringView(&character, 1), m_sink.characterFormats().indexOf(format));
}

void Interpreter::beginObject()
{
    beginText(); // it always shows something
    Object object;
    object.object.words.clear();
    object.contentBefore = m_sink.contentCount();
    object.tablePartsBefore = m_sink.tablePartCount();
    object.picturesBefore = m_pictureCount;
    m_openObjects.push_back(std::move(object));
}

void Interpreter::beginObjectResult()
{
    int &wrapper = m_openObjects.back().wrapper;
    if (wrapper == kUnknown)
        wrapper = addWrapper({});
    m_state.wrapper = wrapper;
    charactersChanged();
}

/// An object whose result is one picture is this picture. One that shows nothing is a picture
/// without bytes, one that shows anything else stands around it.
void Interpreter::endObject()
{
    Object ended = std::move(m_openObjects.back());
    m_openObjects.pop_back();
    if (m_state.destination != Destination::Body)
        return;
    EmbeddedObject &object = ended.object;
    object.className = ended.className;
    if (!ended.data.tooLarge())
        object.data = ended.data.take();

    if (m_sink.tablePartCount() != ended.tablePartsBefore)
        return; // what it shows stays, the object cannot be around all of it
    const quint64 content = m_sink.contentCount() - ended.contentBefore;
    PictureRun *shown =
        content == 1 && m_pictureCount == ended.picturesBefore + 1 ? m_sink.lastPicture() : nullptr;
    if (content > 0 && !shown) {
        if (ended.wrapper != kUnknown && ended.wrapper != m_state.wrapper)
            m_wrappers[size_t(ended.wrapper)].begin =
                objectGroupBegin(object, [](const QByteArray &kept) { return kept; });
        return;
    }
    Picture picture;
    if (shown)
        picture = *shown->picture;
    picture.object = std::make_shared<const EmbeddedObject>(std::move(object));
    if (shown) {
        CharacterFormat format = m_sink.characterFormats().at(shown->format);
        format.wrapper = m_state.wrapper;
        shown->format = m_sink.characterFormats().indexOf(format);
        shown->picture = std::make_shared<const Picture>(std::move(picture));
        return;
    }
    picture.displayWidth = parameterOf(picture.object->words, "\\objw");
    picture.displayHeight = parameterOf(picture.object->words, "\\objh");
    beginText();
    m_sink.addPicture(std::move(picture), characterFormat());
    ++m_pictureCount;
}

void Interpreter::endPicture(qsizetype begin)
{
    std::optional<Picture> picture = m_picture.end();
    if (!picture)
        return;
    // A shape's picture that cannot be shown is kept behind the one for other readers.
    PictureRun *unshown = m_shapePicture == ShapePicture::Unshown ? m_sink.lastPicture() : nullptr;
    if (!m_state.shapePicture && unshown) {
        m_shapePicture = ShapePicture::None;
        if (!isShown(picture->kind))
            return;
        picture->original = pieceOf(m_shapeBegin, m_shapeEnd);
        picture->original += "{\\nonshppict" + pieceOf(begin, m_tokenizer.position()) + '}';
        unshown->picture = std::make_shared<const Picture>(std::move(*picture));
        return;
    }
    const bool isShownKind = isShown(picture->kind);
    beginText();
    m_sink.addPicture(std::move(*picture), characterFormat());
    ++m_pictureCount;
    if (m_state.shapePicture)
        m_shapePicture = isShownKind ? ShapePicture::Shown : ShapePicture::Unshown;
}

void Interpreter::endMarkText()
{
    m_announced.isBullet = isBulletSign(m_markText.trimmed());
    m_announced.number = m_announced.isBullet || isNothing(m_markText) ? QString() : m_markText;
}

} // namespace norvane::rtf
