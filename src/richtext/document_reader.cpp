#include "richtext/document_reader.h"

#include "richtext/PictureStore.h"
#include "richtext/format_conversion.h"
#include "richtext/table_conversion.h"

#include <QSet>
#include <QTextBlock>
#include <QTextTable>
#include <array>

namespace norvane {
namespace {

class Reader
{
public:
    Reader(const QTextDocument &document, int from, int to, bool withLastEnd)
        : m_source(document), m_base(document.defaultFont()), m_from(from), m_to(to),
          m_withLastEnd(withLastEnd)
    {
        m_result.defaultFont = m_base.family();
    }

    rtf::Document run()
    {
        if (m_withLastEnd) {
            const QTextFrameFormat format = m_source.rootFrame()->frameFormat();
            m_result.styles = format.property(kStylesProperty).toByteArray();
            m_result.prologue = format.property(kPrologueProperty).toByteArray();
        }
        // Of a selection within one cell, the table around it is no part.
        QTextTableCell cell;
        if (!m_withLastEnd)
            cell = cellAround(m_source.rootFrame());
        if (cell.isValid())
            flow(cell.begin(), nullptr);
        else if (QTextTable *table = m_withLastEnd ? nullptr : tableAround())
            readTable(*table);
        else
            flow(m_source.rootFrame()->begin(), nullptr);
        emitKept();
        return std::move(m_result);
    }

private:
    /// The innermost cell that holds all of the selection; an invalid one if there is none.
    QTextTableCell cellAround(QTextFrame *frame)
    {
        QTextTableCell innermost;
        for (QTextTable *table = tableAt(frame); table; table = tableAt(table)) {
            const QTextTableCell cell = table->cellAt(m_from);
            if (!cell.isValid() || !(cell == table->cellAt(m_to)))
                break;
            innermost = cell;
        }
        return innermost;
    }

    /// The innermost table that holds all of the selection, in several of its cells.
    QTextTable *tableAround()
    {
        QTextTable *innermost = nullptr;
        for (QTextTable *table = tableAt(m_source.rootFrame()); table; table = tableAt(table))
            innermost = table;
        return innermost;
    }

    /// The table among the children of a frame that holds all of the selection.
    QTextTable *tableAt(QTextFrame *parent) const
    {
        QTextFrame *frame = QTextCursor(m_source.findBlock(m_from)).currentFrame();
        while (frame && frame->parentFrame() && frame->parentFrame() != parent)
            frame = frame->parentFrame();
        auto *table = qobject_cast<QTextTable *>(frame);
        if (!table)
            return nullptr;
        const bool holdsAll = table->parentFrame() == parent && m_from >= table->firstPosition() &&
                              m_to <= table->lastPosition();
        return holdsAll ? table : nullptr;
    }

    /// Reads blocks and tables that follow each other.
    /// @param cell that they are the contents of; nullptr for the document's
    void flow(QTextFrame::iterator part, const QTextTableCell *cell)
    {
        bool behindTable = false;
        for (; !part.atEnd();) {
            QTextFrame::iterator next = part;
            ++next;
            if (QTextFrame *frame = part.currentFrame()) {
                behindTable = readFrame(frame);
            } else {
                const QTextBlock block = part.currentBlock();
                const bool beforeTable = !next.atEnd() && qobject_cast<QTextTable *>(next.currentFrame());
                // Empty blocks at tables are shown as nothing: they stand for no paragraph.
                const bool isNothing = block.length() == 1 && (beforeTable || (behindTable && !next.atEnd()));
                const bool isSelected = block.position() >= m_from && block.position() <= m_to;
                if (isNothing && isSelected)
                    keepPiece(block.blockFormat());
                else if (!isNothing)
                    readBlock(block, cell && next.atEnd(), !cell && next.atEnd());
                behindTable = false;
            }
            part = next;
        }
    }

    /// @return whether it is a table
    bool readFrame(QTextFrame *frame)
    {
        auto *table = qobject_cast<QTextTable *>(frame);
        if (m_to <= frame->firstPosition() - 1 || m_from > frame->lastPosition())
            return table;
        if (table)
            readTable(*table);
        else
            flow(frame->begin(), nullptr); // out of HTML: the text alone
        return table;
    }

    void readBlock(const QTextBlock &block, bool endsCell, bool isLast)
    {
        const int end = block.position() + block.length() - 1;
        if (!endsCell && (block.position() > m_to || end < m_from))
            return;
        addFragments(block);
        const bool isDocumentsLast = isLast && !block.next().isValid();
        if (endsCell)
            addEnd<rtf::CellEnd>(block);
        else if (isDocumentsLast ? m_withLastEnd : end >= m_from && end < m_to)
            addEnd<rtf::ParagraphEnd>(block);
    }

    /// The rows that the selection touches, and of them the columns that it touches when it lies
    /// within the table.
    void readTable(QTextTable &table)
    {
        int firstRow = 0;
        int lastRow = table.rows() - 1;
        int firstColumn = 0;
        int lastColumn = table.columns() - 1;
        const QTextTableCell from = table.cellAt(m_from);
        const QTextTableCell to = table.cellAt(m_to);
        if (from.isValid())
            firstRow = from.row();
        if (to.isValid())
            lastRow = qMax(firstRow, to.row() + to.rowSpan() - 1);
        if (from.isValid() && to.isValid() && !m_withLastEnd) {
            firstRow = qMin(from.row(), to.row());
            firstColumn = qMin(from.column(), to.column());
            lastColumn = qMax(from.column() + from.columnSpan(), to.column() + to.columnSpan()) - 1;
        }
        // Cells are read whole.
        const int wholeFrom = std::exchange(m_from, 0);
        const int wholeTo = std::exchange(m_to, m_source.characterCount());
        if (!followsTable())
            m_result.operations.emplace_back(rtf::TableBegin{});
        else
            m_result.operations.pop_back();
        for (int row = firstRow; row <= lastRow; ++row)
            readRow(table, row, firstColumn, lastColumn);
        m_result.operations.emplace_back(rtf::TableEnd{});
        m_from = wholeFrom;
        m_to = wholeTo;
    }

    /// Two tables without a paragraph in between are one.
    bool followsTable() const
    {
        return !m_result.operations.empty() &&
               std::holds_alternative<rtf::TableEnd>(m_result.operations.back());
    }

    void readRow(const QTextTable &table, int row, int firstColumn, int lastColumn)
    {
        const rtf::RowFormat format = rowFormat(table, row, firstColumn, lastColumn);
        qsizetype cells = 0;
        for (int column = firstColumn; column <= lastColumn;) {
            const QTextTableCell cell = table.cellAt(row, column);
            const int end = cell.column() + cell.columnSpan();
            if (!isFiller(cell)) {
                if (cell.row() == row)
                    flow(cell.begin(), &cell);
                else
                    addEmptyCell();
                ++cells;
            }
            column = qMax(end, column + 1);
        }
        for (; cells < format.cells.size(); ++cells)
            addEmptyCell();
        m_result.operations.emplace_back(rtf::RowEnd{m_result.rowFormats.indexOf(format)});
    }

    void addEmptyCell()
    {
        emitKept();
        m_result.operations.emplace_back(
            rtf::CellEnd{m_result.paragraphFormats.indexOf({}), formatIndex(QTextCharFormat())});
    }

    void addFragments(const QTextBlock &block)
    {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextFragment fragment = part.fragment();
            const int begin = qMax(m_from, fragment.position());
            const int end = qMin(m_to, fragment.position() + fragment.length());
            if (begin >= end)
                continue;
            const QTextCharFormat text = fragment.charFormat();
            keepPiece(text);
            if (text.isImageFormat())
                addPictures(text.toImageFormat(), end - begin);
            else
                addText(fragment.text().mid(begin - fragment.position(), end - begin), formatIndex(text));
        }
    }

    void addText(const QString &text, int format)
    {
        emitKept();
        auto *before =
            m_result.operations.empty() ? nullptr : std::get_if<rtf::TextRun>(&m_result.operations.back());
        if (before && before->format == format)
            before->text += text;
        else
            m_result.operations.emplace_back(rtf::TextRun{text, format});
    }

    /// Equal neighbours are one fragment: one picture for each of its characters.
    void addPictures(const QTextImageFormat &image, int count)
    {
        std::optional<rtf::Picture> picture = PictureStore::pictureOf(image);
        if (!picture)
            return; // an image of HTML that was never here
        emitKept();
        const auto shared = std::make_shared<const rtf::Picture>(std::move(*picture));
        const int format = formatIndex(image);
        for (int i = 0; i < count; ++i)
            m_result.operations.emplace_back(rtf::PictureRun{shared, format});
    }

    template <typename End> void addEnd(const QTextBlock &block)
    {
        // The mark of a paragraph with text is of the format of its last character.
        QTextCharFormat mark = block.charFormat();
        if (block.length() > 1) {
            const auto last = --block.end();
            mark = last.fragment().charFormat();
        }
        keepPiece(block.blockFormat());
        emitKept();
        m_result.operations.emplace_back(
            End{m_result.paragraphFormats.indexOf(paragraphFormat(block)), formatIndex(mark)});
    }

    /// A piece is given once, where its pointer comes first: what was typed behind it has it, too.
    void keepPiece(const QTextFormat &format)
    {
        if (!format.hasProperty(kKeptPieceProperty))
            return;
        const auto piece = format.property(kKeptPieceProperty).value<KeptPointer>();
        if (!piece || m_seenPieces.contains(piece.get()))
            return;
        m_seenPieces.insert(piece.get());
        m_kept += *piece;
    }

    void emitKept()
    {
        if (!m_kept.isEmpty())
            m_result.operations.emplace_back(rtf::KeptPiece{std::exchange(m_kept, {})});
    }

    int formatIndex(const QTextFormat &format)
    {
        const QTextCharFormat text = format.toCharFormat();
        // Runs of a document share few formats: convert each once.
        for (const auto &known : m_lastFormats) {
            if (known.index >= 0 && known.format == text)
                return known.index;
        }
        rtf::CharacterFormat character = characterFormat(text, m_base);
        if (text.hasProperty(kWrapperProperty))
            character.wrapper = wrapperIndex(text.property(kWrapperProperty).value<WrapperPointer>().get());
        const int index = m_result.characterFormats.indexOf(character);
        m_lastFormats[m_nextSlot] = {text, index};
        m_nextSlot = (m_nextSlot + 1) % m_lastFormats.size();
        return index;
    }

    int wrapperIndex(const TextWrapper *wrapper)
    {
        if (!wrapper)
            return -1;
        const auto known = m_wrappers.constFind(wrapper);
        if (known != m_wrappers.constEnd())
            return *known;
        const int outer = wrapperIndex(wrapper->outer.get());
        const int index = int(m_result.wrappers.size());
        m_result.wrappers.push_back({wrapper->begin, outer});
        m_wrappers.insert(wrapper, index);
        return index;
    }

    const QTextDocument &m_source;
    QFont m_base;
    int m_from;
    int m_to;
    bool m_withLastEnd;
    rtf::Document m_result;
    QByteArray m_kept; ///< pieces before what comes next
    QSet<const QByteArray *> m_seenPieces;
    QHash<const TextWrapper *, int> m_wrappers;
    struct Known
    {
        QTextCharFormat format;
        int index = -1;
    };
    std::array<Known, 4> m_lastFormats;
    size_t m_nextSlot = 0;
};

} // namespace

rtf::Document readDocument(const QTextDocument &document, int from, int to, bool withLastEnd)
{
    return Reader(document, from, to, withLastEnd).run();
}

rtf::Document readDocument(const QTextDocument &document)
{
    return readDocument(document, 0, document.characterCount() - 1, true);
}

} // namespace norvane
