#pragma once

#include <QString>
#include <QVector>

namespace norvane {

namespace dao {
class Database;
}

/// An item of the tray menu, as plain data for the window that shows it. Captions are plain text:
/// an "&" in one is no access key.
struct TrayMenuItem
{
    QString name;    ///< `mnu_Open`, …; the elements of `mnu_Open_Sub` all have that name
    QString caption; ///< a Tab and the hot key's text behind it; empty for a separator
    int tag = 0;     ///< the note's ID of an element of `mnu_Open_Sub`
    bool separator = false;
    bool enabled = true;
    bool visible = true;
    bool isDefault = false;
    QVector<TrayMenuItem> children;
};

/// A note that "Open Page" offers.
struct OpenPageEntry
{
    int ID = 0;
    QString caption;
};

/// The notes with a location, by `FriendlyName`; a note without one is offered by its location.
/// Raises what the engine raises.
QVector<OpenPageEntry> openPageEntries(dao::Database &database);

/// What the captions show behind their Tab: texts of hot keys, "Ctrl+Alt+W".
struct TrayHotKeyTexts
{
    QString Main;
    QString AttachDetachWindow;
    QString Search;
};

/// The menu `mnu` in its order.
QVector<TrayMenuItem> trayMenu(const TrayHotKeyTexts &hotKeys, const QVector<OpenPageEntry> &pages);

} // namespace norvane
