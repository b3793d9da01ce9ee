#pragma once

#include "richtext/rtf/formats.h"

#include <QHash>
#include <array>
#include <vector>

namespace norvane::rtf {

/// Counts the items of all lists of a document, paragraph by paragraph.
///
/// A list of the table counts through the whole document; an item begins the deeper levels anew.
/// Marks that paragraphs state themselves count in a run of such paragraphs: further indented ones
/// in between do not end it, anything else does.
class ListCounter
{
public:
    /// Takes the next paragraph.
    /// @return the numbers of an item's levels down to its own; empty for other paragraphs. Valid
    /// until the next call.
    const std::vector<int> &next(const ParagraphFormat &paragraph);

private:
    struct Counter
    {
        std::shared_ptr<const List> list;
        std::array<int, kDeepestLevel + 1> numbers{};
        int levels = 0; ///< how many of the numbers are in use
    };
    struct Run
    {
        std::shared_ptr<const List> list;
        int indent = 0;
        int number = 0;
    };

    Counter &counterOf(const std::shared_ptr<const List> &list);
    void countRun(const ParagraphFormat &paragraph);
    void countList(const ListItem &item);

    std::vector<Counter> m_counters;
    QHash<const List *, size_t> m_places;
    std::vector<Run> m_runs; ///< from the least indented to the one that goes on
    std::vector<int> m_numbers;
};

} // namespace norvane::rtf
