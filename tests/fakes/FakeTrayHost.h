#pragma once

#include "platform/TrayHost.h"

namespace norvane::fakes {

/// A tray that a test starts.
class FakeTrayHost : public TrayHost
{
public:
    explicit FakeTrayHost(Kind kind = Kind::None) : m_kind(kind) {}

    Kind kind() const override { return m_kind; }

    void start(Kind kind)
    {
        m_kind = kind;
        emit appeared();
    }

private:
    Kind m_kind;
};

} // namespace norvane::fakes
