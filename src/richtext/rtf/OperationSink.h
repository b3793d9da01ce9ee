#pragma once

#include "richtext/rtf/RowReader.h"
#include "richtext/rtf/operations.h"

namespace norvane::rtf {

/// Takes what the interpreter finds and makes the document's operations of it: neighbours of one
/// format become one run, no text holds what a text may not, and tables are whole, whatever order
/// their parts come in.
class OperationSink
{
public:
    FormatPool<CharacterFormat> &characterFormats() { return m_document.characterFormats; }
    FormatPool<ParagraphFormat> &paragraphFormats() { return m_document.paragraphFormats; }

    /// A paragraph begins, if none has: within that many tables.
    /// @param expectedCells how many the row is known to have; 0 if that is not known
    void beginParagraph(int depth, int expectedCells);
    /// Text that is not without characters (isNothing).
    void addText(QStringView text, int format);
    /// Such bytes below 0x80.
    void addAscii(QByteArrayView text, int format);
    void addPicture(Picture picture, int format);
    /// What is kept, before the next text or end.
    void addKept(const QByteArray &bytes);
    /// The paragraph must have begun.
    void endParagraph(int paragraphFormat, int format);
    /// Takes back a tab at the paragraph's end.
    void chopTab();

    /// Whether tables so deep, and one more of them, are read as tables.
    bool takesTables(int level) const;
    /// Ends a cell of a table that has that many tables around it, itself counted. The paragraph
    /// need not have begun, and be it in no table so far.
    void endCell(int level, int paragraphFormat, int format);
    void endRow(int level, const RowDescription &row, int paragraphFormat, int format);

    /// Of the tables around.
    int depth() const { return int(m_tables.size()); }
    bool paragraphIsEmpty() const { return m_paragraphIsEmpty; }
    /// Whether there is anything but what is kept.
    bool hasContent() const { return m_hasContent; }
    /// Grows with everything that is added but what is kept.
    quint64 contentCount() const { return m_contentCount; }
    /// Grows with every table that begins, and cell and row that ends.
    quint64 tablePartCount() const { return m_tablePartCount; }
    /// How much is kept behind the last content, and taking back what came behind so much of it.
    qsizetype keptSize() const { return m_kept.size(); }
    void chopKept(qsizetype size) { m_kept.truncate(size); }

    /// The picture that was added last; nullptr when something else was.
    PictureRun *lastPicture();
    Document take();

private:
    struct Table
    {
        std::vector<size_t> cellEnds; ///< of the row that is being read: places of operations
        bool cellHasContent = false;
        bool hasRows = false;
        int lastRow = -1;
    };

    void beginRun(int format);
    void endRun();
    void flushKept();
    size_t openTable(size_t place);
    void closeTable();
    void closeTable(int paragraphFormat, int format);
    void addContent();
    void finishRow(const RowDescription &row, int paragraphFormat, int format);
    void dropExcessCells(size_t described);
    RowFormat mergedRow(const RowDescription &row);

    Document m_document;
    QString m_text;
    int m_format = 0;
    QByteArray m_kept;
    std::vector<Table> m_tables;
    int m_tableCount = 0;
    bool m_inParagraph = false;
    size_t m_paragraphPlace = 0; ///< of the paragraph's first operation
    bool m_paragraphIsEmpty = true;
    bool m_hasContent = false;
    quint64 m_contentCount = 0;
    quint64 m_tablePartCount = 0;
    int m_paragraphFormat = -1; ///< of the last cell that ended; -1 before the first
    int m_endFormat = -1;       ///< the same of characters
};

} // namespace norvane::rtf
