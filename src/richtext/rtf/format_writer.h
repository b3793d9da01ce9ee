#pragma once

#include "richtext/rtf/RtfOutput.h"
#include "richtext/rtf/WriterTables.h"

#include <optional>
#include <vector>

namespace norvane::rtf {

/// Everything of a document that comes before its text.
void writeHeader(RtfOutput &out, WriterTables &tables, const Document &document);
void writePicture(RtfOutput &out, WriterTables &tables, const Picture &picture);

/// Writes formats: what differs from the format in force.
class FormatWriter
{
public:
    FormatWriter(RtfOutput &out, WriterTables &tables) : m_out(out), m_tables(tables) {}

    /// What is in force at a place.
    struct State
    {
        const CharacterFormat *characters = nullptr; ///< nullptr: none has been stated
        std::optional<ParagraphFormat> paragraph;
        int depth = 0;
    };
    State state() const { return {m_characters, m_paragraph, m_depth}; }
    /// Goes back to what was in force, at the end of a group.
    /// @param inParagraph the paragraph goes on behind it
    void restore(const State &before, bool inParagraph);

    /// @param depth how many tables it lies in
    /// @param numbers of a list's item
    void beginParagraph(const ParagraphFormat &format, int depth, const std::vector<int> &numbers);
    /// The next paragraph states its format, even if it is that of the one before.
    void forgetParagraph() { m_paragraph.reset(); }
    /// @param format must stay until the next one is given
    void characters(const CharacterFormat &format);
    void text(QStringView text, const CharacterFormat &format);
    void row(const RowFormat &format);

private:
    void mark(const ListItem &item, const std::vector<int> &numbers);
    void ownMark(const ListLevel &level);
    void markText(const ListLevel &level, QStringView text);
    void paragraphWords();
    void paragraphLook(const ParagraphFormat &format);
    void effects(const CharacterFormat &from, const CharacterFormat &to);
    void toggle(Word word, int argument, bool from, bool to);
    void border(Word side, int argument, const Border &border);
    void padding(Word width, Word unit, const Sides<std::optional<int>> &sides);
    void cell(const CellFormat &format);

    RtfOutput &m_out;
    WriterTables &m_tables;
    const CharacterFormat *m_characters = nullptr;
    std::optional<ParagraphFormat> m_paragraph;
    int m_depth = 0;
};

} // namespace norvane::rtf
