#include "options/settings/hot_key_choice.h"

#include "options/HotKeyModel.h"
#include "options/hot_key_text.h"

#include <QCoreApplication>
#include <QStringList>

namespace norvane {

namespace {

constexpr int kShift = 1;
constexpr int kCtrl = 2;
constexpr int kAlt = 4;

enum Key { kBackspace = 8, kTab = 9, kReturn = 13, kEscape = 27, kDelete = 46 };

QString text(const char *source)
{
    return QCoreApplication::translate("HotKeyBox", source);
}

/// Keys that neither type nor move anything: one of them alone may be a hot key.
bool standsAlone(int key)
{
    constexpr int kPause = 19;
    constexpr int kPrint = 44;
    constexpr int kF1 = 112;
    constexpr int kF16 = 127;
    constexpr int kScrollLock = 145;
    constexpr int kFirstMedia = 166;
    constexpr int kLastMedia = 183;
    return key == kPause || key == kPrint || key == kScrollLock || (key >= kF1 && key <= kF16) ||
           (key >= kFirstMedia && key <= kLastMedia);
}

} // namespace

QString refusalOf(int key, int modifiers, bool isOther)
{
    if (isOther)
        return text("Only with Ctrl, Shift and Alt");
    if (modifiers == (kShift | kCtrl | kAlt))
        return text("Not with all three of Ctrl, Shift and Alt");
    if (key == 0)
        return text("Not with this key");
    if ((modifiers & (kCtrl | kAlt)) == 0 && !standsAlone(key))
        return text("Hold Ctrl or Alt as well");
    return {};
}

HotKeyPress meaningOf(int key, int modifiers, bool isOther)
{
    if (!isOther && modifiers == 0 && (key == kBackspace || key == kDelete))
        return HotKeyPress::Clear;
    if (!isOther && ((key == kTab && (modifiers & ~kShift) == 0) ||
                     (modifiers == 0 && (key == kReturn || key == kEscape))))
        return HotKeyPress::Leave;
    return refusalOf(key, modifiers, isOther).isEmpty() ? HotKeyPress::Take : HotKeyPress::Refuse;
}

HotKeyRecord recordOf(int key, int modifiers)
{
    return {SwapModifiers(modifiers).value_or(0), key};
}

QString remarkOn(HotKeyId id, const HotKeyRecords &chosen, HotKeyModel &hotKeys, WindowHandle owner)
{
    const HotKeyRecord &record = chosen[id];
    if (record.key == 0)
        return {};
    for (const HotKeyDescription &other : HotKeyRecords::descriptions()) {
        if (other.id != id && chosen[other.id] == record)
            return text("The same as \"%1\"").arg(other.caption.chopped(1));
    }
    return hotKeys.isFree(owner, record) ? QString() : text("Another program has it");
}

QString refusedNotice(const QVector<HotKeyId> &refused, const HotKeyModel &hotKeys)
{
    QStringList names;
    for (const HotKeyId id : refused)
        names.append(hotKeys.text(id));
    return names.isEmpty() ? QString() : text("Taken already, so without effect: %1.").arg(names.join(u", "));
}

} // namespace norvane
