#pragma once

#include <QString>
#include <QVariant>

namespace norvane {

/// A colour of a cell is 0xBBGGRR; this one stands for the grid's own.
inline constexpr qint32 kDefaultGridColor = -1;
/// An icon index for "no icon".
inline constexpr qint32 kNoGridIcon = -1;
/// The extra icon that stands for the desktop's icon of the path or extension in the item data.
inline constexpr qint32 kShellIcon = 1;

/// CellTextAlign and ColumnAlign: one of the first three, and flags. Text stands in the middle of the
/// row's height unless it is wrapped.
enum GridTextAlign : qint16 {
    kAlignLeft = 0,
    kAlignCenter = 1,
    kAlignRight = 2,
    kAlignHorizontalMask = 3,
    kAlignWordBreak = 0x10, ///< wrapped at words; otherwise on one line with an ellipsis
};

/// What a sort key compares.
enum GridSortType : qint32 {
    kSortNumeric = 100,
    kSortText = 102,
    kSortTextNoCase = 103,
    kSortDate = 200,
    kSortDateYear = 250,
    kSortDateMonth = 251,
    kSortDateDay = 252,
    kSortDateHour = 253,
    kSortDateMinute = 254,
    kSortIcon = 300,
    kSortExtraIcon = 301,
    kSortForeColor = 400,
    kSortBackColor = 401,
    kSortFont = 500,
    kSortSelected = 600,
    kSortIndent = 700,
};

enum GridSortOrder : qint32 { kSortNone = 0, kSortAscending = 1, kSortDescending = 2 };

struct GridRow
{
    qint32 height = 0;        ///< pixels
    qint32 startPosition = 0; ///< pixels from the first row's top
    bool visible = true;
    bool isGroup = false;
    qint32 groupStartColumn = 0; ///< the column whose text runs to the end of a group row
    QString key;
};

struct GridColumn
{
    QString key;
    QString header;
    QVariant tag;      ///< the host's own
    QString format;    ///< see formattedValue()
    qint32 width = 64; ///< pixels
    qint32 image = kNoGridIcon;
    bool imageOnRight = false;
    qint16 align = kAlignLeft; ///< of the header
    bool visible = true;
    qint32 order = 0; ///< place on the screen, from 1
    qint32 sortType = kSortTextNoCase;
    qint32 sortOrder = kSortNone; ///< what the header's arrow shows
};

} // namespace norvane
