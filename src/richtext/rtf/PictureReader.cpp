#include "richtext/rtf/PictureReader.h"

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

int displayLength(int goal, int scale)
{
    const qint64 bounded = qBound(0, goal, kMaximumTwips);
    return int(qMin(bounded * qBound(1, scale, 10'000) / 100, qint64(kMaximumTwips)));
}

/// The goal that a picture without one has: metafiles state their size in 0.01 mm, others in pixels
/// of 1/96 inch.
int naturalGoal(PictureKind kind, int stated)
{
    const bool isMetafile = kind == PictureKind::Wmf || kind == PictureKind::Emf;
    const qint64 twips = isMetafile ? qint64(stated) * 1440 / 2540 : qint64(stated) * 15;
    return int(qBound(qint64(0), twips, qint64(kMaximumTwips)));
}

} // namespace

void PictureReader::begin()
{
    m_picture = {};
    m_hasKind = false;
    m_tooLarge = false;
    m_scaleX = 100;
    m_scaleY = 100;
    m_highDigit = -1;
}

void PictureReader::handle(ControlWord word, const Token &token)
{
    switch (word.word) {
    case Word::PictureKind:
        m_picture.kind = PictureKind(word.argument);
        m_hasKind = true;
        if (m_picture.kind == PictureKind::Wmf && token.hasParameter)
            m_picture.mapMode = token.parameter;
        break;
    case Word::PictureWidth:
        m_picture.width = qMax(0, token.parameter);
        break;
    case Word::PictureHeight:
        m_picture.height = qMax(0, token.parameter);
        break;
    case Word::PictureGoalWidth:
        m_picture.displayWidth = token.parameter;
        break;
    case Word::PictureGoalHeight:
        m_picture.displayHeight = token.parameter;
        break;
    case Word::PictureScaleX:
        m_scaleX = token.parameter;
        break;
    case Word::PictureScaleY:
        m_scaleY = token.parameter;
        break;
    default:
        break;
    }
}

void PictureReader::addHex(QByteArrayView digits)
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
            m_picture.bytes.append(char(m_highDigit << 4 | value));
            m_highDigit = -1;
        }
    }
    m_tooLarge = m_picture.bytes.size() > kMaximumPictureBytes;
}

void PictureReader::addBytes(QByteArrayView bytes)
{
    m_tooLarge = m_tooLarge || m_picture.bytes.size() + bytes.size() > kMaximumPictureBytes;
    if (!m_tooLarge)
        m_picture.bytes.append(bytes.data(), bytes.size());
}

std::optional<Picture> PictureReader::end()
{
    if (!m_hasKind || m_tooLarge || m_picture.bytes.isEmpty() ||
        m_total + m_picture.bytes.size() > kMaximumPicturesBytes) {
        begin();
        return std::nullopt;
    }
    m_total += m_picture.bytes.size();
    if (m_scaleX <= 0)
        m_scaleX = 100;
    if (m_scaleY <= 0)
        m_scaleY = 100;
    // A picture at its own size needs no size; the natural one may be finer than stated.
    if (m_picture.displayWidth <= 0 && m_scaleX != 100)
        m_picture.displayWidth = naturalGoal(m_picture.kind, m_picture.width);
    if (m_picture.displayHeight <= 0 && m_scaleY != 100)
        m_picture.displayHeight = naturalGoal(m_picture.kind, m_picture.height);
    m_picture.displayWidth = displayLength(m_picture.displayWidth, m_scaleX);
    m_picture.displayHeight = displayLength(m_picture.displayHeight, m_scaleY);
    return std::exchange(m_picture, {});
}

} // namespace norvane::rtf
