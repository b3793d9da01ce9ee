#include "OpenMenu.h"

#include <QSignalSpy>
#include <QWheelEvent>

using namespace norvane;
using namespace Qt::StringLiterals;

namespace {

/// 1 &One, 2 -, 3 -Header, 4 &Two (disabled), 5 &Sub > 6 &First > 7 &Deep, 8 T&wo
class MenuInput : public OpenMenu
{
protected:
    MenuInput()
    {
        add(u"&One"_s);
        add(u"-"_s);
        add(u"-Header"_s);
        add(u"&Two"_s);
        menu->setEnabled(4, false);
        add(u"&Sub"_s);
        add(u"&First"_s, 5);
        add(u"&Deep"_s, 6);
        add(u"T&wo"_s);
    }
    int keys(const QVector<Qt::Key> &keys)
    {
        return showAnd([&](MenuWindow *) { press(keys); });
    }
    int highlighted(const QVector<Qt::Key> &keys)
    {
        int row = -2;
        showAnd([&](MenuWindow *window) {
            press(keys);
            row = window->currentRow();
        });
        return row;
    }
};

TEST_F(MenuInput, TellsWhatHappensInItsOrder)
{
    menu->CreateSubClass();
    EXPECT_EQ(keys({Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Right, Qt::Key_Right, Qt::Key_Return}),
              7);
    EXPECT_EQ(told.join(u' '),
              u"enter0 init0 light1 grey4 light5 init5 light6 init6 light7 exit0 leave0 click7");
    told.clear();
    EXPECT_EQ(keys({Qt::Key_Escape}), 0);
    EXPECT_EQ(told.join(u' '), u"enter0 init0 exit0 leave0");
    told.clear();
    menu->DestroySubClass();
    EXPECT_EQ(keys({Qt::Key_Down, Qt::Key_Enter}), 1);
    EXPECT_FALSE(told.contains(u"click1"_s));
}

TEST_F(MenuInput, WalksWithTheArrowsPastWhatIsOnlyLookedAt)
{
    EXPECT_EQ(highlighted({}), -1);
    EXPECT_EQ(highlighted({Qt::Key_Down, Qt::Key_Down}), 3) << "a disabled item can be reached";
    EXPECT_EQ(highlighted({Qt::Key_Up}), 5);
    EXPECT_EQ(highlighted({Qt::Key_Up, Qt::Key_Down}), 0) << "round the end";
    EXPECT_EQ(highlighted({Qt::Key_End, Qt::Key_Home}), 0);
    EXPECT_EQ(highlighted({Qt::Key_End, Qt::Key_PageUp}), 0);
    EXPECT_EQ(keys({Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}), 0) << "but not chosen";
}

TEST_F(MenuInput, ChoosesTheFirstItemOfAnAccessKey)
{
    EXPECT_EQ(keys({Qt::Key_O}), 1);
    EXPECT_EQ(keys({Qt::Key_W}), 8);
    EXPECT_EQ(keys({Qt::Key_T}), 0) << "disabled";
    EXPECT_EQ(keys({Qt::Key_S, Qt::Key_F, Qt::Key_D}), 7) << "each in its own menu";
    EXPECT_EQ(keys({Qt::Key_D}), 0);
    EXPECT_EQ(keys({Qt::Key_X, Qt::Key_O}), 1) << "a key of no item leaves the menu open";
    menu->InsertItem(1, u"F&ore"_s);
    EXPECT_EQ(keys({Qt::Key_O}), 1) << "two of a key: the first, at once";
}

TEST_F(MenuInput, OpensAndClosesSubMenusByKeys)
{
    showAnd([&](MenuWindow *window) {
        press({Qt::Key_S});
        ASSERT_TRUE(window->childWindow());
        EXPECT_EQ(window->childWindow()->currentRow(), 0);
        EXPECT_FALSE(window->childWindow()->geometry().contains(middle(window, 4)));
        press({Qt::Key_Right});
        ASSERT_TRUE(window->childWindow()->childWindow());
        press({Qt::Key_Left});
        EXPECT_FALSE(window->childWindow()->childWindow());
        press({Qt::Key_Escape});
        EXPECT_FALSE(window->childWindow());
        EXPECT_TRUE(window->isVisible());
        press({Qt::Key_Left});
        EXPECT_TRUE(window->isVisible());
        press({Qt::Key_S, Qt::Key_Alt});
        EXPECT_FALSE(window->isVisible());
    });
}

TEST_F(MenuInput, FollowsThePointer)
{
    int chosen = showAnd([&](MenuWindow *window) {
        point(middle(window, 0));
        point(middle(window, 1));
        point(middle(window, 3));
        click(middle(window, 3));
        EXPECT_TRUE(window->isVisible()) << "a disabled item takes no click";
        point(middle(window, 4));
        EXPECT_TRUE(QTest::qWaitFor([&] { return window->childWindow() != nullptr; }));
        MenuWindow *child = window->childWindow();
        point(middle(window, 5));
        EXPECT_EQ(window->currentRow(), 5);
        point(middle(child, 0));
        EXPECT_EQ(window->currentRow(), 4) << "the way to the open menu";
        EXPECT_EQ(child->currentRow(), 0);
        EXPECT_TRUE(QTest::qWaitFor([&] { return child->childWindow() != nullptr; }));
        point(window->mapToGlobal(QPoint(-40, -40)));
        EXPECT_EQ(child->currentRow(), 0) << "its sub menu is open";
        click(middle(child->childWindow(), 0));
    });
    EXPECT_EQ(chosen, 7);
    EXPECT_EQ(told.mid(2, 3).join(u' '), u"light1 look2 grey4");

    chosen = showAnd([&](MenuWindow *window) {
        point(middle(window, 4));
        EXPECT_TRUE(QTest::qWaitFor([&] { return window->childWindow() != nullptr; }));
        point(middle(window, 0));
        EXPECT_TRUE(QTest::qWaitFor([&] { return !window->childWindow(); })) << "another item is pointed to";
        point(window->mapToGlobal(QPoint(-40, -40)));
        EXPECT_EQ(window->currentRow(), -1);
        click(middle(window, 2));
        EXPECT_TRUE(window->isVisible()) << "a header takes no click";
        click(window->mapToGlobal(QPoint(-40, -40)));
        EXPECT_FALSE(window->isVisible());
    });
    EXPECT_EQ(chosen, 0);
}

TEST_F(MenuInput, ChoosesNothingByTheClickThatOpenedIt)
{
    EXPECT_EQ(showAnd([&](MenuWindow *window) {
                  // The button was pressed elsewhere, and nothing has moved since.
                  QTest::mouseRelease(window, Qt::RightButton, {}, window->mapFromGlobal(middle(window, 0)));
                  EXPECT_TRUE(window->isVisible());
              }),
              0);
}

TEST_F(MenuInput, IsPlacedInTwipsOfTheOwner)
{
    const auto placeOf = [&](double x, double y, const QRectF &exclude, bool keepLeft) {
        QRect place;
        whenOpen([&](MenuWindow *window) { place = window->geometry(); });
        menu->ShowPopupMenu(x, y, exclude, keepLeft);
        return place;
    };
    const double perPixel = 1440.0 / QGuiApplication::primaryScreen()->logicalDotsPerInchX();
    const QPoint corner = owner->mapToGlobal(QPoint(20, 30));
    EXPECT_EQ(placeOf(20 * perPixel, 30 * perPixel, {}, false).topLeft(), corner);
    EXPECT_EQ(placeOf(20 * perPixel, 30 * perPixel, {1, 1, 0, 0}, false).topLeft(), corner);
    const QRectF button(10 * perPixel, 20 * perPixel, 100 * perPixel, 40 * perPixel);
    EXPECT_EQ(placeOf(20 * perPixel, 30 * perPixel, button, false).top(),
              owner->mapToGlobal(QPoint(0, 60)).y());
    EXPECT_EQ(placeOf(20 * perPixel, 30 * perPixel, button, true).left(),
              owner->mapToGlobal(QPoint(110, 0)).x());

    whenOpen([&](MenuWindow *window) {
        EXPECT_EQ(window->rowCount(), 1);
        press({Qt::Key_Down, Qt::Key_Right, Qt::Key_Return});
    });
    EXPECT_EQ(menu->ShowPopupMenuAtIndex(0, 0, 5), 7);
    EXPECT_TRUE(told.contains(u"init5"_s));
    EXPECT_EQ(menu->ShowPopupMenuAtIndex(0, 0, 1), 0) << "no sub menu";
    EXPECT_EQ(menu->ShowPopupMenuAtIndex(0, 0, 99), 0);
}

class LongMenu : public OpenMenu
{
protected:
    LongMenu()
    {
        for (int i = 1; i <= 10'000; ++i)
            add(QStringLiteral("Entry %1").arg(i));
    }
};

TEST_F(LongMenu, StaysOnTheScreenAndScrolls)
{
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const int chosen = showAnd([&](MenuWindow *window) {
        EXPECT_TRUE(screen.contains(window->geometry()));
        const auto isShown = [&](int row) { return window->rect().contains(window->rowRect(row)); };
        press({Qt::Key_End});
        EXPECT_EQ(window->currentRow(), 9999);
        EXPECT_TRUE(isShown(9999));
        EXPECT_EQ(window->rowAt(window->rowRect(9999).center()), 9999);
        press({Qt::Key_Down});
        EXPECT_TRUE(isShown(0));
        press({Qt::Key_PageDown, Qt::Key_PageDown});
        EXPECT_GT(window->currentRow(), 40);
        EXPECT_TRUE(isShown(window->currentRow()));
        press({Qt::Key_Home});

        const QPointF middleOfIt = window->rect().center();
        QWheelEvent wheel(middleOfIt, window->mapToGlobal(middleOfIt), {}, {0, -120}, {}, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(window, &wheel);
        EXPECT_FALSE(isShown(0));
        EXPECT_TRUE(isShown(3));

        point(window->mapToGlobal(QPoint(window->width() / 2, window->height() - 8)));
        EXPECT_TRUE(QTest::qWaitFor([&] { return window->rowRect(20).bottom() < 0; }));
        point(window->mapToGlobal(QPoint(window->width() / 2, 8)));
        EXPECT_TRUE(QTest::qWaitFor([&] { return isShown(0); }));
        press({Qt::Key_End});
        click(middle(window, 9998));
    });
    EXPECT_EQ(chosen, 9999);
}

} // namespace
