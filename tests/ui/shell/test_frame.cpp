#include "fakes/FakeClock.h"
#include "fakes/MemorySettings.h"
#include "shell/windows/StatusPanel.h"
#include "shell/windows/mdiMain.h"
#include "ui/drop_on.h"

#include <QAction>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <QUrl>
#include <gtest/gtest.h>

using namespace norvane;
using namespace norvane::tests;
using namespace Qt::StringLiterals;

namespace {

class Frame : public testing::Test
{
protected:
    ~Frame() override { delete frame; }

    QToolButton *button(const QString &key) const
    {
        return frame->findChild<QToolBar *>(u"Toolbar1"_s)->findChild<QToolButton *>(key);
    }
    void choose(const QString &item) { frame->findChild<QAction *>(item)->trigger(); }

    FormList forms;
    fakes::MemorySettings settings;
    fakes::FakeClock clock;
    mdiMain *frame = new mdiMain(forms, settings, clock, Twips(96, 96));
};

TEST_F(Frame, OffersItsCommands)
{
    QSignalSpy commands(frame, &mdiMain::commandTriggered);
    frame->restore();
    for (const QString &key :
         {u"NOTEBROWSER"_s, u"WINDOWLIST"_s, u"SETTINGS"_s, u"SEARCH"_s, u"RUN"_s, u"EXIT"_s}) {
        ASSERT_NE(button(key), nullptr) << key.toStdString();
        EXPECT_TRUE(button(key)->isEnabled()) << key.toStdString();
        EXPECT_FALSE(button(key)->icon().isNull()) << key.toStdString();
    }
    QTest::mouseClick(button(u"SEARCH"_s), Qt::LeftButton);
    ASSERT_EQ(commands.size(), 1);
    EXPECT_EQ(commands[0][0], u"SEARCH"_s);
}

TEST_F(Frame, TakesDropsOnWhatTakesNoneItself)
{
    QSignalSpy dropped(frame, &mdiMain::dropped);
    frame->restore();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(u"/in/one.txt"_s), QUrl(u"https://example.org"_s)});
    dropOn(*frame->findChild<QMdiArea *>()->viewport(), data);
    dropOn(*button(u"EXIT"_s), data);
    EXPECT_TRUE(dropped.isEmpty()) << "not while the other program waits";
    QCoreApplication::processEvents();
    ASSERT_EQ(dropped.size(), 2);
    EXPECT_EQ(dropped[1], (QVariantList{QStringList{u"/in/one.txt"_s}, QString()}));
}

TEST_F(Frame, ExitAndTheCloseButtonAskForTheShutDownAndLeaveTheFrameAlone)
{
    QSignalSpy shutDowns(frame, &mdiMain::shutDownRequested);
    frame->restore();
    QTest::mouseClick(button(u"EXIT"_s), Qt::LeftButton);
    EXPECT_FALSE(frame->close());
    EXPECT_EQ(shutDowns.size(), 2);
    EXPECT_TRUE(frame->isVisible());
    EXPECT_TRUE(forms.FormIsLoaded(u"mdimain"_s));
    frame->unload();
    EXPECT_FALSE(frame->isVisible());
    EXPECT_FALSE(forms.FormIsLoaded(u"mdiMain"_s));
}

TEST_F(Frame, TellsDateAndDatabaseInItsStatusBar)
{
    const auto panel = [this](const QString &key) {
        return frame->findChild<StatusPanel *>(key)->panelText();
    };
    const QString today = u"  %1  "_s.arg(QLocale().toString(QDate(2001, 2, 3), QLocale::LongFormat));
    EXPECT_EQ(panel(u"PNLDATE"_s), today);
    frame->setDatabaseFolder(u"/home/me/Notes/"_s);
    EXPECT_EQ(panel(u"DBNAME"_s), u" Database Path: /HOME/ME/NOTES/");
    clock.advance(24 * 60 * 60);
    frame->restore();
    EXPECT_NE(panel(u"PNLDATE"_s), today) << "a program that runs over midnight shows the new day";
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
    const QMap<QString, QString> place = {
        {u"Top"_s, u"600"_s}, {u"Left"_s, u"450"_s}, {u"Width"_s, u"9600"_s}, {u"Height"_s, u"7200"_s}};
    EXPECT_EQ(settings.values[u"Main"_s], place);

    frame->minimize();
    EXPECT_FALSE(frame->isFrameVisible());
    frame->resize(500, 400);
    QCoreApplication::processEvents();
    EXPECT_EQ(settings.values[u"Main"_s], place);

    frame->restore();
    settings.values.clear();
    frame->setWindowState(Qt::WindowMinimized); // as the window manager's button does it
    EXPECT_FALSE(frame->isFrameVisible());
    EXPECT_TRUE(settings.values.isEmpty());
    frame->restore();
    EXPECT_TRUE(frame->isFrameVisible() && !frame->isMinimized());
}

TEST_F(Frame, ComesUpWithinReachOfTheScreenAndSavesThatPlace)
{
    const QRect room = frame->screen()->availableGeometry();
    frame->Move(15.0 * room.width(), 15.0 * room.height() * 3, 15.0 * room.width() * 2, 15.0 * 300);
    frame->restore();
    EXPECT_TRUE(QTest::qWaitFor([&] { return room.contains(frame->frameGeometry()); }))
        << frame->x() << ' ' << frame->y() << ' ' << frame->width() << ' ' << frame->height();
    EXPECT_EQ(settings.get(u"Main"_s, u"Top"_s, {}), QString::number(15 * frame->y()));
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
    choose(u"menu_Window_Tile_H"_s);
    EXPECT_EQ(first->geometry() | second->geometry(), room);
    EXPECT_EQ(second->y(), first->height());
    choose(u"menu_Window_Tile_V"_s);
    EXPECT_EQ(first->geometry() | second->geometry(), room);
    EXPECT_EQ(second->x(), first->width());
    EXPECT_EQ(hidden->geometry(), QRect(3, 4, 50, 60));

    first->showMinimized();
    first->move(50, 50);
    choose(u"menu_Window_Arrange_Icons"_s);
    EXPECT_EQ(first->geometry().bottomLeft(), room.bottomLeft());
}

TEST_F(Frame, ListsItsVisibleChildrenInTheWindowMenu)
{
    frame->restore();
    QVector<QMdiSubWindow *> windows;
    for (const QString &title : {u"Browser"_s, u"Editor"_s, u"Editor"_s, u"Hidden"_s}) {
        windows.append(frame->addChild(new QWidget));
        windows.last()->widget()->setWindowTitle(title);
        windows.last()->setVisible(title != u"Hidden"_s);
    }
    windows[1]->widget()->setAccessibleDescription(u"Salt & pepper"_s);
    windows[1]->showMinimized();
    frame->findChild<QMdiArea *>()->setActiveSubWindow(windows[2]);
    auto *menu = frame->findChild<QMenu *>(u"menu_Window"_s);
    const qsizetype own = menu->actions().size();
    const auto listed = [&] {
        emit menu->aboutToShow();
        QStringList entries;
        for (const QAction *entry : menu->actions().mid(own))
            entries.append(entry->isChecked() ? entry->text() + u'*' : entry->text());
        return entries.join(u'|');
    };
    EXPECT_EQ(listed(), u"|&1 Browser|&2 Editor - Salt && pepper|&3 Editor*"_s);
    menu->actions().at(own + 2)->trigger();
    EXPECT_FALSE(windows[1]->isMinimized());
    EXPECT_EQ(listed(), u"|&1 Browser|&2 Editor - Salt && pepper*|&3 Editor"_s) << "once each";
}

} // namespace
