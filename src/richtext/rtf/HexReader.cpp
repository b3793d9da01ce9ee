#include "richtext/rtf/HexReader.h"

#include "richtext/rtf/limits.h"

#include <array>
#include <utility>

namespace norvane::rtf {
namespace {

constexpr std::array<int, 256> kHexValues = [] {
    std::array<int, 256> values{};
    values.fill(-1);
    for (std::size_t i = 0; i < 10; ++i)
        values[std::size_t{'0'} + i] = static_cast<int>(i);
    for (std::size_t i = 0; i < 6; ++i) {
        values[std::size_t{'a'} + i] = static_cast<int>(10 + i);
        values[std::size_t{'A'} + i] = static_cast<int>(10 + i);
    }
    return values;
}();

} // namespace

void HexReader::begin()
{
    m_bytes = {};
    m_highDigit = -1;
    m_tooLarge = false;
}

void HexReader::addDigits(QByteArrayView digits)
{
    if (m_tooLarge)
        return;
    for (const char digit : digits) {
        const int value = kHexValues[static_cast<unsigned char>(digit)];
        if (value < 0)
            continue;
        if (m_highDigit < 0) {
            m_highDigit = value;
        } else {
            m_bytes.append(char(m_highDigit << 4 | value));
            m_highDigit = -1;
        }
    }
    m_tooLarge = m_bytes.size() > kMaximumPictureBytes;
}

void HexReader::addBytes(QByteArrayView bytes)
{
    m_tooLarge = m_tooLarge || m_bytes.size() + bytes.size() > kMaximumPictureBytes;
    if (!m_tooLarge)
        m_bytes.append(bytes.data(), bytes.size());
}

QByteArray HexReader::take()
{
    m_bytes.squeeze();
    return std::exchange(m_bytes, {});
}

} // namespace norvane::rtf
