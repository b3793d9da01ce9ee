#include "richtext/rtf/code_pages.h"

namespace norvane::rtf {
namespace {

/// Windows-1252 where it differs from Latin 1, from 0x80.
constexpr char16_t kWesternUpper[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                        0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                        0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                        0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void decodeWestern(QByteArrayView bytes, QString &text)
{
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        text += QChar(code >= 0x80 && code < 0xA0 ? kWesternUpper[code - 0x80] : char16_t(code));
    }
}

void decodeSymbol(QByteArrayView bytes, QString &text)
{
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        text += QChar(code > 0x20 ? char16_t(0xF000 + code) : char16_t(code));
    }
}

QStringDecoder decoderFor(int codePage)
{
    // The names that the decoder knows differ by family.
    // Rich text is ASCII: what has other letters there is no code page of it.
    static constexpr char kAscii[] = "\\{}azAZ09 ;";
    const QByteArray number = QByteArray::number(codePage);
    if (codePage == 10000)
        return QStringDecoder("macintosh");
    if (codePage == 932)
        return QStringDecoder("windows-31j");
    if (codePage == 1361)
        return QStringDecoder("windows-949"); // an older arrangement of the same script
    for (const char *prefix : {"windows-", "cp", "ibm-"}) {
        QStringDecoder decoder(QByteArray(prefix + number).constData());
        if (decoder.isValid() && QString(decoder.decode(kAscii)) == QLatin1StringView(kAscii))
            return decoder;
    }
    return QStringDecoder();
}

} // namespace

int codePageOfCharset(int charset)
{
    switch (charset) {
    case 0:
        return kWesternCodePage;
    case 2:
        return kSymbolCodePage;
    case 77:
        return 10000;
    case 128:
        return 932;
    case 129:
        return 949;
    case 130:
        return 1361;
    case 134:
        return 936;
    case 136:
        return 950;
    case 161:
        return 1253;
    case 162:
        return 1254;
    case 163:
        return 1258;
    case 177:
        return 1255;
    case 178:
        return 1256;
    case 186:
        return 1257;
    case 204:
        return 1251;
    case 222:
        return 874;
    case 238:
        return 1250;
    case 254:
        return 437;
    case 255:
        return 850;
    default:
        return 0;
    }
}

void CodePages::decode(QByteArrayView bytes, int codePage, QString &text)
{
    switch (codePage) {
    case kWesternCodePage:
        decodeWestern(bytes, text);
        return;
    case kSymbolCodePage:
        decodeSymbol(bytes, text);
        return;
    case kUtf8CodePage:
        text += QString::fromUtf8(bytes);
        return;
    default:
        break;
    }
    auto known = m_decoders.find(codePage);
    if (known == m_decoders.end())
        known = m_decoders.emplace(codePage, decoderFor(codePage)).first;
    if (!known->second.isValid()) {
        decodeWestern(bytes, text);
        return;
    }
    known->second.resetState(); // half a character does not wait for the next text
    text += known->second.decode(bytes);
}

} // namespace norvane::rtf
