#pragma once

#include "sticky/StickyServices.h"
#include "watcher/StickyFactory.h"

namespace norvane {

/// Makes `frmSticky` windows.
class frmStickyFactory : public StickyFactory
{
public:
    explicit frmStickyFactory(const StickyServices &services) : m_services(services) {}

    StickyNote *create() override;

private:
    StickyServices m_services;
};

} // namespace norvane
