#include "OpenMenu.h"

#include <QDialog>
#include <QPainter>

using namespace norvane;
using namespace Qt::StringLiterals;

namespace {

class MenuLifetime : public OpenMenu
{
protected:
    MenuLifetime()
    {
        add(u"One"_s);
        add(u"Sub"_s);
        add(u"Inner"_s, 2);
        add(u"Three"_s);
        menu->CreateSubClass();
    }
    static bool isGone() { return QApplication::activePopupWidget() == nullptr; }
};

TEST_F(MenuLifetime, LetsTheProgramGoOn)
{
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
    timer.start(1);
    EXPECT_EQ(showAnd([&](MenuWindow *) {
                  EXPECT_TRUE(menu->isOpen());
                  EXPECT_TRUE(QTest::qWaitFor([&] { return ticks > 20; }));
                  EXPECT_EQ(menu->ShowPopupAbsolute(0, 0), 0) << "it is open already";
                  press({Qt::Key_Down, Qt::Key_Return});
              }),
              1);
    EXPECT_FALSE(menu->isOpen());
}

TEST_F(MenuLifetime, ShowsNothingWithoutItemsOrOwner)
{
    NVPopupMenu other;
    EXPECT_EQ(other.ShowPopupAbsolute(0, 0), 0);
    other.AddItem(u"x"_s);
    EXPECT_EQ(other.ShowPopupAbsolute(0, 0), 0);
    EXPECT_EQ(other.ShowPopupMenu(0, 0), 0);
    QObject::connect(menu.get(), &NVPopupMenu::InitPopupMenu, [&] { menu->Clear(); });
    EXPECT_EQ(menu->ShowPopupAbsolute(0, 0), 0);
    EXPECT_TRUE(isGone());
}

TEST_F(MenuLifetime, EndsWithItsOwner)
{
    EXPECT_EQ(showAnd([&](MenuWindow *) {
                  press({Qt::Key_End, Qt::Key_Up, Qt::Key_Right});
                  owner.reset();
                  EXPECT_TRUE(isGone());
              }),
              0);
    EXPECT_EQ(told.constLast(), u"leave0");
    EXPECT_EQ(menu->ShowPopupAbsolute(0, 0), 0);
}

TEST_F(MenuLifetime, MayEndInAnyOfItsEvents)
{
    for (const int moment : {0, 1, 2, 3, 4, 5}) {
        auto *doomed = new NVPopupMenu;
        const QPointer<NVPopupMenu> guard(doomed);
        doomed->setHwndOwner(owner.get());
        doomed->setOwnerDraw(doomed->AddItem(u"Sub"_s), true);
        doomed->setOwnerDraw(doomed->AddItem(u"Inner"_s, {}, 0, 1), true);
        const auto end = [=](int now) {
            if (now == moment)
                delete guard.data();
        };
        QObject::connect(doomed, &NVPopupMenu::InitPopupMenu, [=](int parent) { end(parent); });
        QObject::connect(doomed, &NVPopupMenu::ItemHighlight, [=] { end(2); });
        QObject::connect(doomed, &NVPopupMenu::MeasureItem, [=](int index) { end(2 + index); });
        QObject::connect(doomed, &NVPopupMenu::DrawItem, [=] { end(5); });
        QTimer::singleShot(0, owner.get(), [&] {
            press({Qt::Key_Down, Qt::Key_Right});
            EXPECT_TRUE(QTest::qWaitFor([&] { return !guard; }));
        });
        EXPECT_EQ(doomed->ShowPopupAbsolute(100, 100), 0) << moment;
        EXPECT_TRUE(!guard) << moment;
        EXPECT_TRUE(isGone()) << moment;
        QCoreApplication::processEvents();
    }
}

TEST_F(MenuLifetime, EndsWhenItsOwnerIsHiddenOrADialogComes)
{
    EXPECT_EQ(showAnd([&](MenuWindow *) {
                  owner->hide();
                  EXPECT_TRUE(isGone());
              }),
              0);
    EXPECT_EQ(showAnd([&](MenuWindow *) {
                  QDialog dialog;
                  QTimer::singleShot(0, &dialog, [&] {
                      EXPECT_TRUE(isGone());
                      dialog.reject();
                  });
                  dialog.exec();
              }),
              0);
}

TEST_F(MenuLifetime, FollowsItsItems)
{
    EXPECT_EQ(showAnd([&](MenuWindow *window) {
                  press({Qt::Key_End});
                  menu->InsertItem(1, u"-A header that is much longer"_s);
                  menu->InsertItem(1, u"A caption that is much longer"_s);
                  const int before = window->width();
                  EXPECT_TRUE(QTest::qWaitFor([&] { return window->rowCount() == 5; }));
                  EXPECT_GT(window->width(), before);
                  EXPECT_EQ(window->currentRow(), 4) << "the same item";

                  press({Qt::Key_Up, Qt::Key_Right});
                  ASSERT_TRUE(window->childWindow());
                  EXPECT_EQ(window->childRow(), 3);
                  menu->RemoveItem(4);
                  EXPECT_TRUE(QTest::qWaitFor([&] { return !window->childWindow(); }));
                  press({Qt::Key_End});
                  menu->RemoveItem(2);
                  press({Qt::Key_Return});
              }),
              3);
    EXPECT_EQ(showAnd([&](MenuWindow *) {
                  menu->Clear();
                  EXPECT_TRUE(QTest::qWaitFor([] { return isGone(); }));
              }),
              0);
}

TEST_F(MenuLifetime, ShowsWhatItsOwnerFillsInAsItOpens)
{
    QObject::connect(menu.get(), &NVPopupMenu::InitPopupMenu, [&](int parent) {
        if (parent == 2) {
            menu->ClearSubMenusOfItem(2);
            menu->InsertItem(1, u"Before"_s);
            menu->AddItem(u"New"_s, {}, 0, 3);
        }
    });
    EXPECT_EQ(showAnd([&](MenuWindow *window) {
                  press({Qt::Key_Down, Qt::Key_Down, Qt::Key_Right});
                  ASSERT_TRUE(window->childWindow());
                  EXPECT_EQ(window->childRow(), 2);
                  press({Qt::Key_Return});
              }),
              5);
    EXPECT_EQ(menu->Caption(5), u"New");
}

} // namespace
