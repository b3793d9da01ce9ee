#include "OpenMenu.h"

#include "controls/ImageList.h"

#include <QImage>
#include <QPainter>

using namespace norvane;
using namespace Qt::StringLiterals;

namespace {

/// Looks at the menu's picture by pixels.
class MenuPainting : public OpenMenu
{
protected:
    MenuPainting()
    {
        QPixmap green(16, 16);
        green.fill(Qt::green);
        images = std::make_unique<IconList>(QVector<QIcon>{QIcon(green)});
        menu->setImageList(images.get());
    }
    void shown(const std::function<void(MenuWindow *)> &act = {})
    {
        showAnd([&](MenuWindow *window) {
            if (act)
                act(window);
            picture = window->grab().toImage();
            rects.clear();
            for (int row = 0; row < window->rowCount(); ++row)
                rects.append(window->rowRect(row));
            palette = window->palette();
        });
    }
    QColor at(int row, int x, int y) const
    {
        const QRect &rect = rects.at(row);
        return picture.pixelColor(rect.left() + (x < 0 ? rect.width() + x : x),
                                  rect.top() + (y < 0 ? rect.height() + y : y));
    }
    QRgb rgb(int row, int x, int y) const { return at(row, x, y).rgb(); }
    QRgb role(QPalette::ColorRole role, QPalette::ColorGroup group = QPalette::Active) const
    {
        return palette.color(group, role).rgb();
    }
    /// How many pixels of a row have a colour.
    int count(int row, QRgb color) const
    {
        int found = 0;
        for (int y = rects.at(row).top(); y <= rects.at(row).bottom(); ++y) {
            for (int x = rects.at(row).left(); x <= rects.at(row).right(); ++x)
                found += picture.pixel(x, y) == color ? 1 : 0;
        }
        return found;
    }
    int itemHeight() const { return menu->look().itemHeight; }

    std::unique_ptr<IconList> images;
    QImage picture;
    QVector<QRect> rects;
    QPalette palette;
};

TEST_F(MenuPainting, GreysWhatIsDisabledWithALightEdgeUnlessTheKeyboardIsThere)
{
    const QString solid(4, QChar(0x2588)); // blocks: there are whole pixels of the ink
    menu->setEnabled(add(solid), false);
    add(solid);
    shown();
    EXPECT_GT(count(0, role(QPalette::WindowText, QPalette::Disabled)), 10);
    EXPECT_EQ(count(0, role(QPalette::WindowText)), 0);
    EXPECT_GT(count(0, role(QPalette::Light)), 10);
    EXPECT_GT(count(1, role(QPalette::WindowText)), 10);
    EXPECT_EQ(count(1, role(QPalette::Light)), 0);

    const auto colors = [&] {
        QSet<QRgb> found;
        for (int y = rects[0].top(); y <= rects[0].bottom(); ++y) {
            for (int x = rects[0].left(); x <= rects[0].right(); ++x)
                found.insert(picture.pixel(x, y));
        }
        return found;
    };
    shown([](MenuWindow *window) { window->highlight(0); });
    const auto byPointer = colors();
    shown([](MenuWindow *window) { QTest::keyClick(window, Qt::Key_Down); });
    EXPECT_LT(colors().size(), byPointer.size()) << "no edge";
}

TEST_F(MenuPainting, LetsTheHostMeasureAndDraw)
{
    menu->setOwnerDraw(add(u"mine"_s), true);
    menu->setEnabled(1, false);
    menu->setChecked(1, true);
    menu->setOwnerDraw(add(u"-"_s), true);
    add(u"theirs"_s);
    QVector<int> measured;
    QObject::connect(menu.get(), &NVPopupMenu::MeasureItem, [&](int index, int &width, int &height) {
        measured.append(index);
        width += 300;
        height = 40;
    });
    bool goesOn = false;
    QVector<QRect> places;
    QString flags;
    QObject::connect(menu.get(), &NVPopupMenu::DrawItem,
                     [&](QPainter *painter, int index, int left, int top, int right, int bottom,
                         bool isSelected, bool isChecked, bool isDisabled, bool &doesDefault) {
                         if (index != 1)
                             return;
                         const QRect rect(QPoint(left, top), QPoint(right - 1, bottom - 1));
                         places.append(rect);
                         painter->fillRect(rect, Qt::magenta);
                         flags = QStringLiteral("%1%2%3").arg(isSelected).arg(isChecked).arg(isDisabled);
                         doesDefault = goesOn;
                     });
    shown([](MenuWindow *window) { window->highlight(0); });
    EXPECT_EQ(measured, QVector<int>{1}) << "separators are not asked for";
    EXPECT_EQ(menu->MenuItemHeight(1), 40);
    EXPECT_EQ(menu->MenuItemWidth(1), menu->MenuItemWidth(3) + 300);
    EXPECT_EQ(places.constLast(), rects.at(0));
    EXPECT_EQ(rects.at(0).height(), 40);
    EXPECT_EQ(flags, u"111");
    EXPECT_EQ(count(0, qRgb(255, 0, 255)), rects.at(0).width() * 40);
    goesOn = true;
    shown();
    EXPECT_EQ(count(0, qRgb(255, 0, 255)), 0);
}

TEST_F(MenuPainting, FollowsTheDesktopsFontAndColours)
{
    add(u"item"_s);
    add(u"-h"_s);
    const QFont font = QApplication::font();
    const QPalette colors = QApplication::palette();
    const int height = itemHeight();
    menu->CreateSubClass();
    showAnd([&](MenuWindow *window) {
        const int width = window->width();
        QFont large = font;
        large.setPixelSize(40);
        QApplication::setFont(large);
        EXPECT_TRUE(QTest::qWaitFor([&] { return window->rowRect(0).height() > height; }));
        EXPECT_EQ(itemHeight(), menu->metrics().textHeight() + 6);
        EXPECT_GT(window->width(), width);
        QPalette dark(Qt::black);
        QApplication::setPalette(dark);
        EXPECT_TRUE(QTest::qWaitFor([&] {
            return window->grab().toImage().pixel(window->rowRect(0).topLeft()) ==
                   dark.window().color().rgb();
        }));
    });
    QApplication::setFont(font);
    QApplication::setPalette(colors);
    QCoreApplication::processEvents();
    EXPECT_EQ(itemHeight(), height) << "the owner was told";
    EXPECT_TRUE(menu->metrics().BoldenedFontHandle().bold());
    EXPECT_LT(menu->metrics().SmallerFontHandle().pointSizeF(), menu->metrics().FontHandle(2).pointSizeF());
}

} // namespace
