#include "search/frmSearch.h"

#include "browser/grid/NoteGrid.h"
#include "controls/GroupBox.h"
#include "controls/named_button.h"
#include "controls/page_keys.h"
#include "platform/Clock.h"
#include "platform/EventLoop.h"
#include "platform/FileSystem.h"
#include "platform/RuntimeError.h"
#include "platform/Shell.h"
#include "platform/WindowSystem.h"
#include "platform/errors.h"
#include "richtext/EditServices.h"
#include "search/SearchAnimation.h"
#include "search/SearchTabs.h"
#include "search/find_notes.h"
#include "shell/internal_error.h"
#include "shell/path_rules.h"
#include "shell/windows/form_icon.h"
#include "store/NoteStore.h"
#include "watcher/NoteGridView.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QScopeGuard>
#include <QScreen>
#include <QStatusBar>
#include <QVBoxLayout>

namespace norvane {

namespace {

/// A clip for the animation, beside the program's other files. In spite of its name it is no library.
const QString kClipName = QStringLiteral("Mmr2.dll");

/// A search that takes less lets no events run, or shows nothing of how it goes on.
constexpr int kQuietCalls = 4;
constexpr int kQuickMs = 300;

constexpr int kWidthInCharacters = 132;
constexpr int kHeightInLines = 34;

dao::Database &openDatabase(const NoteStore &store)
{
    if (!store.database())
        throw RuntimeError(kErrorNothingThere, QStringLiteral("No database is open."));
    return *store.database();
}

} // namespace

frmSearch::frmSearch(const BrowserServices &services)
    : FormWindow(services.forms, QStringLiteral("frmSearch")), m_services(services),
      m_tabs(new SearchTabs(services.clock.now().date())), m_notes(new NoteGrid(services)),
      m_animation(new SearchAnimation), m_find(namedButton(QStringLiteral("Command1"), tr("&Find Now"))),
      m_new(namedButton(QStringLiteral("Command3"), tr("&New Search"))),
      m_close(namedButton(QStringLiteral("Command4"), tr("&Close"))),
      m_stop(namedButton(QStringLiteral("cmdStop"), tr("S&top"))), m_status(new QStatusBar)
{
    setWindowTitle(tr("Norvane Search"));
    setWindowFlags(Qt::Window);
    SetFormIcon(this);
    arrange();
    connectControls();

    m_tabs->setOptions(loadSearchOptions(m_services.settings));
    m_tabs->setCurrentIndex(0);
    m_notes->ResetColumns();
    m_notes->setGridDB(m_services.store.database());
    openClip();
    listCategories();
    ResetMinMax();
    m_services.forms.add(this);
}

void frmSearch::arrange()
{
    m_notes->setObjectName(QStringLiteral("DBGrid1"));
    m_status->setObjectName(QStringLiteral("StatusBar1"));
    m_find->setDefault(true);
    m_stop->setAutoDefault(false);        // Enter is not to stop what Enter has begun
    m_stop->setFocusPolicy(Qt::TabFocus); // it goes when the search is over
    for (QWidget *each : {static_cast<QWidget *>(m_animation), static_cast<QWidget *>(m_stop)}) {
        QSizePolicy keepsItsRoom = each->sizePolicy();
        keepsItsRoom.setRetainSizeWhenHidden(true);
        each->setSizePolicy(keepsItsRoom);
        each->hide();
    }
    auto *running = new QHBoxLayout;
    running->addWidget(m_animation);
    running->addWidget(m_stop);

    auto *buttons = new QVBoxLayout;
    for (QPushButton *each : {m_find, m_new, m_close})
        buttons->addWidget(each);
    buttons->addStretch();
    buttons->addLayout(running);
    auto *top = new QHBoxLayout;
    top->addWidget(m_tabs, 1);
    top->addLayout(buttons);

    auto *result = new GroupBox(tr("Result"));
    result->setObjectName(QStringLiteral("Frame2"));
    auto *inResult = new QVBoxLayout(result);
    inResult->addWidget(m_notes);

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(result, 1);
    layout->addWidget(m_status);
    const QFontMetrics font = fontMetrics();
    resize(QSize(kWidthInCharacters * font.averageCharWidth(), kHeightInLines * font.height())
               .boundedTo(screen()->availableSize() * 9 / 10));
}

void frmSearch::connectControls()
{
    turnPagesByKeys(m_tabs, this);
    connect(m_tabs, &SearchTabs::resetAsked, this, &frmSearch::ResetMinMax);
    connect(m_find, &QPushButton::clicked, this, &frmSearch::Command1_Click);
    connect(m_new, &QPushButton::clicked, this, &frmSearch::Command3_Click);
    connect(m_stop, &QPushButton::clicked, this, [this] { m_isStopped = true; });
    connect(m_close, &QPushButton::clicked, this, &frmSearch::unload);
    connect(m_notes, &NoteGrid::Changed, this, &frmSearch::followInBrowser);
    connect(m_notes, &NoteGrid::Refresh, this, &frmSearch::followInBrowser);
}

void frmSearch::openClip()
{
    const QString file = withSeparator(m_services.shell.programFolder()) + kClipName;
    if (!m_services.edit.files.exists(file))
        return;
    m_animation->open(file);
    m_animation->play();
}

void frmSearch::listCategories()
{
    m_tabs->setCategories(readCategories(m_services.store));
}

void frmSearch::selectCategory(int category)
{
    m_tabs->selectCategory(category);
}

void frmSearch::ResetMinMax()
{
    SearchDates dates = m_tabs->criteria().dates;
    readDateSpan(m_services.store, dates);
    m_tabs->setDates(dates);
}

void frmSearch::Command1_Click()
{
    if (m_isRunning)
        return;
    m_animation->show();
    m_animation->play();
    const SearchCriteria criteria = m_tabs->criteria();
    m_tabs->keepText();
    try {
        std::unique_ptr<dao::Recordset> found = search(criteria);
        showResult(std::move(found));
    } catch (const RuntimeError &error) {
        if (isUnloaded()) {
            deleteLater();
        } else if (error.number() == kErrorCancelled) {
            m_status->showMessage(tr("The search was stopped."));
            endAnimation();
        } else {
            // The animation goes on, until a search succeeds.
            tell(m_services.edit.prompts, tr("Please check your criteria and try again."));
        }
        return;
    }
    const int count = m_notes->GridRS()->recordCount();
    m_status->showMessage(QString::number(count) + tr(" Item(s) found"));
    if (count > 0)
        m_notes->SetFocus();
    endAnimation();
}

std::unique_ptr<dao::Recordset> frmSearch::search(const SearchCriteria &criteria)
{
    dao::Database &database = openDatabase(m_services.store);
    const QString status = m_status->currentMessage();
    m_isRunning = true;
    m_isStopped = false;
    m_progressCalls = 0;
    m_time.start();
    const auto over = qScopeGuard([&] {
        m_isRunning = false;
        m_stop->hide();
        m_status->showMessage(status);
        if (m_services.store.database() == &database) // or it was closed meanwhile
            database.setProgress({});
    });
    database.setProgress([this] { return goOn(); });
    auto found = findNotes(database, criteria);
    if (m_isStopped)
        throw RuntimeError(kErrorCancelled, QStringLiteral("The search was stopped."));
    return found;
}

/// Whether the search that runs is to go on.
bool frmSearch::goOn()
{
    if (++m_progressCalls <= kQuietCalls)
        return true;
    if (!m_stop->isVisible() && m_time.elapsed() > kQuickMs) {
        m_stop->show();
        m_status->showMessage(tr("Searching..."));
    }
    m_services.events.yield();
    return !m_isStopped;
}

void frmSearch::endAnimation()
{
    m_animation->stop();
    m_animation->hide();
}

void frmSearch::Command3_Click()
{
    if (m_isRunning)
        return;
    try {
        showResult(findNothing(openDatabase(m_services.store)));
    } catch (const RuntimeError &error) {
        showRuntimeError(m_services.edit.prompts, error);
        return;
    }
    m_tabs->clearText();
    m_tabs->selectCategory(kAllCategories);
    m_status->clearMessage();
    ResetMinMax();
}

void frmSearch::showResult(std::unique_ptr<dao::Recordset> notes)
{
    m_notes->setGridRS(std::move(notes));
    m_notes->Refresh_Grid();
}

void frmSearch::followInBrowser()
{
    m_services.browser.Refresh_Grid();
    m_services.browser.refreshAround();
}

void frmSearch::bringUp()
{
    bringToFront(m_services.windows);
    m_tabs->editText();
}

void frmSearch::reject()
{
    if (m_isRunning)
        m_isStopped = true;
    else
        unload();
}

void frmSearch::unloading()
{
    saveSearchOptions(m_services.settings, m_tabs->criteria().options);
    m_notes->setGridRS(nullptr);
    m_notes->setGridDB(nullptr);
    m_isStopped = true;
}

void ShowSearch(const BrowserServices &services, std::optional<int> category)
{
    const QVector<Form *> open = services.forms.named(QStringLiteral("frmSearch"));
    auto *window = open.isEmpty() ? nullptr : dynamic_cast<frmSearch *>(open.first());
    try {
        if (window)
            window->listCategories(); // it may have been open for long
        else
            window = std::make_unique<frmSearch>(services).release();
    } catch (const RuntimeError &error) {
        showRuntimeError(services.edit.prompts, error);
        return;
    }
    if (category == 0)
        window->selectCategory(kAllCategories);
    else if (category == -1)
        window->selectCategory(kNoCategory);
    else if (category)
        window->selectCategory(*category);
    window->bringUp();
}

} // namespace norvane
