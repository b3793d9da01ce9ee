#include "shell/tray_menu.h"

#include "platform/dao.h"

namespace norvane {

namespace {

TrayMenuItem item(const QString &name, const QString &caption, const QString &hotKey = {})
{
    TrayMenuItem item;
    item.name = name;
    item.caption = hotKey.isEmpty() ? caption : caption + u'\t' + hotKey;
    return item;
}

TrayMenuItem separator(const QString &name)
{
    TrayMenuItem item;
    item.name = name;
    item.separator = true;
    return item;
}

TrayMenuItem openPage(const QVector<OpenPageEntry> &pages)
{
    const QString elementName = QStringLiteral("mnu_Open_Sub");
    TrayMenuItem menu = item(QStringLiteral("mnu_Open"), QStringLiteral("Open Page"));
    menu.enabled = !pages.isEmpty();
    // The first element is always there; beside real pages it would be a riddle.
    TrayMenuItem empty = item(elementName, QStringLiteral("(Empty)"));
    empty.visible = pages.isEmpty();
    empty.enabled = false;
    menu.children.append(empty);
    for (const OpenPageEntry &page : pages) {
        TrayMenuItem element = item(elementName, page.caption);
        element.tag = page.ID;
        menu.children.append(element);
    }
    return menu;
}

} // namespace

QVector<OpenPageEntry> openPageEntries(dao::Database &database)
{
    QVector<OpenPageEntry> pages;
    const std::unique_ptr<dao::Recordset> notes = database.openRecordset(
        QStringLiteral("select ID,FriendlyName,Active,URL from Memos order by FriendlyName"),
        dao::RecordsetType::ForwardOnly);
    for (; !notes->eof(); notes->moveNext()) {
        const QString location = notes->field(QStringLiteral("URL")).toString().trimmed();
        if (location.isEmpty())
            continue;
        const QString name = notes->field(QStringLiteral("FriendlyName")).toString();
        pages.append(
            {notes->field(QStringLiteral("ID")).toInt(), name.trimmed().isEmpty() ? location : name});
    }
    notes->close();
    return pages;
}

QVector<TrayMenuItem> trayMenu(const TrayHotKeyTexts &hotKeys, const QVector<OpenPageEntry> &pages)
{
    QVector<TrayMenuItem> menu = {
        openPage(pages),
        separator(QStringLiteral("mnu_sep0")),
        item(QStringLiteral("mnu_ControlPanel"), QStringLiteral("Norvane Manager"), hotKeys.Main),
        separator(QStringLiteral("mnu_sep1")),
        item(QStringLiteral("mnu_Search"), QStringLiteral("Search"), hotKeys.Search),
        item(QStringLiteral("mnu_Attach"), QStringLiteral("Task List"), hotKeys.AttachDetachWindow),
        separator(QStringLiteral("mnu_sep2")),
        item(QStringLiteral("mnu_Settings"), QStringLiteral("Options...")),
        separator(QStringLiteral("mnu_sep3")),
        item(QStringLiteral("mnu_exit"), QStringLiteral("Exit")),
    };
    for (TrayMenuItem &entry : menu)
        entry.isDefault = entry.name == u"mnu_ControlPanel";
    return menu;
}

} // namespace norvane
