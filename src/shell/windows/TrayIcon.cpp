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

const QString kOpen = QStringLiteral("mnu_Open");

/// A note's title as it reads: no access keys, no second column.
QString pageCaption(QString title)
{
    title.replace(u'&', QStringLiteral("&&"));
    for (const QChar blank : {QChar(u'\t'), QChar(u'\n'), QChar(u'\r')})
        title.replace(blank, u' ');
    return title;
}

} // namespace

TrayIcon::TrayIcon(TrayHost &host, QObject *parent) : QObject(parent), m_host(host)
{
    setObjectName(QStringLiteral("TrayIcon1"));
    connect(&m_host, &TrayHost::appeared, this, [this] {
        if (m_wanted)
            show();
    });
}

TrayIcon::~TrayIcon()
{
    hide();
}

void TrayIcon::setMenuSource(std::function<QVector<TrayEntry>()> source)
{
    m_menuSource = std::move(source);
    rebuildMenu();
}

void TrayIcon::setPageSource(std::function<QVector<TrayPage>()> source)
{
    m_pageSource = std::move(source);
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
    rebuildMenu();
    connect(m_menu.get(), &QMenu::aboutToShow, this, &TrayIcon::rebuildMenu);
    connect(m_pages.get(), &QMenu::aboutToShow, this, &TrayIcon::fillPages);
    if (m_host.kind() == TrayHost::Kind::Activates) {
        // Such a host may show the menu without a word about its submenus.
        connect(m_menu.get(), &QMenu::aboutToShow, this, &TrayIcon::fillPages);
    }

    m_icon = std::make_unique<QSystemTrayIcon>(applicationIcon());
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

void TrayIcon::rebuildMenu()
{
    if (!m_menu || !m_menuSource)
        return;
    // A menu that is the same is left alone: a host may be showing it.
    const QVector<TrayEntry> entries = m_menuSource();
    if (entries != m_entries)
        fill(entries);
}

void TrayIcon::fill(const QVector<TrayEntry> &entries)
{
    m_entries = entries;
    m_menu->clear();
    for (const TrayEntry &entry : entries) {
        QAction *action = addEntry(entry);
        action->setObjectName(entry.name);
        action->setEnabled(entry.enabled);
        if (entry.isDefault)
            m_menu->setDefaultAction(action);
    }
    m_pages->clear();
    m_pages->addAction(tr("(Empty)"))->setEnabled(false);
}

QAction *TrayIcon::addEntry(const TrayEntry &entry)
{
    if (entry.name.startsWith(u"mnu_sep"))
        return m_menu->addSeparator();
    if (entry.name == kOpen) {
        m_pages->setTitle(entry.caption);
        return m_menu->addMenu(m_pages.get());
    }
    QAction *action = m_menu->addAction(entry.caption);
    connect(action, &QAction::triggered, this, [this, name = entry.name] { emit commandTriggered(name); });
    return action;
}

void TrayIcon::fillPages()
{
    const QVector<TrayPage> pages = m_pageSource ? m_pageSource() : QVector<TrayPage>();
    m_pages->clear();
    if (pages.isEmpty())
        m_pages->addAction(tr("(Empty)"))->setEnabled(false);
    for (const TrayPage &page : pages) {
        QAction *action = m_pages->addAction(pageCaption(page.caption));
        connect(action, &QAction::triggered, this, [this, id = page.id] { emit pageTriggered(id); });
    }
}

} // namespace norvane
