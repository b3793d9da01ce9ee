#include "richtext/document_builder.h"

#include "richtext/PictureStore.h"
#include "richtext/format_conversion.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextList>

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
        const auto &operations = m_source.operations;
        auto last = operations.end();
        if (extent == Extent::WholeDocument && !operations.empty() &&
            std::holds_alternative<rtf::ParagraphEnd>(operations.back()))
            --last;

        // The paragraph that the cursor stands in gets a format only from a paragraph end.
        for (auto operation = operations.begin(); operation != last; ++operation)
            std::visit([this](const auto &value) { add(value); }, *operation);
        if (last != operations.end()) {
            const auto &end = std::get<rtf::ParagraphEnd>(*last);
            giveFormat(end);
            if (m_cursor.block().length() <= 1)
                m_cursor.setBlockCharFormat(characters(end.format));
        } else if (extent == Extent::WholeDocument && m_cursor.blockNumber() > 0) {
            m_cursor.setBlockFormat({});
        }
        m_cursor.endEditBlock();
    }

private:
    void add(const rtf::TextRun &run) { m_cursor.insertText(run.text, characters(run.format)); }

    void add(const rtf::PictureRun &run)
    {
        QTextImageFormat image = m_pictures.add(run.picture);
        QTextCharFormat format = characters(run.format);
        format.merge(image);
        m_cursor.insertText(QString(QChar::ObjectReplacementCharacter), format);
    }

    void add(const rtf::ParagraphEnd &end)
    {
        giveFormat(end);
        m_cursor.insertBlock({}, characters(end.format));
    }

    void giveFormat(const rtf::ParagraphEnd &end)
    {
        const rtf::ParagraphFormat &format = m_source.paragraphFormats.at(end.paragraphFormat);
        QTextBlockFormat block = blockFormat(format);
        if (!format.bullet) {
            m_list = nullptr;
            m_cursor.setBlockFormat(block);
        } else if (m_list) {
            block.setObjectIndex(m_list->objectIndex());
            m_cursor.setBlockFormat(block);
        } else {
            m_cursor.setBlockFormat(block);
            m_list = m_cursor.createList(bulletListFormat());
        }
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
};

} // namespace

void buildDocument(const rtf::Document &source, QTextCursor &cursor, PictureStore &pictures, Extent extent)
{
    Builder(source, cursor, pictures).run(extent);
}

} // namespace norvane
