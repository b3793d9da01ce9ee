#include "richtext/rtf/RtfOutput.h"

#include "richtext/rtf/text_escapes.h"

namespace norvane::rtf {

void RtfOutput::word(Word word, int argument)
{
    const std::string_view letters = lettersOf(word, argument);
    m_bytes += '\\';
    m_bytes += QByteArrayView(letters.data(), qsizetype(letters.size()));
    m_afterWord = true;
}

void RtfOutput::numberOf(Word which, int argument, int parameter)
{
    word(which, argument);
    m_bytes += QByteArray::number(parameter);
}

void RtfOutput::numberUnless0(Word word, int parameter)
{
    if (parameter != 0)
        number(word, parameter);
}

void RtfOutput::put(QByteArrayView bytes)
{
    if (bytes.isEmpty())
        return;
    m_bytes += bytes;
    m_afterWord = false;
}

void RtfOutput::text(QStringView text)
{
    appendEscaped(m_bytes, text, m_afterWord);
}

void RtfOutput::hexLines(const QByteArray &bytes)
{
    appendHexLines(m_bytes, bytes);
    m_afterWord = false;
}

} // namespace norvane::rtf
