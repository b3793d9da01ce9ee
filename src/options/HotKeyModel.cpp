#include "options/HotKeyModel.h"

#include "options/hot_key_text.h"
#include "platform/HotKeys.h"

namespace norvane {

HotKeyModel::HotKeyModel(HotKeys &hotKeys) : m_hotKeys(hotKeys) {}

QString HotKeyModel::text(HotKeyId id) const
{
    const HotKeyRecord &record = records[id];
    return HotKeyName(record.key, SwapModifiers(record.modifiers).value_or(0));
}

bool HotKeyModel::RegHotKey(WindowHandle hWnd, int Modifiers, int Key)
{
    ++m_count;
    return m_hotKeys.registerHotKey(hWnd, m_count, Modifiers, Key);
}

void HotKeyModel::registerAll(WindowHandle hWnd)
{
    for (const HotKeyDescription &description : HotKeyRecords::descriptions())
        RegHotKey(hWnd, records[description.id].modifiers, records[description.id].key);
}

void HotKeyModel::UnregisterHotKeys(WindowHandle hWnd)
{
    for (int id = 1; id <= m_count; ++id)
        m_hotKeys.unregisterHotKey(hWnd, id);
    m_count = 0;
}

} // namespace norvane
