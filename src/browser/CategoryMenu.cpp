#include "browser/CategoryMenu.h"

#include "browser/category_tabs.h"

#include <QActionGroup>
#include <QCoreApplication>
#include <QHash>
#include <QMenu>
#include <QPointer>

namespace norvane {

namespace {

QString text(const char *source)
{
    return QCoreApplication::translate("frmMain", source);
}

/// A menu with what its entries do.
class PopUp
{
public:
    PopUp(QWidget *owner, const QString &name) : m_menu(new QMenu(owner)) { m_menu->setObjectName(name); }
    PopUp(const PopUp &) = delete;
    PopUp &operator=(const PopUp &) = delete;
    ~PopUp() { delete m_menu.data(); }

    QMenu &menu() { return *m_menu; }
    QAction *add(QMenu &menu, const QString &name, const QString &caption,
                 const std::function<void()> &command)
    {
        QAction *entry = menu.addAction(caption);
        entry->setObjectName(name);
        m_commands.insert(entry, command);
        return entry;
    }
    /// Nothing when none was chosen, or the menu has gone with its owner.
    std::function<void()> choose(const QPoint &screenPosition)
    {
        const QAction *chosen = m_menu->exec(screenPosition);
        return m_menu && chosen ? m_commands.value(chosen) : nullptr;
    }

private:
    QPointer<QMenu> m_menu;
    QHash<const QAction *, std::function<void()>> m_commands;
};

void addCategories(PopUp &popUp, QMenu &menu, const QString &name, const CategoryMenu::State &state,
                   const std::function<void(int)> &select)
{
    auto *marks = new QActionGroup(&menu);
    const auto add = [&](const QString &caption, int filter) {
        QAction *entry = popUp.add(menu, name, caption, [select, filter] { select(filter); });
        entry->setData(QString::number(filter));
        entry->setCheckable(true);
        entry->setChecked(filter == state.filter);
        marks->addAction(entry);
    };
    add(text("(All Categories)"), 0);
    add(text("(No Category)"), -1);
    for (const Category &category : state.categories)
        add(captionOfName(category.Name), category.ID);
}

} // namespace

void CategoryMenu::showAll(QWidget *owner, const QPoint &screenPosition, const State &state) const
{
    std::function<void()> command;
    {
        PopUp popUp(owner, QStringLiteral("CATPOPUP"));
        QMenu &menu = popUp.menu();
        addCategories(popUp, *menu.addMenu(text("Select")), QStringLiteral("CATPOPUP_SELECT_SUB"), state,
                      select);
        menu.addSeparator();
        QMenu &adding = *menu.addMenu(text("Add Category"));
        popUp.add(adding, QStringLiteral("CATPOPUP_ADD"), text("Select From List"), addFromList);
        popUp.add(adding, QStringLiteral("CATPOPUP_NEW"), text("Add New"), addNew);
        menu.addSeparator();
        const bool isCategory = state.filter > 0;
        popUp
            .add(menu, QStringLiteral("CATPOPUP_DELETE"),
                 isCategory ? text("Remove '%1'").arg(state.filterCaption) : text("Remove"), remove)
            ->setEnabled(isCategory);
        menu.addSeparator();
        popUp.add(menu, QStringLiteral("CATPOPUP_WINDOW"), text("Categories..."), showWindow);
        menu.addSeparator();
        QMenu &view = *menu.addMenu(text("View"));
        for (const bool areButtons : {false, true}) {
            QAction *style = popUp.add(view,
                                       areButtons ? QStringLiteral("CATPOPUP_VIEW_STYLE_BUTTONS")
                                                  : QStringLiteral("CATPOPUP_VIEW_STYLE_TABS"),
                                       areButtons ? text("Buttons") : text("Tabs"), changeStyle);
            style->setCheckable(true);
            style->setChecked(areButtons == state.areButtons);
        }
        menu.addSeparator();
        popUp.add(menu, QStringLiteral("CATPOPUP_CANCEL"), text("Cancel"), {});
        command = popUp.choose(screenPosition);
    }
    if (command)
        command();
}

void CategoryMenu::showSelect(QWidget *owner, const QPoint &screenPosition, const State &state) const
{
    std::function<void()> command;
    {
        PopUp popUp(owner, QStringLiteral("CATPOPUP2"));
        addCategories(popUp, popUp.menu(), QStringLiteral("CATPOPUP_SELECT_SUB2"), state, select);
        command = popUp.choose(screenPosition);
    }
    if (command)
        command();
}

} // namespace norvane
