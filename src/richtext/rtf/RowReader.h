#pragma once

#include "richtext/rtf/ColorTable.h"
#include "richtext/rtf/Tokenizer.h"
#include "richtext/rtf/control_words.h"
#include "richtext/rtf/formats.h"

#include <QVarLengthArray>
#include <initializer_list>

namespace norvane::rtf {

/// A row as a file describes it.
struct RowDescription
{
    RowFormat format;
    /// For each cell: it has text of its own and is one with the cell before.
    QVector<bool> merged;
};

/// Where a cell ends that begins at a place and is said to end at another.
int cellEnd(int left, int stated);

/// What a cell or a paragraph is shaded with: part of one colour on another.
struct Shading
{
    std::optional<quint32> background;
    std::optional<quint32> foreground;
    int percent100 = 0; ///< of the foreground, in hundredths of a percent

    /// The mixture; nothing when there is no shading.
    std::optional<quint32> color() const;
};

/// Reads borders: a word that names one or several, then words that describe them.
class BorderReader
{
public:
    /// The words that follow describe these borders; none: what they describe is left out.
    void begin(std::initializer_list<Border *> borders);
    /// Whether the word describes a border.
    bool handle(ControlWord word, const Token &token, const ColorTable &colors);

private:
    QVarLengthArray<Border *, 4> m_borders;
};

/// Collects the description of a table's rows, which stays in force until the next begins.
class RowReader
{
public:
    /// Whether the word is of a row or its cells.
    bool handle(ControlWord word, const Token &token, const ColorTable &colors, BorderReader &border);
    const RowDescription &row() const { return m_row; }

private:
    bool handleCellWord(ControlWord word, const Token &token, const ColorTable &colors, BorderReader &border);
    void endCell(int right);

    RowDescription m_row;
    CellFormat m_cell; ///< of the cell whose end has not come
    Shading m_shading;
    bool m_merged = false;
    bool m_paddingHasUnit = false;
};

} // namespace norvane::rtf
