#include "browser/dialogs/WholeCharacters.h"

#include <algorithm>

namespace norvane {

namespace {

bool isHalf(const QString &text, qsizetype place)
{
    const QChar unit = text.at(place);
    if (unit.isHighSurrogate())
        return place + 1 == text.size() || !text.at(place + 1).isLowSurrogate();
    return unit.isLowSurrogate() && (place == 0 || !text.at(place - 1).isHighSurrogate());
}

} // namespace

QValidator::State WholeCharacters::validate(QString &text, int &cursor) const
{
    for (qsizetype place = text.size() - 1; place >= 0; --place) {
        if (isHalf(text, place))
            text.remove(place, 1);
    }
    cursor = std::min(cursor, static_cast<int>(text.size()));
    return Acceptable;
}

} // namespace norvane
