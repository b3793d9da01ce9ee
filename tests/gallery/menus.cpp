// Pictures for looking at: the shapes of a popup menu.

#include "controls/menuview/MenuWindow.h"
#include "controls/menuview/NVPopupMenu.h"
#include "controls/menuview/menu_images.h"
#include "looks.h"
#include "sticky/note_menu.h"

#include <QApplication>
#include <QPainter>
#include <QTimer>
#include <cstdio>
#include <functional>

using namespace norvane;

namespace {

constexpr int kBorder = 12;
/// The same in every picture, so that the sub menu of "Import/Export" finds room.
constexpr QPoint kCorner(40, 40);

/// A menu with all that its windows show.
QPixmap pictureOf(MenuWindow &first)
{
    QRect all = first.geometry();
    for (MenuWindow *window = first.childWindow(); window; window = window->childWindow())
        all |= window->geometry();
    all.adjust(-kBorder, -kBorder, kBorder, kBorder);
    const double ratio = first.devicePixelRatioF();
    QPixmap picture(all.size() * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(QColor(90, 120, 110));
    QPainter painter(&picture);
    for (MenuWindow *window = &first; window; window = window->childWindow())
        painter.drawPixmap(window->geometry().topLeft() - all.topLeft(), window->grab());
    return picture;
}

class Gallery
{
public:
    explicit Gallery(QString folder) : m_folder(std::move(folder))
    {
        m_owner.resize(200, 100);
        m_owner.show();
    }

    bool run()
    {
        noteMenu();
        headers(MenuHeaderStyle::Line, QStringLiteral("line"));
        headers(MenuHeaderStyle::Caption, QStringLiteral("caption"));
        columns();
        return m_ok;
    }

private:
    void prepare(NVPopupMenu &menu)
    {
        menu.setHwndOwner(&m_owner);
        menu.setImageList(&m_images);
    }

    /// Opens the menu, lets something be done with it, and keeps a picture.
    void shoot(NVPopupMenu &menu, const QString &name, const std::function<void(MenuWindow &)> &prepare)
    {
        QTimer::singleShot(0, &menu, [&] {
            auto *window = qobject_cast<MenuWindow *>(QApplication::activePopupWidget());
            if (window) {
                prepare(*window);
                QCoreApplication::processEvents();
            }
            const QString file = m_folder + u'/' + name + QStringLiteral(".png");
            m_ok = window && pictureOf(*window).save(file) && m_ok;
            std::printf("%s\n", qPrintable(file));
            menu.closePopup();
        });
        menu.ShowPopupAbsolute(kCorner.x(), kCorner.y());
    }

    void noteMenu()
    {
        NVPopupMenu menu;
        prepare(menu);
        fillNoteMenu(menu, QStringLiteral("Ctrl+Alt+D"));
        const int save = menu.IndexForKey(note_menu::kSave);
        shoot(menu, QStringLiteral("note"), [](MenuWindow &window) { window.highlight(2); });
        menu.setEnabled(save, true);
        menu.setGradientHighlight(true);
        shoot(menu, QStringLiteral("note-gradient"), [](MenuWindow &window) { window.highlight(2); });
        shoot(menu, QStringLiteral("note-sub"), [](MenuWindow &window) {
            window.activate(8);
            if (MenuWindow *sub = window.childWindow())
                sub->highlight(0);
        });
    }

    void headers(MenuHeaderStyle style, const QString &name)
    {
        NVPopupMenu menu;
        prepare(menu);
        menu.setHeaderStyle(style);
        menu.AddItem(QStringLiteral("-View"));
        const QStringList views{QStringLiteral("&Large icons"), QStringLiteral("&Small icons"),
                                QStringLiteral("&List")};
        int last = 0;
        for (const QString &view : views) {
            last = menu.AddItem(view);
            menu.setRadioCheck(last, true);
        }
        menu.GroupToggle(last);
        menu.AddItem(QStringLiteral("-Options"));
        menu.AddItem(QStringLiteral("&Tool bar\tCtrl+T"), {}, 0, 0, -1, true);
        menu.AddItem(QStringLiteral("&Status bar\tF12"), {}, 0, 0, -1, true, false);
        menu.AddItem(QStringLiteral("With an icon"), {}, 0, 0, kImagePrint, true);
        menu.AddItem(QStringLiteral("&Greyed\tDel"), {}, 0, 0, kImageDelete, false, false);
        menu.AddItem(QStringLiteral("A caption wider than the others, and longer"));
        shoot(menu, QStringLiteral("headers-") + name, [](MenuWindow &window) { window.highlight(5); });
        QPixmap tile(32, 32);
        tile.fill(QApplication::palette().color(QPalette::AlternateBase));
        QPainter painter(&tile);
        painter.setPen(QApplication::palette().color(QPalette::Midlight));
        painter.drawLine(0, 31, 31, 0);
        painter.end();
        menu.setBackgroundPicture(tile);
        shoot(menu, QStringLiteral("background-") + name, [](MenuWindow &window) { window.highlight(7); });
    }

    void columns()
    {
        NVPopupMenu menu;
        prepare(menu);
        for (int i = 0; i < 30; ++i) {
            const QString mark = i == 10 ? QStringLiteral("|") : i == 20 ? QStringLiteral("^") : QString();
            menu.AddItem(mark + QStringLiteral("Entry number %1").arg(i), {}, 0, 0, i % 4 == 0 ? i % 16 : -1);
        }
        shoot(menu, QStringLiteral("columns"), [](MenuWindow &window) { window.highlight(14); });
        menu.Clear();
        for (int i = 0; i < 200; ++i)
            menu.AddItem(QStringLiteral("Entry number %1").arg(i));
        shoot(menu, QStringLiteral("long"), [](MenuWindow &window) { window.highlight(60); });
    }

    QString m_folder;
    QWidget m_owner;
    IconList m_images{sharedMenuImages()};
    bool m_ok = true;
};

} // namespace

int main(int argc, char **argv)
{
    return norvane::gallery::takePictures(argc, argv, QStringLiteral("menus"),
                                          [](const QString &folder) { return Gallery(folder).run(); });
}
