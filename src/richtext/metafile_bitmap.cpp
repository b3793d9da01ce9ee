#include "richtext/metafile_bitmap.h"

#include <QtEndian>
#include <algorithm>
#include <iterator>

namespace norvane {
namespace {

constexpr quint32 kPlaceableKey = 0x9AC6CDD7;
constexpr qsizetype kPlaceableHeader = 22;
constexpr qsizetype kHeader = 18;
constexpr quint32 kBitmapHeader = 40;

/// Numbers of a file, 0 beyond its end.
class Numbers
{
public:
    explicit Numbers(const QByteArray &bytes) : m_bytes(bytes) {}

    quint16 word(qsizetype at) const
    {
        return holds(at, 2) ? qFromLittleEndian<quint16>(m_bytes.constData() + at) : 0;
    }
    quint32 number(qsizetype at) const
    {
        return holds(at, 4) ? qFromLittleEndian<quint32>(m_bytes.constData() + at) : 0;
    }
    bool holds(qsizetype at, qsizetype size) const
    {
        return at >= 0 && size >= 0 && at <= m_bytes.size() - size;
    }

private:
    const QByteArray &m_bytes;
};

/// Records that draw something; the bitmap's parameters stand before its header.
struct DrawingRecord
{
    quint16 kind;
    qsizetype bitmapAt; ///< in the record; 0: it draws no bitmap
};

constexpr DrawingRecord kDrawingRecords[] = {{0x0B41, 26}, // stretch a bitmap
                                             {0x0940, 22}, // copy a bitmap
                                             {0x0F43, 28}, // stretch a bitmap, from memory
                                             {0x0D33, 24}, // set a bitmap's pixels, from memory
                                             {0x0213, 0},  {0x041B, 0}, {0x0418, 0}, {0x0324, 0}, {0x0325, 0},
                                             {0x0538, 0},  {0x0521, 0}, {0x0A32, 0}, {0x0817, 0}, {0x081A, 0},
                                             {0x0830, 0},  {0x061C, 0}, {0x041F, 0}, {0x0419, 0}, {0x0548, 0},
                                             {0x061D, 0},  {0x0922, 0}, {0x0B23, 0}};

QByteArray bitmapOfWindowsMetafile(const QByteArray &metafile)
{
    const Numbers numbers(metafile);
    qsizetype at = (numbers.number(0) == kPlaceableKey ? kPlaceableHeader : 0) + kHeader;
    QByteArray bitmap;
    while (numbers.holds(at, 6)) {
        const qsizetype size = qsizetype(numbers.number(at)) * 2;
        const quint16 kind = numbers.word(at + 4);
        if (kind == 0 || size < 6 || !numbers.holds(at, size))
            break;
        const auto *drawing =
            std::find_if(std::begin(kDrawingRecords), std::end(kDrawingRecords),
                         [kind](const DrawingRecord &record) { return record.kind == kind; });
        if (drawing != std::end(kDrawingRecords)) {
            if (drawing->bitmapAt == 0 || !bitmap.isEmpty() || size <= drawing->bitmapAt)
                return {};
            bitmap = metafile.mid(at + drawing->bitmapAt, size - drawing->bitmapAt);
        }
        at += size;
    }
    return bitmap;
}

QByteArray bitmapOfEnhancedMetafile(const QByteArray &metafile)
{
    constexpr quint32 kEnd = 14;
    constexpr quint32 kStretchBitmap = 81; // its parameters: where header and pixels lie
    constexpr quint32 kBitBlit = 76;
    constexpr quint32 kStretchBlit = 77;
    constexpr quint32 kFont = 82;
    // The others set up what these draw.
    const auto draws = [](quint32 kind) {
        return (kind >= 2 && kind <= 8) || kind == 15 || (kind >= 41 && kind <= 47) ||
               (kind >= 53 && kind <= 56) || (kind >= 62 && kind <= 64) || (kind >= 71 && kind <= 74) ||
               (kind >= kBitBlit && kind <= 97 && kind != kFont) || kind == 108 || kind >= 114;
    };
    const Numbers numbers(metafile);
    QByteArray bitmap;
    for (qsizetype at = 0; numbers.holds(at, 8);) {
        const quint32 kind = numbers.number(at);
        const qsizetype size = numbers.number(at + 4);
        if (kind == kEnd || size < 8 || !numbers.holds(at, size))
            break;
        if (draws(kind)) {
            const bool isBitmap = kind == kStretchBitmap || kind == kBitBlit || kind == kStretchBlit;
            const qsizetype places = kind == kStretchBitmap ? 48 : 84;
            const qsizetype header = numbers.number(at + places);
            const qsizetype headerSize = numbers.number(at + places + 4);
            const qsizetype pixels = numbers.number(at + places + 8);
            const qsizetype pixelsSize = numbers.number(at + places + 12);
            if (!isBitmap || !bitmap.isEmpty() || headerSize < qsizetype(kBitmapHeader) ||
                header > size - headerSize || pixels > size - pixelsSize ||
                !numbers.holds(at + header, headerSize) || !numbers.holds(at + pixels, pixelsSize))
                return {};
            bitmap = metafile.mid(at + header, headerSize) + metafile.mid(at + pixels, pixelsSize);
        }
        at += size;
    }
    return bitmap;
}

} // namespace

QByteArray bitmapOfMetafile(const QByteArray &metafile)
{
    constexpr quint32 kEnhancedHeader = 1;
    constexpr quint32 kEnhancedMark = 0x464D4520;
    const Numbers numbers(metafile);
    const bool isEnhanced = numbers.number(0) == kEnhancedHeader && numbers.number(40) == kEnhancedMark;
    const QByteArray bitmap =
        isEnhanced ? bitmapOfEnhancedMetafile(metafile) : bitmapOfWindowsMetafile(metafile);
    const bool isBitmap =
        bitmap.size() > qsizetype(kBitmapHeader) && Numbers(bitmap).number(0) == kBitmapHeader;
    return isBitmap ? bitmap : QByteArray();
}

} // namespace norvane
