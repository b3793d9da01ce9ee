#include "sticky/frmStickyFactory.h"

#include "sticky/frmSticky.h"

namespace norvane {

StickyNote *frmStickyFactory::create()
{
    return new frmSticky(m_services);
}

} // namespace norvane
