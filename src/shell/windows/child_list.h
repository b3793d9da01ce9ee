#pragma once

class QMdiArea;
class QMenu;

namespace norvane {

/// Lets @p menu end, each time it is opened, with the windows in @p area: the active one is checked, and
/// an entry brings its window up. A window's accessible description tells it from others of its title.
void listChildrenIn(QMenu *menu, QMdiArea *area);

} // namespace norvane
