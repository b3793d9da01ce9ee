#include "shell/windows/child_list.h"

#include <QAction>
#include <QActionGroup>
#include <QFontMetrics>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>

namespace norvane {

namespace {

constexpr int kWidestInCharacters = 60;
constexpr int kNumberedEntries = 9;

QString entryText(const QMdiSubWindow &window, int number, const QMenu &menu)
{
    QString text = window.windowTitle();
    if (const QString which = window.widget()->accessibleDescription(); !which.isEmpty())
        text += QStringLiteral(" - ") + which;
    const QFontMetrics font = menu.fontMetrics();
    text = font.elidedText(text.simplified(), Qt::ElideRight, kWidestInCharacters * font.averageCharWidth());
    text.replace(u'&', QStringLiteral("&&"));
    return number <= kNumberedEntries ? QStringLiteral("&%1 %2").arg(number).arg(text) : text;
}

void bringUp(QMdiArea &area, QMdiSubWindow &window)
{
    if (window.isMinimized())
        window.showNormal();
    area.setActiveSubWindow(&window);
    window.widget()->setFocus();
}

void listChildren(QMenu &menu, QMdiArea &area, const QList<QAction *> &former)
{
    qDeleteAll(former);
    QActionGroup *entries = nullptr;
    int number = 0;
    for (QMdiSubWindow *window : area.subWindowList(QMdiArea::CreationOrder)) {
        if (window->isHidden() || !window->widget())
            continue;
        if (!entries)
            entries = new QActionGroup(menu.addSeparator());
        QAction *entry = menu.addAction(entryText(*window, ++number, menu));
        entry->setCheckable(true);
        entries->addAction(entry);
        entry->setChecked(window == area.activeSubWindow());
        QObject::connect(entry, &QAction::triggered, window, [&area, window] { bringUp(area, *window); });
    }
}

} // namespace

void listChildrenIn(QMenu *menu, QMdiArea *area)
{
    const qsizetype own = menu->actions().size();
    QObject::connect(menu, &QMenu::aboutToShow, area,
                     [=] { listChildren(*menu, *area, menu->actions().mid(own)); });
}

} // namespace norvane
