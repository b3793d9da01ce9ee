#pragma once

#include <QVector>
#include <optional>
#include <xcb/xcb.h>

namespace norvane {

/// The keyboard as the X server has it now: where a symbol is, and what the modifiers are.
class KeyboardMap
{
public:
    /// Asks the server (two requests, one wait). Nothing when the server does not answer.
    static std::optional<KeyboardMap> read(xcb_connection_t *connection);

    /// The key that gives one of the symbols, in whichever keyboard group; unshifted before
    /// shifted. 0 when no key does.
    xcb_keycode_t keyOf(const QVector<xcb_keysym_t> &symbols) const;

    uint16_t altMask() const { return m_altMask; }
    /// The modifiers of the lock keys, in every combination; the first is none of them.
    const QVector<uint16_t> &lockCombinations() const { return m_lockCombinations; }
    /// All lock modifiers together.
    uint16_t lockMask() const { return m_lockCombinations.constLast(); }

private:
    KeyboardMap() = default;

    void readModifiers(const QVector<xcb_keycode_t> &keys, int keysPerModifier);
    /// Where to look for a symbol, the likeliest place first.
    QVector<int> columnsFor(xcb_keysym_t wanted) const;
    xcb_keysym_t symbol(xcb_keycode_t key, int column) const;

    xcb_keycode_t m_firstKey = 0;
    int m_columns = 0; ///< symbols of each key
    QVector<xcb_keysym_t> m_symbols;
    uint16_t m_altMask = XCB_MOD_MASK_1;
    QVector<uint16_t> m_lockCombinations;
};

} // namespace norvane
