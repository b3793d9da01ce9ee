#include "FakeTrayHost.h"
#include "shell/windows/TrayIcon.h"

#include <QMenu>
#include <QSignalSpy>
#include <QSystemTrayIcon>
#include <QTest>
#include <gtest/gtest.h>

using namespace norvane;
using Kind = TrayHost::Kind;

namespace {

class Tray : public testing::Test
{
protected:
    void showOn(Kind kind)
    {
        host = std::make_unique<fakes::FakeTrayHost>(kind);
        icon = std::make_unique<TrayIcon>(*host);
        icon->setMenuSource([this] {
            ++builds;
            return trayMenu(keys, {QStringLiteral("mnu_ControlPanel"), QStringLiteral("mnu_exit")}, pages);
        });
        icon->show();
    }
    /// What a host does before it shows a menu.
    static void open(QMenu *menu) { emit menu->aboutToShow(); }
    QAction *item(const char *name) const
    {
        for (QAction *action : icon->menu()->actions()) {
            if (action->objectName() == QLatin1String(name))
                return action;
        }
        return nullptr;
    }
    static QStringList texts(const QMenu *menu)
    {
        QStringList result;
        for (const QAction *action : menu->actions()) {
            if (action->isVisible())
                result.append(action->isSeparator() ? QStringLiteral("-") : action->text());
        }
        return result;
    }

    int builds = 0;
    TrayHotKeyTexts keys{QStringLiteral("Ctrl+Alt+W"), QStringLiteral("Ctrl+Alt+L"),
                         QStringLiteral("Ctrl+Alt+S")};
    QVector<OpenPageEntry> pages{{7, QStringLiteral("Fish & Chips")}, {9, QStringLiteral("a\tb\nc")}};
    std::unique_ptr<fakes::FakeTrayHost> host;
    std::unique_ptr<TrayIcon> icon;
};

} // namespace

TEST_F(Tray, BuildsItsMenuWhenItOpens)
{
    showOn(Kind::Clicks);
    keys.Main = QStringLiteral("Ctrl+Alt+B");
    open(icon->menu());
    EXPECT_EQ(texts(icon->menu()),
              QStringList({QStringLiteral("Open Page"), QStringLiteral("-"),
                           QStringLiteral("Norvane Manager\tCtrl+Alt+B"), QStringLiteral("-"),
                           QStringLiteral("Search\tCtrl+Alt+S"), QStringLiteral("Task List\tCtrl+Alt+L"),
                           QStringLiteral("-"), QStringLiteral("Options..."), QStringLiteral("-"),
                           QStringLiteral("Exit")}));
    EXPECT_EQ(icon->menu()->defaultAction(), item("mnu_ControlPanel"));
    EXPECT_TRUE(item("mnu_exit")->isEnabled());
    EXPECT_FALSE(item("mnu_Search")->isEnabled());
}

TEST_F(Tray, FillsOpenPageWhenThatOpens)
{
    showOn(Kind::Clicks);
    open(icon->menu());
    QMenu *sub = item("mnu_Open")->menu();
    EXPECT_TRUE(sub->actions().isEmpty());
    open(sub);
    EXPECT_EQ(texts(sub), QStringList({QStringLiteral("Fish && Chips"), QStringLiteral("a b c")}));

    QSignalSpy chosen(icon.get(), &TrayIcon::pageTriggered);
    sub->actions().constLast()->trigger();
    ASSERT_EQ(chosen.size(), 1);
    EXPECT_EQ(chosen[0][0].toInt(), 9);

    pages.clear();
    open(icon->menu());
    EXPECT_FALSE(item("mnu_Open")->isEnabled());
}

TEST_F(Tray, TellsWhichCommandWasChosen)
{
    showOn(Kind::Clicks);
    QSignalSpy commands(icon.get(), &TrayIcon::commandTriggered);
    item("mnu_exit")->trigger();
    ASSERT_EQ(commands.size(), 1);
    EXPECT_EQ(commands[0][0].toString(), QStringLiteral("mnu_exit"));
}

TEST_F(Tray, KeepsTheCopyOfAHostThatShowsTheMenuItself)
{
    showOn(Kind::Activates);
    EXPECT_TRUE(QTest::qWaitFor([this] { return builds >= 1; }));
    EXPECT_EQ(item("mnu_Open")->menu()->actions().size(), 3);
    const int before = builds;
    pages.append({11, QStringLiteral("Third")});
    icon->noteChange();
    icon->noteChange();
    EXPECT_TRUE(QTest::qWaitFor([this] { return item("mnu_Open")->menu()->actions().size() == 4; }));
    EXPECT_LE(builds, before + 2);
}

TEST_F(Tray, WaitsForItsHost)
{
    showOn(Kind::None);
    EXPECT_EQ(icon->menu(), nullptr);
    EXPECT_FALSE(icon->isShown());
    host->start(Kind::Clicks);
    EXPECT_NE(icon->menu(), nullptr);
    EXPECT_TRUE(icon->isShown());

    showOn(Kind::None);
    icon->hide();
    host->start(Kind::Clicks);
    EXPECT_FALSE(icon->isShown()) << "the program was on its way out";
}

TEST_F(Tray, TogglesAtADoubleClickOrAtTheActivationOfAHostWithoutOne)
{
    const auto activate = [this](QSystemTrayIcon::ActivationReason reason) {
        emit icon->findChild<QSystemTrayIcon *>()->activated(reason);
    };
    showOn(Kind::Clicks);
    {
        QSignalSpy toggles(icon.get(), &TrayIcon::activated);
        activate(QSystemTrayIcon::Trigger);
        EXPECT_EQ(toggles.size(), 0);
        activate(QSystemTrayIcon::DoubleClick);
        EXPECT_EQ(toggles.size(), 1);
    }
    showOn(Kind::Activates);
    QSignalSpy toggles(icon.get(), &TrayIcon::activated);
    activate(QSystemTrayIcon::Trigger);
    activate(QSystemTrayIcon::Trigger);
    EXPECT_EQ(toggles.size(), 1) << "a double click there is one wish";
    activate(QSystemTrayIcon::Context);
    EXPECT_EQ(toggles.size(), 1);
}
