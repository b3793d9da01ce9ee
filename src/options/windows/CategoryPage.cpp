#include "options/windows/CategoryPage.h"

#include "controls/named_button.h"
#include "options/settings/OptionsHost.h"
#include "options/settings/SettingsChange.h"
#include "options/windows/OptionsServices.h"
#include "options/windows/enter_key.h"
#include "options/windows/frmAddCategory.h"
#include "platform/Prompts.h"
#include "platform/RuntimeError.h"
#include "richtext/EditServices.h"
#include "shell/internal_error.h"
#include "shell/numeric_prefix.h"
#include "shell/settings_keys.h"
#include "store/categories.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <algorithm>

namespace norvane {

CategoryPage::CategoryPage(const OptionsServices &services)
    : m_services(services), m_commands(services.browser.store, services.browser.edit.prompts),
      m_showCategory(new QCheckBox(tr("Show Category Bar/Selector in 'Note Browser' window"))),
      m_list(new QListWidget), m_name(new QLineEdit),
      m_addNew(namedButton(QStringLiteral("cmdCatAddNew"), tr("&Add New"))),
      m_update(namedButton(QStringLiteral("cmdCatUpdate"), tr("&Update"))),
      m_remove(namedButton(QStringLiteral("cmdCatRemove"), tr("&Remove"))),
      m_presets(namedButton(QStringLiteral("cmdAddPreset"), tr("Ca&tegories")))
{
    constexpr int kLongestCategory = 50;
    m_showCategory->setObjectName(QStringLiteral("chkShowCategory"));
    m_showCategory->setChecked(
        numericPrefix(settings::read(services.browser.settings, settings::kShowCategoryBar)) != 0.0);
    m_list->setObjectName(QStringLiteral("lstCat"));
    m_list->setAccessibleName(tr("Categories"));
    m_name->setObjectName(QStringLiteral("txtCat"));
    m_name->setAccessibleName(tr("Name of the selected category"));
    m_name->setMaxLength(kLongestCategory);
    m_presets->setToolTip(tr("Choose from a list of proposed categories"));
    pressOnEnter(m_name, m_update);
    arrange();
    selectionChanged();

    connect(m_showCategory, &QCheckBox::clicked, this, &CategoryPage::changed);
    connect(m_list, &QListWidget::currentRowChanged, this, &CategoryPage::selectionChanged);
    connect(m_name, &QLineEdit::textChanged, m_update,
            [this](const QString &text) { m_update->setEnabled(!text.trimmed().isEmpty()); });
    connect(m_addNew, &QPushButton::clicked, this, [this] { run([this] { return m_commands.addNew(); }); });
    connect(m_update, &QPushButton::clicked, this,
            [this] { run([this] { return m_commands.rename(selectedID(), m_name->text()); }); });
    connect(m_remove, &QPushButton::clicked, this,
            [this] { run([this] { return m_commands.remove(selectedID()); }); });
    connect(m_presets, &QPushButton::clicked, this, &CategoryPage::addPresets);
}

void CategoryPage::arrange()
{
    auto *buttons = new QVBoxLayout;
    buttons->addWidget(m_addNew);
    buttons->addWidget(m_remove);
    buttons->addWidget(m_presets);
    buttons->addStretch();
    auto *grid = new QGridLayout;
    grid->addWidget(m_list, 0, 0);
    grid->addLayout(buttons, 0, 1);
    grid->addWidget(m_name, 1, 0);
    grid->addWidget(m_update, 1, 1);
    grid->setColumnStretch(0, 1);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_showCategory);
    layout->addLayout(grid, 1);
    const QVector<QWidget *> order{m_showCategory, m_list, m_name, m_update, m_addNew, m_remove, m_presets};
    for (qsizetype i = 1; i < order.size(); ++i)
        setTabOrder(order.at(i - 1), order.at(i));
}

void CategoryPage::read(SettingsChoice &choice) const
{
    choice.showsCategoryBar = m_showCategory->isChecked();
}

void CategoryPage::fill()
{
    const int row = m_list->currentRow();
    QVector<Category> categories;
    try {
        categories = readCategories(m_services.browser.store);
    } catch (const RuntimeError &error) {
        showRuntimeError(m_services.browser.edit.prompts, error);
    }
    {
        const QSignalBlocker quiet(m_list);
        m_list->clear();
        for (const Category &category : std::as_const(categories)) {
            auto *item = new QListWidgetItem(category.Name, m_list);
            item->setData(Qt::UserRole, category.ID);
        }
        m_list->setCurrentRow(std::min(row, m_list->count() - 1));
    }
    selectionChanged();
}

void CategoryPage::selectionChanged()
{
    const QListWidgetItem *item = m_list->currentItem();
    m_remove->setEnabled(item != nullptr);
    m_name->setEnabled(item != nullptr);
    m_name->setText(item ? item->text() : QString());
    m_update->setEnabled(false);
}

void CategoryPage::run(const std::function<bool()> &change)
{
    try {
        if (!change())
            return;
        fill();
        m_services.host.Refresh_tbCAT();
    } catch (const RuntimeError &error) {
        showRuntimeError(m_services.browser.edit.prompts, error);
    }
}

void CategoryPage::addPresets()
{
    const QStringList names = ChooseCategories(m_services.browser.forms, window());
    try {
        if (!m_commands.addAll(names))
            return;
        m_services.host.Refresh_tbCAT();
        fill();
    } catch (const RuntimeError &) {
        m_services.browser.edit.prompts.messageBox(tr("Can not add category."), Prompts::kCritical,
                                                   kApplicationTitle.toString());
    }
}

int CategoryPage::selectedID() const
{
    const QListWidgetItem *item = m_list->currentItem();
    return item ? item->data(Qt::UserRole).toInt() : 0;
}

} // namespace norvane
