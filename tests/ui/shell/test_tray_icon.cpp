#include "fakes/FakeTrayHost.h"
#include "shell/windows/TrayIcon.h"

#include <QMenu>
#include <QSignalSpy>
#include <QSystemTrayIcon>
#include <QTest>
#include <gtest/gtest.h>

using namespace norvane;
using namespace Qt::StringLiterals;
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
            return trayMenu(keys, pages);
        });
        icon->show();
    }
    /// What a host does before it shows a menu.
    static void open(QMenu *menu) { emit menu->aboutToShow(); }
    QAction *item(const QString &name) const
    {
        for (QAction *action : icon->menu()->actions()) {
            if (action->objectName() == name)
                return action;
        }
        return nullptr;
    }
    /// The visible texts, one a line.
    static QString texts(const QMenu *menu)
    {
        QStringList result;
        for (const QAction *action : menu->actions()) {
            if (action->isVisible())
                result.append(action->isSeparator() ? u"-"_s : action->text());
        }
        return result.join(u'\n');
    }

    int builds = 0;
    TrayHotKeyTexts keys{u"Ctrl+Alt+W"_s, u"Ctrl+Alt+L"_s, u"Ctrl+Alt+S"_s};
    QVector<OpenPageEntry> pages{{7, u"Fish & Chips"_s}, {9, u"a\tb\nc"_s}};
    std::unique_ptr<fakes::FakeTrayHost> host;
    std::unique_ptr<TrayIcon> icon;
};

TEST_F(Tray, BuildsItsMenuWhenItOpens)
{
    showOn(Kind::Clicks);
    keys.Main = u"Ctrl+Alt+B"_s;
    open(icon->menu());
    EXPECT_EQ(item(u"mnu_ControlPanel"_s)->text(), u"Norvane Manager\tCtrl+Alt+B");
    EXPECT_EQ(icon->menu()->defaultAction(), item(u"mnu_ControlPanel"_s));
    QSignalSpy commands(icon.get(), &TrayIcon::commandTriggered);
    item(u"mnu_exit"_s)->trigger();
    ASSERT_EQ(commands.size(), 1);
    EXPECT_EQ(commands[0][0], u"mnu_exit"_s);

    QMenu *sub = item(u"mnu_Open"_s)->menu();
    EXPECT_TRUE(sub->actions().isEmpty());
    open(sub);
    EXPECT_EQ(texts(sub), u"Fish && Chips\na b c");
    QSignalSpy chosen(icon.get(), &TrayIcon::pageTriggered);
    sub->actions().constLast()->trigger();
    ASSERT_EQ(chosen.size(), 1);
    EXPECT_EQ(chosen[0][0], 9);

    pages.clear();
    open(icon->menu());
    EXPECT_FALSE(item(u"mnu_Open"_s)->isEnabled());
}

TEST_F(Tray, KeepsTheCopyOfAHostThatShowsTheMenuItself)
{
    showOn(Kind::Activates);
    EXPECT_TRUE(QTest::qWaitFor([this] { return builds >= 1; }));
    const auto pageCount = [this] { return item(u"mnu_Open"_s)->menu()->actions().size(); };
    EXPECT_EQ(pageCount(), 3);
    const int before = builds;
    pages.append({11, u"Third"_s});
    icon->noteChange();
    icon->noteChange();
    EXPECT_TRUE(QTest::qWaitFor([&] { return pageCount() == 4; }));
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
    using Reasons = QVector<QSystemTrayIcon::ActivationReason>;
    const auto toggles = [this](Kind kind, const Reasons &reasons) {
        showOn(kind);
        QSignalSpy spy(icon.get(), &TrayIcon::activated);
        for (const QSystemTrayIcon::ActivationReason reason : reasons)
            emit icon->findChild<QSystemTrayIcon *>()->activated(reason);
        return spy.size();
    };
    EXPECT_EQ(toggles(Kind::Clicks, {QSystemTrayIcon::Trigger}), 0);
    EXPECT_EQ(toggles(Kind::Clicks, {QSystemTrayIcon::DoubleClick}), 1);
    EXPECT_EQ(toggles(Kind::Activates, {QSystemTrayIcon::Trigger, QSystemTrayIcon::Trigger}), 1)
        << "a double click there is one wish";
    EXPECT_EQ(toggles(Kind::Activates, {QSystemTrayIcon::Context}), 0);
}

} // namespace
