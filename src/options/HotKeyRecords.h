#pragma once

#include <QString>
#include <array>

namespace norvane {

class SettingsStore;

/// One hot key as it is stored.
struct HotKeyRecord
{
    int modifiers = 0; ///< 1 Alt, 2 Ctrl, 4 Shift
    int key = 0;       ///< virtual key code

    bool operator==(const HotKeyRecord &) const = default;
};

/// The six hot keys; the value is the id that registration gives to each.
enum class HotKeyId { Main = 1, AttachDetachWindow, Attach, Detach, Search, Delete };

/// What is fixed about a hot key.
struct HotKeyDescription
{
    HotKeyId id;
    QStringView name;    ///< in settings keys and, after "HKC_", of its box: "Attach"
    QStringView caption; ///< beside its box
    HotKeyRecord defaults;
};

/// The six hot key records, in the order in which they are stored, shown and registered.
class HotKeyRecords
{
public:
    static constexpr std::size_t kCount = 6;

    /// The defaults: Ctrl+Alt with W, L, A, D, S, X.
    HotKeyRecords();

    static const std::array<HotKeyDescription, kCount> &descriptions();

    HotKeyRecord &operator[](HotKeyId id) { return m_records[index(id)]; }
    const HotKeyRecord &operator[](HotKeyId id) const { return m_records[index(id)]; }

    /// Reads the twelve values of section "HotKeys"; what is missing there gets its default. Raises
    /// 6 when a number does not fit 32 bits; the records are then as they were.
    void load(const SettingsStore &settings);
    /// Writes the twelve values, Main first.
    void save(SettingsStore &settings) const;

    bool operator==(const HotKeyRecords &) const = default;

private:
    static std::size_t index(HotKeyId id) { return static_cast<std::size_t>(id) - 1; }

    std::array<HotKeyRecord, kCount> m_records;
};

} // namespace norvane
