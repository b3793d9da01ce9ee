#include "controls/grid/sort_keys.h"

#include "controls/grid/nearly_sorted.h"
#include "platform/RuntimeError.h"
#include "platform/errors.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace norvane {

namespace {

/// A whole number that orders as the number does; both zeros are one.
qint64 orderedBits(double number)
{
    if (number == 0)
        return 0;
    const auto bits = std::bit_cast<qint64>(number);
    return bits >= 0 ? bits : std::numeric_limits<qint64>::min() - bits;
}

/// The next three units of a text as one number. A place behind its end is below any unit.
quint64 threeUnits(const QString &text, qsizetype from)
{
    quint64 units = 0;
    for (qsizetype i = from; i < from + 3; ++i)
        units = (units << 17) | (i < text.size() ? quint64(text[i].unicode()) + 1 : 0);
    return units;
}

struct TextPlace
{
    quint64 units = 0;
    qint32 row = 0;
};

/// Rows that are equal in all units before `from`.
struct Stretch
{
    std::size_t begin = 0;
    std::size_t end = 0;
    qsizetype from = 0;
};

/// A date cut down to the year, month, day, hour or minute, as a whole number.
qint64 cutDate(double number, qint32 type)
{
    const DayAndTime date = dayAndTime(number);
    const qint64 day = date.day.toJulianDay();
    switch (type) {
    case kSortDateYear:
        return date.day.year();
    case kSortDateMonth:
        return qint64(date.day.year()) * 12 + date.day.month() - 1;
    case kSortDateDay:
        return day;
    case kSortDateHour:
        return day * 24 + date.milliseconds / 3'600'000;
    default:
        return day * 1440 + date.milliseconds / 60'000;
    }
}

/// The ranks of texts whose numbers are in their order.
std::vector<qint64> ranksOf(const std::vector<QString> &texts, const std::vector<qint32> &order)
{
    std::vector<qint64> ranks(texts.size());
    qint64 rank = 0;
    QString before; // the empty text has the rank 0
    for (const qint32 number : order) {
        const auto row = static_cast<std::size_t>(number);
        if (texts[row] != before)
            ++rank;
        before = texts[row];
        ranks[row] = rank;
    }
    return ranks;
}

} // namespace

std::vector<qint64> textRanks(const std::vector<QString> &texts)
{
    const auto isBelow = [&texts](qint32 a, qint32 b) {
        return texts[static_cast<std::size_t>(a)] < texts[static_cast<std::size_t>(b)];
    };
    if (const auto order = nearlySorted(static_cast<qint32>(texts.size()), isBelow))
        return ranksOf(texts, *order);
    std::vector<TextPlace> places(texts.size());
    for (std::size_t i = 0; i < places.size(); ++i)
        places[i].row = static_cast<qint32>(i);
    const auto textOf = [&texts](const TextPlace &place) -> const QString & {
        return texts[static_cast<std::size_t>(place.row)];
    };

    // Sorts by a few units at a time: comparing whole texts would fetch them far too often.
    std::vector<char> beginsRank(places.size(), 0);
    std::vector<Stretch> open{{0, places.size(), 0}};
    while (!open.empty()) {
        const Stretch stretch = open.back();
        open.pop_back();
        if (stretch.begin == stretch.end)
            continue;
        beginsRank[stretch.begin] = 1;
        const auto begin = places.begin() + static_cast<std::ptrdiff_t>(stretch.begin);
        const auto end = places.begin() + static_cast<std::ptrdiff_t>(stretch.end);
        for (auto place = begin; place != end; ++place)
            place->units = threeUnits(textOf(*place), stretch.from);
        std::sort(begin, end, [](const TextPlace &a, const TextPlace &b) { return a.units < b.units; });
        for (auto same = begin; same != end;) {
            const quint64 units = same->units;
            const auto next =
                std::find_if(same, end, [units](const TextPlace &place) { return place.units != units; });
            const auto at = static_cast<std::size_t>(same - places.begin());
            beginsRank[at] = 1;
            // The last unit is 0 where the text has ended: then all of these are equal.
            if (next - same > 1 && (units & 0x1ffff) != 0)
                open.push_back({at, static_cast<std::size_t>(next - places.begin()), stretch.from + 3});
            same = next;
        }
    }

    std::vector<qint64> ranks(texts.size());
    qint64 rank = 0;
    for (std::size_t i = 0; i < places.size(); ++i) {
        if (beginsRank[i] != 0 && !textOf(places[i]).isEmpty())
            ++rank;
        ranks[static_cast<std::size_t>(places[i].row)] = rank;
    }
    return ranks;
}

SortKeyValues::SortKeyValues(const GridCells &cells, int column, qint32 order, qint32 type) : m_order(order)
{
    switch (type) {
    case kSortNumeric:
        readNumbers(cells, column);
        break;
    case kSortText:
    case kSortTextNoCase:
        readTexts(cells, column, type == kSortTextNoCase);
        break;
    case kSortDate:
        readValues(cells, column);
        break;
    case kSortDateYear:
    case kSortDateMonth:
    case kSortDateDay:
    case kSortDateHour:
    case kSortDateMinute:
        readCutDates(cells, column, type);
        break;
    case kSortIcon:
    case kSortExtraIcon:
    case kSortForeColor:
    case kSortBackColor:
    case kSortFont:
    case kSortSelected:
    case kSortIndent:
        readWholes(cells, column, type);
        break;
    default:
        break;
    }
}

void SortKeyValues::readNumbers(const GridCells &cells, int column)
{
    m_rule = Rule::Number;
    m_isOneOrder = true;
    (void)cells.column(column);
    for (int row = 1; row <= cells.rows(); ++row) {
        const std::optional<double> number = valueNumber(cells.value(row, column));
        m_places.push_back(orderedBits(number.value_or(0)));
        if (!number && m_classes.empty())
            m_classes.resize(static_cast<std::size_t>(cells.rows()), Class::Number);
        if (!number)
            m_classes[m_places.size() - 1] = Class::NoNumber;
        m_isOneOrder = m_isOneOrder && number && !std::isnan(*number);
    }
}

void SortKeyValues::readTexts(const GridCells &cells, int column, bool foldsCase)
{
    m_rule = Rule::Whole;
    m_isOneOrder = true;
    (void)cells.column(column);
    std::vector<QString> texts;
    texts.reserve(static_cast<std::size_t>(cells.rows()));
    for (int row = 1; row <= cells.rows(); ++row) {
        const QString text = valueText(cells.value(row, column));
        texts.push_back(foldsCase ? text.toCaseFolded() : text);
    }
    m_places = textRanks(texts);
}

void SortKeyValues::readWholes(const GridCells &cells, int column, qint32 type)
{
    m_rule = Rule::Whole;
    m_isOneOrder = true;
    const GridCellColumn &of = cells.column(column);
    const auto read = [this, &cells](const auto &field) {
        for (std::size_t row = 0; row < static_cast<std::size_t>(cells.rows()); ++row)
            m_places.push_back(field.at(row));
    };
    switch (type) {
    case kSortIcon:
        return read(of.icon);
    case kSortExtraIcon:
        return read(of.extraIcon);
    case kSortForeColor:
        return read(of.foreColor);
    case kSortBackColor:
        return read(of.backColor);
    case kSortFont:
        return read(of.font);
    case kSortIndent:
        return read(of.indent);
    default:
        return read(of.selected);
    }
}

void SortKeyValues::readValues(const GridCells &cells, int column)
{
    m_rule = Rule::AsTheyStand;
    (void)cells.column(column);
    bool hasUnset = false;
    bool hasText = false;
    std::vector<QString> texts(static_cast<std::size_t>(cells.rows()));
    for (int row = 1; row <= cells.rows(); ++row) {
        const CellValue value = cells.value(row, column);
        texts[static_cast<std::size_t>(row - 1)] = *value.text;
        m_places.push_back(orderedBits(value.number));
        m_classes.push_back(value.kind == CellKind::Unset  ? Class::Unset
                            : value.kind == CellKind::Text ? Class::Text
                            : value.isDate()               ? Class::Date
                                                           : Class::Number);
        hasUnset = hasUnset || value.kind == CellKind::Unset;
        hasText = hasText || value.kind == CellKind::Text;
    }
    if (hasText) {
        const std::vector<qint64> ranks = textRanks(texts);
        for (std::size_t row = 0; row < ranks.size(); ++row) {
            if (m_classes[row] == Class::Text)
                m_places[row] = ranks[row];
        }
    }
    // An unset value is 0 beside numbers and empty beside texts.
    m_isOneOrder = !hasText || (!hasUnset && std::all_of(m_classes.begin(), m_classes.end(),
                                                         [](Class of) { return of == Class::Text; }));
}

void SortKeyValues::readCutDates(const GridCells &cells, int column, qint32 type)
{
    readValues(cells, column);
    m_rule = Rule::CutDate;
    m_isOneOrder = m_order == kSortAscending || m_order == kSortDescending;
    for (int row = 1; row <= cells.rows(); ++row) {
        const CellValue value = cells.value(row, column);
        m_cuts.push_back(value.isDate() ? cutDate(value.number, type) : 0);
    }
}

int SortKeyValues::compareAsTheyStand(std::size_t one, std::size_t other) const
{
    const bool isText = m_classes[one] == Class::Text;
    const bool otherIsText = m_classes[other] == Class::Text;
    qint64 a = m_places[one];
    qint64 b = m_places[other];
    if (isText != otherIsText) {
        // A text is above any number, and an unset value is the empty text beside it.
        if (m_classes[isText ? other : one] != Class::Unset)
            return isText ? 1 : -1;
        (isText ? b : a) = 0;
    }
    return a < b ? -1 : a > b ? 1 : 0;
}

CellOrder SortKeyValues::compareCut(std::size_t one, std::size_t other) const
{
    const bool isDate = m_classes[one] == Class::Date;
    const bool otherIsDate = m_classes[other] == Class::Date;
    if (!isDate && !otherIsDate)
        return {true, false};
    if (!otherIsDate)
        return {false, m_order == kSortAscending};
    if (!isDate)
        return {false, m_order == kSortDescending};
    if (m_cuts[one] == m_cuts[other])
        return {true, false};
    return {false,
            m_order == kSortAscending ? m_places[one] >= m_places[other] : m_places[one] <= m_places[other]};
}

CellOrder SortKeyValues::compare(qint32 one, qint32 other) const
{
    const auto a = static_cast<std::size_t>(one);
    const auto b = static_cast<std::size_t>(other);
    int difference = 0;
    switch (m_rule) {
    case Rule::Nothing:
        return {};
    case Rule::CutDate:
        return compareCut(a, b);
    case Rule::AsTheyStand:
        difference = compareAsTheyStand(a, b);
        break;
    case Rule::Number:
        if (!m_classes.empty() && (m_classes[a] == Class::NoNumber || m_classes[b] == Class::NoNumber))
            throw RuntimeError(kErrorTypeMismatch,
                               QStringLiteral("The column cannot be sorted as numbers: a text is none."));
        [[fallthrough]];
    case Rule::Whole:
        difference = m_places[a] < m_places[b] ? -1 : m_places[a] > m_places[b] ? 1 : 0;
        break;
    }
    return {difference == 0, m_order == kSortAscending ? difference >= 0 : difference <= 0};
}

qint64 SortKeyValues::upward(std::size_t row) const
{
    if (m_rule != Rule::CutDate)
        return m_places[row];
    // Other values stand before all dates upward and behind them downward.
    return m_classes[row] == Class::Date ? m_cuts[row] : std::numeric_limits<qint64>::min() + 1;
}

qint64 SortKeyValues::place(qint32 row) const
{
    const qint64 place = upward(static_cast<std::size_t>(row));
    return m_order == kSortAscending ? place : ~place;
}

} // namespace norvane
