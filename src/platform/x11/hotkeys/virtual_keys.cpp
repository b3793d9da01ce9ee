#include "platform/x11/hotkeys/virtual_keys.h"

#include <X11/XF86keysym.h>
#include <X11/keysym.h>
#include <algorithm>
#include <array>
#include <iterator>

namespace norvane {

namespace {

struct Entry
{
    int virtualKey;
    std::uint32_t symbol;
    std::uint32_t alternative = 0;
};

constexpr Entry kEntries[]{
    {8, XK_BackSpace},
    {9, XK_Tab},
    {12, XK_Clear, XK_KP_Begin},
    {13, XK_Return},
    {19, XK_Pause},
    {20, XK_Caps_Lock},
    {27, XK_Escape},
    {32, XK_space},
    {33, XK_Prior, XK_KP_Prior},
    {34, XK_Next, XK_KP_Next},
    {35, XK_End, XK_KP_End},
    {36, XK_Home, XK_KP_Home},
    {37, XK_Left, XK_KP_Left},
    {38, XK_Up, XK_KP_Up},
    {39, XK_Right, XK_KP_Right},
    {40, XK_Down, XK_KP_Down},
    {44, XK_Print},
    {45, XK_Insert, XK_KP_Insert},
    {46, XK_Delete, XK_KP_Delete},
    {47, XK_Help},
    {91, XK_Super_L},
    {92, XK_Super_R},
    {93, XK_Menu},
    {106, XK_KP_Multiply},
    {107, XK_KP_Add},
    {108, XK_KP_Separator},
    {109, XK_KP_Subtract},
    {110, XK_KP_Decimal, XK_KP_Separator},
    {111, XK_KP_Divide},
    {144, XK_Num_Lock},
    {145, XK_Scroll_Lock},
    {166, XF86XK_Back},
    {167, XF86XK_Forward},
    {173, XF86XK_AudioMute},
    {174, XF86XK_AudioLowerVolume},
    {175, XF86XK_AudioRaiseVolume},
    {176, XF86XK_AudioNext},
    {177, XF86XK_AudioPrev},
    {178, XF86XK_AudioStop},
    {179, XF86XK_AudioPlay},
    {186, XK_semicolon},
    {187, XK_equal},
    {188, XK_comma},
    {189, XK_minus},
    {190, XK_period},
    {191, XK_slash},
    {192, XK_grave, XK_dead_grave},
    {219, XK_bracketleft},
    {220, XK_backslash},
    {221, XK_bracketright},
    {222, XK_apostrophe, XK_dead_acute},
    {226, XK_less},
};

std::uint32_t after(std::uint32_t first, int steps)
{
    return first + static_cast<std::uint32_t>(steps);
}

} // namespace

QVector<std::uint32_t> keySymbolsOf(int virtualKey)
{
    if (virtualKey >= 'A' && virtualKey <= 'Z')
        return {after(XK_a, virtualKey - 'A'), after(XK_A, virtualKey - 'A')};
    if (virtualKey >= '0' && virtualKey <= '9')
        return {after(XK_0, virtualKey - '0')};
    if (virtualKey >= 96 && virtualKey <= 105)
        return {after(XK_KP_0, virtualKey - 96)};
    if (virtualKey >= 112 && virtualKey <= 135)
        return {after(XK_F1, virtualKey - 112)};
    const auto entry = std::find_if(std::begin(kEntries), std::end(kEntries), [=](const Entry &candidate) {
        return candidate.virtualKey == virtualKey;
    });
    if (entry == std::end(kEntries))
        return {};
    if (entry->alternative == 0)
        return {entry->symbol};
    return {entry->symbol, entry->alternative};
}

} // namespace norvane
