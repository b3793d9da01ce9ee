#include "richtext/rtf/FontTable.h"

#include "richtext/rtf/clean_text.h"
#include "richtext/rtf/limits.h"

namespace norvane::rtf {
namespace {

/// A name without characters that a name does not have, and that have no place in a font table.
QString usableName(const QString &name)
{
    QString usable = cleanedText(name);
    usable.remove(QChar(QChar::SoftHyphen)).replace(QChar(u'\u2011'), QChar(u'-'));
    return usable.simplified().left(kMaximumFontNameLength).trimmed();
}

} // namespace

void FontTable::beginFont(int number)
{
    endName();
    if (number == kNoFont)
        return;
    if (m_fonts.size() >= kMaximumFonts && !m_fonts.contains(number))
        return;
    m_fonts.insert(number, {});
    m_current = number;
}

void FontTable::setCharset(int charset)
{
    if (m_fonts.contains(m_current))
        m_fonts[m_current].codePage = codePageOfCharset(charset);
}

void FontTable::setCodePage(int codePage)
{
    if (m_fonts.contains(m_current) && codePage > 0)
        m_fonts[m_current].codePage = codePage;
}

void FontTable::addBytes(QByteArrayView bytes)
{
    for (const char byte : bytes) {
        if (byte == ';')
            endName();
        else if (m_bytes.size() < kMaximumFontNameLength)
            m_bytes.append(byte);
    }
}

void FontTable::addUnit(char16_t unit)
{
    decodeBytes();
    if (m_fonts.contains(m_current) && m_fonts[m_current].name.size() < kMaximumFontNameLength)
        m_fonts[m_current].name += QChar(unit);
}

void FontTable::endName()
{
    decodeBytes();
    if (const auto font = m_fonts.find(m_current); font != m_fonts.end()) {
        font->name = usableName(font->name);
        // Signs are those of a font that one can name.
        if (font->name.isEmpty() && font->isSymbol())
            font->codePage = 0;
    }
    m_current = kNoFont;
}

void FontTable::decodeBytes()
{
    if (m_fonts.contains(m_current) && !m_bytes.isEmpty()) {
        Font &font = m_fonts[m_current];
        const bool western = font.codePage == 0 || font.isSymbol();
        m_codePages.decode(m_bytes, western ? kWesternCodePage : font.codePage, font.name);
    }
    m_bytes.clear();
}

const Font *FontTable::font(int number) const
{
    const auto found = m_fonts.constFind(number);
    return found == m_fonts.constEnd() ? nullptr : &*found;
}

} // namespace norvane::rtf
