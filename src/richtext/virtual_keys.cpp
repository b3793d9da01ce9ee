#include "richtext/virtual_keys.h"

#include <QKeyEvent>

namespace norvane {
namespace {

struct NamedKey
{
    int key;
    int code;
};

constexpr NamedKey kNamedKeys[] = {
    {Qt::Key_Backspace, 8}, {Qt::Key_Tab, 9},          {Qt::Key_Backtab, 9},  {Qt::Key_Return, 13},
    {Qt::Key_Enter, 13},    {Qt::Key_Shift, 16},       {Qt::Key_Control, 17}, {Qt::Key_Alt, 18},
    {Qt::Key_Pause, 19},    {Qt::Key_CapsLock, 20},    {Qt::Key_Escape, 27},  {Qt::Key_Space, 32},
    {Qt::Key_PageUp, 33},   {Qt::Key_PageDown, 34},    {Qt::Key_End, 35},     {Qt::Key_Home, 36},
    {Qt::Key_Left, 37},     {Qt::Key_Up, 38},          {Qt::Key_Right, 39},   {Qt::Key_Down, 40},
    {Qt::Key_Print, 44},    {Qt::Key_Insert, 45},      {Qt::Key_Delete, 46},  {Qt::Key_Menu, 93},
    {Qt::Key_NumLock, 144}, {Qt::Key_ScrollLock, 145},
};

} // namespace

int virtualKeyCode(const QKeyEvent &event)
{
    const int key = event.key();
    if ((key >= Qt::Key_0 && key <= Qt::Key_9) || (key >= Qt::Key_A && key <= Qt::Key_Z))
        return key; // letters and digits have their own codes
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24)
        return 112 + key - Qt::Key_F1;
    for (const NamedKey &named : kNamedKeys) {
        if (named.key == key)
            return named.code;
    }
    return 0;
}

int shiftState(Qt::KeyboardModifiers modifiers)
{
    return (modifiers & Qt::ShiftModifier ? 1 : 0) | (modifiers & Qt::ControlModifier ? 2 : 0) |
           (modifiers & Qt::AltModifier ? 4 : 0);
}

int buttonNumber(Qt::MouseButtons buttons)
{
    return (buttons & Qt::LeftButton ? 1 : 0) | (buttons & Qt::RightButton ? 2 : 0) |
           (buttons & Qt::MiddleButton ? 4 : 0);
}

} // namespace norvane
