#include "app/Program.h"

#include "browser/editor/note_editors.h"
#include "browser/frmMain.h"
#include "platform/RuntimeError.h"
#include "platform/linux/ExitGuard.h"
#include "platform/linux/wayland_session.h"
#include "shell/hot_key_actions.h"
#include "shell/internal_error.h"
#include "shell/lifecycle/StartUp.h"
#include "shell/tray_menu.h"
#include "shell/windows/TrayIcon.h"
#include "shell/windows/mdiMain.h"
#include "store/note_row.h"
#include "watcher/open_location.h"

#include <QGuiApplication>
#include <QScopedValueRollback>
#include <QScreen>

namespace norvane {

namespace {

constexpr int kLongNoticeMs = 10000;

Twips screenTwips()
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen ? Twips(screen->logicalDotsPerInchX(), screen->logicalDotsPerInchY()) : Twips();
}

} // namespace

Program::Watching::Watching(Program &program)
    : stickies({.store = program.m_state.store,
                .forms = program.m_state.forms,
                .clips = program.m_state.Clips,
                .windows = program.m_backends.windows,
                .embedding = program.m_backends.embedding,
                .timer = program.m_backends.timer,
                .watch = program.m_state.watch,
                .events = program.m_backends.events,
                .clock = program.m_backends.clock,
                .sound = program.m_backends.sound,
                .hotKeys = program.m_backends.hotKeys,
                .grid = program.m_views,
                .rescue = program.m_rescue,
                .edit = program.m_edit,
                .capture = program.m_backends.capture,
                .views = program.m_noteWindows,
                .menuImages = program.m_menuImages,
                .closeKey = [&program] { return program.m_hotKeys.text(HotKeyId::Detach); },
                .twips = program.m_twips,
                .clickSound = program.m_state.DefaultSoundFile}),
      cycle(program.watchParts(stickies)), attach(program.watchParts(stickies), cycle, program.m_views),
      noteKeys(program.m_state.store, program.m_backends.windows, program.m_location, program.m_state.forms,
               attach, program.m_views, program.m_backends.prompts)
{
    attach.setGrid(&program.m_views);
    noteKeys.setGrid(&program.m_views);
}

WatchParts Program::watchParts(StickyFactory &stickies)
{
    return {.store = m_state.store,
            .settings = m_state.watch,
            .windows = m_backends.windows,
            .shellWindows = m_backends.shellWindows,
            .location = m_location,
            .tasks = *m_state.TaskList,
            .LiveWindows = m_state.LiveWindows,
            .Clips = m_state.Clips,
            .forms = m_state.forms,
            .timer = m_backends.timer,
            .events = m_backends.events,
            .shell = m_backends.shell,
            .clock = m_backends.clock,
            .sound = m_backends.sound,
            .stickies = stickies};
}

Program::Program()
    : m_state(*m_backends.engine, m_backends.files), m_twips(screenTwips()),
      m_location(m_backends.windows, m_backends.shellWindows, m_backends.processes, m_state.watch),
      m_hotKeys(m_backends.hotKeys), m_edit({.files = m_backends.files,
                                             .shell = m_backends.shell,
                                             .prompts = m_backends.prompts,
                                             .printing = m_backends.printing,
                                             .clock = m_backends.clock,
                                             .state = m_state.edit}),
      m_views(m_windows),
      m_noteWindows(m_browser, m_rescue, m_windows, m_options, m_backends.mail, m_backends.outlook),
      m_browser({.store = m_state.store,
                 .forms = m_state.forms,
                 .settings = m_backends.settings,
                 .shell = m_backends.shell,
                 .clock = m_backends.clock,
                 .sound = m_backends.sound,
                 .events = m_backends.events,
                 .windows = m_backends.windows,
                 .timer = m_backends.timer,
                 .watch = m_state.watch,
                 .edit = m_edit,
                 .browser = m_views,
                 .views = m_noteWindows,
                 .isFrameVisible = [this] { return m_windows.isFrameVisible(); },
                 .twips = m_twips}),
      m_windows({.services = m_browser,
                 .trayHost = m_backends.trayHost,
                 .hotKeys = m_hotKeys,
                 .version = QVersionNumber::fromString(QCoreApplication::applicationVersion())}),
      m_options(m_state, m_browser, m_hotKeys, m_windows,
                [this] { QMetaObject::invokeMethod(this, &Program::end, Qt::QueuedConnection); }),
      m_windowList(m_backends, m_state, m_location, m_views, m_windows, m_twips,
                   [this](const QString &title, WindowHandle window) { m_watching->attach(title, window); }),
      m_rescue(m_state.store, m_backends.files, m_backends.clock, m_backends.notifier,
               [this](const QString &text) { m_windows.showNotice(text, kLongNoticeMs); }),
      m_menuImages(sharedMenuImages()), m_shutDown({.store = m_state.store,
                                                    .watch = m_state.watch,
                                                    .timer = m_backends.timer,
                                                    .forms = m_state.forms,
                                                    .unloadPreview = [this] { m_windows.unloadPreview(); },
                                                    // Not quit(), which any window may decline.
                                                    .endProcess = [] { QCoreApplication::exit(); }}),
      m_firstNotices(m_backends.settings, m_backends.notifier,
                     [this](const QString &text) { return m_windows.showNotice(text, kLongNoticeMs); }),
      m_accessibility(m_backends.settings, m_backends.prompts, m_backends.shellWindows)
{
}

Program::~Program() = default;

void Program::tellOf(const RuntimeError &error)
{
    showRuntimeError(m_backends.prompts, error);
}

int Program::run(const QStringList &arguments)
{
    // The start takes events while the keys are ours already.
    connect(&m_backends.hotKeys, &HotKeys::pressed, this, [this](WindowHandle window, int id) {
        if (m_windows.browser() && window == m_windows.browser()->hWnd())
            hotKeyPressed(id);
    });
    const StartUp::Result result = StartUp({.state = m_state,
                                            .instanceLock = m_backends.instanceLock,
                                            .settings = m_backends.settings,
                                            .shell = m_backends.shell,
                                            .prompts = m_backends.prompts,
                                            .events = m_backends.events,
                                            .windowSystem = m_backends.windows,
                                            .shellWindows = m_backends.shellWindows,
                                            .shellWindowsAvailable = true,
                                            .windowLookup = m_location,
                                            .timer = m_backends.timer,
                                            .windows = m_windows,
                                            .twips = m_twips})
                                       .run(arguments);
    if (result == StartUp::Result::AlreadyRunning)
        return 0;
    if (result == StartUp::Result::Failed)
        return 1;

    m_watching = std::make_unique<Watching>(*this);
    // The display may go, or the session end, without time for the windows.
    const ExitGuard guard([this] {
        m_shutDown.saveAndClose();
        RescueEditors(m_state.forms);
        m_backends.settings.flush();
    });
    EndSignals endSignals;
    connect(&endSignals, &EndSignals::endAsked, this, &Program::end);
    qApp->installEventFilter(this);
    connect(
        qGuiApp, &QGuiApplication::commitDataRequest, this,
        [this] {
            saveDirtyNotes(m_state.forms);
            RescueEditors(m_state.forms);
        },
        Qt::DirectConnection);
    connectWindows();
    fillTray();
    connect(&m_backends.shellWindows, &ShellWindows::locationChanged, this, &Program::offerAccessibility);

    m_firstNotices.tellKeys(m_hotKeys.text(HotKeyId::Attach), m_hotKeys.text(HotKeyId::Main));
    QStringList refused;
    for (const HotKeyId id : m_windows.refusedKeys())
        refused.append(m_hotKeys.text(id));
    m_firstNotices.tellRefused(refused);
    if (isWaylandSession())
        m_firstNotices.tellOnlyX();
    for (const int id : std::as_const(m_earlyKeys))
        QMetaObject::invokeMethod(
            this, [this, id] { hotKeyPressed(id); }, Qt::QueuedConnection);
    const int code = QCoreApplication::exec();
    end(); // when the loop was left by another way than the shut-down
    return code;
}

bool Program::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != qApp || event->type() != QEvent::Quit)
        return QObject::eventFilter(watched, event);
    // Left to itself, the toolkit would close each window first, which detaches a note for good.
    end();
    return true;
}

void Program::end()
{
    if (m_watching)
        m_watching->cycle.end();
    m_shutDown.run();
}

void Program::connectWindows()
{
    connect(
        &m_windows, &ShellForms::shutDownRequested, this,
        [this] {
            if (EditorsMayClose(m_state.forms))
                end();
        },
        Qt::QueuedConnection);
    connect(
        &m_windows, &ShellForms::commandTriggered, this,
        [this](const QString &name) {
            if (name == u"SEARCH" || name == u"mnu_Search")
                m_noteWindows.showSearch({});
            else if (name == u"SETTINGS" || name == u"mnu_Settings")
                m_options.show(frmSetting::kAbout);
            else if (name == u"WINDOWLIST" || name == u"mnu_Attach")
                m_windowList.show();
            else if (name == u"RUN")
                m_windowList.showRun();
        },
        Qt::QueuedConnection); // the menu or button that it comes from is done with it first
    connect(&m_windows, &ShellForms::openPageRequested, this, &Program::openPage);
}

// ---- Hot keys ----

void Program::hotKeyPressed(int id)
{
    if (!m_watching) {
        m_earlyKeys.append(id);
        return;
    }
    const auto action = hotKeyAction(id);
    if (!action || m_shutDown.begun() || m_inHotKey)
        return;
    // A question that a key has opened takes events, further presses among them.
    const QScopedValueRollback<bool> inHotKey(m_inHotKey, true);
    switch (*action) {
    case HotKeyAction::ToggleBrowser:
        m_windows.ToggleBrowser();
        break;
    case HotKeyAction::AttachFrontWindow:
        m_watching->noteKeys.attachFrontWindow();
        break;
    case HotKeyAction::CloseFrontNote:
        m_watching->noteKeys.closeFrontNote();
        break;
    case HotKeyAction::DeleteFrontNote:
        m_watching->noteKeys.deleteFrontNote();
        break;
    case HotKeyAction::ShowSearch:
        m_noteWindows.showSearch({});
        break;
    case HotKeyAction::ToggleWindowList:
        m_windowList.toggle();
        break;
    }
}

// ---- Tray ----

void Program::fillTray()
{
    TrayIcon *tray = m_windows.browser()->trayIcon();
    tray->setMenuSource([this] { return trayItems(); });
    tray->noteChange();
}

QVector<TrayMenuItem> Program::trayItems() const
{
    QVector<OpenPageEntry> pages;
    try {
        if (m_state.store.database())
            pages = openPageEntries(*m_state.store.database());
    } catch (const RuntimeError &) {
        pages.clear(); // the menu is there without them
    }
    return trayMenu({m_hotKeys.text(HotKeyId::Main), m_hotKeys.text(HotKeyId::AttachDetachWindow),
                     m_hotKeys.text(HotKeyId::Search)},
                    pages);
}

void Program::openPage(int id)
{
    try {
        const auto note =
            openNoteRow(m_state.store, id, QStringLiteral("URL"), dao::RecordsetType::ForwardOnly);
        if (!note->eof())
            OpenLocation(m_backends.shell, note->field(QStringLiteral("URL")).toString());
    } catch (const RuntimeError &error) {
        tell(m_backends.prompts, error.description());
    }
}

// ---- Accessibility ----

void Program::offerAccessibility()
{
    if (m_backends.shellWindows.needsAccessibility())
        m_accessibility.noticeBrowserWithoutLocation();
}

} // namespace norvane
