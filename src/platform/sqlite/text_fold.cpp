#include "platform/sqlite/text_fold.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace norvane::dao {

namespace {

constexpr char32_t kTwoBytes = 0x800; ///< the first character that takes more than two
constexpr char32_t kNone = 0xffffffff;
constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf";

char lowerAscii(char unit)
{
    return unit >= 'A' && unit <= 'Z' ? static_cast<char>(unit | 0x20) : unit;
}

/// How many bytes from the front are ASCII.
std::size_t asciiRun(std::string_view text)
{
    std::size_t size = 0;
    for (quint64 word = 0; size + sizeof word <= text.size(); size += sizeof word) {
        std::memcpy(&word, text.data() + size, sizeof word);
        if ((word & 0x8080808080808080) != 0)
            break;
    }
    while (size < text.size() && static_cast<unsigned char>(text[size]) < 0x80)
        ++size;
    return size;
}

/// Folds the ASCII bytes at the front, eight at a time. @return how many there are
std::size_t foldAsciiRun(std::string_view text, char *folded)
{
    constexpr quint64 kEach = 0x0101010101010101;
    constexpr quint64 kHighBits = 0x80 * kEach;
    std::size_t size = 0;
    for (quint64 word = 0; size + sizeof word <= text.size(); size += sizeof word) {
        std::memcpy(&word, text.data() + size, sizeof word);
        if ((word & kHighBits) != 0)
            break;
        // The high bit of each byte tells whether that is a capital.
        const quint64 fromA = word + (0x80 - 'A') * kEach;
        const quint64 behindZ = word + (0x7f - 'Z') * kEach;
        word |= ((fromA ^ behindZ) & kHighBits) >> 2;
        std::memcpy(folded + size, &word, sizeof word);
    }
    for (; size < text.size() && static_cast<unsigned char>(text[size]) < 0x80; ++size)
        folded[size] = lowerAscii(text[size]);
    return size;
}

/// The character at the front, which is none of ASCII, and its size; kNone where the bytes are no UTF-8.
char32_t characterAt(std::string_view text, std::size_t &size)
{
    constexpr std::array<char32_t, 5> kLowest{0, 0, 0x80, 0x800, 0x10000};
    const auto lead = static_cast<unsigned char>(text[0]);
    size = lead < 0xe0 ? 2 : lead < 0xf0 ? 3 : 4;
    if (lead < 0xc2 || lead > 0xf4 || text.size() < size)
        return kNone;
    char32_t character = lead & (0xffU >> (size + 1));
    for (std::size_t i = 1; i < size; ++i) {
        const auto next = static_cast<unsigned char>(text[i]);
        if ((next & 0xc0) != 0x80)
            return kNone;
        character = character << 6 | (next & 0x3fU);
    }
    const bool isGood =
        character >= kLowest[size] && character <= 0x10ffff && (character < 0xd800 || character > 0xdfff);
    return isGood ? character : kNone;
}

void appendCharacter(std::string &bytes, char32_t character)
{
    const auto put = [&bytes](char32_t byte) { bytes += static_cast<char>(byte); };
    const auto putRest = [&](int shift) { put(0x80 | (character >> shift & 0x3f)); };
    if (character < 0x80) {
        put(character);
    } else if (character < kTwoBytes) {
        put(0xc0 | character >> 6);
        putRest(0);
    } else if (character < 0x10000) {
        put(0xe0 | character >> 12);
        putRest(6);
        putRest(0);
    } else {
        put(0xf0 | character >> 18);
        putRest(12);
        putRest(6);
        putRest(0);
    }
}

} // namespace

FoldedText::FoldedText(std::string_view text)
{
    if (text.substr(0, kByteOrderMark.size()) == kByteOrderMark)
        text.remove_prefix(kByteOrderMark.size());
    m_bytes.resize(text.size());
    const std::size_t plain = foldAsciiRun(text, m_bytes.data());
    m_bytes.resize(plain);
    if (append(text.substr(plain)))
        return;
    const QString wide = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    m_bytes = folded(wide).toStdString();
}

/// Whether all of the text is UTF-8.
bool FoldedText::append(std::string_view text)
{
    // Most letters of most languages, looked up once.
    static const auto kFolded = [] {
        std::array<char32_t, kTwoBytes> table{};
        for (char32_t character = 0; character < kTwoBytes; ++character)
            table[character] = QChar::toCaseFolded(character);
        return table;
    }();
    while (!text.empty()) {
        const std::size_t plain = asciiRun(text);
        const std::size_t before = m_bytes.size();
        m_bytes.append(text.substr(0, plain));
        std::transform(m_bytes.begin() + static_cast<std::ptrdiff_t>(before), m_bytes.end(),
                       m_bytes.begin() + static_cast<std::ptrdiff_t>(before), lowerAscii);
        text.remove_prefix(plain);
        while (!text.empty() && static_cast<unsigned char>(text.front()) >= 0x80) {
            m_isAscii = false;
            std::size_t size = 0;
            const char32_t character = characterAt(text, size);
            if (character == kNone)
                return false;
            appendCharacter(m_bytes,
                            character < kTwoBytes ? kFolded[character] : QChar::toCaseFolded(character));
            text.remove_prefix(size);
        }
    }
    return true;
}

bool isAsciiText(std::string_view text)
{
    return asciiRun(text) == text.size();
}

QString folded(const QString &text)
{
    QString result;
    result.reserve(text.size());
    for (int i = 0; i < text.size(); ++i) {
        const QChar unit = text.at(i);
        if (unit.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate())
            result +=
                QStringView(QChar::fromUcs4(QChar::toCaseFolded(QChar::surrogateToUcs4(unit, text.at(++i)))));
        else
            result += unit.toCaseFolded();
    }
    return result;
}

} // namespace norvane::dao
