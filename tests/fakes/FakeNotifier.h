#pragma once

#include "platform/Notifier.h"

#include <QStringList>

namespace norvane::fakes {

/// Keeps the notifications it is given; a desktop that has them, unless told otherwise.
class FakeNotifier : public Notifier
{
public:
    QStringList shown;
    bool available = true;

    void notify(const QString &, const QString &text, const std::function<void(bool)> &done) override
    {
        shown.append(text);
        done(available);
    }
};

} // namespace norvane::fakes
