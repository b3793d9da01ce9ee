#include "richtext/rtf/field_instruction.h"

#include "richtext/rtf/clean_text.h"

#include <QStringList>

namespace norvane::rtf {
namespace {

/// A word of an instruction. Within quotes, and in switches, a backslash takes the next character
/// as it is.
struct Part
{
    QString text;
    bool isSwitch = false; ///< text is its letter
};

QList<Part> partsOf(const QString &instruction)
{
    QList<Part> parts;
    const qsizetype size = instruction.size();
    for (qsizetype i = 0; i < size;) {
        const QChar first = instruction.at(i);
        if (first.isSpace()) {
            ++i;
            continue;
        }
        Part part;
        const bool isQuoted = first == u'"' || first == u'\u201C';
        if (isQuoted) {
            const QChar closing = first == u'"' ? u'"' : u'\u201D';
            for (++i; i < size && instruction.at(i) != closing; ++i) {
                const bool escapes = instruction.at(i) == u'\\' && i + 1 < size &&
                                     (instruction.at(i + 1) == u'\\' || instruction.at(i + 1) == u'"');
                part.text += instruction.at(escapes ? ++i : i);
            }
            ++i;
        } else if (first == u'\\' && i + 1 < size && instruction.at(i + 1).isLetter()) {
            part.isSwitch = true;
            part.text = instruction.at(i + 1).toLower();
            i += 2;
        } else {
            for (; i < size && !instruction.at(i).isSpace() && instruction.at(i) != u'"'; ++i)
                part.text += instruction.at(i);
        }
        parts.append(part);
    }
    return parts;
}

QString quoted(QString text)
{
    text.replace(u'\\', QStringLiteral("\\\\")).replace(u'"', QStringLiteral("\\\""));
    return u'"' + text + u'"';
}

} // namespace

std::optional<LinkTarget> linkOf(const QString &instruction)
{
    const QList<Part> parts = partsOf(cleanedText(instruction));
    if (parts.isEmpty() ||
        parts.first().text.compare(QLatin1StringView("HYPERLINK"), Qt::CaseInsensitive) != 0)
        return std::nullopt;
    LinkTarget target;
    QString place;
    for (qsizetype i = 1; i < parts.size(); ++i) {
        const bool hasNext = i + 1 < parts.size() && !parts.at(i + 1).isSwitch;
        if (!parts.at(i).isSwitch) {
            if (target.address.isEmpty())
                target.address = parts.at(i).text.trimmed();
        } else if (hasNext && parts.at(i).text == u"l") {
            place = parts.at(++i).text.trimmed();
        } else if (hasNext && parts.at(i).text == u"o") {
            target.tip = parts.at(++i).text;
        } else if (hasNext && parts.at(i).text == u"t") {
            ++i; // the frame to open it in
        }
    }
    if (!place.isEmpty())
        target.address += u'#' + place;
    return target.address.isEmpty() ? std::nullopt : std::optional(target);
}

QString instructionOf(const LinkTarget &target)
{
    QString text = QStringLiteral("HYPERLINK ");
    const qsizetype place = target.address.startsWith(u'#') ? 0 : -1;
    if (place == 0 && target.address.size() > 1)
        text += QStringLiteral("\\l ") + quoted(target.address.mid(1));
    else
        text += quoted(target.address);
    if (!target.tip.isEmpty())
        text += QStringLiteral(" \\o ") + quoted(target.tip);
    return text;
}

std::optional<SymbolSign> symbolOf(const QString &instruction)
{
    const QList<Part> parts = partsOf(cleanedText(instruction));
    if (parts.size() < 2 || parts.first().text.compare(QLatin1StringView("SYMBOL"), Qt::CaseInsensitive) != 0)
        return std::nullopt;
    SymbolSign sign;
    bool isNumber = false;
    const QString number = parts.at(1).text;
    sign.number = number.startsWith(u"0x", Qt::CaseInsensitive) ? number.mid(2).toInt(&isNumber, 16)
                                                                : number.toInt(&isNumber);
    for (qsizetype i = 2; i < parts.size(); ++i) {
        if (parts.at(i).isSwitch && parts.at(i).text == u"u")
            sign.isUnicode = true;
        else if (parts.at(i).isSwitch && parts.at(i).text == u"f" && i + 1 < parts.size())
            sign.font = parts.at(++i).text;
    }
    if (!isNumber || sign.number < 0x20 || sign.number > 0xFFFF)
        return std::nullopt;
    return sign;
}

} // namespace norvane::rtf
