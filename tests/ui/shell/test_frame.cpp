#include "fakes/FakeClock.h"
#include "fakes/MemorySettings.h"
#include "shell/windows/StatusPanel.h"
#include "shell/windows/mdiMain.h"
#include "shell/windows/mdi_arrange.h"

#include <QAction>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <gtest/gtest.h>

using namespace norvane;

namespace {

class Frame : public testing::Test
{
protected:
    ~Frame() override { delete frame; }

    QString setting(const char *key) const
    {
        return settings.get(QStringLiteral("Main"), QString::fromLatin1(key), QStringLiteral("none"));
    }
    QToolButton *button(const QString &key) const
    {
        return frame->findChild<QToolBar *>(QStringLiteral("Toolbar1"))->findChild<QToolButton *>(key);
    }

    FormList forms;
    fakes::MemorySettings settings;
    fakes::FakeClock clock;
    mdiMain *frame = new mdiMain(forms, settings, clock, Twips(96, 96));
};

} // namespace

TEST_F(Frame, OffersOnlyTheCommandsThatHaveWindows)
{
    QSignalSpy commands(frame, &mdiMain::commandTriggered);
    frame->restore();
    for (const char *key : {"NOTEBROWSER", "WINDOWLIST", "SETTINGS", "SEARCH", "RUN", "EXIT"}) {
        const QString name = QString::fromLatin1(key);
        const bool available = name == u"NOTEBROWSER" || name == u"EXIT";
        ASSERT_NE(button(name), nullptr) << key;
        EXPECT_EQ(button(name)->isEnabled(), available) << key;
        EXPECT_FALSE(button(name)->icon().isNull()) << key;
    }
    QTest::mouseClick(button(QStringLiteral("SEARCH")), Qt::LeftButton);
    EXPECT_TRUE(commands.isEmpty());

    frame->setCommandEnabled(QStringLiteral("SEARCH"), true);
    QTest::mouseClick(button(QStringLiteral("SEARCH")), Qt::LeftButton);
    ASSERT_EQ(commands.size(), 1);
    EXPECT_EQ(commands[0][0].toString(), QStringLiteral("SEARCH"));
}

TEST_F(Frame, ExitAndTheCloseButtonAskForTheShutDownAndLeaveTheFrameAlone)
{
    QSignalSpy shutDowns(frame, &mdiMain::shutDownRequested);
    frame->restore();
    QTest::mouseClick(button(QStringLiteral("EXIT")), Qt::LeftButton);
    EXPECT_EQ(shutDowns.size(), 1);
    EXPECT_FALSE(frame->close());
    EXPECT_EQ(shutDowns.size(), 2);
    EXPECT_TRUE(frame->isVisible());
    EXPECT_TRUE(forms.FormIsLoaded(QStringLiteral("mdimain")));

    frame->unload();
    EXPECT_FALSE(frame->isVisible());
    EXPECT_FALSE(forms.FormIsLoaded(QStringLiteral("mdiMain")));
}

TEST_F(Frame, TellsDateAndDatabaseInItsStatusBar)
{
    const auto panel = [this](const char *key) {
        return frame->findChild<StatusPanel *>(QString::fromLatin1(key))->panelText();
    };
    const QString today = QLocale().toString(QDate(2001, 2, 3), QLocale::LongFormat);
    EXPECT_EQ(panel("PNLDATE"), QStringLiteral("  ") + today + QStringLiteral("  "));
    frame->setDatabaseFolder(QStringLiteral("/home/me/Notes/"));
    EXPECT_EQ(panel("DBNAME"), QStringLiteral(" Database Path: /HOME/ME/NOTES/"));

    clock.advance(24 * 60 * 60);
    frame->restore();
    EXPECT_NE(panel("PNLDATE"), QStringLiteral("  ") + today + QStringLiteral("  "))
        << "a program that runs over midnight shows the new day";
}

TEST_F(Frame, SavesItsPlaceInTwipsAtEveryResizeButNotWhileHidden)
{
    frame->Move(1500, 750, 9000, 7500);
    EXPECT_TRUE(settings.values.isEmpty());
    frame->restore();
    EXPECT_EQ(QRect(frame->pos(), frame->size()), QRect(100, 50, 600, 500));
    frame->move(30, 40);
    frame->resize(640, 480);
    QCoreApplication::processEvents();
    EXPECT_EQ(setting("Top"), QStringLiteral("600"));
    EXPECT_EQ(setting("Left"), QStringLiteral("450"));
    EXPECT_EQ(setting("Width"), QStringLiteral("9600"));
    EXPECT_EQ(setting("Height"), QStringLiteral("7200"));

    frame->minimize();
    settings.values.clear();
    frame->resize(500, 400);
    QCoreApplication::processEvents();
    EXPECT_TRUE(settings.values.isEmpty());
}

TEST_F(Frame, IsInvisibleWhileMinimisedHoweverThatCameAbout)
{
    frame->restore();
    frame->minimize();
    EXPECT_FALSE(frame->isFrameVisible());
    frame->restore();
    EXPECT_TRUE(frame->isFrameVisible());

    settings.values.clear();
    frame->setWindowState(Qt::WindowMinimized); // as the window manager's button does it
    EXPECT_FALSE(frame->isFrameVisible());
    EXPECT_TRUE(settings.values.isEmpty());
    frame->restore();
    EXPECT_TRUE(frame->isFrameVisible());
    EXPECT_FALSE(frame->isMinimized());
}

TEST_F(Frame, ComesUpWithinReachOfTheScreen)
{
    const QRect room = frame->screen()->availableGeometry();
    frame->Move(15.0 * room.width(), 15.0 * room.height() * 3, 15.0 * room.width() * 2, 15.0 * 300);
    frame->restore();
    EXPECT_TRUE(QTest::qWaitFor([&] { return room.contains(frame->frameGeometry()); }))
        << frame->x() << ' ' << frame->y() << ' ' << frame->width() << ' ' << frame->height();
}

TEST_F(Frame, ArrangesItsVisibleChildren)
{
    frame->Move(0, 0, 9000, 7500);
    frame->restore();
    QMdiSubWindow *first = frame->addChild(new QWidget);
    QMdiSubWindow *second = frame->addChild(new QWidget);
    QMdiSubWindow *hidden = frame->addChild(new QWidget);
    first->show();
    second->show();
    hidden->hide();
    hidden->setGeometry(3, 4, 50, 60);
    const QRect room = frame->findChild<QMdiArea *>()->viewport()->rect();
    const auto choose = [this](const char *name) {
        frame->findChild<QAction *>(QString::fromLatin1(name))->trigger();
    };
    choose("menu_Window_Tile_H");
    EXPECT_EQ(first->geometry() | second->geometry(), room);
    EXPECT_EQ(second->y(), first->height());
    EXPECT_EQ(first->width(), room.width());
    choose("menu_Window_Tile_V");
    EXPECT_EQ(first->geometry() | second->geometry(), room);
    EXPECT_EQ(second->x(), first->width());
    EXPECT_EQ(hidden->geometry(), QRect(3, 4, 50, 60));

    first->showMinimized();
    first->move(50, 50);
    choose("menu_Window_Arrange_Icons");
    EXPECT_EQ(first->geometry().bottomLeft(), room.bottomLeft());
}

TEST(ChildTiles, ShareTheRoomWithoutGapOrOverlap)
{
    const QRect room(5, 7, 100, 50);
    for (int count = 1; count <= 7; ++count) {
        QRegion rows;
        QRegion columns;
        for (const QRect &rect : tileRows(room, count)) {
            EXPECT_FALSE(rows.intersects(rect));
            rows += rect;
        }
        for (const QRect &rect : tileColumns(room, count)) {
            EXPECT_FALSE(columns.intersects(rect));
            columns += rect;
        }
        EXPECT_EQ(rows, QRegion(room));
        EXPECT_EQ(columns, QRegion(room));
    }
    EXPECT_TRUE(tileRows(room, 0).isEmpty());
}
