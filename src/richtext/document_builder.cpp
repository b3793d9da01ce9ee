#include "richtext/document_builder.h"

#include "richtext/PictureStore.h"
#include "richtext/format_conversion.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextList>
#include <optional>
#include <vector>

namespace norvane {
namespace {

/// Fills a document, one operation after the other. Formats are converted once each.
class Builder
{
public:
    Builder(const rtf::Document &source, QTextCursor &cursor, PictureStore &pictures)
        : m_source(source), m_cursor(cursor), m_pictures(pictures),
          m_characters(size_t(source.characterFormats.size()))
    {
    }

    void run(Extent extent)
    {
        m_cursor.beginEditBlock();
        m_cursor.removeSelectedText();
        // What stands behind a piece stays a paragraph as it was.
        const rtf::ParagraphFormat around =
            extent == Extent::Piece ? paragraphFormat(m_cursor.block()) : rtf::ParagraphFormat();
        const QTextCharFormat typing = m_cursor.charFormat();

        // A paragraph's format comes at its end and is needed at its begin.
        const auto &operations = m_source.operations;
        auto operation = operations.begin();
        while (operation != operations.end()) {
            auto end = operation;
            while (end != operations.end() && !std::holds_alternative<rtf::ParagraphEnd>(*end))
                ++end;
            if (end == operations.end())
                beginParagraph(around, typing);
            else
                beginParagraph(std::get<rtf::ParagraphEnd>(*end));
            for (; operation != end; ++operation)
                std::visit([this](const auto &value) { add(value); }, *operation);
            if (operation != operations.end())
                ++operation;
        }
        const bool endsWithParagraph =
            !operations.empty() && std::holds_alternative<rtf::ParagraphEnd>(operations.back());
        if (extent == Extent::Piece && endsWithParagraph)
            beginParagraph(around, typing);
        m_cursor.endEditBlock();
    }

private:
    void add(const rtf::TextRun &run) { m_cursor.insertText(run.text, characters(run.format)); }

    void add(const rtf::PictureRun &run)
    {
        QTextCharFormat format = characters(run.format);
        format.merge(m_pictures.add(run.picture));
        m_cursor.insertImage(format.toImageFormat());
    }

    void add(const rtf::ParagraphEnd &) {} // its paragraph has begun with it

    void beginParagraph(const rtf::ParagraphEnd &end)
    {
        beginParagraph(m_source.paragraphFormats.at(end.paragraphFormat), characters(end.format));
    }

    /// @param mark format of what is typed into the paragraph while it is empty
    void beginParagraph(const rtf::ParagraphFormat &format, const QTextCharFormat &mark)
    {
        QTextBlockFormat block = blockFormat(format);
        if (!format.bullet)
            m_list = nullptr;
        else if (m_list)
            block.setObjectIndex(m_list->objectIndex());
        if (m_isFirst) {
            m_cursor.setBlockFormat(block);
            if (m_cursor.block().length() <= 1)
                m_cursor.setBlockCharFormat(mark);
        } else {
            m_cursor.insertBlock(block, mark);
        }
        m_isFirst = false;
        if (format.bullet && !m_list)
            m_list = m_cursor.createList(bulletListFormat());
    }

    const QTextCharFormat &characters(int index)
    {
        auto &format = m_characters[size_t(index)];
        if (!format)
            format = textFormat(m_source.characterFormats.at(index));
        return *format;
    }

    const rtf::Document &m_source;
    QTextCursor &m_cursor;
    PictureStore &m_pictures;
    std::vector<std::optional<QTextCharFormat>> m_characters;
    QTextList *m_list = nullptr; ///< of the bulleted paragraph before
    bool m_isFirst = true;
};

} // namespace

void buildDocument(const rtf::Document &source, QTextCursor &cursor, PictureStore &pictures, Extent extent)
{
    Builder(source, cursor, pictures).run(extent);
}

} // namespace norvane
