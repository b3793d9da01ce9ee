#pragma once

#include <QStringView>

namespace norvane {

/// What a shortcut text such as "Ctrl+Shift+F5" names.
struct ShortcutKey
{
    qint16 shift = 0; ///< 1 Shift, 2 Ctrl, 4 Alt
    qint16 code = 0;  ///< virtual key code; 0 when no key is named

    bool operator==(const ShortcutKey &) const = default;
};

/// Parts joined by "+", in any order and case; parts that name nothing are passed over.
ShortcutKey parseShortcutText(QStringView text);

} // namespace norvane
