#include "options/windows/frmAddCategory.h"

#include "controls/named_button.h"
#include "options/settings/preset_categories.h"
#include "shell/windows/form_icon.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPointer>
#include <QVBoxLayout>

namespace norvane {

namespace {

constexpr int kShownRows = 14;

} // namespace

frmAddCategory::frmAddCategory(FormList &forms, QWidget *parent)
    : QDialog(parent), m_forms(forms), m_list(new QListWidget)
{
    setObjectName(QStringLiteral("frmAddCategory"));
    setWindowTitle(tr("Add Categories"));
    SetFormIcon(this);
    auto *caption = new QLabel(tr("Select item(s) to add:"));
    caption->setObjectName(QStringLiteral("Label1"));
    caption->setBuddy(m_list);
    m_list->setObjectName(QStringLiteral("List1"));
    m_list->setAccessibleName(caption->text());
    m_list->setSelectionMode(QAbstractItemView::MultiSelection);
    m_list->addItems(presetCategories());
    m_list->sortItems();
    m_list->setMinimumHeight(m_list->sizeHintForRow(0) * kShownRows);
    auto *add = namedButton(QStringLiteral("Command1"), tr("&Add"));
    add->setDefault(true);
    add->setEnabled(false);
    auto *cancel = namedButton(QStringLiteral("Command2"), tr("&Cancel"));

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(add);
    buttons->addWidget(cancel);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(caption);
    layout->addWidget(m_list, 1);
    layout->addLayout(buttons);
    m_list->setFocus();
    connect(m_list, &QListWidget::itemSelectionChanged, add,
            [this, add] { add->setEnabled(!m_list->selectedItems().isEmpty()); });
    connect(add, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &frmAddCategory::reject);
    m_forms.add(this);
}

frmAddCategory::~frmAddCategory()
{
    m_forms.remove(this);
}

QStringList frmAddCategory::selected() const
{
    QStringList names;
    for (int row = 0; row < m_list->count(); ++row) {
        if (m_list->item(row)->isSelected())
            names.append(m_list->item(row)->text());
    }
    return names;
}

QString frmAddCategory::formName() const
{
    return QStringLiteral("frmAddCategory");
}

WindowHandle frmAddCategory::hWnd() const
{
    return static_cast<WindowHandle>(winId());
}

void frmAddCategory::unload()
{
    m_forms.remove(this);
    hide();
    deleteLater();
}

void frmAddCategory::reject()
{
    unload();
}

QStringList ChooseCategories(FormList &forms, QWidget *parent)
{
    const QPointer<frmAddCategory> dialog = new frmAddCategory(forms, parent);
    dialog->exec();
    if (!dialog || !forms.contains(dialog.data()))
        return {};
    const QStringList names = dialog->selected();
    dialog->unload();
    return names;
}

} // namespace norvane
