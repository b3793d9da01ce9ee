#include "options/hot_key_text.h"

#include <array>
#include <utility>

namespace norvane {

namespace {

constexpr std::array<std::pair<int, QStringView>, 18> kNamedKeys{{
    {33, u"Page Up"},
    {34, u"Page Down"},
    {35, u"End"},
    {36, u"Home"},
    {37, u"Left"},
    {38, u"Up"},
    {39, u"Right"},
    {40, u"Down"},
    {45, u"Insert"},
    {46, u"Delete"},
    {106, u"Num *"},
    {107, u"Num +"},
    {109, u"Num -"},
    {110, u"Num Del"},
    {111, u"Num /"},
    {145, u"Scroll Lock"},
    {144, u"Num Lock"},
    {186, u";"},
}};

QString character(int code)
{
    return code > 0 && code <= 0xFFFF ? QString(QChar(code)) : QString();
}

QString keyName(int key)
{
    if ((key >= 'A' && key <= 'Z') || (key >= '0' && key <= '9'))
        return character(key);
    if (key >= 96 && key <= 105)
        return QStringLiteral("Num ") + character(key - 48);
    if (key >= 112 && key <= 127)
        return QStringLiteral("F%1").arg(key - 111);
    for (const auto &[code, name] : kNamedKeys) {
        if (code == key)
            return name.toString();
    }
    switch (key) {
    case 187:
        return QStringLiteral("=");
    case 192:
        return QStringLiteral("`");
    case 222:
        return QStringLiteral("'");
    }
    if (key >= 188 && key <= 191)
        return character(key - 144);
    // The remaining punctuation keys carry their character in the low seven bits.
    return key > 128 ? character(key - 128) : QString();
}

} // namespace

std::optional<int> SwapModifiers(int Value)
{
    constexpr std::array<int, 6> kSwapped{4, 2, 6, 1, 5, 3};
    if (Value < 1 || Value > static_cast<int>(kSwapped.size()))
        return std::nullopt;
    return kSwapped[static_cast<std::size_t>(Value - 1)];
}

QString HotKeyName(int Key, int Modifiers)
{
    if (Key == 0 && Modifiers == 0)
        return QStringLiteral("None");
    QString text;
    if (Modifiers & 2)
        text += QStringLiteral("Ctrl+");
    if (Modifiers & 1)
        text += QStringLiteral("Shift+");
    if (Modifiers & 4)
        text += QStringLiteral("Alt+");
    return text + keyName(Key);
}

} // namespace norvane
