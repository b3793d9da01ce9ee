#include "richtext/rtf/OperationSink.h"

namespace norvane::rtf {
namespace {

bool isUsual(QChar character)
{
    const char16_t unit = character.unicode();
    return (unit >= 0x20 && unit < 0xD800 && unit != QChar::ParagraphSeparator) || unit == u'\t' ||
           (unit >= 0xE000 && unit < 0xFDD0);
}

/// What stands for a unit that is not usual; a null character: nothing.
QChar substitute(char16_t unit)
{
    if (unit == 0)
        return u' ';
    if (unit < 0x20)
        return {};
    if (unit == QChar::ParagraphSeparator)
        return QChar::LineSeparator;
    if (unit == QChar::ObjectReplacementCharacter)
        return u' ';
    if ((unit >= 0xFDD0 && unit <= 0xFDEF) || unit >= 0xFFFE)
        return QChar::ReplacementCharacter;
    return QChar(unit);
}

/// Takes out what a text may not hold: control characters, units that mean structure to a text
/// document, halves of surrogate pairs.
QString cleaned(const QString &text)
{
    QString clean;
    clean.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar character = text.at(i);
        if (character.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate()) {
            clean += character;
            clean += text.at(++i);
        } else if (character.isSurrogate()) {
            clean += QChar(QChar::ReplacementCharacter);
        } else if (isUsual(character)) {
            clean += character;
        } else if (const QChar other = substitute(character.unicode()); !other.isNull()) {
            clean += other;
        }
    }
    return clean;
}

} // namespace

void OperationSink::beginRun(int format)
{
    if (format != m_format) {
        endRun();
        m_format = format;
    }
    m_paragraphIsEmpty = false;
}

void OperationSink::endRun()
{
    if (m_text.isEmpty())
        return;
    if (!std::all_of(m_text.cbegin(), m_text.cend(), isUsual))
        m_text = cleaned(m_text);
    if (!m_text.isEmpty())
        m_document.operations.emplace_back(TextRun{std::exchange(m_text, {}), m_format});
}

void OperationSink::addText(QStringView text, int format)
{
    beginRun(format);
    m_text += text;
}

void OperationSink::addAscii(QByteArrayView text, int format)
{
    beginRun(format);
    m_text += QLatin1StringView(text.data(), text.size());
}

void OperationSink::addPicture(const Picture &picture, int format)
{
    endRun();
    m_document.operations.emplace_back(PictureRun{picture, format});
    m_paragraphIsEmpty = false;
}

void OperationSink::endParagraph(int paragraphFormat, int format)
{
    endRun();
    m_document.operations.emplace_back(ParagraphEnd{paragraphFormat, format});
    m_paragraphIsEmpty = true;
}

void OperationSink::chopTab()
{
    if (m_text.endsWith(u'\t'))
        m_text.chop(1);
}

std::vector<Operation> &OperationSink::operations()
{
    endRun();
    return m_document.operations;
}

Document OperationSink::take(const QString &defaultFont)
{
    endRun();
    m_document.defaultFont = defaultFont;
    return std::move(m_document);
}

} // namespace norvane::rtf
