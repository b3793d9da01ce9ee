#include "richtext/document_builder.h"

#include "richtext/PictureStore.h"
#include "richtext/format_conversion.h"
#include "richtext/rtf/limits.h"
#include "richtext/table_conversion.h"

#include <QSet>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextTable>
#include <optional>
#include <vector>

namespace norvane {
namespace {

/// Many cells in one text table are laid out anew with each edit of one, and many columns wide:
/// longer tables are cut into several, below each other.
constexpr qsizetype kMaximumCellsInTable = 1'000;
constexpr int kMaximumColumns = 2 * rtf::kMaximumCellsInRow;

/// Fills a document, one operation after the other. Formats are converted once each.
///
/// Before and behind a table, a text document has a block in any case, and shows it as nothing when
/// it is empty. An empty paragraph there gets a block of its own beside that one.
class Builder
{
public:
    Builder(const rtf::Document &source, QTextCursor &cursor, PictureStore &pictures, Extent extent)
        : m_source(source), m_operations(source.operations), m_cursor(cursor), m_pictures(pictures),
          m_extent(extent), m_characters(size_t(source.characterFormats.size())),
          m_blocks(size_t(source.paragraphFormats.size()))
    {
        for (const QTextTable *table = cursor.currentTable(); table;
             table = qobject_cast<QTextTable *>(table->parentFrame()))
            ++m_depth;
        for (const rtf::Wrapper &wrapper : source.wrappers) {
            WrapperPointer outer = wrapper.outer < 0 ? nullptr : m_wrappers.at(size_t(wrapper.outer));
            m_wrappers.push_back(std::make_shared<const TextWrapper>(TextWrapper{wrapper.begin, outer}));
        }
    }

    void run()
    {
        m_cursor.beginEditBlock();
        m_cursor.removeSelectedText();
        // What stands behind a piece stays a paragraph as it was.
        const bool isPiece = m_extent == Extent::Piece;
        m_around = isPiece ? m_cursor.blockFormat() : QTextBlockFormat();
        m_typing = m_cursor.charFormat();
        keepDocumentWide();
        flow(0, false);
        const bool endsWithParagraph =
            !m_operations.empty() && std::holds_alternative<rtf::ParagraphEnd>(m_operations.back());
        if (isPiece && endsWithParagraph)
            m_cursor.insertBlock(m_around, m_typing);
        m_cursor.endEditBlock();
    }

private:
    struct Paragraph
    {
        size_t end = 0;        ///< of its contents: the operation that ends it, or that comes behind
        bool hasEnd = false;   ///< there is an operation that ends it
        bool endsCell = false; ///< and the cell with it
        bool isEmpty = true;
    };

    void keepDocumentWide()
    {
        if (m_extent == Extent::Piece)
            return;
        QTextFrame *root = m_cursor.document()->rootFrame();
        QTextFrameFormat format = root->frameFormat();
        for (const auto &[property, value] :
             {std::pair(kStylesProperty, m_source.styles), std::pair(kPrologueProperty, m_source.prologue)}) {
            if (value.isEmpty())
                format.clearProperty(property);
            else
                format.setProperty(property, value);
        }
        if (format != root->frameFormat())
            root->setFrameFormat(format);
    }

    Paragraph paragraphAt(size_t operation) const
    {
        Paragraph paragraph;
        for (paragraph.end = operation; paragraph.end < m_operations.size(); ++paragraph.end) {
            const rtf::Operation &next = m_operations[paragraph.end];
            paragraph.endsCell = std::holds_alternative<rtf::CellEnd>(next);
            paragraph.hasEnd = paragraph.endsCell || std::holds_alternative<rtf::ParagraphEnd>(next);
            if (paragraph.hasEnd)
                break;
            if (!std::holds_alternative<rtf::KeptPiece>(next))
                paragraph.isEmpty = false;
        }
        return paragraph;
    }

    /// Paragraphs and tables of the document, or of a cell with its end.
    /// @return the operation behind them
    size_t flow(size_t operation, bool inCell)
    {
        const size_t first = operation;
        bool blockIsFree = true;
        bool behindTable = false;
        while (operation < m_operations.size()) {
            if (std::holds_alternative<rtf::TableBegin>(m_operations[operation])) {
                if (m_depth < rtf::kMaximumTableDepth) {
                    if (!blockIsFree && m_cursor.block().length() == 1)
                        m_cursor.insertBlock(QTextBlockFormat(), QTextCharFormat());
                    operation = table(operation + 1);
                    blockIsFree = true;
                    behindTable = true;
                } else {
                    ++operation;
                    ++m_flattened;
                }
                continue;
            }
            if (isFlattened(m_operations[operation])) {
                ++operation;
                continue;
            }
            const Paragraph paragraph = paragraphAt(operation);
            const bool endsFlow = inCell && paragraph.endsCell && m_flattened == 0;
            const bool isLast = endsFlow || (m_extent == Extent::WholeDocument && !inCell &&
                                             paragraph.end + 1 >= m_operations.size());
            if (blockIsFree && behindTable && paragraph.isEmpty && !isLast) {
                m_cursor.setBlockFormat({});
                blockIsFree = false;
            }
            beginParagraph(paragraph, blockIsFree, inCell && operation == first);
            for (; operation < paragraph.end; ++operation)
                std::visit([this](const auto &value) { add(value); }, m_operations[operation]);
            keepAtEnd();
            blockIsFree = false;
            behindTable = false;
            operation = paragraph.end + 1;
            if (endsFlow)
                break;
        }
        return operation;
    }

    /// Ends of a table that is too deep to be one: its cells are paragraphs.
    bool isFlattened(const rtf::Operation &operation)
    {
        if (std::holds_alternative<rtf::TableEnd>(operation)) {
            --m_flattened;
            return true;
        }
        return std::holds_alternative<rtf::RowEnd>(operation);
    }

    void beginParagraph(const Paragraph &paragraph, bool inThisBlock, bool isFirstOfCell)
    {
        QTextBlockFormat block = m_around;
        QTextCharFormat mark = m_typing;
        if (paragraph.endsCell) {
            const auto &end = std::get<rtf::CellEnd>(m_operations[paragraph.end]);
            block = blockFormatAt(end.paragraphFormat);
            mark = characters(end.format);
        } else if (paragraph.hasEnd) {
            const auto &end = std::get<rtf::ParagraphEnd>(m_operations[paragraph.end]);
            block = blockFormatAt(end.paragraphFormat);
            mark = characters(end.format);
        }
        if (inThisBlock) {
            m_cursor.setBlockFormat(block);
            if (isFirstOfCell && m_cell)
                setCellMark(mark);
            else if (m_cursor.block().length() <= 1)
                m_cursor.setBlockCharFormat(mark);
        } else {
            m_cursor.insertBlock(block, mark);
        }
    }

    /// The look of a cell and the format of what is typed into it while it is empty are one.
    void setCellMark(QTextCharFormat mark)
    {
        QTextCharFormat look = m_cell->format();
        mark.clearBackground();
        mark.clearProperty(QTextFormat::TextVerticalAlignment); // in a cell, this is the cell's own
        look.merge(mark);
        m_cell->setFormat(look);
    }

    /// The rows of a table from the first of its cells on.
    /// @return the operation behind its end
    size_t table(size_t operation)
    {
        std::vector<const rtf::RowFormat *> rows;
        int inner = 0;
        for (size_t next = operation; inner >= 0; ++next) {
            if (std::holds_alternative<rtf::TableBegin>(m_operations[next]))
                ++inner;
            else if (std::holds_alternative<rtf::TableEnd>(m_operations[next]))
                --inner;
            else if (const auto *end = std::get_if<rtf::RowEnd>(&m_operations[next]); end && inner == 0)
                rows.push_back(&m_source.rowFormats.at(end->rowFormat));
        }
        ++m_depth;
        for (size_t first = 0; first < rows.size();) {
            const size_t count = rowsOfOneTable(rows, first);
            operation = rowsInTable(operation, {rows.begin() + std::ptrdiff_t(first),
                                                rows.begin() + std::ptrdiff_t(first + count)});
            first += count;
        }
        --m_depth;
        return operation + 1;
    }

    static size_t rowsOfOneTable(const std::vector<const rtf::RowFormat *> &rows, size_t first)
    {
        // Each row adds at most the edges that no row before it has.
        QSet<int> edges;
        size_t count = 0;
        qsizetype widest = 0;
        while (first + count < rows.size()) {
            const rtf::RowFormat &row = *rows[first + count];
            QSet<int> more = edges;
            more.insert(row.left);
            bool goesOn = false; // a cell from the row above reaches in
            for (const rtf::CellFormat &cell : row.cells) {
                more.insert(cell.right);
                goesOn = goesOn || cell.merge == rtf::VerticalMerge::Continued;
            }
            widest = qMax(widest, more.size());
            const bool isTooLarge = more.size() > kMaximumColumns ||
                                    (!goesOn && widest * qsizetype(count + 1) > kMaximumCellsInTable);
            const bool isFarTooLarge = widest * qsizetype(count + 1) > 4 * kMaximumCellsInTable;
            if (count > 0 && (isTooLarge || isFarTooLarge))
                break;
            edges = more;
            ++count;
        }
        return count;
    }

    size_t rowsInTable(size_t operation, const std::vector<const rtf::RowFormat *> &rows)
    {
        const TableGrid grid = gridOf(rows);
        int headers = 0;
        while (size_t(headers) < rows.size() && rows[size_t(headers)]->header)
            ++headers;
        QTextTableFormat format = tableFormat(grid, *rows.front(), headers);
        if (m_cursor.block().length() > 1) // the space behind a paragraph is none before a table
            format.setTopMargin(m_cursor.blockFormat().bottomMargin());
        QTextTable *table = m_cursor.insertTable(int(rows.size()), grid.columns(), format);
        for (size_t row = 0; row < rows.size(); ++row)
            shapeRow(*table, grid, rows, row);
        for (size_t row = 0; row < rows.size(); ++row) {
            for (size_t cell = 0; cell < grid.rows[row].size(); ++cell)
                operation = fillCell(*table, int(row), grid.rows[row][cell].column, operation);
            ++operation; // the row's end
        }
        m_cursor.setPosition(table->lastPosition() + 1);
        m_cursor.setBlockFormat(m_around);
        m_cursor.setBlockCharFormat(m_typing);
        return operation;
    }

    /// Merges the cells of a row and gives them their look.
    void shapeRow(QTextTable &table, const TableGrid &grid, const std::vector<const rtf::RowFormat *> &rows,
                  size_t row)
    {
        const rtf::RowFormat &format = *rows[row];
        const auto &places = grid.rows[row];
        rtf::RowFormat traits = format;
        traits.cells.clear();
        const QVariant rowProperty = QVariant::fromValue(traits);

        const auto fill = [&](int from, int to) {
            if (from >= to)
                return;
            table.mergeCells(int(row), from, 1, to - from);
            QTextTableCellFormat filler;
            filler.setProperty(kFillerProperty, true);
            filler.setProperty(kRowProperty, rowProperty);
            table.cellAt(int(row), from).setFormat(filler);
        };
        fill(0, places.front().column);
        fill(places.back().column + places.back().span, grid.columns());
        for (size_t cell = 0; cell < places.size(); ++cell) {
            const TableGrid::Place &place = places[cell];
            if (continuesCellAbove(grid, rows, row, cell))
                continue;
            int height = 1;
            while (row + size_t(height) < rows.size() && reachesInto(grid, rows, row + size_t(height), place))
                ++height;
            if (format.cells[qsizetype(cell)].merge != rtf::VerticalMerge::First)
                height = 1;
            if (height > 1 || place.span > 1)
                table.mergeCells(int(row), place.column, height, place.span);
            QTextTableCellFormat look = cellFormat(format.cells[qsizetype(cell)], format);
            look.setProperty(kRowProperty, rowProperty);
            table.cellAt(int(row), place.column).setFormat(look);
        }
    }

    /// Whether the row has a cell at the same place that continues the one above.
    static bool reachesInto(const TableGrid &grid, const std::vector<const rtf::RowFormat *> &rows,
                            size_t row, const TableGrid::Place &place)
    {
        const auto &places = grid.rows[row];
        for (size_t cell = 0; cell < places.size(); ++cell) {
            if (places[cell].column == place.column)
                return places[cell].span == place.span &&
                       rows[row]->cells[qsizetype(cell)].merge == rtf::VerticalMerge::Continued;
        }
        return false;
    }

    static bool continuesCellAbove(const TableGrid &grid, const std::vector<const rtf::RowFormat *> &rows,
                                   size_t row, size_t cell)
    {
        const TableGrid::Place place = grid.rows[row][cell];
        if (rows[row]->cells[qsizetype(cell)].merge != rtf::VerticalMerge::Continued)
            return false;
        for (size_t above = row; above > 0; --above) {
            const auto &places = grid.rows[above - 1];
            size_t same = 0;
            while (same < places.size() && places[same].column != place.column)
                ++same;
            if (same == places.size() || places[same].span != place.span)
                return false;
            const rtf::VerticalMerge merge = rows[above - 1]->cells[qsizetype(same)].merge;
            if (merge != rtf::VerticalMerge::Continued)
                return merge == rtf::VerticalMerge::First;
        }
        return false;
    }

    size_t fillCell(QTextTable &table, int row, int column, size_t operation)
    {
        const QTextTableCell cell = table.cellAt(row, column);
        if (cell.row() == row && cell.column() == column) {
            m_cell = cell;
            m_cursor = cell.firstCursorPosition();
            operation = flow(operation, true);
            padForSpaceBehind(cell);
            return operation;
        }
        // The text of a cell that is one with the cell above: seldom any.
        if (paragraphAt(operation).endsCell && paragraphAt(operation).isEmpty)
            return paragraphAt(operation).end + 1;
        m_cursor = cell.lastCursorPosition();
        m_cursor.insertBlock();
        m_cell.reset();
        return flow(operation, true);
    }

    /// The space behind the last paragraph of a cell would be none.
    static void padForSpaceBehind(QTextTableCell cell)
    {
        const double space = cell.lastCursorPosition().blockFormat().bottomMargin();
        if (space <= 0)
            return;
        QTextTableCellFormat look = cell.format().toTableCellFormat();
        look.setBottomPadding(look.bottomPadding() + space);
        cell.setFormat(look);
    }

    void add(const rtf::TextRun &run)
    {
        const QTextCharFormat &format = characters(run.format);
        if (!m_kept) {
            m_cursor.insertText(run.text, format);
            return;
        }
        // The piece is the first character's.
        const qsizetype first = run.text.size() > 1 && run.text.at(0).isHighSurrogate() ? 2 : 1;
        m_cursor.insertText(run.text.left(first), withKept(format));
        if (run.text.size() > first)
            m_cursor.insertText(run.text.mid(first), format);
    }

    void add(const rtf::PictureRun &run)
    {
        QTextCharFormat format = characters(run.format);
        format.merge(m_pictures.add(run.picture));
        m_cursor.insertImage((m_kept ? withKept(format) : format).toImageFormat());
    }

    void add(const rtf::KeptPiece &piece) { m_kept = std::make_shared<const QByteArray>(piece.bytes); }
    // Paragraphs have begun with these, and what is of tables does not come here.
    void add(const rtf::ParagraphEnd &) {}
    void add(const rtf::CellEnd &) {}
    void add(const rtf::TableBegin &) {}
    void add(const rtf::RowEnd &) {}
    void add(const rtf::TableEnd &) {}

    QTextCharFormat withKept(QTextCharFormat format)
    {
        format.setProperty(kKeptPieceProperty, QVariant::fromValue(std::exchange(m_kept, nullptr)));
        format.setProperty(kKeptNumberProperty, ++m_keptNumber);
        return format;
    }

    /// A piece with no text behind it is the paragraph's.
    void keepAtEnd()
    {
        if (!m_kept)
            return;
        QTextBlockFormat format = m_cursor.blockFormat();
        format.setProperty(kKeptPieceProperty, QVariant::fromValue(std::exchange(m_kept, nullptr)));
        format.setProperty(kKeptNumberProperty, ++m_keptNumber);
        m_cursor.setBlockFormat(format);
    }

    const QTextCharFormat &characters(int index)
    {
        auto &format = m_characters[size_t(index)];
        if (!format) {
            const rtf::CharacterFormat &source = m_source.characterFormats.at(index);
            format = textFormat(source);
            if (source.wrapper >= 0) {
                format->setProperty(kWrapperProperty,
                                    QVariant::fromValue(m_wrappers[size_t(source.wrapper)]));
                format->setProperty(kWrapperNumberProperty, source.wrapper);
            }
        }
        return *format;
    }

    const QTextBlockFormat &blockFormatAt(int index)
    {
        auto &format = m_blocks[size_t(index)];
        if (!format)
            format = blockFormat(m_source.paragraphFormats.at(index));
        return *format;
    }

    const rtf::Document &m_source;
    const std::vector<rtf::Operation> &m_operations;
    QTextCursor &m_cursor;
    PictureStore &m_pictures;
    Extent m_extent;
    std::vector<std::optional<QTextCharFormat>> m_characters;
    std::vector<std::optional<QTextBlockFormat>> m_blocks;
    std::vector<WrapperPointer> m_wrappers;
    QTextBlockFormat m_around; ///< of text without a paragraph end
    QTextCharFormat m_typing;
    std::optional<QTextTableCell> m_cell; ///< whose first paragraph begins
    KeptPointer m_kept;                   ///< the piece before what comes next
    int m_keptNumber = 0;
    int m_depth = 0;     ///< of the tables around the cursor
    int m_flattened = 0; ///< of the tables that are read as text
};

} // namespace

void buildDocument(const rtf::Document &source, QTextCursor &cursor, PictureStore &pictures, Extent extent)
{
    Builder(source, cursor, pictures, extent).run();
}

} // namespace norvane
