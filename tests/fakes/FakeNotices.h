#pragma once

#include "watcher/Notices.h"

#include <QStringList>

namespace norvane::fakes {

/// Keeps what was shown.
class FakeNotices : public Notices
{
public:
    QStringList shown;

    void showStandingText() override { shown.append(QStringLiteral("standing text")); }
    void show(const QString &text) override { shown.append(text); }
    void showModal(const QString &text) override { shown.append(QStringLiteral("modal: ") + text); }
};

} // namespace norvane::fakes
