#pragma once

#include "options/HotKeyRecords.h"
#include "platform/WindowHandle.h"

#include <QVector>

namespace norvane {

class HotKeys;

/// The six hot keys of the program and their registration with the system.
///
/// A hot key's id is its place in the order of registration, from 1; one that the system refuses
/// takes its id all the same, so that the ids of the others stay what they are.
class HotKeyModel
{
public:
    /// @p hotKeys must outlive the model.
    explicit HotKeyModel(HotKeys &hotKeys);

    HotKeyRecords records;

    /// The text of a hot key as it stands in the records: "Ctrl+Alt+W".
    QString text(HotKeyId id) const;

    /// Registers one combination under the next id.
    /// @param Modifiers 1 Alt, 2 Ctrl, 4 Shift
    /// @param Key       virtual key code
    /// @return what the system answered: false when the key cannot be had
    bool RegHotKey(WindowHandle hWnd, int Modifiers, int Key);
    /// Registers the six records, ids 1 to 6 if none is registered yet. A combination that cannot be
    /// had is dead without a word.
    /// @return those that could not be had; records without a key are none of them
    QVector<HotKeyId> registerAll(WindowHandle hWnd);
    /// Whether the system would give the combination now: it is registered and let go at once.
    bool isFree(WindowHandle hWnd, const HotKeyRecord &record);
    /// The virtual key code of a key of the keyboard, by the scan code of its events; 0 for one without.
    int keyOf(quint32 scanCode);
    /// Withdraws all; the next id is 1 again.
    void UnregisterHotKeys(WindowHandle hWnd);

private:
    HotKeys &m_hotKeys;
    int m_count = 0;
};

} // namespace norvane
