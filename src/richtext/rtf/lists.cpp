#include "richtext/rtf/lists.h"

#include <algorithm>

namespace norvane::rtf {
namespace {

QString romanText(int number)
{
    struct Step
    {
        int value;
        const char16_t *digits;
    };
    static constexpr Step kSteps[] = {{1000, u"m"}, {900, u"cm"}, {500, u"d"}, {400, u"cd"}, {100, u"c"},
                                      {90, u"xc"},  {50, u"l"},   {40, u"xl"}, {10, u"x"},   {9, u"ix"},
                                      {5, u"v"},    {4, u"iv"},   {1, u"i"}};
    constexpr int kLargest = 4999;
    if (number < 1 || number > kLargest)
        return QString::number(number);
    QString text;
    for (const Step &step : kSteps) {
        for (; number >= step.value; number -= step.value)
            text += QStringView(step.digits);
    }
    return text;
}

/// a to z, then aa to zz, and so on.
QString lettersText(int number)
{
    constexpr int kLetters = 26;
    constexpr int kLargest = kLetters * 30;
    if (number < 1 || number > kLargest)
        return QString::number(number);
    return QString((number - 1) / kLetters + 1, QChar(u'a' + (number - 1) % kLetters));
}

QString ordinalText(int number)
{
    static constexpr const char *kEndings[] = {"th", "st", "nd", "rd"};
    const int last = number % 10;
    const bool teen = number / 10 % 10 == 1;
    return QString::number(number) + QLatin1StringView(kEndings[!teen && last >= 1 && last <= 3 ? last : 0]);
}

} // namespace

ListItem ListItem::bullet()
{
    List list;
    ListLevel level;
    level.style = kBulletSign;
    level.text = QStringLiteral("\u2022");
    level.font = QStringLiteral("Symbol");
    level.symbol = true;
    list.levels.push_back(level);
    return {std::make_shared<const List>(std::move(list)), 0};
}

const ListLevel *ListItem::format() const
{
    if (!list || list->levels.empty())
        return nullptr;
    return &list->levels[size_t(std::clamp(level, 0, int(list->levels.size()) - 1))];
}

bool ListItem::isBullet() const
{
    const ListLevel *own = format();
    return own && own->style == kBulletSign;
}

bool ListItem::operator==(const ListItem &other) const
{
    if (level != other.level)
        return false;
    return list == other.list || (list && other.list && *list == *other.list);
}

QString numberText(int number, int style)
{
    switch (style) {
    case kUpperRoman:
        return romanText(number).toUpper();
    case kLowerRoman:
        return romanText(number);
    case kUpperLetters:
        return lettersText(number).toUpper();
    case kLowerLetters:
        return lettersText(number);
    case kLeadingZero:
        return QString::number(number).rightJustified(2, u'0');
    case kOrdinal:
        return ordinalText(number);
    case kNoNumber:
    case kBulletSign:
        return {};
    default:
        return QString::number(number);
    }
}

QString markText(const ListItem &item, const std::vector<int> &numbers)
{
    const ListLevel *own = item.format();
    if (!own)
        return {};
    const std::vector<ListLevel> &levels = item.list->levels;
    QString text;
    for (const QChar character : own->text) {
        const char16_t unit = character.unicode();
        if (unit == 0 || unit > kDeepestLevel + 1) {
            text += character;
        } else if (const size_t place = unit - 1U; place < levels.size()) {
            const int number = place < numbers.size() ? numbers[place] : levels[place].start;
            text += numberText(number, levels[place].style);
        }
    }
    return text;
}

} // namespace norvane::rtf
