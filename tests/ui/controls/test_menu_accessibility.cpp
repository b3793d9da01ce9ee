#include "OpenMenu.h"

#include <QAccessible>

using namespace norvane;
using namespace Qt::StringLiterals;

namespace {

class MenuAccessibility : public OpenMenu
{
protected:
    MenuAccessibility()
    {
        menu->AddItem(u"&Save\tCtrl+S"_s, u"Writes the note"_s);
        menu->setDefault(1, true);
        add(u"-"_s);
        add(u"-Colours"_s);
        add(u"A && &B"_s);
        menu->GroupToggle(4);
        menu->setEnabled(add(u"Grey"_s), false);
        add(u"More"_s);
        add(u"Inner"_s, 6);
    }
};

TEST_F(MenuAccessibility, TellsWhatTheRowsAre)
{
    showAnd([&](MenuWindow *window) {
        QAccessibleInterface *whole = QAccessible::queryAccessibleInterface(window);
        ASSERT_TRUE(whole);
        EXPECT_EQ(whole->role(), QAccessible::PopupMenu);
        EXPECT_FALSE(whole->text(QAccessible::Name).isEmpty());
        ASSERT_EQ(whole->childCount(), 6);
        EXPECT_EQ(whole->child(6), nullptr);
        EXPECT_EQ(whole->child(-1), nullptr);
        const auto row = [&](int index) { return whole->child(index); };
        EXPECT_EQ(row(0)->text(QAccessible::Name), u"Save");
        EXPECT_EQ(row(0)->text(QAccessible::Description), u"Writes the note");
        EXPECT_EQ(row(0)->text(QAccessible::Accelerator), u"Ctrl+S");
        EXPECT_EQ(row(0)->role(), QAccessible::MenuItem);
        EXPECT_TRUE(row(0)->state().defaultButton);
        EXPECT_FALSE(row(0)->state().checkable);
        EXPECT_EQ(row(1)->role(), QAccessible::Separator);
        EXPECT_EQ(row(2)->role(), QAccessible::StaticText);
        EXPECT_EQ(row(2)->text(QAccessible::Name), u"Colours");
        EXPECT_EQ(row(3)->text(QAccessible::Name), u"A & B");
        EXPECT_TRUE(row(3)->state().checked);
        EXPECT_TRUE(row(4)->state().disabled);
        EXPECT_TRUE(row(4)->actionInterface()->actionNames().isEmpty());
        EXPECT_TRUE(row(5)->state().hasPopup);
        EXPECT_EQ(row(3)->actionInterface()->keyBindingsForAction({}), QStringList{u"B"_s});

        const QRect rect = row(4)->rect();
        EXPECT_EQ(whole->indexOfChild(whole->childAt(rect.center().x(), rect.center().y())), 4);
        EXPECT_EQ(row(4)->parent(), whole);

        press({Qt::Key_Down, Qt::Key_Down});
        EXPECT_TRUE(row(3)->state().focused);
        EXPECT_EQ(whole->focusChild(), row(3));
    });
}

TEST_F(MenuAccessibility, OpensAndChooses)
{
    const int chosen = showAnd([&](MenuWindow *window) {
        QAccessibleInterface *whole = QAccessible::queryAccessibleInterface(window);
        QAccessibleInterface *more = whole->child(5);
        more->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
        ASSERT_TRUE(QTest::qWaitFor([&] { return window->childWindow() != nullptr; }));
        EXPECT_TRUE(more->state().expanded);
        ASSERT_EQ(more->childCount(), 1);
        QAccessibleInterface *inner = more->child(0);
        EXPECT_EQ(inner->text(QAccessible::Name), u"More");
        EXPECT_EQ(inner->parent(), more);
        inner->child(0)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        EXPECT_TRUE(QTest::qWaitFor([&] { return !menu->isOpen() || !firstWindow(); }));
    });
    EXPECT_EQ(chosen, 7);
}

} // namespace
