#include "controls/menuview/MenuAccessible.h"

#include "controls/menu/MenuItem.h"
#include "controls/menu/caption_markers.h"
#include "controls/menuview/MenuWindow.h"

#include <QAccessibleWidget>
#include <QHash>
#include <QPointer>

namespace norvane {

namespace {

/// A row of a menu. Nothing in it is kept: it asks the window.
class MenuRowAccessible : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    MenuRowAccessible(MenuWindow *window, int row) : m_window(window), m_row(row) {}

    bool isValid() const override { return item() != nullptr; }
    QObject *object() const override { return nullptr; }
    QWindow *window() const override { return m_window ? m_window->windowHandle() : nullptr; }
    QAccessibleInterface *parent() const override
    {
        return m_window ? QAccessible::queryAccessibleInterface(m_window.data()) : nullptr;
    }

    // Its one child is the sub menu while that is open.
    int childCount() const override { return subMenu() ? 1 : 0; }
    QAccessibleInterface *child(int index) const override
    {
        return index == 0 && subMenu() ? QAccessible::queryAccessibleInterface(subMenu()) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        return subMenu() && child && child->object() == subMenu() ? 0 : -1;
    }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }

    QString text(QAccessible::Text kind) const override
    {
        const MenuItem *shown = item();
        if (!shown)
            return {};
        switch (kind) {
        case QAccessible::Name:
            return shown->isSeparator() ? QString() : shownText(shown->displayCaption).text;
        case QAccessible::Description:
        case QAccessible::Help:
            return shown->helpText;
        case QAccessible::Accelerator:
            return shown->shortcutText;
        default:
            return {};
        }
    }
    void setText(QAccessible::Text, const QString &) override {}

    QRect rect() const override
    {
        if (!m_window)
            return {};
        const QRect place = m_window->rowRect(m_row);
        return {m_window->mapToGlobal(place.topLeft()), place.size()};
    }

    QAccessible::Role role() const override
    {
        const MenuItem *shown = item();
        if (shown && shown->isSeparator())
            return QAccessible::Separator;
        return shown && shown->isPassive() ? QAccessible::StaticText : QAccessible::MenuItem;
    }

    QAccessible::State state() const override
    {
        QAccessible::State state;
        const MenuItem *shown = item();
        if (!shown) {
            state.invalid = true;
            return state;
        }
        const bool isCurrent = m_window->currentRow() == m_row;
        state.offscreen = !m_window->rect().intersects(m_window->rowRect(m_row));
        if (shown->isPassive())
            return state;
        state.disabled = !shown->Enabled;
        state.focusable = state.selectable = true;
        state.focused = state.selected = state.hotTracked = isCurrent;
        state.checkable = shown->Checked || shown->RadioCheck;
        state.checked = shown->Checked;
        state.defaultButton = shown->Default;
        state.hasPopup = shown->hasSubMenu();
        state.expandable = shown->hasSubMenu();
        state.expanded = subMenu() != nullptr;
        return state;
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ActionInterface)
            return static_cast<QAccessibleActionInterface *>(this);
        return nullptr;
    }

    QStringList actionNames() const override
    {
        const MenuItem *shown = item();
        if (!shown || shown->isPassive() || !shown->Enabled)
            return {};
        return {shown->hasSubMenu() ? showMenuAction() : pressAction(), setFocusAction()};
    }
    void doAction(const QString &name) override
    {
        if (!actionNames().contains(name))
            return;
        // The caller waits for an answer while a choice may open a dialog.
        const bool activates = name != setFocusAction();
        QMetaObject::invokeMethod(
            m_window,
            [window = m_window, row = m_row, activates] {
                if (window && activates)
                    window->activate(row);
                else if (window)
                    window->highlight(row);
            },
            Qt::QueuedConnection);
    }
    QStringList keyBindingsForAction(const QString &) const override
    {
        const MenuItem *shown = item();
        return shown && !shown->accessKey.isEmpty() ? QStringList{shown->accessKey} : QStringList();
    }

private:
    const MenuItem *item() const { return m_window ? m_window->itemOf(m_row) : nullptr; }
    MenuWindow *subMenu() const
    {
        return m_window && m_window->childRow() == m_row ? m_window->childWindow() : nullptr;
    }

    QPointer<MenuWindow> m_window;
    int m_row;
};

class MenuWindowAccessible : public QAccessibleWidget
{
public:
    explicit MenuWindowAccessible(MenuWindow *window) : QAccessibleWidget(window, QAccessible::PopupMenu) {}

    int childCount() const override { return menu()->rowCount(); }
    QAccessibleInterface *child(int row) const override
    {
        if (row < 0 || row >= childCount())
            return nullptr;
        auto found = m_rows.constFind(row);
        if (found == m_rows.constEnd())
            found = m_rows.insert(
                row, QAccessible::registerAccessibleInterface(new MenuRowAccessible(menu(), row)));
        return QAccessible::accessibleInterface(*found);
    }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        for (auto row = m_rows.cbegin(); row != m_rows.cend(); ++row) {
            if (QAccessible::accessibleInterface(*row) == child)
                return row.key();
        }
        return -1;
    }
    QAccessibleInterface *childAt(int x, int y) const override
    {
        return child(menu()->rowAt(menu()->mapFromGlobal(QPoint(x, y))));
    }
    QAccessibleInterface *focusChild() const override { return child(menu()->currentRow()); }
    QAccessibleInterface *parent() const override
    {
        MenuWindow *parentMenu = menu()->parentMenu();
        if (!parentMenu || parentMenu->childRow() < 0)
            return QAccessibleWidget::parent();
        return QAccessible::queryAccessibleInterface(parentMenu)->child(parentMenu->childRow());
    }
    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.active = menu()->isVisible();
        return state;
    }

protected:
    ~MenuWindowAccessible() override
    {
        for (const QAccessible::Id id : std::as_const(m_rows))
            QAccessible::deleteAccessibleInterface(id);
    }

private:
    MenuWindow *menu() const { return static_cast<MenuWindow *>(widget()); }

    mutable QHash<int, QAccessible::Id> m_rows; ///< those that somebody asked for
};

QAccessibleInterface *makeMenuAccessible(const QString &, QObject *object)
{
    auto *window = qobject_cast<MenuWindow *>(object);
    return window ? new MenuWindowAccessible(window) : nullptr;
}

} // namespace

void installMenuAccessibility()
{
    QAccessible::installFactory(makeMenuAccessible);
}

} // namespace norvane
