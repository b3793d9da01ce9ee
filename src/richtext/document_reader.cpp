#include "richtext/document_reader.h"

#include "richtext/PictureStore.h"
#include "richtext/format_conversion.h"

#include <QTextBlock>
#include <array>

namespace norvane {
namespace {

class Reader
{
public:
    explicit Reader(const QTextDocument &document) : m_source(document), m_base(document.defaultFont())
    {
        m_result.defaultFont = m_base.family();
    }

    rtf::Document run(int from, int to, bool withLastEnd)
    {
        for (QTextBlock block = m_source.findBlock(from); block.isValid() && block.position() <= to;
             block = block.next()) {
            addFragments(block, from, to);
            const int end = block.position() + block.length() - 1;
            const bool isLast = !block.next().isValid();
            if (isLast ? withLastEnd : end >= from && end < to)
                addEnd(block);
        }
        return std::move(m_result);
    }

private:
    void addFragments(const QTextBlock &block, int from, int to)
    {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextFragment fragment = part.fragment();
            const int begin = qMax(from, fragment.position());
            const int end = qMin(to, fragment.position() + fragment.length());
            if (begin >= end)
                continue;
            const QTextCharFormat text = fragment.charFormat();
            if (text.isImageFormat())
                addPictures(text.toImageFormat(), end - begin);
            else
                addText(fragment.text().mid(begin - fragment.position(), end - begin), formatIndex(text));
        }
    }

    void addText(const QString &text, int format)
    {
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
        const std::optional<rtf::Picture> picture = PictureStore::pictureOf(image);
        if (!picture)
            return; // an image of HTML that was never here
        const int format = formatIndex(image);
        for (int i = 0; i < count; ++i)
            m_result.operations.emplace_back(rtf::PictureRun{*picture, format});
    }

    void addEnd(const QTextBlock &block)
    {
        // The mark of a paragraph with text is of the format of its last character.
        QTextCharFormat mark = block.charFormat();
        if (block.length() > 1) {
            const auto last = --block.end();
            mark = last.fragment().charFormat();
        }
        m_result.operations.emplace_back(
            rtf::ParagraphEnd{m_result.paragraphFormats.indexOf(paragraphFormat(block)), formatIndex(mark)});
    }

    int formatIndex(const QTextFormat &format)
    {
        const QTextCharFormat text = format.toCharFormat();
        // Runs of a document share few formats: convert each once.
        for (const auto &known : m_lastFormats) {
            if (known.index >= 0 && known.format == text)
                return known.index;
        }
        const int index = m_result.characterFormats.indexOf(characterFormat(text, m_base));
        m_lastFormats[m_nextSlot] = {text, index};
        m_nextSlot = (m_nextSlot + 1) % m_lastFormats.size();
        return index;
    }

    const QTextDocument &m_source;
    QFont m_base;
    rtf::Document m_result;
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
    return Reader(document).run(from, to, withLastEnd);
}

rtf::Document readDocument(const QTextDocument &document)
{
    return readDocument(document, 0, document.characterCount() - 1, true);
}

} // namespace norvane
