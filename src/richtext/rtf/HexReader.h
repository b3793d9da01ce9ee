#pragma once

#include <QByteArray>

namespace norvane::rtf {

/// Collects bytes that are written as hexadecimal digits, or as they are.
class HexReader
{
public:
    void begin();
    /// Anything but digits is passed over. A digit without its second half counts for nothing.
    void addDigits(QByteArrayView digits);
    void addBytes(QByteArrayView bytes);
    /// There were more than kMaximumPictureBytes; the rest is left out.
    bool tooLarge() const { return m_tooLarge; }
    const QByteArray &bytes() const { return m_bytes; }
    QByteArray take();

private:
    QByteArray m_bytes;
    int m_highDigit = -1; ///< first half of a byte whose second half has not come
    bool m_tooLarge = false;
};

} // namespace norvane::rtf
