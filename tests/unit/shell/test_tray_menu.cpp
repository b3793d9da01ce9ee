#include "shell/hot_key_actions.h"
#include "shell/tray_menu.h"

#include <gtest/gtest.h>

using namespace norvane;

namespace {

const TrayHotKeyTexts kHotKeys = {QStringLiteral("Ctrl+Alt+W"), QStringLiteral("Ctrl+Alt+L"),
                                  QStringLiteral("Ctrl+Alt+S")};

TEST(TrayMenu, listsItsItemsWithTheKeysBehindThem)
{
    const QVector<TrayMenuItem> menu =
        trayMenu(kHotKeys, {QStringLiteral("mnu_ControlPanel"), QStringLiteral("mnu_exit")}, {});
    QStringList rows;
    for (const TrayMenuItem &item : menu) {
        QString row = item.separator ? QStringLiteral("-") : item.name + u'|' + item.caption;
        if (!item.enabled)
            row += QStringLiteral(" (off)");
        if (item.isDefault)
            row += QStringLiteral(" (default)");
        rows.append(row);
    }
    EXPECT_EQ(rows.join(u'\n').toStdString(), "mnu_Open|Open Page (off)\n"
                                              "-\n"
                                              "mnu_ControlPanel|Norvane Manager\tCtrl+Alt+W (default)\n"
                                              "-\n"
                                              "mnu_Search|Search\tCtrl+Alt+S (off)\n"
                                              "mnu_Attach|Task List\tCtrl+Alt+L (off)\n"
                                              "-\n"
                                              "mnu_Settings|Options... (off)\n"
                                              "-\n"
                                              "mnu_exit|Exit");
}

TEST(TrayMenu, offersThePagesOfTheNotes)
{
    const QVector<TrayMenuItem> menu =
        trayMenu(kHotKeys, {}, {{7, QStringLiteral("A && B")}, {3, QStringLiteral("Zoo")}});
    const TrayMenuItem &open = menu.constFirst();
    EXPECT_TRUE(open.enabled);
    ASSERT_EQ(open.children.size(), 3);
    EXPECT_EQ(open.children.at(0).caption, QStringLiteral("(Empty)"));
    EXPECT_FALSE(open.children.at(0).visible);
    EXPECT_EQ(open.children.at(1).caption, QStringLiteral("A && B"));
    EXPECT_EQ(open.children.at(1).tag, 7);
    EXPECT_EQ(open.children.at(2).tag, 3);
    EXPECT_TRUE(open.children.at(2).enabled);
}

TEST(HotKeyActions, areThoseOfTheSixIdsAlone)
{
    EXPECT_EQ(hotKeyAction(1), HotKeyAction::ToggleBrowser);
    EXPECT_EQ(hotKeyAction(2), HotKeyAction::ToggleWindowList);
    EXPECT_EQ(hotKeyAction(3), HotKeyAction::AttachFrontWindow);
    EXPECT_EQ(hotKeyAction(4), HotKeyAction::CloseFrontNote);
    EXPECT_EQ(hotKeyAction(5), HotKeyAction::ShowSearch);
    EXPECT_EQ(hotKeyAction(6), HotKeyAction::DeleteFrontNote);
    EXPECT_FALSE(hotKeyAction(0));
    EXPECT_FALSE(hotKeyAction(7));
}

} // namespace
