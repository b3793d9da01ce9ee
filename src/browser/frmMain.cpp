#include "browser/frmMain.h"

#include "browser/CategoryBar.h"
#include "browser/SideStrip.h"
#include "browser/editor/frmQuickView.h"
#include "browser/grid/NoteGrid.h"
#include "browser/grid/note_columns.h"
#include "controls/BusyPointer.h"
#include "controls/DropTarget.h"
#include "platform/EventLoop.h"
#include "platform/Prompts.h"
#include "platform/RuntimeError.h"
#include "richtext/EditServices.h"
#include "shell/internal_error.h"
#include "shell/numeric_prefix.h"
#include "shell/window_places.h"
#include "shell/windows/StatusPanel.h"
#include "shell/windows/TrayIcon.h"
#include "shell/windows/form_icon.h"
#include "shell/windows/mdiMain.h"
#include "store/NoteStore.h"
#include "store/note_row.h"
#include "watcher/NoteViews.h"
#include "watcher/open_location.h"

#include <QCloseEvent>
#include <QDir>
#include <QHBoxLayout>
#include <QMdiSubWindow>
#include <QStatusBar>
#include <QVBoxLayout>
#include <optional>
#include <utility>

namespace norvane {

namespace {

/// Between a new preview and the corner of the list, pixels: room for its scroll bars.
constexpr int kPreviewMargin = 28;

/// What the status bar has beside the category bar, at least.
constexpr double kStatusTwips = 1440 + 350;

double stored(const SettingsStore &settings, const settings::Key &key)
{
    return numericPrefix(settings::read(settings, key));
}

} // namespace

frmMain::frmMain(const BrowserServices &services, mdiMain &frame, TrayHost &trayHost)
    : m_services(services), m_strip(new SideStrip), m_grid(new NoteGrid(services)),
      m_categoryBar(new CategoryBar), m_rowPanel(new StatusPanel(QStringLiteral("ROW"))),
      m_categoryPanel(new StatusPanel(QStringLiteral("PNLCAT"))), m_trayIcon(new TrayIcon(trayHost, this)),
      m_categories(services.store, services.edit.prompts)
{
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(tr("Note Browser"));
    SetFormIcon(this);
    layOut();
    connectParts();

    m_hotKeyWindow.create();
    m_window = frame.addChild(this);
    m_window->setWindowIcon(windowIcon());
    connect(m_window, &QMdiSubWindow::windowStateChanged, this,
            [this](Qt::WindowStates before, Qt::WindowStates now) {
                if (!now.testFlag(Qt::WindowActive) || before.testFlag(Qt::WindowActive))
                    return;
                MakeupButtons();
                m_grid->SetFocus();
            });
    restorePlace();

    m_grid->setObjectName(QStringLiteral("GRD"));
    m_grid->SaveColumnWidth = true;
    m_grid->setGridDB(m_services.store.database());
    m_categoryBar->setBarStyle(static_cast<int>(stored(m_services.settings, settings::kCategoryBarStyle)));
    const bool hasBar = stored(m_services.settings, settings::kShowCategoryBar) != 0.0;
    m_grid->setShowCategoryBar(hasBar);
    m_categoryBar->setVisible(hasBar);
    showRow();
    MakeupButtons();
    m_services.forms.add(this);
}

frmMain::~frmMain()
{
    m_services.forms.remove(this);
}

void frmMain::layOut()
{
    auto *status = new QStatusBar;
    status->setObjectName(QStringLiteral("StatusBar1"));
    status->setSizeGripEnabled(false);
    status->addWidget(m_rowPanel, 1);
    status->addWidget(m_categoryPanel);
    status->setMinimumWidth(m_services.twips.toPixels(QRectF(0, 0, kStatusTwips, kStatusTwips)).width());
    auto *bottom = new QHBoxLayout;
    bottom->addWidget(m_categoryBar, 1);
    bottom->addWidget(status);

    auto *middle = new QHBoxLayout;
    middle->setSpacing(0);
    middle->addWidget(m_grid, 1);
    middle->addWidget(m_strip);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(middle, 1);
    layout->addLayout(bottom);
    setFocusProxy(m_grid);
}

void frmMain::connectParts()
{
    connect(m_grid, &NoteGrid::Changed, this, [this] { GRD_Refresh(m_grid->Row()); });
    connect(m_grid, &NoteGrid::Refresh, this, &frmMain::GRD_Refresh);
    connect(m_grid, &NoteGrid::RowChange, this, [this](int row) {
        if (m_grid->Redraw())
            rowChanged(row);
    });
    connect(m_grid, &NoteGrid::Working, this, [this](const QString &text) {
        m_rowPanel->setPanelText(text);
        m_rowPanel->repaint(); // nothing else is painted until the list is read
    });
    connect(m_grid, &NoteGrid::CatBarMouseUp, this,
            [this](int, int shift) { showCategoryMenu(QCursor::pos(), shift != 0); });
    connect(m_categoryBar, &CategoryBar::tabClick, this, &frmMain::tabClick);
    connect(m_categoryBar, &CategoryBar::menuAsked, this, &frmMain::showCategoryMenu);
    connect(m_strip, &SideStrip::buttonClicked, this, &frmMain::sideButton);
    connect(
        new DropTarget(m_strip), &DropTarget::dropped, this,
        [this](const QStringList &files, const QString &text) { m_services.views.dropItems(files, text); });

    m_categoryMenu.select = [this](int filter) { m_categoryBar->selectFilter(filter); };
    m_categoryMenu.addFromList = [this] {
        categoryCommand([this] {
            if (m_categories.addAll(m_services.views.chooseCategories()))
                Refresh_tbCAT();
        });
    };
    m_categoryMenu.addNew = [this] {
        categoryCommand([this] {
            if (m_categories.addNew())
                Refresh_tbCAT();
        });
    };
    m_categoryMenu.remove = [this] {
        categoryCommand([this] {
            if (m_categories.remove(m_categoryBar->filter()))
                Refresh_tbCAT(); // the removed tab was the selected one
        });
    };
    m_categoryMenu.showWindow = [this] { m_services.views.showCategories(); };
    m_categoryMenu.changeStyle = [this] { changeBarStyle(); };
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
    unloadPreview();
    savePlace();
    m_trayIcon->hide();
    m_services.forms.remove(this);
    m_window->hide();
    m_window->deleteLater();
}

void frmMain::closeEvent(QCloseEvent *event)
{
    event->ignore();
    m_window->hide();
}

void frmMain::bringUp()
{
    if (m_window->isMinimized())
        m_window->showNormal();
    show();
    m_window->show();
    m_window->raise();
    m_window->setFocus();
    m_grid->SetFocus();
}

// ---- The list ----

void frmMain::Refresh_Grid()
{
    try {
        m_grid->Refresh_Grid();
        m_toldError = 0;
    } catch (const RuntimeError &error) {
        // The watch cycle and every save come here: one fault is not told again and again.
        if (m_toldError == error.number())
            return;
        m_toldError = error.number();
        tell(m_services.edit.prompts, error.description());
    }
}

void frmMain::showRow()
{
    m_rowPanel->setPanelText(QStringLiteral("Row: %1 of %2").arg(m_grid->Row()).arg(m_grid->Rows()));
}

void frmMain::MakeupButtons()
{
    m_strip->makeUp(m_grid->Rows() > 0);
}

void frmMain::GRD_Refresh(int)
{
    rowChanged(m_grid->Row());
}

void frmMain::rowChanged(int row)
{
    showRow();
    MakeupButtons();
    if (m_grid->GetCelText(m_grid->Row(), kColumnLocation).isEmpty())
        m_strip->setButtonEnabled(QStringLiteral("btnOpenURL"), false);
    if (m_previewOpen)
        RefreshPreviewWindow(row);
}

void frmMain::setAttachKey(const QString &text)
{
    m_grid->setEmptyHint(text);
}

// ---- Preview ----

void frmMain::togglePreview()
{
    if (m_previewOpen) {
        unloadPreview();
        return;
    }
    pressPreviewButton();
    m_grid->SetFocus();
}

void frmMain::pressPreviewButton()
{
    if (m_previewOpen)
        return;
    m_previewOpen = true;
    m_strip->setPreviewOpen(true);
    if (isVisible())
        showPreview();
}

/// Makes the preview that is to be open.
void frmMain::showPreview()
{
    m_preview = new frmQuickView(m_services, this);
    connect(m_preview, &frmQuickView::unloaded, this, [this] {
        m_preview = nullptr;
        m_previewOpen = false;
        m_strip->setPreviewOpen(false);
    });
    connect(m_preview, &frmQuickView::editRequested, this,
            [this] { m_grid->RunGridMenu(QStringLiteral("EDIT")); });
    connect(m_preview, &frmQuickView::openRequested, this,
            [this] { m_grid->RunGridMenu(QStringLiteral("OPEN")); });
    if (settings::read(m_services.settings, settings::kPreviewWidth, {}).isEmpty()) {
        // It never had a place: where it covers the fewest rows.
        const QPoint corner = m_grid->geometry().bottomRight() - QPoint(kPreviewMargin, kPreviewMargin);
        m_preview->move(corner.x() - m_preview->width(), corner.y() - m_preview->height());
    }
    m_preview->show();
    keepPreviewInside();
    RefreshPreviewWindow(m_grid->Row());
}

void frmMain::unloadPreview()
{
    m_previewOpen = false;
    m_strip->setPreviewOpen(false);
    if (frmQuickView *preview = std::exchange(m_preview, nullptr))
        preview->unload();
}

void frmMain::RefreshPreviewWindow(int Row)
{
    if (!m_preview)
        return;
    if (Row <= 0) {
        m_preview->showNothing();
        return;
    }
    const BusyPointer busy;
    const int id = numericPrefixInt(m_grid->GetCelText(Row, kColumnID));
    try {
        const auto note =
            openNoteRow(m_services.store, id, QStringLiteral("BackColor"), dao::RecordsetType::ForwardOnly);
        if (note->eof())
            m_preview->showNothing();
        else
            m_preview->showNote(m_grid->GetCelText(Row, kColumnTitle), id, m_services.store.bodyFile(id),
                                note->field(QStringLiteral("BackColor")).toUInt());
    } catch (const RuntimeError &) {
        m_preview->showNothing();
    }
}

void frmMain::keepPreviewInside()
{
    if (m_preview && !m_window->isMinimized())
        m_preview->keepInside(width(), findChild<QStatusBar *>()->y());
}

void frmMain::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (m_previewOpen && !m_preview)
        showPreview(); // not before it can be seen: the start is to be quick
}

void frmMain::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    keepPreviewInside();
}

// ---- Categories ----

void frmMain::Refresh_tbCAT()
{
    m_categoryBar->setTabs(categoryTabs(readCategories(m_services.store)));
}

void frmMain::setShowCategoryBar(bool shown)
{
    m_grid->FilterCategory = 0;
    m_grid->FilterCategoryText = QStringLiteral(" All Categories");
    m_grid->setShowCategoryBar(shown);
    m_categoryBar->setVisible(shown);
    m_categoryBar->selectFilter(0);
    showRow();
}

void frmMain::followDatabase()
{
    m_grid->setGridDB(m_services.store.database());
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
    return m_categoryBar->filter();
}

void frmMain::tabClick()
{
    const bool isWaitedFor = isVisible();
    std::optional<BusyPointer> busy;
    if (isWaitedFor)
        busy.emplace();
    m_grid->FilterCategory = m_categoryBar->filter();
    m_grid->FilterCategoryText = u' ' + m_categoryBar->filterName();
    m_services.events.yield();
    const bool hadFocus = m_categoryBar->hasFocus();
    m_categoryBar->setEnabled(!isWaitedFor); // no second click while a long list is read
    Refresh_Grid();
    m_categoryBar->setEnabled(true);
    if (hadFocus) // or the arrow keys would not go beyond the next tab
        m_categoryBar->setFocus();
    showRow();
    MakeupButtons();
    if (m_previewOpen)
        RefreshPreviewWindow(m_grid->Row());
}

void frmMain::showCategoryMenu(const QPoint &screenPosition, bool selectOnly)
{
    CategoryMenu::State state;
    try {
        state.categories = readCategories(m_services.store);
    } catch (const RuntimeError &) {
        state.categories.clear(); // the menu is there without them
    }
    state.filter = m_categoryBar->filter();
    state.filterCaption = captionOfName(m_categoryBar->filterName());
    state.areButtons = m_categoryBar->barStyle() == CategoryBar::kButtons;
    if (selectOnly)
        m_categoryMenu.showSelect(this, screenPosition, state);
    else
        m_categoryMenu.showAll(this, screenPosition, state);
}

void frmMain::changeBarStyle()
{
    const bool areButtons = m_categoryBar->barStyle() == CategoryBar::kButtons;
    m_categoryBar->setBarStyle(areButtons ? CategoryBar::kTabs : CategoryBar::kButtons);
    settings::save(m_services.settings, settings::kCategoryBarStyle,
                   QString::number(m_categoryBar->barStyle()));
}

void frmMain::categoryCommand(const std::function<void()> &command)
{
    try {
        command();
    } catch (const RuntimeError &) {
        return;
    }
}

// ---- Side buttons ----

void frmMain::sideButton(const QString &name)
{
    static const std::pair<QString, QString> kMenuKeys[] = {
        {QStringLiteral("ARButton5"), QStringLiteral("EDIT")},
        {QStringLiteral("ARButton7"), QStringLiteral("DELETE")},
        {QStringLiteral("ARButton8"), QStringLiteral("SAVEAS")},
        {QStringLiteral("ARButton9"), QStringLiteral("EMAIL")},
    };
    for (const auto &[button, key] : kMenuKeys) {
        if (button == name)
            m_grid->RunGridMenu(key);
    }
    if (name == u"btnOpenURL") {
        const bool hasLocation = !m_grid->GetCelText(m_grid->Row(), kColumnLocation).trimmed().isEmpty();
        m_grid->RunGridMenu(hasLocation ? QStringLiteral("OPEN") : QStringLiteral("EDIT"));
    } else if (name == u"ARButton1") {
        const BusyPointer busy;
        m_services.views.showSearch(m_categoryBar->isVisible() ? std::optional(m_categoryBar->filter())
                                                               : std::nullopt);
    } else if (name == u"ARButton2") {
        m_services.views.showNewNote();
        if (m_previewOpen)
            RefreshPreviewWindow(m_grid->Row());
    } else if (name == u"ARButton3") {
        m_grid->ShowPropertyPage();
    } else if (name == u"ARButton4") {
        categoryCommand([this] { OpenLocation(m_services.shell, QDir::homePath()); });
    } else if (name == u"ARButton6") {
        m_services.views.showCategories();
    } else if (name == u"ARButton10") {
        togglePreview();
    }
}

// ---- Place ----

void frmMain::restorePlace()
{
    const QRect place =
        m_services.twips.toPixels(settings::readPlace(m_services.settings, settings::kBrowserPlace));
    // A large font may need more than what is kept.
    m_window->setGeometry({place.topLeft(), place.size().expandedTo(m_window->minimumSizeHint())});
}

void frmMain::savePlace()
{
    SettingsStore &store = m_services.settings;
    if (!m_window->isMinimized() && !m_window->isMaximized())
        settings::savePlace(store, settings::kBrowserPlace,
                            m_services.twips.fromPixels(m_window->geometry()));
    const auto write = [&store](const settings::Key &key, int number) {
        settings::save(store, key, QString::number(number));
    };
    write(settings::kBrowserWindowState, m_window->isMinimized() ? 1 : m_window->isMaximized() ? 2 : 0);
    write(settings::kLastCategory, m_categoryBar->currentIndex() + 1);
}

} // namespace norvane
