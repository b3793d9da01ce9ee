#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QVector>
#include <functional>
#include <memory>

class QAction;
class QMenu;
class QSystemTrayIcon;

namespace norvane {

class TrayHost;

/// An entry of the tray menu `mnu`.
struct TrayEntry
{
    QString name;    ///< "mnu_Search", …; a separator's name starts with "mnu_sep"
    QString caption; ///< a key's text may stand behind a tab
    bool enabled = true;
    bool isDefault = false;

    bool operator==(const TrayEntry &) const = default;
};

/// An entry of the submenu `mnu_Open_Sub`: a note with a location.
struct TrayPage
{
    QString caption;
    int id = 0;
};

/// The icon in the notification area, `TrayIcon1`, with its menu.
///
/// The icon comes up as soon as the desktop has a place for it; without one nothing happens, and
/// the menu is never built.
class TrayIcon : public QObject
{
    Q_OBJECT

public:
    /// @param host must outlive it
    explicit TrayIcon(TrayHost &host, QObject *parent = nullptr);
    ~TrayIcon() override;

    /// Where the menu's entries come from; asked at every rebuild and whenever the menu opens.
    void setMenuSource(std::function<QVector<TrayEntry>()> source);
    /// Where the pages of "Open Page" come from; asked when that submenu opens.
    void setPageSource(std::function<QVector<TrayPage>()> source);

    /// To be called when the notes or the hot keys have changed.
    void rebuildMenu();
    /// Shows the icon, now or when a host comes up.
    void show();
    void hide();
    bool isShown() const;

    /// The menu as it stands; nullptr as long as there is no host.
    QMenu *menu() const { return m_menu.get(); }

signals:
    /// Double click; on a host that sends none, a single activation.
    void activated();
    void commandTriggered(const QString &name);
    void pageTriggered(int id);

private:
    void make();
    void fill(const QVector<TrayEntry> &entries);
    void fillPages();
    QAction *addEntry(const TrayEntry &entry);

    TrayHost &m_host;
    std::function<QVector<TrayEntry>()> m_menuSource;
    std::function<QVector<TrayPage>()> m_pageSource;
    std::unique_ptr<QMenu> m_menu; ///< outlives the icon, which refers to it
    std::unique_ptr<QMenu> m_pages;
    std::unique_ptr<QSystemTrayIcon> m_icon;
    QVector<TrayEntry> m_entries; ///< what the menu shows
    QElapsedTimer m_sinceActivation;
    bool m_wanted = false;
};

} // namespace norvane
