#include "richtext/rtf/writer.h"

#include "richtext/rtf/WriterTables.h"
#include "richtext/rtf/control_words.h"
#include "richtext/rtf/field_instruction.h"
#include "richtext/rtf/format_writer.h"
#include "richtext/rtf/list_numbers.h"
#include "richtext/rtf/object_groups.h"
#include "richtext/rtf/text_escapes.h"

#include <QVarLengthArray>
#include <algorithm>
#include <optional>

namespace norvane::rtf {
namespace {

class Writer
{
public:
    explicit Writer(const Document &document)
        : m_document(document), m_tables(document), m_formats(m_out, m_tables)
    {
        findRows();
    }

    QByteArray run()
    {
        writeHeader(m_out, m_tables, m_document);
        const auto &operations = m_document.operations;
        for (size_t i = 0; i < operations.size(); ++i) {
            if (m_rowIsOver && !std::holds_alternative<TableEnd>(operations[i]))
                beginRow();
            if (m_atParagraphBegin && !isStructure(operations[i]))
                beginParagraph(i);
            std::visit([this](const auto &value) { add(value); }, operations[i]);
        }
        closeWrappers(0);
        m_out.put("}");
        m_out.endLine();
        return m_out.bytes();
    }

private:
    /// A group around text.
    struct Group
    {
        int wrapper = -1; ///< -1: a link
        QString link;
        QString tip;

        bool operator==(const Group &) const = default;
    };
    using Groups = QVarLengthArray<Group, 4>;
    struct Opened
    {
        Group group;
        FormatWriter::State before; ///< what is in force before it
    };

    static bool isStructure(const Operation &operation)
    {
        return std::holds_alternative<TableBegin>(operation) || std::holds_alternative<RowEnd>(operation) ||
               std::holds_alternative<TableEnd>(operation);
    }

    /// The format of a row comes at its end and is written at its begin.
    void findRows()
    {
        std::vector<size_t> open;
        const auto &operations = m_document.operations;
        const auto begin = [&] {
            open.push_back(m_rows.size());
            m_rows.push_back(0);
        };
        for (size_t i = 0; i < operations.size(); ++i) {
            if (std::holds_alternative<TableBegin>(operations[i])) {
                begin();
            } else if (const auto *end = std::get_if<RowEnd>(&operations[i])) {
                m_rows[open.back()] = end->rowFormat;
                open.pop_back();
                if (i + 1 < operations.size() && !std::holds_alternative<TableEnd>(operations[i + 1]))
                    begin();
            }
        }
    }

    /// The format of a paragraph comes at its end, too.
    void beginParagraph(size_t first)
    {
        const auto &operations = m_document.operations;
        int index = -1;
        int characters = -1;
        for (size_t i = first; i < operations.size() && index < 0; ++i) {
            if (const auto *run = std::get_if<TextRun>(&operations[i])) {
                characters = characters < 0 ? run->format : characters;
            } else if (const auto *picture = std::get_if<PictureRun>(&operations[i])) {
                characters = characters < 0 ? picture->format : characters;
            } else if (const auto *end = std::get_if<ParagraphEnd>(&operations[i])) {
                index = end->paragraphFormat;
                characters = characters < 0 ? end->format : characters;
            } else if (const auto *cell = std::get_if<CellEnd>(&operations[i])) {
                index = cell->paragraphFormat;
            }
        }
        if (characters >= 0)
            closeOthers(around(m_document.characterFormats.at(characters)));
        const ParagraphFormat format = index < 0 ? ParagraphFormat() : m_document.paragraphFormats.at(index);
        m_formats.beginParagraph(format, m_depth, m_counter.next(format));
        m_atParagraphBegin = false;
    }

    void characters(int index)
    {
        const CharacterFormat &format = m_document.characterFormats.at(index);
        enter(format);
        m_formats.characters(format);
    }

    /// The groups around a text, from the outermost.
    Groups around(const CharacterFormat &format) const
    {
        Groups groups;
        for (int wrapper = format.wrapper; wrapper >= 0;
             wrapper = m_document.wrappers[size_t(wrapper)].outer) {
            if (!m_document.wrappers[size_t(wrapper)].begin.isEmpty())
                groups.push_back({wrapper, {}, {}});
        }
        std::reverse(groups.begin(), groups.end());
        if (!format.link.isEmpty())
            groups.push_back({-1, format.link, format.linkTip});
        return groups;
    }

    /// Closes the groups that are not among these.
    void closeOthers(const Groups &groups)
    {
        size_t common = 0;
        while (common < m_opened.size() && common < size_t(groups.size()) &&
               m_opened[common].group == groups[qsizetype(common)])
            ++common;
        closeWrappers(common);
    }

    /// Opens and closes the groups of fields, links and objects around the text.
    void enter(const CharacterFormat &format)
    {
        if (format.wrapper < 0 && format.link.isEmpty() && m_opened.empty())
            return;
        const Groups groups = around(format);
        closeOthers(groups);
        for (auto i = qsizetype(m_opened.size()); i < groups.size(); ++i) {
            const Group &group = groups[i];
            m_opened.push_back({group, m_formats.state()});
            if (group.wrapper >= 0) {
                m_out.put(m_tables.written(m_document.wrappers[size_t(group.wrapper)].begin));
            } else {
                m_out.put("{\\field{\\*\\fldinst{");
                m_out.text(instructionOf({group.link, group.tip}));
                m_out.put("}}{\\fldrslt");
            }
            m_out.setAfterWord();
        }
    }

    void closeWrappers(size_t remaining)
    {
        while (m_opened.size() > remaining) {
            m_out.put("}}");
            m_formats.restore(m_opened.back().before, !m_atParagraphBegin);
            m_opened.pop_back();
        }
    }

    void add(const TextRun &run)
    {
        characters(run.format);
        m_formats.text(run.text, m_document.characterFormats.at(run.format));
    }

    void add(const ParagraphEnd &end)
    {
        characters(end.format);
        m_out.word(Word::ParagraphEnd);
        m_out.endLine();
        m_atParagraphBegin = true;
    }

    void add(const PictureRun &run)
    {
        characters(run.format);
        writePicture(m_out, m_tables, *run.picture);
    }

    void add(const KeptPiece &piece)
    {
        m_out.put(m_tables.written(piece.bytes));
        if (!piece.bytes.endsWith('}'))
            m_out.setAfterWord();
    }

    void add(const TableBegin &)
    {
        closeWrappers(0);
        ++m_depth;
        beginRow();
    }

    void add(const CellEnd &end)
    {
        closeWrappers(0); // they end in the cell that they begin in
        m_formats.characters(m_document.characterFormats.at(end.format));
        if (m_depth == 1) {
            m_out.word(Word::Cell);
            m_out.endLine();
        } else {
            m_out.word(Word::NestedCell);
            m_out.put("{\\nonesttables\\par}");
            m_out.endLine();
        }
        m_atParagraphBegin = true;
    }

    void add(const RowEnd &end)
    {
        if (m_depth == 1) {
            m_out.word(Word::Row);
        } else {
            m_out.put("{\\*\\nesttableprops");
            m_formats.row(m_document.rowFormats.at(end.rowFormat));
            m_out.word(Word::NestedRow);
            m_out.put("}{\\nonesttables\\par}");
        }
        m_out.endLine();
        m_rowIsOver = true;
    }

    void add(const TableEnd &)
    {
        --m_depth;
        m_rowIsOver = false;
    }

    void beginRow()
    {
        m_rowIsOver = false;
        const int row = m_rows[m_nextRow++];
        if (m_depth == 1)
            m_formats.row(m_document.rowFormats.at(row));
        m_formats.forgetParagraph();
    }

    const Document &m_document;
    WriterTables m_tables;
    RtfOutput m_out;
    FormatWriter m_formats;
    ListCounter m_counter;
    std::vector<Opened> m_opened;
    std::vector<int> m_rows; ///< formats of the rows, in the order of their begins
    size_t m_nextRow = 0;
    int m_depth = 0; ///< of the tables around
    bool m_atParagraphBegin = true;
    bool m_rowIsOver = false;
};

} // namespace

QByteArray write(const Document &document)
{
    return Writer(document).run();
}

} // namespace norvane::rtf
