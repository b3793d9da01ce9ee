#pragma once

#include "controls/grid/grid_types.h"

#include <QFont>

namespace norvane {

/// One cell, read or to be written as a whole: a copy that changes nothing by itself.
struct cGridCell
{
    QVariant Text;     ///< any text, number or date; invalid when unset
    QVariant ItemData; ///< the host's own
    qint16 TextAlign = kAlignLeft;
    qint32 IconIndex = kNoGridIcon;
    qint32 ExtraIconIndex = kNoGridIcon;
    qint32 Indent = 0; ///< pixels
    qint32 BackColor = kDefaultGridColor;
    qint32 ForeColor = kDefaultGridColor;
    QFont Font;

    static qint32 DefaultBackColor() { return kDefaultGridColor; }
    static qint32 DefaultForeColor() { return kDefaultGridColor; }
};

} // namespace norvane
