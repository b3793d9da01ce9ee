#include "options/HotKeyRecords.h"

#include "shell/numeric_prefix.h"
#include "shell/settings_keys.h"

namespace norvane {

namespace {

QString section()
{
    return settings::kHotKeysSection.toString();
}

QString modifiersKey(const HotKeyDescription &description)
{
    return description.name.toString() + QStringLiteral(".0");
}

QString keyCodeKey(const HotKeyDescription &description)
{
    return description.name.toString() + QStringLiteral(".1");
}

} // namespace

const std::array<HotKeyDescription, HotKeyRecords::kCount> &HotKeyRecords::descriptions()
{
    static constexpr int kCtrlAlt = 3;
    static constexpr std::array<HotKeyDescription, kCount> table{{
        {HotKeyId::Main, u"Main", u"Show Norvane Manager:", {kCtrlAlt, 'W'}},
        {HotKeyId::AttachDetachWindow,
         u"AttachDetachWindow",
         u"Select a window to attach/detach:",
         {kCtrlAlt, 'L'}},
        {HotKeyId::Attach, u"Attach", u"Attach note to current window:", {kCtrlAlt, 'A'}},
        {HotKeyId::Detach, u"Detach", u"Detach note from current window:", {kCtrlAlt, 'D'}},
        {HotKeyId::Search, u"Search", u"Open search window:", {kCtrlAlt, 'S'}},
        {HotKeyId::Delete, u"Delete", u"Delete Note:", {kCtrlAlt, 'X'}},
    }};
    return table;
}

HotKeyRecords::HotKeyRecords()
{
    for (const HotKeyDescription &description : descriptions())
        (*this)[description.id] = description.defaults;
}

void HotKeyRecords::load(const SettingsStore &settings)
{
    HotKeyRecords loaded;
    for (const HotKeyDescription &description : descriptions()) {
        const HotKeyRecord &defaults = description.defaults;
        loaded[description.id].modifiers = numericPrefixInt(
            settings.get(section(), modifiersKey(description), QString::number(defaults.modifiers)));
        loaded[description.id].key =
            numericPrefixInt(settings.get(section(), keyCodeKey(description), QString::number(defaults.key)));
    }
    *this = loaded;
}

void HotKeyRecords::save(SettingsStore &settings) const
{
    for (const HotKeyDescription &description : descriptions()) {
        const HotKeyRecord &record = (*this)[description.id];
        settings.save(section(), modifiersKey(description), QString::number(record.modifiers));
        settings.save(section(), keyCodeKey(description), QString::number(record.key));
    }
}

} // namespace norvane
