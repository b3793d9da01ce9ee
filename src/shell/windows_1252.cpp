#include "shell/windows_1252.h"

#include <algorithm>
#include <iterator>

namespace norvane {

namespace {

/// The characters of the bytes 0x80 to 0x9F; the five bytes that have none stand for themselves. All
/// other bytes are Latin-1.
constexpr char16_t kUpperControls[] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};
constexpr int kFirst = 0x80;
constexpr int kEnd = kFirst + int(std::size(kUpperControls));

char byteOf(char16_t unit)
{
    if (unit < kFirst || (unit >= kEnd && unit <= 0xFF))
        return char(unit);
    const auto *const found = std::find(std::begin(kUpperControls), std::end(kUpperControls), unit);
    return found == std::end(kUpperControls) ? '?' : char(kFirst + (found - std::begin(kUpperControls)));
}

} // namespace

QByteArray toWindows1252(QStringView text)
{
    QByteArray bytes;
    bytes.reserve(text.size());
    for (const QChar unit : text)
        bytes.append(byteOf(unit.unicode()));
    return bytes;
}

QString fromWindows1252(QByteArrayView bytes)
{
    QString text;
    text.reserve(bytes.size());
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        text.append(value >= kFirst && value < kEnd ? QChar(kUpperControls[value - kFirst])
                                                    : QChar(char16_t(value)));
    }
    return text;
}

} // namespace norvane
