#include "shell/windows/mdiMain.h"

#include "controls/DropTarget.h"
#include "platform/Clock.h"
#include "shell/window_places.h"
#include "shell/windows/StatusPanel.h"
#include "shell/windows/child_list.h"
#include "shell/windows/form_icon.h"
#include "shell/windows/frmAbout.h"
#include "shell/windows/mdi_arrange.h"
#include "store/NoteDatabaseSwitch.h"

#include <QAction>
#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QLocale>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QWindow>

namespace norvane {

namespace {

struct Command
{
    const char16_t *key;
    const char *text;
    const char *toolTip;
};

constexpr Command kCommands[] = {
    {u"NOTEBROWSER", QT_TRANSLATE_NOOP("norvane::mdiMain", "Note &Browser"),
     QT_TRANSLATE_NOOP("norvane::mdiMain", "Show the note browser")},
    {u"WINDOWLIST", QT_TRANSLATE_NOOP("norvane::mdiMain", "&Window List"),
     QT_TRANSLATE_NOOP("norvane::mdiMain", "Show the list of running windows")},
    {u"SETTINGS", QT_TRANSLATE_NOOP("norvane::mdiMain", "&Options..."),
     QT_TRANSLATE_NOOP("norvane::mdiMain", "Change how Norvane works")},
    {u"SEARCH", QT_TRANSLATE_NOOP("norvane::mdiMain", "&Search"),
     QT_TRANSLATE_NOOP("norvane::mdiMain", "Search in all notes")},
    {u"RUN", QT_TRANSLATE_NOOP("norvane::mdiMain", "&Run..."),
     QT_TRANSLATE_NOOP("norvane::mdiMain", "Open a folder, program, document or Internet resource")},
    {u"EXIT", QT_TRANSLATE_NOOP("norvane::mdiMain", "E&xit"),
     QT_TRANSLATE_NOOP("norvane::mdiMain", "End Norvane")},
};

constexpr int kSettlingMs = 5000; // a busy window manager takes its time
const QString kExit = QStringLiteral("EXIT");

} // namespace

mdiMain::mdiMain(FormList &forms, SettingsStore &settings, const Clock &clock, Twips twips)
    : m_forms(forms), m_settings(settings), m_clock(clock), m_twips(twips), m_area(new QMdiArea(this))
{
    setObjectName(QStringLiteral("mdiMain"));
    setWindowTitle(QStringLiteral("Norvane"));
    SetFormIcon(this);
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_area->setAccessibleName(tr("Windows of Norvane"));
    setCentralWidget(m_area);
    styleChildArea();
    makeCommands();
    makeToolBar();
    makeMenus();
    makeStatusBar();
    makeCloseKeys();
    connect(new DropTarget(this), &DropTarget::dropped, this, &mdiMain::dropped);
    m_forms.add(this);
}

mdiMain::~mdiMain()
{
    m_forms.remove(this);
}

QString mdiMain::formName() const
{
    return QStringLiteral("mdiMain");
}

WindowHandle mdiMain::hWnd() const
{
    return static_cast<WindowHandle>(winId());
}

void mdiMain::unload()
{
    m_forms.remove(this);
    hide();
    deleteLater();
}

void mdiMain::makeCommands()
{
    for (const Command &command : kCommands) {
        const QString key = QString::fromUtf16(command.key);
        auto *action = new QAction(toolIcon(key), tr(command.text), this);
        action->setObjectName(key);
        action->setToolTip(tr(command.toolTip));
        action->setStatusTip(QString());
        if (key == kExit)
            connect(action, &QAction::triggered, this, &QWidget::close);
        else
            connect(action, &QAction::triggered, this, [this, key] { emit commandTriggered(key); });
        addAction(action);
    }
}

void mdiMain::makeToolBar()
{
    auto *bar = addToolBar(tr("Tool Bar"));
    bar->setObjectName(QStringLiteral("Toolbar1"));
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    for (QAction *action : actions()) {
        if (action->objectName() == kExit)
            bar->addSeparator();
        bar->addAction(action);
        QWidget *button = bar->widgetForAction(action);
        button->setObjectName(action->objectName());
        button->setFocusPolicy(Qt::TabFocus);
    }
}

void mdiMain::makeMenus()
{
    QMenu *file = menuBar()->addMenu(tr("&Norvane"));
    for (QAction *action : actions()) {
        if (action->objectName() == kExit)
            file->addSeparator();
        file->addAction(action);
    }

    QMenu *window = menuBar()->addMenu(tr("&Window"));
    window->setObjectName(QStringLiteral("menu_Window"));
    const auto add = [&](const char16_t *name, const QString &text, Arrange how) {
        QAction *action = window->addAction(text, this, [this, how] { arrangeChildren(m_area, how); });
        action->setObjectName(QString::fromUtf16(name));
    };
    add(u"menu_Window_Cascade", tr("&Cascade"), Arrange::Cascade);
    add(u"menu_Window_Tile_H", tr("Tile &Horizontally"), Arrange::TileHorizontally);
    add(u"menu_Window_Tile_V", tr("Tile &Vertically"), Arrange::TileVertically);
    add(u"menu_Window_Arrange_Icons", tr("&Arrange Icons"), Arrange::ArrangeIcons);
    listChildrenIn(window, m_area);

    QMenu *help = menuBar()->addMenu(tr("&Help"));
    help->setObjectName(QStringLiteral("menu_Help"));
    QAction *about = help->addAction(applicationIcon(), tr("&About Norvane"), this, &mdiMain::showAbout);
    about->setObjectName(QStringLiteral("menu_Help_About"));
}

void mdiMain::makeStatusBar()
{
    auto *bar = new QStatusBar(this);
    bar->setObjectName(QStringLiteral("StatusBar1"));
    bar->setContextMenuPolicy(Qt::NoContextMenu); // a right click goes up to the frame
    setStatusBar(bar);
    m_datePanel = new StatusPanel(QStringLiteral("PNLDATE"));
    m_databasePanel = new StatusPanel(QStringLiteral("DBNAME"));
    auto *logo = new QLabel;
    logo->setObjectName(QStringLiteral("NORVANELOGO"));
    logo->setAccessibleName(QStringLiteral("Norvane"));
    const int side = fontMetrics().height();
    logo->setPixmap(applicationIcon().pixmap(QSize(side, side), devicePixelRatioF()));
    logo->setContentsMargins(4, 0, 6, 0);
    bar->addWidget(m_datePanel);
    bar->addWidget(m_databasePanel, 1);
    bar->addPermanentWidget(logo);
    showDate();
    setDatabaseFolder(QString());
}

void mdiMain::styleChildArea()
{
    // A tone under the windows' own, in light and in dark.
    const QColor window = palette().color(QPalette::Window);
    m_area->setBackground(window.lightness() < 128 ? window.darker(125) : window.darker(108));
}

void mdiMain::showDate()
{
    const QDate today = m_clock.now().date();
    m_datePanel->setPanelText(QStringLiteral("  %1  ").arg(QLocale().toString(today, QLocale::LongFormat)));
}

void mdiMain::setDatabaseFolder(const QString &folder)
{
    m_databasePanel->setPanelText(databasePanelText(folder));
}

void mdiMain::Move(double left, double top, double width, double height)
{
    const QRect place = m_twips.toPixels(QRectF(left, top, width, height));
    move(place.topLeft());
    resize(place.size());
    m_settling = true;
}

void mdiMain::minimize()
{
    // Without a word to the window manager: what it would answer to a request to minimise comes late
    // and would undo a restore() that follows closely.
    hide();
}

void mdiMain::restore()
{
    if (isMinimized()) // by the window manager, before it was hidden
        setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

QAction *mdiMain::command(const QString &key) const
{
    return findChild<QAction *>(key, Qt::FindDirectChildrenOnly);
}

QMdiSubWindow *mdiMain::addChild(QWidget *child)
{
    QMdiSubWindow *window = m_area->addSubWindow(child);
    // Each has the keys that close it; with a second window they would be ambiguous.
    if (const QMenu *menu = window->systemMenu()) {
        const QList<QAction *> entries = menu->actions();
        for (QAction *entry : entries)
            entry->setShortcuts(QList<QKeySequence>());
    }
    return window;
}

void mdiMain::makeCloseKeys()
{
    auto *close = new QAction(this);
    close->setShortcuts({QKeySequence(Qt::CTRL | Qt::Key_W), QKeySequence(Qt::CTRL | Qt::Key_F4)});
    connect(close, &QAction::triggered, m_area, &QMdiArea::closeActiveSubWindow);
    addAction(close);
}

void mdiMain::Form_Resize()
{
    if (isMinimized()) {
        hide();
        return;
    }
    if (!isVisible())
        return;
    settings::savePlace(m_settings, settings::kMainPlace, m_twips.fromPixels(QRect(pos(), size())));
}

// A stored place may be of another screen, and the default is the whole work area, into which the
// window manager's frame does not fit as well.
void mdiMain::keepWithinReach()
{
    if (!m_settling || !isVisible() || isMinimized() || isMaximized() || isFullScreen())
        return;
    // The window knows its margins as soon as they are there; what the widget keeps of them may be
    // from before.
    const QMargins around = windowHandle()->frameMargins();
    const QRect room = screen()->availableGeometry();
    const QSize fitting = size().boundedTo(room.marginsRemoved(around).size()).expandedTo(minimumSizeHint());
    const QSize outer = fitting.grownBy(around);
    const QPoint now = windowHandle()->framePosition();
    const QPoint place = settings::withinReach(QRect(now, outer), room).topLeft();
    if (place != now)
        move(place);
    if (fitting != size())
        resize(fitting); // saves the place, too
    if (!around.isNull())
        m_settling = false;
}

void mdiMain::resizeEvent(QResizeEvent *event)
{
    QMainWindow::resizeEvent(event);
    Form_Resize();
}

void mdiMain::moveEvent(QMoveEvent *event)
{
    QMainWindow::moveEvent(event);
    if (isVisible())
        keepWithinReach();
}

void mdiMain::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange)
        Form_Resize();
    else if (event->type() == QEvent::PaletteChange)
        styleChildArea();
    else if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
        keepWithinReach();
        emit activated();
    }
}

void mdiMain::showEvent(QShowEvent *event)
{
    QMainWindow::showEvent(event);
    showDate(); // the program runs for days
    keepWithinReach();
    // A desktop without frames sends none; from then on the place is the user's.
    QTimer::singleShot(kSettlingMs, this, [this] {
        keepWithinReach();
        m_settling = false;
    });
}

void mdiMain::closeEvent(QCloseEvent *event)
{
    event->ignore();
    emit shutDownRequested();
}

void mdiMain::contextMenuEvent(QContextMenuEvent *event)
{
    QMenu menu(this);
    menu.setObjectName(QStringLiteral("mnu_Frame"));
    for (QAction *action : actions()) {
        if (action->objectName() == kExit)
            menu.addSeparator();
        menu.addAction(action);
    }
    menu.exec(event->globalPos());
}

void mdiMain::showAbout()
{
    frmAbout about(this);
    about.exec();
}

} // namespace norvane
