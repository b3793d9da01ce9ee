#include "options/windows/ProgramsPage.h"

#include "controls/named_button.h"
#include "options/windows/OptionsServices.h"
#include "options/windows/enter_key.h"
#include "platform/RuntimeError.h"
#include "richtext/EditServices.h"
#include "shell/internal_error.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QTreeWidget>
#include <algorithm>

namespace norvane {

namespace {

/// Of an item: the user's entry that it stands for; of a running program: its class.
constexpr int kName = Qt::UserRole;

QTreeWidget *table(const QString &name, const QStringList &headings)
{
    auto *result = new QTreeWidget;
    result->setObjectName(name);
    result->setHeaderLabels(headings);
    result->setRootIsDecorated(false);
    result->setUniformRowHeights(true);
    result->setAllColumnsShowFocus(true);
    result->header()->setStretchLastSection(true);
    result->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    return result;
}

/// Programs of the families are told by these: the class of their windows is the watcher's own word.
bool isFamilyName(const QString &name)
{
    const QVector<TrackedPrograms::Family> families = TrackedPrograms::families();
    return std::any_of(families.begin(), families.end(),
                       [&](const TrackedPrograms::Family &family) { return family.name == name; });
}

QString nameOf(const QTreeWidgetItem *item)
{
    return item ? item->data(0, kName).toString() : QString();
}

} // namespace

ProgramsPage::ProgramsPage(const OptionsServices &services)
    : m_services(services), m_programs({.settings = services.browser.settings,
                                        .watch = services.watch,
                                        .windows = services.browser.windows,
                                        .tasks = services.tasks,
                                        .clips = services.clips,
                                        .forms = services.browser.forms}),
      m_tracked(table(QStringLiteral("lstTracked"), {tr("Program"), tr("Tracked because")})),
      m_remove(namedButton(QStringLiteral("cmdProgramRemove"), tr("Re&move"))),
      m_running(table(QStringLiteral("lstRunning"),
                      {tr("Program"), tr("Windows"), tr("Tracked because"), tr("Title")})),
      m_name(new QLineEdit), m_add(namedButton(QStringLiteral("cmdProgramAdd"), tr("Add &Program")))
{
    m_tracked->setAccessibleName(tr("Programs whose windows can have notes"));
    m_running->setAccessibleName(tr("Programs on the desktop now"));
    m_name->setObjectName(QStringLiteral("txtProgram"));
    m_name->setAccessibleName(tr("Name of the program's windows"));
    m_name->setPlaceholderText(tr("Choose above, or type a name"));
    pressOnEnter(m_name, m_add);
    arrange();
    fill();

    connect(m_tracked, &QTreeWidget::currentItemChanged, this, &ProgramsPage::enableButtons);
    connect(m_running, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem *item) {
        if (item)
            m_name->setText(nameOf(item));
    });
    connect(m_name, &QLineEdit::textChanged, this, &ProgramsPage::enableButtons);
    connect(m_remove, &QPushButton::clicked, this,
            [this] { run([this] { m_programs.remove(nameOf(m_tracked->currentItem())); }); });
    connect(m_add, &QPushButton::clicked, this, [this] {
        run([this] {
            m_programs.add(m_name->text());
            m_name->clear();
        });
    });
}

void ProgramsPage::arrange()
{
    auto *introduction = new QLabel(tr("Notes can be attached to the windows of these programs:"));
    introduction->setBuddy(m_tracked);
    auto *running = new QLabel(tr("On the desktop now:"));
    running->setBuddy(m_running);
    auto *grid = new QGridLayout(this);
    grid->addWidget(introduction, 0, 0, 1, 2);
    grid->addWidget(m_tracked, 1, 0);
    grid->addWidget(m_remove, 1, 1, Qt::AlignTop);
    grid->addWidget(running, 2, 0, 1, 2);
    grid->addWidget(m_running, 3, 0, 1, 2);
    grid->addWidget(m_name, 4, 0);
    grid->addWidget(m_add, 4, 1);
    grid->setColumnStretch(0, 1);
    grid->setRowStretch(1, 1);
    grid->setRowStretch(3, 1);
}

void ProgramsPage::showEvent(QShowEvent *event)
{
    fill(); // the desktop has gone on
    QWidget::showEvent(event);
}

void ProgramsPage::fill()
{
    const QString entry = nameOf(m_tracked->currentItem());
    const QString program = nameOf(m_running->currentItem());
    m_tracked->clear();
    for (const TrackedPrograms::Family &family : TrackedPrograms::families())
        new QTreeWidgetItem(m_tracked, {family.name, tr("Built in")});
    try {
        for (const QString &own : m_programs.own()) {
            auto *item = new QTreeWidgetItem(m_tracked, {own, tr("Added by you")});
            item->setData(0, kName, own);
            if (own == entry)
                m_tracked->setCurrentItem(item);
        }
    } catch (const RuntimeError &error) {
        showRuntimeError(m_services.browser.edit.prompts, error);
    }
    {
        const QSignalBlocker quiet(m_running); // what is typed stays
        m_running->clear();
        for (const TrackedPrograms::Program &running : m_programs.running()) {
            const bool isFamily = isFamilyName(running.trackedAs);
            const QString because = running.trackedAs.isEmpty() ? tr("(not tracked)")
                                    : isFamily                  ? tr("Built in")
                                                                : tr("Added by you");
            auto *item =
                new QTreeWidgetItem(m_running, {isFamily ? running.trackedAs : running.className,
                                                QString::number(running.windows), because, running.caption});
            item->setData(0, kName, running.trackedAs.isEmpty() ? running.className : QString());
            item->setToolTip(3, running.caption);
            if (!program.isEmpty() && running.className == program)
                m_running->setCurrentItem(item);
        }
    }
    m_tracked->resizeColumnToContents(0);
    for (const int column : {0, 1, 2})
        m_running->resizeColumnToContents(column);
    enableButtons();
}

void ProgramsPage::enableButtons()
{
    m_remove->setEnabled(!nameOf(m_tracked->currentItem()).isEmpty());
    m_add->setEnabled(m_programs.mayAdd(m_name->text()));
}

void ProgramsPage::run(const std::function<void()> &change)
{
    try {
        change();
    } catch (const RuntimeError &error) {
        showRuntimeError(m_services.browser.edit.prompts, error);
    }
    fill();
}

} // namespace norvane
