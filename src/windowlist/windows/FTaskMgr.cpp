#include "windowlist/windows/FTaskMgr.h"

#include "controls/named_button.h"
#include "platform/WindowSystem.h"
#include "shell/numeric_prefix.h"
#include "shell/window_places.h"
#include "shell/windows/form_icon.h"
#include "watcher/Notices.h"
#include "watcher/StickyNote.h"
#include "watcher/note_forms.h"
#include "windowlist/CTaskList.h"
#include "windowlist/windows/MRunDialog.h"
#include "windowlist/windows/TaskImages.h"
#include "windowlist/windows/TaskToolBar.h"
#include "windowlist/windows/TaskViews.h"
#include "windowlist/windows/WindowListServices.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>

namespace norvane {

namespace {

constexpr int kIntervalMs = 1000;

FTaskMgr *loadedWindowList(const FormList &forms)
{
    const QVector<Form *> loaded = forms.named(QStringLiteral("FTaskMgr"));
    return loaded.isEmpty() ? nullptr : dynamic_cast<FTaskMgr *>(loaded.constFirst());
}

/// The entries of the menu in the order of the views' numbers.
const QStringList kViewKeys{QStringLiteral("BM_LARGE"), QStringLiteral("BM_SMALL"), QStringLiteral("BM_LIST"),
                            QStringLiteral("BM_DETAILS")};

} // namespace

FTaskMgr::FTaskMgr(const WindowListServices &services)
    : FormWindow(services.forms, QStringLiteral("FTaskMgr")), m_services(services),
      m_rows(new TaskImages(services.windows, services.tasks, services.lookup)), m_toolBar(new TaskToolBar),
      m_list(new TaskViews(*m_rows)), m_close(namedButton(QStringLiteral("cmdExit"), tr("&Close")))
{
    setWindowTitle(tr("Window List"));
    SetFormIcon(this);
    m_rows->setParent(this);
    arrange();
    connectControls();

    const QRectF place = settings::readPlace(m_services.settings, settings::kTaskListPlace);
    const QRect wanted = m_services.twips.toPixels(place);
    const QRect room = (screen() ? screen() : QGuiApplication::primaryScreen())->availableVirtualGeometry();
    const QRect shown =
        settings::withinReach({wanted.topLeft(), wanted.size().expandedTo(minimumSizeHint())}, room);
    move(shown.topLeft());
    resize(shown.size());
    // Now that it has its place: one that has a window already is moved without its frame.
    m_rows->setOwnWindow(static_cast<WindowHandle>(winId()));
    m_toolBar->setOnTopCaption(tr("Stay on top"));
    const double view = numericPrefix(settings::read(m_services.settings, settings::kTaskListView));
    showView(static_cast<int>(std::clamp(view, 0.0, double(TaskViews::kDetails))));

    m_services.forms.add(this);
    refreshList();
    m_timer.start();
}

void FTaskMgr::arrange()
{
    m_toolBar->setObjectName(QStringLiteral("Toolbar1"));
    m_list->setObjectName(QStringLiteral("ListView1"));
    auto *bottom = new QHBoxLayout;
    bottom->addStretch();
    bottom->addWidget(m_close);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_toolBar);
    layout->addWidget(m_list, 1);
    layout->addLayout(bottom);
    setTabOrder(m_list, m_close);
    m_list->setFocus();
}

void FTaskMgr::connectControls()
{
    connect(m_toolBar, &TaskToolBar::commandTriggered, this, &FTaskMgr::command);
    connect(m_list, &TaskViews::columnClicked, m_rows, &TaskRows::sortBy);
    connect(m_list, &TaskViews::rowChosen, this, [this](int row) {
        switchTo(row);
        unload();
    });
    connect(m_close, &QPushButton::clicked, this, &FTaskMgr::unload);
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, &FTaskMgr::focusMoved);
    m_timer.setObjectName(QStringLiteral("Timer1"));
    m_timer.setInterval(kIntervalMs);
    connect(&m_timer, &QTimer::timeout, this, &FTaskMgr::refreshList);
}

// ---- The list ----

void FTaskMgr::refreshList()
{
    const int selected = m_list->selectedRow();
    const WindowHandle before = m_rows->handleAt(selected);
    m_rows->refresh();
    // Another window than the chosen one is not to be in its place.
    if (selected >= 0 && m_rows->rowOf(before) < 0)
        m_list->selectRow(-1);
}

void FTaskMgr::Form_Activate()
{
    refreshList();
    m_list->divideColumns();
    const bool isEmpty = m_rows->rowCount() == 0;
    m_list->selectRow(isEmpty ? -1 : 0);
    m_toolBar->setRowCommandsEnabled(!isEmpty);
}

/// The keyboard has gone to a window of the program. Who looks at another program or into a menu and comes
/// back has not left the list: the selection stays.
void FTaskMgr::focusMoved(const QWindow *window)
{
    if (window && window->type() == Qt::Popup)
        return;
    const bool isHere = window && window == windowHandle();
    if (isHere && (!m_wasActive || m_wasInAnother)) {
        m_wasActive = true;
        Form_Activate();
    }
    m_wasInAnother = window && !isHere;
}

WindowHandle FTaskMgr::selectedWindow()
{
    const WindowHandle window = m_rows->handleAt(m_list->selectedRow());
    if (window == kNoWindow)
        m_services.notices.showModal(tr("Please select a window from the list"));
    return window;
}

// ---- Commands ----

void FTaskMgr::command(const QString &key)
{
    if (key == u"TB_ATTACH")
        attach();
    else if (key == u"TB_DETACH")
        detach();
    else if (key == u"TB_SWITCH")
        switchTo(m_list->selectedRow());
    else if (key == u"TB_RUN")
        run();
    else if (key == u"TB_VIEW")
        showView((m_lastListView + 1) % TaskViews::kViews);
    else if (key == u"BM_ONTOP")
        setOnTop(m_toolBar->onTopCaption() != tr("Do not stay on top"));
    else if (kViewKeys.contains(key))
        showView(static_cast<int>(kViewKeys.indexOf(key)));
}

void FTaskMgr::attach()
{
    if (const WindowHandle window = selectedWindow(); window != kNoWindow)
        m_services.AttachWindow(m_rows->textAt(m_list->selectedRow()), window);
}

void FTaskMgr::detach()
{
    const WindowHandle window = selectedWindow();
    if (window == kNoWindow)
        return;
    if (StickyNote *note = noteOn(m_services.forms, window))
        note->mnuFile_Close_Click();
    m_services.windows.setForegroundWindow(window);
}

void FTaskMgr::switchTo(int row)
{
    if (const WindowHandle window = m_rows->handleAt(row); window != kNoWindow)
        m_services.tasks.Activate(0, window);
}

void FTaskMgr::run()
{
    setOnTop(false);
    ShowNewTask(m_services, this);
}

void FTaskMgr::showView(int view)
{
    m_lastListView = view;
    m_list->setView(static_cast<TaskViews::View>(view));
    m_toolBar->showView(view);
}

void FTaskMgr::setOnTop(bool on)
{
    m_toolBar->setOnTopCaption(on ? tr("Do not stay on top") : tr("Stay on top"));
    m_services.windows.setTopMost(hWnd(), on);
}

// ---- The window ----

void FTaskMgr::bringUp()
{
    bringToFront(m_services.windows);
}

void FTaskMgr::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    m_rows->setScale(devicePixelRatioF());
    m_list->divideColumns();
}

void FTaskMgr::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        unload();
    else
        QWidget::keyPressEvent(event);
}

void FTaskMgr::unloading()
{
    m_timer.stop();
    const QRect place = isMaximized() ? normalGeometry() : QRect(pos(), size());
    settings::savePlace(m_services.settings, settings::kTaskListPlace, m_services.twips.fromPixels(place));
    settings::save(m_services.settings, settings::kTaskListView, QString::number(m_lastListView));
}

void ShowWindowList(const WindowListServices &services)
{
    FTaskMgr *window = loadedWindowList(services.forms);
    if (!window)
        window = new FTaskMgr(services);
    window->bringUp();
}

void ToggleWindowList(const WindowListServices &services)
{
    if (FTaskMgr *window = loadedWindowList(services.forms))
        window->unload();
    else
        ShowWindowList(services);
}

} // namespace norvane
