#pragma once

#include "options/settings/OptionsHost.h"

#include <QStringList>

namespace norvane::fakes {

/// A program around the Options window that keeps what it was told, a word each.
class FakeOptionsHost final : public OptionsHost
{
public:
    /// @param told takes the words; must outlive the host
    explicit FakeOptionsHost(QStringList &told) : m_told(told) {}

    WindowHandle hotKeyOwner() const override { return 7; }
    void databaseChanged() override { m_told.append(QStringLiteral("database")); }
    void Refresh_tbCAT() override { m_told.append(QStringLiteral("categories")); }
    void setShowCategoryBar(bool shown) override
    {
        m_told.append(shown ? QStringLiteral("bar") : QStringLiteral("no bar"));
    }
    void hotKeysRegistered(const QVector<HotKeyId> &refused) override
    {
        m_told.append(QStringLiteral("keys, %1 refused").arg(refused.size()));
    }

private:
    QStringList &m_told;
};

} // namespace norvane::fakes
