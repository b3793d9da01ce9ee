#include "richtext/rtf/clean_text.h"

#include <algorithm>

namespace norvane::rtf {
namespace {

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

bool isControl(char16_t unit)
{
    return unit < 0x20 && unit != 0 && unit != u'\t';
}

} // namespace

bool isUsualUnit(QChar character)
{
    const char16_t unit = character.unicode();
    return (unit >= 0x20 && unit < 0xD800 && unit != QChar::ParagraphSeparator) || unit == u'\t' ||
           (unit >= 0xE000 && unit < 0xFDD0);
}

QString cleanedText(const QString &text)
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
        } else if (isUsualUnit(character)) {
            clean += character;
        } else if (const QChar other = substitute(character.unicode()); !other.isNull()) {
            clean += other;
        }
    }
    return clean;
}

bool isNothing(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar unit) { return isControl(unit.unicode()); });
}

bool isNothing(QByteArrayView text)
{
    return std::all_of(text.begin(), text.end(), [](char unit) { return isControl(char16_t(unit)); });
}

} // namespace norvane::rtf
