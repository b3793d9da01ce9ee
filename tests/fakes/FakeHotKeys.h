#pragma once

#include "platform/HotKeys.h"

#include <QMap>
#include <QSet>
#include <QStringList>
#include <utility>

namespace norvane::fakes {

/// A keyboard of the test's: combinations that others hold, and keys that are pressed by the test.
class FakeHotKeys : public HotKeys
{
public:
    using Owner = std::pair<WindowHandle, int>; ///< window and id
    using Combination = std::pair<int, int>;    ///< modifiers and virtual key code

    /// What is registered now.
    QMap<Owner, Combination> registered;
    /// Combinations that another program holds.
    QSet<Combination> taken;
    /// "register 1" and "unregister 1", in the order of the calls, failed ones too.
    QStringList calls;

    bool registerHotKey(WindowHandle owner, int id, int modifiers, int key) override
    {
        calls.append(QStringLiteral("register %1").arg(id));
        const Combination combination(modifiers, key);
        if (key == 0 || taken.contains(combination) || registered.values().contains(combination) ||
            registered.contains({owner, id}))
            return false;
        registered.insert({owner, id}, combination);
        return true;
    }

    bool unregisterHotKey(WindowHandle owner, int id) override
    {
        calls.append(QStringLiteral("unregister %1").arg(id));
        return registered.remove({owner, id}) > 0;
    }

    /// Keys of the keyboard, by their scan codes.
    QMap<quint32, int> keys;
    int keyOf(quint32 scanCode) override { return keys.value(scanCode); }

    /// @return false when nobody has registered the combination
    bool press(int modifiers, int key)
    {
        const Owner owner = registered.key({modifiers, key}, {kNoWindow, 0});
        if (owner.second == 0)
            return false;
        emit pressed(owner.first, owner.second);
        return true;
    }
};

} // namespace norvane::fakes
