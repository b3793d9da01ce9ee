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

QVector<HotKeyId> HotKeyModel::registerAll(WindowHandle hWnd)
{
    QVector<HotKeyId> refused;
    for (const HotKeyDescription &description : HotKeyRecords::descriptions()) {
        const HotKeyRecord &record = records[description.id];
        if (!RegHotKey(hWnd, record.modifiers, record.key) && record.key != 0)
            refused.append(description.id);
    }
    return refused;
}

bool HotKeyModel::isFree(WindowHandle hWnd, const HotKeyRecord &record)
{
    const int id = m_count + 1;
    if (!m_hotKeys.registerHotKey(hWnd, id, record.modifiers, record.key))
        return false;
    m_hotKeys.unregisterHotKey(hWnd, id);
    return true;
}

int HotKeyModel::keyOf(quint32 scanCode)
{
    return m_hotKeys.keyOf(scanCode);
}

void HotKeyModel::UnregisterHotKeys(WindowHandle hWnd)
{
    for (int id = 1; id <= m_count; ++id)
        m_hotKeys.unregisterHotKey(hWnd, id);
    m_count = 0;
}

} // namespace norvane
