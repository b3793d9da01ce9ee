#include "richtext/rtf/list_numbers.h"

#include <algorithm>

namespace norvane::rtf {
namespace {

bool areEqual(const std::shared_ptr<const List> &left, const std::shared_ptr<const List> &right)
{
    return left == right || *left == *right;
}

bool countTogether(const List &left, const List &right)
{
    return left.identity == right.identity && left.levels == right.levels;
}

} // namespace

const std::vector<int> &ListCounter::next(const ParagraphFormat &paragraph)
{
    m_numbers.clear();
    const ListItem &item = paragraph.item;
    if (!item.format()) {
        m_runs.clear();
    } else if (item.list->number == 0) {
        countRun(paragraph);
    } else {
        m_runs.clear();
        countList(item);
    }
    return m_numbers;
}

void ListCounter::countRun(const ParagraphFormat &paragraph)
{
    while (!m_runs.empty() && m_runs.back().indent > paragraph.leftIndent)
        m_runs.pop_back();
    const bool goesOn = !m_runs.empty() && m_runs.back().indent == paragraph.leftIndent;
    if (goesOn && areEqual(m_runs.back().list, paragraph.item.list)) {
        ++m_runs.back().number;
    } else {
        if (goesOn)
            m_runs.pop_back();
        m_runs.push_back({paragraph.item.list, paragraph.leftIndent, paragraph.item.format()->start});
    }
    m_numbers.push_back(m_runs.back().number);
}

void ListCounter::countList(const ListItem &item)
{
    Counter &counter = counterOf(item.list);
    const int level = std::clamp(item.level, 0, int(item.list->levels.size()) - 1);
    if (counter.levels > level) {
        ++counter.numbers[size_t(level)];
    } else {
        for (int begun = counter.levels; begun <= level; ++begun)
            counter.numbers[size_t(begun)] = item.list->levels[size_t(begun)].start;
    }
    counter.levels = level + 1;
    m_numbers.assign(counter.numbers.begin(), counter.numbers.begin() + counter.levels);
}

ListCounter::Counter &ListCounter::counterOf(const std::shared_ptr<const List> &list)
{
    const auto known = m_places.constFind(list.get());
    if (known != m_places.constEnd())
        return m_counters[*known];
    auto found = std::find_if(m_counters.begin(), m_counters.end(),
                              [&](const Counter &counter) { return countTogether(*counter.list, *list); });
    const auto place = size_t(found - m_counters.begin());
    if (found == m_counters.end()) {
        m_counters.emplace_back();
        m_counters.back().list = list;
    }
    m_places.insert(list.get(), place);
    return m_counters[place];
}

} // namespace norvane::rtf
