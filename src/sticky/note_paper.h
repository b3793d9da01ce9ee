#pragma once

#include <QColor>

namespace norvane {

/// The colours of a note, all from the colour of its paper. A note keeps its own colours in a dark
/// desktop too: it is a piece of paper, not a window.
struct NotePaper
{
    QColor paper;
    QColor strip;       ///< title strip
    QColor activeStrip; ///< title strip while the note has the keyboard
    QColor edge;        ///< outline
    QColor softEdge;    ///< the line inside the outline
    QColor ink;         ///< title and pin; readable on strip and paper
};

/// @param color blue-green-red byte order, as rows keep it
NotePaper notePaper(quint32 color);

} // namespace norvane
