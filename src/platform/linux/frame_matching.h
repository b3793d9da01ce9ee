#pragma once

#include <QRect>
#include <QString>
#include <QVector>

namespace norvane {

/// A top-level window as a program tells it on the accessibility bus.
struct AccessibleFrame
{
    QString service; ///< bus name of the program
    QString path;    ///< object path of the frame
    QString name;
    QRect extents; ///< device pixels of the desktop; may be empty
    bool active = false;
};

struct FrameMatch
{
    int index = -1;    ///< of the frame; -1 when no frame or more than one fits
    bool sure = false; ///< the pair may be kept: it does not rest on what changes from now to now
};

/// Finds the frame of a window of the same process: by name, then by place, then by activity.
/// @param caption    at most 254 units, as the window system cuts it
/// @param rect       client area of the window in device pixels
/// @param foreground whether the user works in the window
FrameMatch matchFrame(const QVector<AccessibleFrame> &frames, const QString &caption, const QRect &rect,
                      bool foreground);

} // namespace norvane
