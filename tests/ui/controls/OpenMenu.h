#pragma once

#include "controls/menuview/MenuWindow.h"
#include "controls/menuview/NVPopupMenu.h"

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>

namespace norvane {

/// A menu of an owner on the screen, and what it told, one word for each event.
class OpenMenu : public testing::Test
{
protected:
    OpenMenu()
    {
        QCursor::setPos(5, 5);
        owner->setGeometry(50, 60, 300, 200);
        owner->show();
        menu->setHwndOwner(owner.get());
        const auto note = [this](const char *event, int item) {
            told.append(QLatin1StringView(event) + QString::number(item));
        };
        QObject::connect(menu.get(), &NVPopupMenu::Click, [=](int item) { note("click", item); });
        QObject::connect(menu.get(), &NVPopupMenu::ItemHighlight,
                         [=](int item, bool separator, bool enabled) {
                             note(separator ? "look" : enabled ? "light" : "grey", item);
                         });
        QObject::connect(menu.get(), &NVPopupMenu::MenuExit, [=] { note("exit", 0); });
        QObject::connect(menu.get(), &NVPopupMenu::InitPopupMenu, [=](int parent) { note("init", parent); });
        QObject::connect(menu.get(), &NVPopupMenu::EnterMenuLoop, [=] { note("enter", 0); });
        QObject::connect(menu.get(), &NVPopupMenu::ExitMenuLoop, [=] { note("leave", 0); });
    }

    /// Shows the menu at a place of the screen, acts on its first window and closes what is still open.
    int showAnd(const std::function<void(MenuWindow *)> &act)
    {
        whenOpen(act);
        return menu->ShowPopupAbsolute(100, 100);
    }
    void whenOpen(const std::function<void(MenuWindow *)> &act)
    {
        QTimer::singleShot(0, owner.get(), [this, act] {
            const QPointer<MenuWindow> window = firstWindow();
            if (!window) {
                ADD_FAILURE() << "no menu is open";
                return;
            }
            act(window);
            if (window)
                window->closeAll();
        });
    }
    static MenuWindow *firstWindow()
    {
        auto *window = qobject_cast<MenuWindow *>(QApplication::activePopupWidget());
        while (window && window->parentMenu())
            window = window->parentMenu();
        return window;
    }
    /// Keys go to the window that opened last, as the window system has it.
    static void press(const QVector<Qt::Key> &keys)
    {
        for (const Qt::Key key : keys) {
            if (QWidget *window = QApplication::activePopupWidget())
                QTest::keyClick(window, key);
        }
    }
    static QPoint middle(const MenuWindow *window, int row)
    {
        return window->mapToGlobal(window->rowRect(row).center());
    }
    /// The mouse, too.
    static void point(QPoint screenPoint)
    {
        if (QWidget *window = QApplication::activePopupWidget())
            QTest::mouseMove(window, window->mapFromGlobal(screenPoint));
    }
    static void click(QPoint screenPoint)
    {
        if (QWidget *window = QApplication::activePopupWidget())
            QTest::mouseClick(window, Qt::LeftButton, {}, window->mapFromGlobal(screenPoint));
    }
    int add(const QString &caption, int parent = 0) { return menu->AddItem(caption, {}, 0, parent); }

    QStringList told;
    std::unique_ptr<QWidget> owner = std::make_unique<QWidget>();
    std::unique_ptr<NVPopupMenu> menu = std::make_unique<NVPopupMenu>();
};

} // namespace norvane
