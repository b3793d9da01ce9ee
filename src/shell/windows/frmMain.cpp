#include "shell/windows/frmMain.h"

#include "platform/dao.h"
#include "shell/numeric_prefix.h"
#include "shell/settings_keys.h"
#include "shell/windows/KeyHints.h"
#include "shell/windows/StatusPanel.h"
#include "shell/windows/TrayIcon.h"
#include "shell/windows/form_icon.h"
#include "shell/windows/mdiMain.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QMdiSubWindow>
#include <QStatusBar>
#include <QTabBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace norvane {

frmMain::frmMain(FormList &forms, SettingsStore &settings, mdiMain &frame, TrayHost &trayHost, Twips twips)
    : m_forms(forms), m_settings(settings), m_twips(twips), m_hints(new KeyHints), m_categoryBar(new QTabBar),
      m_previewButton(new QToolButton), m_rowPanel(new StatusPanel(QStringLiteral("ROW"))),
      m_trayIcon(new TrayIcon(trayHost, this))
{
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(tr("Note Browser"));
    SetFormIcon(this);

    m_categoryBar->setObjectName(QStringLiteral("tbCat"));
    m_categoryBar->setAccessibleName(tr("Categories"));
    m_categoryBar->setShape(QTabBar::RoundedSouth);
    m_categoryBar->setExpanding(false);
    m_categoryBar->setDrawBase(false);
    m_categoryBar->setUsesScrollButtons(true);
    m_categoryBar->setEnabled(false); // there is no list yet that it could filter

    auto *status = new QStatusBar;
    status->setObjectName(QStringLiteral("StatusBar1"));
    status->setSizeGripEnabled(false);
    status->addWidget(m_rowPanel);

    m_previewButton->setObjectName(QStringLiteral("ARButton10"));
    m_previewButton->setText(tr("Show Preview"));
    m_previewButton->setToolTip(tr("Show/Hide Note Preview Window"));
    m_previewButton->setCheckable(true);
    m_previewButton->setEnabled(false); // the preview shows a row of the list
    auto *bottom = new QHBoxLayout;
    bottom->setContentsMargins(2, 0, 4, 0);
    bottom->addWidget(m_categoryBar, 1);
    bottom->addWidget(m_previewButton);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_hints, 1);
    layout->addLayout(bottom);
    layout->addWidget(status);
    if (numericPrefix(settings::read(m_settings, settings::kShowCategoryBar)) == 0.0)
        m_categoryBar->hide();

    m_hotKeyWindow.create();
    m_window = frame.addChild(this);
    m_window->setWindowIcon(windowIcon());
    restorePlace();
    showRow();
    m_forms.add(this);
}

frmMain::~frmMain()
{
    m_forms.remove(this);
}

QString frmMain::formName() const
{
    return QStringLiteral("frmMain");
}

WindowHandle frmMain::hWnd() const
{
    return static_cast<WindowHandle>(m_hotKeyWindow.winId());
}

void frmMain::unload()
{
    savePlace();
    m_trayIcon->hide();
    m_forms.remove(this);
    m_window->hide();
    m_window->deleteLater();
}

void frmMain::bringUp()
{
    if (m_window->isMinimized())
        m_window->showNormal();
    show();
    m_window->show();
    m_window->raise();
    m_window->setFocus();
}

void frmMain::showRow()
{
    // Without a list there are no rows, whatever the database holds.
    m_rowPanel->setPanelText(QStringLiteral("Row: %1 of %2").arg(0).arg(0));
}

void frmMain::Refresh_tbCAT(dao::Recordset *categories)
{
    while (m_categoryBar->count() > 0)
        m_categoryBar->removeTab(0);
    addCategoryTab(tr("(All Categories)"), QStringLiteral("K0"));
    if (categories != nullptr && categories->recordCount() > 0) {
        for (categories->moveFirst(); !categories->eof(); categories->moveNext()) {
            QString caption = categories->field(QStringLiteral("Name")).toString();
            caption.replace(u'&', QStringLiteral("&&"));
            addCategoryTab(caption, u'K' + QString::number(categories->field(QStringLiteral("ID")).toInt()));
        }
    }
    addCategoryTab(tr("(No Category)"), QStringLiteral("K-1"));
    m_categoryBar->updateGeometry(); // a hidden bar keeps the height of its last tabs
}

void frmMain::addCategoryTab(const QString &caption, const QString &key)
{
    m_categoryBar->setTabData(m_categoryBar->addTab(caption), key);
}

void frmMain::pressPreviewButton()
{
    m_previewButton->setChecked(true);
}

int frmMain::categoryTabCount() const
{
    return m_categoryBar->count();
}

void frmMain::selectCategoryTab(int number)
{
    m_categoryBar->setCurrentIndex(number - 1);
}

int frmMain::selectedCategory() const
{
    const QString key = m_categoryBar->tabData(m_categoryBar->currentIndex()).toString();
    return numericPrefixInt(key.mid(1));
}

void frmMain::setHotKeyTexts(const QString &attach, const QString &detach, const QString &remove,
                             const QString &browser)
{
    m_hints->setHints({{attach, tr("Attach a note to the window in front")},
                       {detach, tr("Close the note of the window in front")},
                       {remove, tr("Delete the note of the window in front")},
                       {browser, tr("Show or hide this window")}});
}

void frmMain::closeEvent(QCloseEvent *event)
{
    event->ignore();
    m_window->hide();
}

void frmMain::restorePlace()
{
    const auto value = [this](const settings::Key &key) {
        return numericPrefix(settings::read(m_settings, key));
    };
    m_window->setGeometry(
        m_twips.toPixels(QRectF(value(settings::kBrowserLeft), value(settings::kBrowserTop),
                                value(settings::kBrowserWidth), value(settings::kBrowserHeight))));
}

void frmMain::savePlace()
{
    const QRectF place = m_twips.fromPixels(m_window->geometry());
    const auto write = [this](const settings::Key &key, double number) {
        settings::save(m_settings, key, QString::number(qRound64(number)));
    };
    if (!m_window->isMinimized() && !m_window->isMaximized()) {
        write(settings::kBrowserTop, place.top());
        write(settings::kBrowserLeft, place.left());
        write(settings::kBrowserWidth, place.width());
        write(settings::kBrowserHeight, place.height());
    }
    write(settings::kBrowserWindowState, m_window->isMinimized() ? 1 : m_window->isMaximized() ? 2 : 0);
    write(settings::kLastCategory, m_categoryBar->currentIndex() + 1);
}

} // namespace norvane
