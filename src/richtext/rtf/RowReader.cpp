#include "richtext/rtf/RowReader.h"

#include "richtext/rtf/kept_words.h"
#include "richtext/rtf/limits.h"

namespace norvane::rtf {
namespace {

constexpr int kFullShading = 10'000;

int length(const Token &token)
{
    return qBound(-kMaximumTwips, token.parameter, kMaximumTwips);
}

int distance(const Token &token)
{
    return qBound(0, token.parameter, kMaximumTwips);
}

} // namespace

int cellEnd(int left, int stated)
{
    const int right = qBound(-kMaximumTwips, stated, kMaximumTwips);
    return right > left ? right : left + kLeastCellWidth;
}

std::optional<quint32> Shading::color() const
{
    if (percent100 <= 0)
        return background;
    const quint32 under = background.value_or(0xFFFFFF);
    const quint32 over = foreground.value_or(0);
    const qint64 part = qMin(percent100, kFullShading);
    quint32 mixed = 0;
    for (const int shift : {0, 8, 16}) {
        const qint64 low = under >> shift & 0xFF;
        const qint64 high = over >> shift & 0xFF;
        mixed |= quint32(low + (high - low) * part / kFullShading) << shift;
    }
    return mixed;
}

void BorderReader::begin(std::initializer_list<Border *> borders)
{
    m_borders.clear();
    for (Border *border : borders) {
        *border = {};
        m_borders.append(border);
    }
}

bool BorderReader::handle(ControlWord word, const Token &token, const ColorTable &colors)
{
    switch (word.word) {
    case Word::BorderStyle:
        for (Border *border : m_borders)
            border->style = BorderStyle(word.argument);
        return true;
    case Word::BorderWidth:
        for (Border *border : m_borders)
            border->width = qBound(0, token.parameter, kMaximumBorderWidth);
        return true;
    case Word::BorderSpace:
        for (Border *border : m_borders)
            border->space = distance(token);
        return true;
    case Word::BorderColor:
        for (Border *border : m_borders)
            border->color = colors.color(token.parameter);
        return true;
    default:
        return false;
    }
}

bool RowReader::handle(ControlWord word, const Token &token, const ColorTable &colors, BorderReader &border)
{
    RowFormat &row = m_row.format;
    switch (word.word) {
    case Word::RowDefaults:
        m_row = {};
        m_cell = {};
        m_shading = {};
        m_merged = false;
        border.begin({});
        return true;
    case Word::RowLeft:
        row.left = length(token);
        if (!row.cells.isEmpty()) // said late
            row.left = qMin(row.left, row.cells.first().right - kLeastCellWidth);
        return true;
    case Word::RowGap:
        row.gap = distance(token);
        return true;
    case Word::RowHeight:
        row.height = length(token);
        return true;
    case Word::RowHeader:
        row.header = true;
        return true;
    case Word::RowAlignment:
        row.alignment = rtf::RowAlignment(word.argument);
        return true;
    case Word::RowDirection:
        row.rightToLeft = word.argument != 0;
        return true;
    case Word::RowPadding:
        row.padding[Side(word.argument)] = distance(token);
        return true;
    case Word::KeptOfRow:
        setKeptWord(row.kept, token, false);
        return true;
    default:
        return handleCellWord(word, token, colors, border);
    }
}

bool RowReader::handleCellWord(ControlWord word, const Token &token, const ColorTable &colors,
                               BorderReader &border)
{
    switch (word.word) {
    case Word::CellRight:
        endCell(token.parameter);
        border.begin({});
        return true;
    case Word::CellMerge:
        m_merged = true;
        return true;
    case Word::CellVerticalMerge:
        m_cell.merge = VerticalMerge(word.argument);
        return true;
    case Word::CellAlignment:
        m_cell.alignment = VerticalAlignment(word.argument);
        return true;
    case Word::CellBackground:
        m_shading.background = colors.color(token.parameter);
        return true;
    case Word::CellForeground:
        m_shading.foreground = colors.color(token.parameter);
        return true;
    case Word::CellShading:
        m_shading.percent100 = token.parameter;
        return true;
    case Word::CellPadding:
        m_cell.padding[Side(word.argument)] = distance(token);
        return true;
    case Word::CellPaddingUnit:
        m_paddingHasUnit = true;
        return true;
    case Word::CellBorder:
        if (word.argument == kNoSide)
            border.begin({});
        else
            border.begin({&m_cell.borders[Side(word.argument)]});
        return true;
    case Word::KeptOfCell:
        setKeptWord(m_cell.kept, token, false);
        return true;
    default:
        return false;
    }
}

void RowReader::endCell(int right)
{
    QVector<CellFormat> &cells = m_row.format.cells;
    if (cells.size() < kMaximumCellsInRow) {
        const int left = cells.isEmpty() ? m_row.format.left : cells.last().right;
        m_cell.right = cellEnd(left, right);
        m_cell.background = m_shading.color();
        if (!m_paddingHasUnit) // without units the letters mean what they say
            std::swap(m_cell.padding[Side::Left], m_cell.padding[Side::Top]);
        cells.append(m_cell);
        m_row.merged.append(m_merged && cells.size() > 1);
    }
    m_cell = {};
    m_shading = {};
    m_merged = false;
    m_paddingHasUnit = false;
}

} // namespace norvane::rtf
