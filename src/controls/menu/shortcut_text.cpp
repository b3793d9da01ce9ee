#include "controls/menu/shortcut_text.h"

#include <QString>

#include <iterator>

namespace norvane {

namespace {

constexpr qint16 kShift = 1;
constexpr qint16 kCtrl = 2;
constexpr qint16 kAlt = 4;
constexpr qint16 kCodeBeforeF1 = 111;
constexpr int kLastFunctionKey = 24;

struct NamedKey
{
    QStringView name;
    qint16 code;
};

constexpr NamedKey kNamedKeys[] = {
    {u"Home", 36},     {u"End", 35},        {u"Left Arrow", 37}, {u"Right Arrow", 39},
    {u"Up Arrow", 38}, {u"Down Arrow", 40}, {u"Break", 3},       {u"Page Up", 33},
    {u"Del", 46},      {u"Esc", 27},        {u"Tab", 9},         {u"Enter", 13},
};

bool isSame(QStringView part, QStringView name)
{
    return part.compare(name, Qt::CaseInsensitive) == 0;
}

qint16 keyCode(QStringView part)
{
    if (part.size() == 1)
        return qint16(part.front().toUpper().unicode());
    for (const NamedKey &key : kNamedKeys) {
        if (isSame(part, key.name))
            return key.code;
    }
    if (part.startsWith(u'F', Qt::CaseInsensitive)) {
        bool isNumber = false;
        const int number = part.mid(1).toInt(&isNumber);
        if (isNumber && number >= 1 && number <= kLastFunctionKey)
            return qint16(kCodeBeforeF1 + number);
    }
    return 0;
}

} // namespace

ShortcutKey parseShortcutText(QStringView text)
{
    ShortcutKey key;
    while (!text.isEmpty()) {
        // A "+" where a part begins is the key itself.
        const qsizetype end = text.indexOf(u'+', 1);
        const QStringView part = (end < 0 ? text : text.first(end)).trimmed();
        text = end < 0 ? QStringView() : text.mid(end + 1);
        if (isSame(part, u"Ctrl"))
            key.shift |= kCtrl;
        else if (isSame(part, u"Alt"))
            key.shift |= kAlt;
        else if (isSame(part, u"Shift"))
            key.shift |= kShift;
        else if (const qint16 code = keyCode(part); code != 0)
            key.code = code;
    }
    return key;
}

} // namespace norvane
