#include "richtext/rtf/text_escapes.h"

namespace norvane::rtf {
namespace {

constexpr qsizetype kBytesPerLine = 64;
constexpr char kLineEnd[] = "\r\n";

} // namespace

void appendHexLines(QByteArray &out, const QByteArray &bytes)
{
    for (qsizetype i = 0; i < bytes.size(); i += kBytesPerLine) {
        out += kLineEnd;
        out += bytes.mid(i, kBytesPerLine).toHex();
    }
}

void appendEscaped(QByteArray &out, QStringView text, bool &afterWord)
{
    for (const QChar character : text) {
        const char16_t unit = character.unicode();
        if (unit >= 0x20 && unit < 0x7F) {
            if (unit == u'\\' || unit == u'{' || unit == u'}')
                out += '\\';
            else if (afterWord)
                out += ' ';
            out += char(unit);
        } else if (unit == u'\t' || unit == QChar::LineSeparator) {
            out += unit == u'\t' ? "\\tab" : "\\line";
            afterWord = true;
            continue;
        } else if (unit == QChar::Nbsp) {
            out += "\\~";
        } else if (unit == QChar::SoftHyphen) {
            out += "\\-";
        } else if (unit == u'\u2011') {
            out += "\\_";
        } else if (unit > 0xA0 && unit <= 0xFF) {
            // The same in Unicode and in the code page of the file.
            out += "\\'" + QByteArray::number(unit, 16);
        } else if (unit >= 0x7F) {
            out += "\\u" + QByteArray::number(qint16(unit)) + '?';
        } else {
            continue;
        }
        afterWord = false;
    }
}

} // namespace norvane::rtf
