#pragma once

#include "shell/tray_menu.h"

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QTimer>
#include <QVector>
#include <functional>
#include <memory>

class QAction;
class QMenu;
class QSystemTrayIcon;

namespace norvane {

class TrayHost;

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

    /// Where the menu comes from: asked whenever it opens, and after changes where the host keeps a
    /// copy of it. It must not raise: it is called from the event loop.
    void setMenuSource(std::function<QVector<TrayMenuItem>()> source);
    /// To be called when notes or hot keys have changed; several calls in a row are one.
    void noteChange();
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
    void rebuild();
    void fillPages();
    QAction *addItem(const TrayMenuItem &item);

    TrayHost &m_host;
    std::function<QVector<TrayMenuItem>()> m_menuSource;
    std::unique_ptr<QMenu> m_menu; ///< outlives the icon, which refers to it
    std::unique_ptr<QMenu> m_pages;
    std::unique_ptr<QSystemTrayIcon> m_icon;
    QVector<TrayMenuItem> m_pageItems; ///< what `mnu_Open_Sub` shows when it opens
    QTimer m_changeTimer;
    QElapsedTimer m_sinceActivation;
    bool m_wanted = false;
};

} // namespace norvane
