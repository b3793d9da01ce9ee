#include "platform/x11/hotkeys/KeyboardMap.h"

#include "platform/x11/hotkeys/xcb_pointer.h"

#include <X11/keysym.h>
#include <utility>

namespace norvane {

std::optional<KeyboardMap> KeyboardMap::read(xcb_connection_t *connection)
{
    const xcb_setup_t *setup = xcb_get_setup(connection);
    const int keyCount = setup->max_keycode - setup->min_keycode + 1;
    const auto symbolsCookie =
        xcb_get_keyboard_mapping(connection, setup->min_keycode, static_cast<uint8_t>(keyCount));
    const auto modifiersCookie = xcb_get_modifier_mapping(connection);
    const XcbPointer<xcb_get_keyboard_mapping_reply_t> symbols(
        xcb_get_keyboard_mapping_reply(connection, symbolsCookie, nullptr));
    const XcbPointer<xcb_get_modifier_mapping_reply_t> modifiers(
        xcb_get_modifier_mapping_reply(connection, modifiersCookie, nullptr));
    if (!symbols || !modifiers)
        return std::nullopt;

    KeyboardMap map;
    map.m_firstKey = setup->min_keycode;
    map.m_columns = symbols->keysyms_per_keycode;
    const xcb_keysym_t *symbolList = xcb_get_keyboard_mapping_keysyms(symbols.get());
    map.m_symbols = QVector<xcb_keysym_t>(
        symbolList, symbolList + xcb_get_keyboard_mapping_keysyms_length(symbols.get()));
    const xcb_keycode_t *keyList = xcb_get_modifier_mapping_keycodes(modifiers.get());
    map.readModifiers(
        QVector<xcb_keycode_t>(keyList, keyList + xcb_get_modifier_mapping_keycodes_length(modifiers.get())),
        modifiers->keycodes_per_modifier);
    return map;
}

void KeyboardMap::readModifiers(const QVector<xcb_keycode_t> &keys, int keysPerModifier)
{
    constexpr uint16_t kShiftLockAndControl = XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_LOCK | XCB_MOD_MASK_CONTROL;
    uint16_t alt = 0;
    uint16_t numLock = 0;
    uint16_t scrollLock = 0;
    for (qsizetype i = 0; i < keys.size(); ++i) {
        if (keys[i] == 0)
            continue;
        const auto mask = static_cast<uint16_t>(1U << (i / keysPerModifier));
        for (int column = 0; column < m_columns; ++column) {
            const xcb_keysym_t held = symbol(keys[i], column);
            if ((held == XK_Alt_L || held == XK_Alt_R) && alt == 0)
                alt = mask;
            else if (held == XK_Num_Lock)
                numLock = mask;
            else if (held == XK_Scroll_Lock)
                scrollLock = mask;
        }
    }
    if (alt != 0)
        m_altMask = alt;
    QVector<uint16_t> locks{XCB_MOD_MASK_LOCK};
    for (const uint16_t mask : {numLock, scrollLock}) {
        const bool isFree = (mask & (kShiftLockAndControl | m_altMask)) == 0 && !locks.contains(mask);
        if (mask != 0 && isFree)
            locks.append(mask);
    }
    m_lockCombinations = {0};
    for (const uint16_t lock : std::as_const(locks)) {
        const QVector<uint16_t> without = m_lockCombinations;
        for (const uint16_t combination : without)
            m_lockCombinations.append(combination | lock);
    }
}

xcb_keysym_t KeyboardMap::symbol(xcb_keycode_t key, int column) const
{
    return m_symbols.value(qsizetype(key - m_firstKey) * m_columns + column, XCB_NO_SYMBOL);
}

QVector<int> KeyboardMap::columnsFor(xcb_keysym_t wanted) const
{
    // The first two groups stand in columns 0, 1 and 2, 3; further levels and groups follow. The
    // characters of the keypad are on the level of Num Lock; below it a layout may have them on
    // keys that few keyboards have.
    const bool isOnKeypad = wanted >= XK_KP_Multiply && wanted <= XK_KP_9;
    QVector<int> columns = isOnKeypad ? QVector<int>{1, 3, 0, 2} : QVector<int>{0, 2, 1, 3};
    for (int column = 4; column < m_columns; ++column)
        columns.append(column);
    columns.removeIf([this](int column) { return column >= m_columns; });
    return columns;
}

xcb_keycode_t KeyboardMap::keyOf(const QVector<xcb_keysym_t> &symbols) const
{
    for (const xcb_keysym_t wanted : symbols) {
        const QVector<int> columns = columnsFor(wanted);
        for (const int column : columns) {
            for (qsizetype at = column; at < m_symbols.size(); at += m_columns) {
                if (m_symbols[at] == wanted)
                    return static_cast<xcb_keycode_t>(m_firstKey + at / m_columns);
            }
        }
    }
    return 0;
}

} // namespace norvane
