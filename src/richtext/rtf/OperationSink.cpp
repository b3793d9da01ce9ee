#include "richtext/rtf/OperationSink.h"

#include "richtext/rtf/clean_text.h"
#include "richtext/rtf/limits.h"

#include <algorithm>

namespace norvane::rtf {

void OperationSink::beginRun(int format)
{
    if (format != m_format || !m_kept.isEmpty()) {
        endRun();
        m_format = format;
        flushKept();
    }
    addContent();
}

void OperationSink::endRun()
{
    if (m_text.isEmpty())
        return;
    if (!std::all_of(m_text.cbegin(), m_text.cend(), isUsualUnit))
        m_text = cleanedText(m_text);
    if (!m_text.isEmpty())
        m_document.operations.emplace_back(TextRun{std::exchange(m_text, {}), m_format});
}

void OperationSink::flushKept()
{
    if (!m_kept.isEmpty())
        m_document.operations.emplace_back(KeptPiece{std::exchange(m_kept, {})});
}

void OperationSink::addContent()
{
    m_paragraphIsEmpty = false;
    m_hasContent = true;
    ++m_contentCount;
}

void OperationSink::addText(QStringView text, int format)
{
    beginRun(format);
    m_text += text;
}

void OperationSink::addAscii(QByteArrayView text, int format)
{
    beginRun(format);
    m_text += QLatin1StringView(text.data(), text.size());
}

void OperationSink::addPicture(Picture picture, int format)
{
    endRun();
    flushKept();
    m_document.operations.emplace_back(
        PictureRun{std::make_shared<const Picture>(std::move(picture)), format});
    addContent();
}

void OperationSink::addKept(const QByteArray &bytes)
{
    if (bytes.isEmpty())
        return;
    endRun();
    m_kept += bytes;
}

void OperationSink::endParagraph(int paragraphFormat, int format)
{
    endRun();
    flushKept();
    m_document.operations.emplace_back(ParagraphEnd{paragraphFormat, format});
    m_hasContent = true;
    ++m_contentCount;
    m_paragraphIsEmpty = true;
    m_inParagraph = false;
    if (!m_tables.empty())
        m_tables.back().cellHasContent = true;
}

void OperationSink::chopTab()
{
    if (m_text.endsWith(u'\t'))
        m_text.chop(1);
}

void OperationSink::beginParagraph(int depth, int expectedCells)
{
    if (m_inParagraph)
        return;
    endRun();
    const int wanted = qMin(depth, kMaximumTableDepth);
    const quint64 contentBefore = m_contentCount; // ends of tables belong to what came before
    const quint64 tablePartsBefore = m_tablePartCount;
    while (int(m_tables.size()) > wanted) {
        const Table &table = m_tables.back();
        const int cells = int(table.cellEnds.size());
        const bool rowGoesOn =
            m_tables.size() == 1 && cells > 0 && (expectedCells == 0 || cells < expectedCells);
        if (rowGoesOn)
            break; // a paragraph that does not say that it is in the table
        closeTable();
    }
    m_contentCount = contentBefore;
    m_tablePartCount = tablePartsBefore;
    while (int(m_tables.size()) < wanted && m_tableCount < kMaximumTables)
        openTable(m_document.operations.size());
    m_inParagraph = true;
    m_paragraphIsEmpty = true;
    m_paragraphPlace = m_document.operations.size();
}

bool OperationSink::takesTables(int level) const
{
    return level <= kMaximumTableDepth &&
           (level <= int(m_tables.size()) || m_tableCount + level - int(m_tables.size()) <= kMaximumTables);
}

/// @return where the operations that stood at the place are now
size_t OperationSink::openTable(size_t place)
{
    auto &operations = m_document.operations;
    m_tables.emplace_back();
    m_hasContent = true;
    ++m_tablePartCount;
    if (place > 0 && std::holds_alternative<TableEnd>(operations[place - 1])) {
        // Rows that follow rows are of the same table.
        operations.erase(operations.begin() + std::ptrdiff_t(place) - 1);
        m_tables.back().hasRows = true;
        m_tables.back().lastRow = std::get<RowEnd>(operations[place - 2]).rowFormat;
        return place - 1;
    }
    operations.emplace_back(TableBegin{});
    std::rotate(operations.begin() + std::ptrdiff_t(place), operations.end() - 1, operations.end());
    ++m_tableCount;
    return place + 1;
}

void OperationSink::closeTable()
{
    if (m_paragraphFormat < 0) { // not one cell has ended
        m_paragraphFormat = m_document.paragraphFormats.indexOf({});
        m_endFormat = m_document.characterFormats.indexOf({});
    }
    closeTable(m_paragraphFormat, m_endFormat);
}

void OperationSink::closeTable(int paragraphFormat, int format)
{
    finishRow({}, paragraphFormat, format);
    m_document.operations.emplace_back(TableEnd{});
    m_tables.pop_back();
    if (!m_tables.empty())
        m_tables.back().cellHasContent = true;
}

void OperationSink::endCell(int level, int paragraphFormat, int format)
{
    endRun();
    m_paragraphFormat = paragraphFormat;
    m_endFormat = format;
    // Text that did not say so turns out to be a cell's.
    size_t place = m_inParagraph ? m_paragraphPlace : m_document.operations.size();
    while (int(m_tables.size()) < level)
        place = openTable(place);
    while (int(m_tables.size()) > level)
        closeTable(paragraphFormat, format);
    Table &table = m_tables.back();
    if (int(table.cellEnds.size()) >= kMaximumCellsInRow) {
        // No more of them: the last cell goes on.
        auto &last = m_document.operations[table.cellEnds.back()];
        const CellEnd end = std::get<CellEnd>(last);
        last = ParagraphEnd{end.paragraphFormat, end.format};
        table.cellEnds.pop_back();
    }
    flushKept();
    table.cellEnds.push_back(m_document.operations.size());
    m_document.operations.emplace_back(CellEnd{paragraphFormat, format});
    table.cellHasContent = false;
    m_hasContent = true;
    ++m_contentCount;
    ++m_tablePartCount;
    m_inParagraph = false;
    m_paragraphIsEmpty = true;
}

void OperationSink::endRow(int level, const RowDescription &row, int paragraphFormat, int format)
{
    if (int(m_tables.size()) < level) {
        if (!m_inParagraph || m_paragraphIsEmpty)
            return;
        endCell(level, paragraphFormat, format);
    }
    endRun();
    while (int(m_tables.size()) > level)
        closeTable(paragraphFormat, format);
    finishRow(row, paragraphFormat, format);
}

/// Ends the row of the innermost table, if it has begun, or gives the table its one row.
void OperationSink::finishRow(const RowDescription &row, int paragraphFormat, int format)
{
    Table *table = &m_tables.back();
    const bool cellIsOpen = table->cellHasContent || (m_inParagraph && !m_paragraphIsEmpty);
    const bool isNeeded = row.format.cells.isEmpty() ? !table->hasRows : true;
    if (cellIsOpen || (table->cellEnds.empty() && isNeeded)) {
        endCell(int(m_tables.size()), paragraphFormat, format);
        table = &m_tables.back();
    }
    m_inParagraph = false;
    if (table->cellEnds.empty())
        return;
    if (!row.format.cells.isEmpty())
        dropExcessCells(size_t(row.format.cells.size()));
    int index = table->lastRow;
    if (!row.format.cells.isEmpty() || index < 0 ||
        m_document.rowFormats.at(index).cells.size() != qsizetype(table->cellEnds.size()))
        index = m_document.rowFormats.indexOf(mergedRow(row));
    // Every cell of the format has a text, be it none.
    const CellEnd last = std::get<CellEnd>(m_document.operations[table->cellEnds.back()]);
    for (auto count = qsizetype(table->cellEnds.size()); count < m_document.rowFormats.at(index).cells.size();
         ++count)
        m_document.operations.emplace_back(last);
    m_document.operations.emplace_back(RowEnd{index});
    table->cellEnds.clear();
    table->cellHasContent = false;
    table->hasRows = true;
    table->lastRow = index;
    ++m_contentCount;
    ++m_tablePartCount;
}

/// Some writers end one cell more than they describe.
void OperationSink::dropExcessCells(size_t described)
{
    std::vector<size_t> &cellEnds = m_tables.back().cellEnds;
    auto &operations = m_document.operations;
    while (cellEnds.size() > described && cellEnds.size() > 1 && cellEnds.back() + 1 == operations.size() &&
           cellEnds[cellEnds.size() - 2] + 2 == operations.size()) {
        operations.pop_back();
        cellEnds.pop_back();
    }
}

/// The row with cells for all texts, and one cell for those that are merged.
RowFormat OperationSink::mergedRow(const RowDescription &row)
{
    constexpr int kCellWidth = 1440; ///< of cells that are not described
    RowFormat format = row.format;
    std::vector<size_t> &cellEnds = m_tables.back().cellEnds;
    auto &operations = m_document.operations;
    while (size_t(format.cells.size()) < cellEnds.size()) {
        CellFormat cell;
        const int left = format.cells.isEmpty() ? format.left : format.cells.last().right;
        cell.right = cellEnd(left, left + kCellWidth);
        format.cells.append(cell);
    }
    for (qsizetype i = row.merged.size() - 1; i > 0; --i) {
        if (!row.merged.at(i))
            continue;
        format.cells[i - 1].right = format.cells.at(i).right;
        format.cells[i - 1].borders[Side::Right] = format.cells.at(i).borders[Side::Right];
        format.cells.removeAt(i);
        if (size_t(i) >= cellEnds.size())
            continue;
        if (cellEnds[size_t(i)] == cellEnds[size_t(i) - 1] + 1) { // no text: take its end out
            operations.erase(operations.begin() + std::ptrdiff_t(cellEnds[size_t(i)]));
            for (size_t later = size_t(i) + 1; later < cellEnds.size(); ++later)
                --cellEnds[later];
            cellEnds.erase(cellEnds.begin() + i);
        } else { // its text goes on that of the cell before
            auto &end = operations[cellEnds[size_t(i) - 1]];
            const CellEnd before = std::get<CellEnd>(end);
            end = ParagraphEnd{before.paragraphFormat, before.format};
            cellEnds.erase(cellEnds.begin() + i - 1);
        }
    }
    int left = format.left;
    for (CellFormat &cell : format.cells)
        left = cell.right = cellEnd(left, cell.right);
    return format;
}

PictureRun *OperationSink::lastPicture()
{
    const bool isLast = m_text.isEmpty() && m_kept.isEmpty() && !m_document.operations.empty();
    return isLast ? std::get_if<PictureRun>(&m_document.operations.back()) : nullptr;
}

Document OperationSink::take()
{
    endRun();
    while (!m_tables.empty())
        closeTable();
    flushKept();
    return std::move(m_document);
}

} // namespace norvane::rtf
