#include "shell/lifecycle/StartUp.h"

#include "platform/EventLoop.h"
#include "platform/FileSystem.h"
#include "platform/InstanceLock.h"
#include "platform/Prompts.h"
#include "platform/RuntimeError.h"
#include "platform/Shell.h"
#include "platform/ShellWindows.h"
#include "platform/WatchTimer.h"
#include "platform/WindowSystem.h"
#include "shell/default_sound.h"
#include "shell/internal_error.h"
#include "shell/lifecycle/SharedState.h"
#include "shell/lifecycle/StartUpWindows.h"
#include "shell/numeric_prefix.h"
#include "shell/path_rules.h"
#include "shell/settings_keys.h"
#include "shell/tracked_classes.h"
#include "store/PasswordDialogModel.h"
#include "store/note_database.h"
#include "store/note_schema.h"

namespace norvane {

namespace {

constexpr qint16 kDefaultWatchInterval = 400;
constexpr qint16 kDefaultPartialMatchLength = 6;

/// A rectangle in whole twips, each edge rounded for itself.
QRectF wholeTwips(const QRectF &twips)
{
    const auto edge = [](double value) { return static_cast<double>(roundHalfEven(value)); };
    return {QPointF(edge(twips.left()), edge(twips.top())),
            QPointF(edge(twips.right()), edge(twips.bottom()))};
}

} // namespace

StartUp::StartUp(const StartUpParts &parts) : m_parts(parts), m_state(parts.state) {}

StartUp::Result StartUp::run(const QStringList &arguments)
{
    if (!m_parts.instanceLock.acquire())
        return Result::AlreadyRunning;
    try {
        start(arguments);
        return Result::Running;
    } catch (const RuntimeError &error) {
        showInternalError(m_parts.prompts, QStringLiteral("Norvane Startup Failed."), error);
        return Result::Failed;
    }
}

void StartUp::start(const QStringList &arguments)
{
    readCommandLine(arguments);
    if (m_state.watch.IEAvailable)
        m_parts.shellWindows.start();
    findDatabaseFolder();
    makeDatabaseIfMissing();
    avoidLockedDatabase();
    makeDatabaseIfMissing();
    writeDefaultSound();

    m_state.store.DatabaseFile = databaseFileIn(m_state.store.DatabaseFolder);
    m_state.store.CompactOnExit = true;
    m_state.DesktopWindow = m_parts.windowSystem.desktopWindow();
    m_state.store.DatabasePassword.clear();
    if (DatabaseHasPassword(m_state.store.engine(), m_state.store.DatabaseFile))
        askPassword();

    showSplash();
    openDatabase();
    fillWatchSettings();
    makeTaskList();

    loadFrame();
    placeFrame();
    loadBrowser();
    restoreCategory();
    m_parts.windows.pressPreviewButton();

    startWatching();
    m_parts.windows.unloadSplash();
}

void StartUp::readCommandLine(const QStringList &arguments)
{
    m_state.commandLine = CommandLine(arguments);
    const CommandLine &commandLine = m_state.commandLine;
    m_state.watch.WatchInterval = commandLine.noTimer() ? qint16(0) : kDefaultWatchInterval;
    m_state.watch.IEAvailable = m_parts.shellWindowsAvailable && !commandLine.noShellWindows();
    if (commandLine.hasInterval())
        m_state.watch.WatchInterval = commandLine.interval();
}

void StartUp::findDatabaseFolder()
{
    m_state.store.programFolder = m_parts.shell.programFolder();
    const QString setting = settings::read(m_parts.settings, settings::kDatabase);
    m_state.store.DatabaseFolder = setting.isEmpty() ? defaultFolder() : customFolder(setting);
}

QString StartUp::customFolder(const QString &setting)
{
    const QString folder = withoutSeparator(setting.trimmed());
    if (!m_state.store.files().exists(folder))
        m_state.store.files().makeFolder(folder);
    return withSeparator(folder);
}

QString StartUp::defaultFolder()
{
    const QString folder = m_state.store.programFolder + pathSeparator() + QStringLiteral("Notes");
    if (!m_state.store.files().exists(folder))
        m_state.store.files().makeFolder(folder);
    return withSeparator(folder);
}

/// A database that cannot be made is no error here: opening it will be one.
void StartUp::makeDatabaseIfMissing()
{
    const QString path = databaseFileIn(m_state.store.DatabaseFolder);
    if (!m_state.store.files().exists(path))
        CreateNoteDatabase(m_state.store.engine(), m_state.store.files(), path);
}

/// Falls back to the default folder for this run. The setting stays, so that the next start tries
/// the user's folder again.
void StartUp::avoidLockedDatabase()
{
    if (!DatabaseIsLocked(m_state.store.engine(), databaseFileIn(m_state.store.DatabaseFolder)))
        return;
    tell(m_parts.prompts, QStringLiteral("The target Norvane database is not available or locked by another "
                                         "user. Default database will be used."));
    m_state.store.DatabaseFolder = defaultFolder();
}

/// A file that is there stays: it may be the user's own sound.
void StartUp::writeDefaultSound()
{
    m_state.DefaultSoundFile = m_state.store.programFolder + pathSeparator() + kDefaultSoundName.toString();
    if (!m_state.store.files().exists(m_state.DefaultSoundFile))
        m_state.store.files().write(m_state.DefaultSoundFile, defaultSound());
}

void StartUp::askPassword()
{
    PasswordDialogModel model(m_state.store, m_parts.prompts, m_parts.events, m_state.store.DatabaseFile);
    m_parts.windows.askPassword(model);
    m_state.store.DatabasePassword = model.password();
}

void StartUp::showSplash()
{
    m_parts.windows.showSplash();
    m_parts.events.yield();
}

void StartUp::openDatabase()
{
    NoteStore &store = m_state.store;
    // What kept the file from being made says more than that it is not there.
    if (!store.files().exists(store.DatabaseFile))
        makeNoteDatabase(store.engine(), store.files(), store.DatabaseFile);
    store.open();
}

void StartUp::fillWatchSettings()
{
    m_state.watch.TrackedClasses = trackedClasses(m_parts.settings);
    m_state.watch.PartialMatchLength = kDefaultPartialMatchLength;
    m_state.watch.ExactWindowName =
        numericPrefix(settings::read(m_parts.settings, settings::kExactWindowName)) != 0.0;
}

void StartUp::makeTaskList()
{
    m_state.TaskList =
        std::make_unique<CTaskList>(m_parts.windowSystem, m_parts.shellWindows, m_parts.windowLookup);
}

/// Nothing of the frame is painted until the browser is in it.
void StartUp::loadFrame()
{
    m_parts.windowSystem.lockWindowUpdate(m_parts.windows.loadFrame());
}

void StartUp::placeFrame()
{
    const QRectF workArea = wholeTwips(m_parts.twips.fromPixels(m_parts.windowSystem.workArea()));
    const auto stored = [this](const settings::Key &key, const QString &defaultValue) {
        return numericPrefix(settings::read(m_parts.settings, key, defaultValue));
    };
    const QString zero = QStringLiteral("0");
    const double top = stored(settings::kMainTop, zero);
    const double left = stored(settings::kMainLeft, zero);
    const double width = stored(settings::kMainWidth, QString::number(workArea.width(), 'f', 0));
    const double height = stored(settings::kMainHeight, QString::number(workArea.height(), 'f', 0));
    // Top and left change places here, as they always have: users know the frame by it.
    m_parts.windows.moveFrame(QRectF(top, left, width, height));
    m_parts.windows.minimiseFrame();
    m_parts.events.yield();
}

void StartUp::loadBrowser()
{
    m_parts.windows.showBrowser();
    m_parts.windowSystem.lockWindowUpdate(kNoWindow);
    m_parts.windows.Refresh_tbCAT();
}

void StartUp::restoreCategory()
{
    const double number = numericPrefix(settings::read(m_parts.settings, settings::kLastCategory));
    const bool there = number >= 1.0 && number <= m_parts.windows.categoryTabCount();
    m_parts.windows.selectCategoryTab(there ? static_cast<int>(roundHalfEven(number)) : 1);
}

void StartUp::startWatching()
{
    m_parts.timer.setInterval(m_state.watch.WatchInterval);
    m_parts.timer.setEnabled(m_state.watch.WatchInterval > 0);
}

} // namespace norvane
