#include "shell/tray_menu.h"

#include <gtest/gtest.h>

using namespace norvane;
using namespace Qt::StringLiterals;

namespace {

QString asText(const QVector<TrayMenuItem> &menu)
{
    QString text;
    for (const TrayMenuItem &item : menu) {
        text += item.separator ? u"-"_s : item.name + u'|' + item.caption;
        text += item.enabled ? u""_s : u" (off)"_s;
        text += item.isDefault ? u" (default)"_s : u""_s;
        text += item.visible ? u""_s : u" (hidden)"_s;
        text += item.tag == 0 ? u"\n"_s : u" #%1\n"_s.arg(item.tag);
    }
    return text;
}

} // namespace

TEST(TrayMenu, ListsItsItemsWithTheKeysBehindThem)
{
    const TrayHotKeyTexts keys = {u"Ctrl+Alt+W"_s, u"Ctrl+Alt+L"_s, u"Ctrl+Alt+S"_s};
    const QString others = u"-\n"
                           "mnu_ControlPanel|Norvane Manager\tCtrl+Alt+W (default)\n"
                           "-\n"
                           "mnu_Search|Search\tCtrl+Alt+S (off)\n"
                           "mnu_Attach|Task List\tCtrl+Alt+L (off)\n"
                           "-\n"
                           "mnu_Settings|Options... (off)\n"
                           "-\n"
                           "mnu_exit|Exit\n"_s;
    const QSet<QString> available = {u"mnu_ControlPanel"_s, u"mnu_exit"_s};
    const QVector<TrayMenuItem> empty = trayMenu(keys, available, {});
    EXPECT_EQ(asText(empty), u"mnu_Open|Open Page (off)\n"_s + others);
    EXPECT_EQ(asText(empty[0].children), u"mnu_Open_Sub|(Empty) (off)\n");

    const QVector<TrayMenuItem> filled = trayMenu(keys, available, {{7, u"A && B"_s}, {3, u"Zoo"_s}});
    EXPECT_EQ(asText(filled), u"mnu_Open|Open Page\n"_s + others);
    EXPECT_EQ(asText(filled[0].children), u"mnu_Open_Sub|(Empty) (off) (hidden)\n"
                                          "mnu_Open_Sub|A && B #7\n"
                                          "mnu_Open_Sub|Zoo #3\n");
}
