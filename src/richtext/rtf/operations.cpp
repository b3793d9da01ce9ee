#include "richtext/rtf/operations.h"

#include <QHashFunctions>

namespace norvane::rtf {

size_t qHash(const CharacterFormat &format, size_t seed) noexcept
{
    // Hashed once for each change of format: cheap fields only, the font's name where it differs.
    const quint32 flags =
        quint32(format.underline) | quint32(format.script) << 4 | quint32(format.capitals) << 6 |
        quint32(format.bold) << 8 | quint32(format.italic) << 9 | quint32(format.strikeOut) << 10 |
        quint32(format.isProtected) << 11 | quint32(format.hidden) << 12 | quint32(format.symbol) << 13;
    return qHashMulti(seed, format.font, format.halfPoints, format.color.value_or(0xFFFFFFFF),
                      format.background.value_or(0xFFFFFFFF), flags);
}

size_t qHash(const ParagraphFormat &format, size_t seed) noexcept
{
    const quint32 flags = quint32(format.alignment) | quint32(format.rightToLeft) << 4 |
                          quint32(format.bullet) << 5 | quint32(format.pageBreakBefore) << 6 |
                          quint32(format.lineSpacingMultiple) << 7;
    size_t hash = qHashMulti(seed, format.leftIndent, format.rightIndent, format.firstIndent,
                             format.spaceBefore, format.spaceAfter, format.lineSpacing, flags);
    for (const Tab &tab : format.tabs)
        hash = qHashMulti(hash, tab.position, int(tab.kind));
    return hash;
}

QString Document::plainText() const
{
    QString text;
    for (const Operation &operation : operations) {
        if (const auto *run = std::get_if<TextRun>(&operation))
            text += run->text;
        else if (std::holds_alternative<ParagraphEnd>(operation))
            text += u'\n';
    }
    return text;
}

} // namespace norvane::rtf
