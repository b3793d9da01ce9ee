#include "shell/windows/TrayIcon.h"

#include "platform/TrayHost.h"
#include "shell/windows/form_icon.h"

#include <QAction>
#include <QGuiApplication>
#include <QMenu>
#include <QStyleHints>
#include <QSystemTrayIcon>
#include <utility>

namespace norvane {

namespace {

constexpr int kChangeDelayMs = 200;

QString withoutAccessKeys(QString caption)
{
    return caption.replace(u'&', QStringLiteral("&&"));
}

/// A note's title as it reads: on one line, with no second column.
QString pageCaption(const QString &title)
{
    return withoutAccessKeys(title.simplified());
}

} // namespace

TrayIcon::TrayIcon(TrayHost &host, QObject *parent) : QObject(parent), m_host(host)
{
    setObjectName(QStringLiteral("TrayIcon1"));
    m_changeTimer.setSingleShot(true);
    m_changeTimer.setInterval(kChangeDelayMs);
    connect(&m_changeTimer, &QTimer::timeout, this, [this] {
        rebuild();
        fillPages();
    });
    connect(&m_host, &TrayHost::appeared, this, [this] {
        if (m_wanted)
            show();
    });
}

TrayIcon::~TrayIcon()
{
    hide();
}

void TrayIcon::setMenuSource(std::function<QVector<TrayMenuItem>()> source)
{
    m_menuSource = std::move(source);
    noteChange();
}

void TrayIcon::noteChange()
{
    if (m_host.kind() == TrayHost::Kind::Activates)
        m_changeTimer.start();
}

void TrayIcon::show()
{
    m_wanted = true;
    // Which kind of icon is made is settled when the first one is: not before a host is there.
    if (m_host.kind() == TrayHost::Kind::None)
        return;
    if (!m_icon)
        make();
    m_icon->show();
}

void TrayIcon::hide()
{
    m_wanted = false;
    if (m_icon)
        m_icon->hide();
}

bool TrayIcon::isShown() const
{
    return m_icon && m_icon->isVisible();
}

void TrayIcon::make()
{
    m_menu = std::make_unique<QMenu>(QStringLiteral("POPUP"));
    m_menu->setObjectName(QStringLiteral("mnu"));
    m_pages = std::make_unique<QMenu>();
    m_pages->setObjectName(QStringLiteral("mnu_Open_Sub"));
    rebuild();
    if (m_host.kind() == TrayHost::Kind::Activates) {
        // Such a host shows a copy of the menu, which must not change while it is open.
        fillPages();
    } else {
        connect(m_menu.get(), &QMenu::aboutToShow, this, &TrayIcon::rebuild);
        connect(m_pages.get(), &QMenu::aboutToShow, this, &TrayIcon::fillPages);
    }

    m_icon = std::make_unique<QSystemTrayIcon>(applicationIcon(), this);
    m_icon->setToolTip(QStringLiteral("Norvane"));
    m_icon->setContextMenu(m_menu.get());
    connect(m_icon.get(), &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                if (reason == QSystemTrayIcon::DoubleClick) {
                    emit activated();
                } else if (reason == QSystemTrayIcon::Trigger && m_host.kind() == TrayHost::Kind::Activates) {
                    // A double click comes as two activations there.
                    const int interval = QGuiApplication::styleHints()->mouseDoubleClickInterval();
                    if (m_sinceActivation.isValid() && m_sinceActivation.elapsed() < interval)
                        return;
                    m_sinceActivation.start();
                    emit activated();
                }
            });
}

void TrayIcon::rebuild()
{
    if (!m_menu || !m_menuSource)
        return;
    m_menu->clear();
    m_pages->clear();
    m_pageItems.clear();
    const QVector<TrayMenuItem> items = m_menuSource();
    for (const TrayMenuItem &item : items) {
        QAction *action = addItem(item);
        action->setObjectName(item.name);
        action->setEnabled(item.enabled);
        action->setVisible(item.visible);
        if (item.isDefault)
            m_menu->setDefaultAction(action);
    }
}

QAction *TrayIcon::addItem(const TrayMenuItem &item)
{
    if (item.separator)
        return m_menu->addSeparator();
    const QString caption = withoutAccessKeys(item.caption);
    if (!item.children.isEmpty()) {
        m_pageItems = item.children;
        m_pages->setTitle(caption);
        return m_menu->addMenu(m_pages.get());
    }
    QAction *action = m_menu->addAction(caption);
    connect(action, &QAction::triggered, this, [this, name = item.name] { emit commandTriggered(name); });
    return action;
}

// There may be thousands of pages, and the menu is opened more often than this one.
void TrayIcon::fillPages()
{
    m_pages->clear();
    for (const TrayMenuItem &page : std::as_const(m_pageItems)) {
        QAction *action = m_pages->addAction(pageCaption(page.caption));
        action->setObjectName(page.name);
        action->setEnabled(page.enabled);
        action->setVisible(page.visible);
        connect(action, &QAction::triggered, this, [this, id = page.tag] { emit pageTriggered(id); });
    }
}

} // namespace norvane
