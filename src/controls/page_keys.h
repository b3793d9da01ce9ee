#pragma once

class QTabWidget;
class QWidget;

namespace norvane {

/// Lets Ctrl+Tab and Ctrl+Shift+Tab turn the pages from everywhere in @p window. By itself the toolkit has
/// them only where the control with the keyboard is on a page and leaves them alone.
void turnPagesByKeys(QTabWidget *pages, QWidget *window);

} // namespace norvane
