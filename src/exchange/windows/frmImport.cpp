#include "exchange/windows/frmImport.h"

#include "browser/dialogs/dialog_parts.h"
#include "controls/GroupBox.h"
#include "controls/named_button.h"
#include "exchange/import/ImportList.h"
#include "exchange/import/NoteImport.h"
#include "exchange/import/import_report.h"
#include "exchange/import/start_import.h"
#include "platform/EventLoop.h"
#include "platform/Prompts.h"
#include "platform/WatchTimer.h"
#include "richtext/EditServices.h"
#include "shell/internal_error.h"
#include "shell/path_rules.h"
#include "shell/windows/StatusPanel.h"
#include "shell/windows/form_icon.h"
#include "store/NoteStore.h"
#include "store/categories.h"
#include "store/note_schema.h"
#include "watcher/NoteGridView.h"
#include "watcher/WatchSettings.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QStyledItemDelegate>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace norvane {

namespace {

/// An import that takes less shows nothing of how it goes on.
constexpr int kQuickMs = 300;

constexpr int kWidthInCharacters = 160;
constexpr int kHeightInLines = 30;

/// Rows with some room between their boxes.
class RoomyRows : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, option.fontMetrics.height() / 3);
    }
};

/// Keeps its room while it is hidden.
void hideInPlace(QWidget *widget)
{
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
    widget->hide();
}

} // namespace

frmImport::frmImport(const BrowserServices &services, QWidget *parent)
    : QDialog(parent), m_services(services), m_notes(new ImportList(this)),
      m_database(new StatusPanel(QStringLiteral("lblCurrentDatabase"))), m_view(new QTreeView),
      m_frame(new GroupBox(tr("Select Notes to Import"))),
      m_selectAll(namedButton(QStringLiteral("Command4"), tr("&Select All"))),
      m_selectNone(namedButton(QStringLiteral("Command3"), tr("&Deselect All"))),
      m_invert(namedButton(QStringLiteral("Command5"), tr("&Invert"))),
      m_setCategory(
          namedButton<QCheckBox>(QStringLiteral("chkCat"), tr("Reset Imported Note(s) Category to:"))),
      m_categories(new QComboBox), m_status(new QLabel), m_progress(new QProgressBar),
      m_stop(namedButton(QStringLiteral("cmdStop"), tr("S&top"))),
      m_import(namedButton(QStringLiteral("Command1"), tr("&Import"))),
      m_close(namedButton(QStringLiteral("Command2"), tr("&Close")))
{
    setObjectName(QStringLiteral("frmImport"));
    setWindowTitle(tr("Norvane Import"));
    SetFormIcon(this);
    arrange();
    connectControls();

    m_categories->addItem(tr("(No Category)"), 0);
    for (const Category &category : readCategories(m_services.store))
        m_categories->addItem(category.Name, category.ID);
    m_services.forms.add(this);
}

frmImport::~frmImport()
{
    m_services.forms.remove(this);
}

void frmImport::arrange()
{
    constexpr int kShownCharacters = 24;
    m_categories->setObjectName(QStringLiteral("cmbCat"));
    m_categories->setAccessibleName(tr("Category of the imported notes"));
    m_categories->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_categories->setMinimumContentsLength(kShownCharacters);
    m_categories->setEnabled(false);
    m_status->setObjectName(QStringLiteral("lblStatus"));
    m_status->setTextFormat(Qt::PlainText);
    m_progress->setObjectName(QStringLiteral("prgImport"));
    m_progress->setAccessibleName(tr("Notes done"));
    m_progress->setFormat(tr("%v of %m"));
    m_import->setDefault(true);
    m_stop->setAutoDefault(false);        // Enter is not to stop what Enter has begun
    m_stop->setFocusPolicy(Qt::TabFocus); // it goes when the import is over
    hideInPlace(m_progress);
    hideInPlace(m_stop);

    auto *from = new QHBoxLayout;
    QLabel *fromCaption = caption(tr("Import From:"), m_database);
    fromCaption->setObjectName(QStringLiteral("Label1"));
    from->addWidget(fromCaption);
    from->addWidget(m_database, 1);
    auto *reset = new QHBoxLayout;
    reset->addWidget(m_setCategory);
    reset->addWidget(m_categories);
    reset->addStretch();
    auto *bottom = new QHBoxLayout;
    bottom->addWidget(m_status, 1);
    bottom->addWidget(m_progress, 1);
    bottom->addWidget(m_stop);
    bottom->addSpacing(fontMetrics().averageCharWidth() * 2);
    bottom->addWidget(m_import);
    bottom->addWidget(m_close);

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(from);
    layout->addWidget(notesFrame(), 1);
    layout->addLayout(reset);
    layout->addLayout(bottom);
    const QFontMetrics font = fontMetrics();
    resize(QSize(kWidthInCharacters * font.averageCharWidth(), kHeightInLines * font.height())
               .boundedTo(screen()->availableSize() * 9 / 10));
    setColumnWidths();
    m_view->setFocus();
}

QGroupBox *frmImport::notesFrame()
{
    m_frame->setObjectName(QStringLiteral("Frame1"));
    m_view->setObjectName(QStringLiteral("ListView1"));
    m_view->setAccessibleName(tr("Notes of the other database"));
    m_view->setModel(m_notes);
    m_view->setItemDelegate(new RoomyRows(m_view));
    m_view->setRootIsDecorated(false);
    m_view->setUniformRowHeights(true);
    m_view->setAllColumnsShowFocus(true);
    m_view->header()->setSectionsClickable(true);
    m_view->header()->setSortIndicator(ImportList::kName, Qt::AscendingOrder);
    m_view->header()->setSortIndicatorShown(true);
    m_view->installEventFilter(this);
    makeSortMenu();
    auto *checks = new QHBoxLayout;
    for (QPushButton *each : {m_selectAll, m_selectNone, m_invert}) {
        each->setAutoDefault(false);
        checks->addWidget(each);
    }
    checks->addStretch();
    auto *layout = new QVBoxLayout(m_frame);
    layout->addWidget(m_view, 1);
    layout->addLayout(checks);
    return m_frame;
}

/// For who has no mouse to click at a heading.
void frmImport::makeSortMenu()
{
    const std::pair<ImportList::Column, QString> columns[] = {
        {ImportList::kName, tr("Sort by &Name")},
        {ImportList::kCategory, tr("Sort by &Category")},
        {ImportList::kURL, tr("Sort by &Address/URL")},
        {ImportList::kCreated, tr("Sort by &Date Created")},
        {ImportList::kUpdated, tr("Sort by &Last Update")},
    };
    QHeaderView *header = m_view->header();
    m_view->setContextMenuPolicy(Qt::ActionsContextMenu);
    for (const auto &[column, text] : columns) {
        auto *sort = new QAction(text, m_view);
        connect(sort, &QAction::triggered, header, [header, column = column] {
            const bool flips = header->sortIndicatorSection() == column &&
                               header->sortIndicatorOrder() == Qt::AscendingOrder;
            header->setSortIndicator(column, flips ? Qt::DescendingOrder : Qt::AscendingOrder);
        });
        m_view->addAction(sort);
    }
}

void frmImport::setColumnWidths()
{
    QHeaderView *header = m_view->header();
    const int character = fontMetrics().averageCharWidth();
    const QLocale locale;
    const QString date = locale.toString(QDate(2028, 12, 28), QLocale::ShortFormat) + QStringLiteral(" - ") +
                         locale.toString(QTime(20, 58), QLocale::ShortFormat);
    const int dateWidth = fontMetrics().horizontalAdvance(date) + 4 * character;
    header->setStretchLastSection(true);
    // What the dates leave is for the texts; where that is little, there is a scroll bar.
    const int aroundList = 12 * character;
    const int left = std::max(width() - aroundList - 2 * dateWidth, 70 * character);
    header->resizeSection(ImportList::kName, left * 9 / 20);
    header->resizeSection(ImportList::kCategory, left * 4 / 20);
    header->resizeSection(ImportList::kURL, left * 7 / 20);
    header->resizeSection(ImportList::kCreated, dateWidth);
}

void frmImport::connectControls()
{
    connect(m_view->header(), &QHeaderView::sortIndicatorChanged, m_notes, &ImportList::sort);
    connect(m_notes, &ImportList::checksChanged, this, &frmImport::showChecks);
    connect(m_selectAll, &QPushButton::clicked, m_notes, [this] { m_notes->setAllChecked(true); });
    connect(m_selectNone, &QPushButton::clicked, m_notes, [this] { m_notes->setAllChecked(false); });
    connect(m_invert, &QPushButton::clicked, m_notes, &ImportList::invert);
    connect(m_setCategory, &QCheckBox::toggled, m_categories, &QComboBox::setEnabled);
    connect(m_import, &QPushButton::clicked, this, &frmImport::Command1_Click);
    connect(m_stop, &QPushButton::clicked, this, [this] { m_isStopped = true; });
    connect(m_close, &QPushButton::clicked, this, &frmImport::unload);
}

void frmImport::ImpDB(const QString &Path, const QString &Pwd)
{
    m_source.emplace(m_services.store.engine(), Path, Pwd);
    m_folder = folderOf(Path);
    m_database->setPanelText(m_folder);
    m_notes->setRows(m_source->rows());
    if (m_notes->rowCount() == 0) {
        for (QPushButton *each : {m_selectAll, m_selectNone, m_invert})
            each->setEnabled(false);
        return;
    }
    m_view->setCurrentIndex(m_notes->index(0, ImportList::kName));
}

void frmImport::showChecks()
{
    const int checked = m_notes->checkedCount();
    m_import->setEnabled(checked > 0);
    m_status->setText(tr("%1 of %2 notes selected").arg(checked).arg(m_notes->rowCount()));
}

std::optional<int> frmImport::category() const
{
    if (!m_setCategory->isChecked())
        return {};
    return m_categories->currentData().toInt();
}

void frmImport::Command1_Click()
{
    if (m_isRunning || !m_source)
        return;
    const QVector<int> IDs = m_notes->checkedIDs();
    Prompts &prompts = m_services.edit.prompts;
    const QString title = kApplicationTitle.toString();
    m_services.timer.setEnabled(false);
    setCursor(Qt::WaitCursor);
    setRunning(true);
    NoteImport import(m_services.store, m_source->database(), m_folder, category());
    ImportResult result = import.run(IDs, [this](int done) { return goOn(done); });
    setRunning(false);
    if (m_unloaded) {
        deleteLater();
        return;
    }
    m_status->setText(importProgressText(result, IDs.size()));
    if (!result.failure) {
        try {
            m_services.store.requeryNoteSet();
            m_services.store.requeryNoteIndex();
            m_services.browser.Refresh_Grid();
        } catch (const RuntimeError &error) {
            result.failure = error;
        }
    }
    if (result.failure) {
        // The pointer and the watch stay as they are.
        prompts.messageBox(importFailureReport(result, IDs.size()), Prompts::kCritical, title);
        return;
    }
    unsetCursor();
    m_import->setEnabled(result.isStopped);
    m_services.timer.setEnabled(m_services.watch.WatchInterval > 0);
    prompts.messageBox(importReport(result, IDs.size()), Prompts::kInformation, title);
}

void frmImport::setRunning(bool running)
{
    if (running)
        m_focusBefore = focusWidget();
    m_isRunning = running;
    m_isStopped = false;
    m_time.start();
    m_progress->setRange(0, m_notes->checkedCount());
    m_progress->setValue(0);
    if (!running) {
        m_progress->hide();
        m_stop->hide();
    }
    for (QWidget *each : {static_cast<QWidget *>(m_frame), static_cast<QWidget *>(m_setCategory),
                          static_cast<QWidget *>(m_import), static_cast<QWidget *>(m_close)})
        each->setEnabled(!running);
    m_categories->setEnabled(!running && m_setCategory->isChecked());
    if (!running && m_focusBefore)
        m_focusBefore->setFocus();
}

/// Whether the import that runs is to go on.
bool frmImport::goOn(int done)
{
    if (m_time.elapsed() < kQuickMs)
        return true;
    if (!m_stop->isVisible()) {
        m_progress->show();
        m_stop->setCursor(Qt::ArrowCursor);
        m_stop->show();
        m_stop->setFocus();
        m_status->setText(tr("Importing..."));
    }
    m_progress->setValue(done);
    m_services.events.yield();
    return !m_isStopped;
}

bool frmImport::eventFilter(QObject *watched, QEvent *event)
{
    // The box is in the first column only; the key is for the row.
    if (watched == m_view && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent *>(event)->key() == Qt::Key_Space) {
        m_notes->toggle(m_view->currentIndex().row());
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void frmImport::reject()
{
    if (m_isRunning)
        m_isStopped = true;
    else
        unload();
}

void frmImport::unload()
{
    if (std::exchange(m_unloaded, true))
        return;
    m_isStopped = true;
    m_services.forms.remove(this);
    hide();
    if (m_isRunning)
        return; // the import lets it go when it has come back
    m_source.reset();
    deleteLater();
}

void ShowImport(const BrowserServices &services, const ImportPlace &place, QWidget *parent)
{
    auto form = std::make_unique<frmImport>(services, parent);
    form->ImpDB(databaseFileIn(place.folder), place.password);
    form.release()->exec();
}

} // namespace norvane
