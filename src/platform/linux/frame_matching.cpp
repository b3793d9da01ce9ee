#include "platform/linux/frame_matching.h"

namespace norvane {

namespace {

constexpr int kCaptionUnits = 254;
/// Programs tell their place with or without their own frame and shadow; scaled desktops round.
constexpr int kPlaceTolerance = 64;

constexpr int kNameScore = 4;
constexpr int kPlaceScore = 2;
constexpr int kActiveScore = 1;

bool isNamed(const AccessibleFrame &frame, const QString &caption)
{
    QString name = frame.name.left(frame.name.indexOf(QChar(0)));
    if (name.size() > kCaptionUnits) {
        name.truncate(kCaptionUnits);
        if (name.back().isHighSurrogate())
            name.chop(1);
    }
    return name == caption;
}

bool isNear(int a, int b)
{
    return qAbs(a - b) <= kPlaceTolerance;
}

bool isAt(const AccessibleFrame &frame, const QRect &rect)
{
    return !frame.extents.isEmpty() && !rect.isEmpty() && isNear(frame.extents.left(), rect.left()) &&
           isNear(frame.extents.top(), rect.top()) && isNear(frame.extents.right(), rect.right()) &&
           isNear(frame.extents.bottom(), rect.bottom());
}

} // namespace

FrameMatch matchFrame(const QVector<AccessibleFrame> &frames, const QString &caption, const QRect &rect,
                      bool foreground)
{
    FrameMatch best;
    int bestScore = -1;
    int candidates = 0;
    bool tie = false;
    for (int i = 0; i < frames.size(); ++i) {
        const AccessibleFrame &frame = frames.at(i);
        // Browsers keep nameless frames beside each window; none of them is the window.
        if (frame.name.isEmpty() && !caption.isEmpty())
            continue;
        ++candidates;
        const bool named = isNamed(frame, caption);
        const int score = (named ? kNameScore : 0) + (isAt(frame, rect) ? kPlaceScore : 0) +
                          (frame.active && foreground ? kActiveScore : 0);
        if (score > bestScore) {
            // Activity tells two windows of one name apart now, but not a moment later.
            best = {i, named};
            bestScore = score;
            tie = false;
        } else if (score == bestScore) {
            tie = true;
        }
    }
    if (tie)
        return {};
    if (bestScore < kPlaceScore && candidates > 1)
        return {};
    return best;
}

} // namespace norvane
