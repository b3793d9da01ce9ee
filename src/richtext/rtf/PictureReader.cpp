#include "richtext/rtf/PictureReader.h"

#include "richtext/rtf/limits.h"

#include <utility>

namespace norvane::rtf {
namespace {

/// What is shown of a length: cut at both ends, as the file states it, then scaled. The cuts become
/// those of the scaled length.
int displayLength(int goal, int &cutBefore, int &cutBehind, int scale)
{
    const qint64 percent = qBound(1, scale, 10'000);
    const auto scaled = [percent](int value) {
        return int(qMin(qBound(0, value, kMaximumTwips) * percent / 100, qint64(kMaximumTwips)));
    };
    cutBefore = scaled(cutBefore);
    cutBehind = scaled(cutBehind);
    const int whole = goal > 0 ? qMax(1, scaled(goal)) : 0;
    const int cut = cutBefore + cutBehind;
    return cut == 0 || whole == 0 ? whole : qMax(1, whole - cut);
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

bool isShown(PictureKind kind)
{
    return kind == PictureKind::Png || kind == PictureKind::Jpeg || kind == PictureKind::Dib;
}

void PictureReader::begin()
{
    m_picture = {};
    m_data.begin();
    m_hasKind = false;
    m_scaleX = 100;
    m_scaleY = 100;
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
    case Word::PictureCrop:
        m_picture.crop[Side(word.argument)] = qBound(-kMaximumTwips, token.parameter, kMaximumTwips);
        break;
    default:
        break;
    }
}

std::optional<Picture> PictureReader::end()
{
    if (!m_hasKind || m_data.tooLarge() || m_data.bytes().isEmpty() ||
        m_total + m_data.bytes().size() > kMaximumPicturesBytes) {
        begin();
        return std::nullopt;
    }
    m_picture.bytes = m_data.take();
    m_total += m_picture.bytes.size();
    if (m_scaleX <= 0)
        m_scaleX = 100;
    if (m_scaleY <= 0)
        m_scaleY = 100;
    // A picture at its own size needs no size; the natural one may be finer than stated.
    Sides<int> &crop = m_picture.crop;
    const bool isCutX = crop[Side::Left] > 0 || crop[Side::Right] > 0;
    const bool isCutY = crop[Side::Top] > 0 || crop[Side::Bottom] > 0;
    if (m_picture.displayWidth <= 0 && (m_scaleX != 100 || isCutX))
        m_picture.displayWidth = naturalGoal(m_picture.kind, m_picture.width);
    if (m_picture.displayHeight <= 0 && (m_scaleY != 100 || isCutY))
        m_picture.displayHeight = naturalGoal(m_picture.kind, m_picture.height);
    m_picture.displayWidth =
        displayLength(m_picture.displayWidth, crop[Side::Left], crop[Side::Right], m_scaleX);
    m_picture.displayHeight =
        displayLength(m_picture.displayHeight, crop[Side::Top], crop[Side::Bottom], m_scaleY);
    return std::exchange(m_picture, {});
}

} // namespace norvane::rtf
