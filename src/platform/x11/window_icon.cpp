#include "platform/x11/window_icon.h"

#include <algorithm>
#include <span>

namespace norvane::x11 {

namespace {

/// Of a list of pictures no more is read: 8 MB.
constexpr quint32 kIconLongs = 2U << 20;
/// A longer side is no icon's.
constexpr quint32 kLongestSide = 1024;
constexpr quint32 kOpaque = 0xff000000;
constexpr quint32 kWhite = 0xffffffff;

// WM_HINTS: the flags, and the places of the pixmap and its mask.
constexpr quint32 kHintsLongs = 9;
constexpr qsizetype kPixmapPlace = 3;
constexpr qsizetype kMaskPlace = 7;
constexpr quint32 kPixmapHint = 1U << 2;
constexpr quint32 kMaskHint = 1U << 5;

constexpr quint8 kOneBit = 1;
constexpr quint8 kBitsOfColour = 24; ///< or 32, in which the upper ones mean nothing here

/// A drawable of the server, row by row.
class Drawable
{
public:
    Drawable(DesktopConnection &connection, xcb_drawable_t id)
    {
        const auto shape =
            connection.reply(connection.sent(xcb_get_geometry(connection.get(), id)), xcb_get_geometry_reply);
        if (!shape || shape->width > kLongestSide || shape->height > kLongestSide)
            return;
        m_bytes = connection.reply(connection.sent(xcb_get_image(connection.get(), XCB_IMAGE_FORMAT_Z_PIXMAP,
                                                                 id, 0, 0, shape->width, shape->height, ~0U)),
                                   xcb_get_image_reply);
        if (!m_bytes)
            return;
        m_isLeastFirst =
            xcb_get_setup(connection.get())->bitmap_format_bit_order == XCB_IMAGE_ORDER_LSB_FIRST;
        width = shape->width;
        height = shape->height;
        const qsizetype length = xcb_get_image_data_length(m_bytes.get());
        m_stride = height > 0 ? length / height : 0;
        const qsizetype needed = m_bytes->depth == kOneBit ? (width + 7) / 8 : 4 * qsizetype(width);
        if (m_stride < needed || (m_bytes->depth != kOneBit && m_bytes->depth < kBitsOfColour))
            width = height = 0;
    }

    bool isBitmap() const { return m_bytes && m_bytes->depth == kOneBit; }
    bool bit(int x, int y) const
    {
        const quint8 eight = row(y)[static_cast<size_t>(x / 8)];
        return (eight >> (m_isLeastFirst ? x % 8 : 7 - x % 8)) & 1;
    }
    quint32 colour(int x, int y) const
    {
        quint32 pixel = 0;
        std::copy_n(row(y).subspan(4 * static_cast<size_t>(x), 4).data(), 4,
                    reinterpret_cast<quint8 *>(&pixel));
        return pixel;
    }

    int width = 0;
    int height = 0;

private:
    std::span<const quint8> row(int y) const
    {
        return {xcb_get_image_data(m_bytes.get()) + y * m_stride, static_cast<size_t>(m_stride)};
    }

    XcbPointer<xcb_get_image_reply_t> m_bytes;
    qsizetype m_stride = 0;
    bool m_isLeastFirst = true;
};

IconImage pictureOfPixmap(DesktopConnection &connection, const QVector<quint32> &hints)
{
    const quint32 flags = hints.value(0);
    if (!(flags & kPixmapHint))
        return {};
    const Drawable pixmap(connection, hints.value(kPixmapPlace));
    const Drawable mask(connection, (flags & kMaskHint) ? hints.value(kMaskPlace) : XCB_NONE);
    const bool isMasked = mask.isBitmap() && mask.width >= pixmap.width && mask.height >= pixmap.height;

    IconImage image{pixmap.width, pixmap.height, {}};
    image.pixels.reserve(qsizetype(image.width) * image.height);
    for (int y = 0; y < image.height; ++y) {
        for (int x = 0; x < image.width; ++x) {
            quint32 pixel = 0;
            if (!isMasked || mask.bit(x, y)) {
                // A set bit of a bitmap is ink.
                pixel = kOpaque |
                        (pixmap.isBitmap() ? (pixmap.bit(x, y) ? kOpaque : kWhite) : pixmap.colour(x, y));
            }
            image.pixels.append(pixel);
        }
    }
    return image;
}

} // namespace

IconImage pictureOf(const QVector<quint32> &list, int side)
{
    const auto wanted = static_cast<quint32>(std::max(side, 1));
    qsizetype best = -1;
    quint32 bestSide = 0;
    for (qsizetype place = 0; place + 2 < list.size();) {
        const quint32 width = list[place];
        const quint32 height = list[place + 1];
        if (width == 0 || height == 0 || width > kLongestSide || height > kLongestSide)
            break;
        const qsizetype next = place + 2 + qsizetype(width) * height;
        if (next > list.size())
            break;
        const quint32 longer = std::max(width, height);
        const bool isBetter = bestSide < wanted ? longer > bestSide : longer >= wanted && longer < bestSide;
        if (isBetter) {
            best = place;
            bestSide = longer;
        }
        place = next;
    }
    if (best < 0)
        return {};
    const int width = static_cast<int>(list[best]);
    const int height = static_cast<int>(list[best + 1]);
    return {width, height, list.mid(best + 2, qsizetype(width) * height)};
}

IconImage readIcon(DesktopConnection &connection, xcb_window_t window, int side)
{
    const auto list = connection.requestProperty(window, AtomName::NetWmIcon, kIconLongs);
    const auto hints = connection.requestProperty(window, AtomName::WmHints, kHintsLongs);
    const IconImage image = pictureOf(numbersOf(connection.property(list)), side);
    const QVector<quint32> numbers = numbersOf(connection.property(hints));
    return image.isNull() ? pictureOfPixmap(connection, numbers) : image;
}

} // namespace norvane::x11
