#include "browser/dialogs/frmNewNote.h"

#include "browser/dialogs/CategoryBox.h"
#include "browser/dialogs/LocationBox.h"
#include "browser/dialogs/WholeCharacters.h"
#include "browser/dialogs/dialog_parts.h"
#include "browser/dialogs/new_note.h"
#include "browser/dialogs/note_properties.h"
#include "exchange/drops/NewNoteForms.h"
#include "platform/RuntimeError.h"
#include "richtext/EditServices.h"
#include "shell/internal_error.h"
#include "watcher/NoteGridView.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopeGuard>

namespace norvane {

frmNewNote::frmNewNote(const BrowserServices &services, QWidget *parent, NewNoteDrop *drop)
    : NoteDialog(services, QStringLiteral("frmNewNote"), parent), m_drop(drop),
      m_name(new QLineEdit(tr("New Note"), this)),
      m_location(new LocationBox(services.edit.prompts, QStringLiteral("Text2"), QStringLiteral("Command4"))),
      m_category(new CategoryBox(services, QStringLiteral("Command3"))),
      m_active(new QCheckBox(tr("&Active"), this)), m_apply(new QCheckBox(tr("&Apply to all items"), this)),
      m_ok(new QPushButton(tr("&OK"), this)), m_cancel(new QPushButton(tr("&Cancel"), this))
{
    setWindowTitle(tr("New Note"));
    m_name->setObjectName(QStringLiteral("Text1"));
    m_name->setMaxLength(kLongestName);
    m_name->setValidator(new WholeCharacters(m_name));
    m_active->setObjectName(QStringLiteral("Check1"));
    m_active->setEnabled(false);
    m_apply->setObjectName(QStringLiteral("chkApply"));
    m_apply->hide();
    m_ok->setObjectName(QStringLiteral("Command1"));
    m_ok->setDefault(true);
    m_cancel->setObjectName(QStringLiteral("Command2"));
    arrange();
    connectControls();

    m_name->setFocus();
    m_name->selectAll();
    m_category->fill();
    m_category->SetCatItem(std::max(0, services.browser.category()));
    services.forms.add(this);
}

void frmNewNote::arrange()
{
    constexpr int kShownCharacters = 46;
    m_location->setMinimumWidth(fontMetrics().averageCharWidth() * kShownCharacters);
    auto *fields = new QGridLayout;
    fields->addWidget(caption(tr("Name:"), m_name), 0, 0);
    fields->addWidget(m_name, 0, 1, 1, 2);
    fields->addWidget(caption(tr("Location (optional):"), m_location), 1, 0);
    fields->addWidget(m_location, 1, 1);
    fields->addWidget(m_location->browseButton(), 1, 2);
    fields->addWidget(caption(tr("Category:"), m_category), 2, 0);
    fields->addWidget(m_category, 2, 1);
    fields->addWidget(m_category->manageButton(), 2, 2);
    fields->addWidget(m_active, 3, 1, 1, 2);
    fields->setColumnStretch(1, 1);

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_apply);
    buttons->addStretch();
    buttons->addWidget(m_ok);
    buttons->addWidget(m_cancel);

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(fields);
    layout->addStretch();
    layout->addSpacing(fontMetrics().height() / 2);
    layout->addLayout(buttons);
    const QVector<QWidget *> order{m_name,
                                   m_location,
                                   m_location->browseButton(),
                                   m_category,
                                   m_category->manageButton(),
                                   m_active,
                                   m_apply,
                                   m_ok,
                                   m_cancel};
    for (qsizetype i = 1; i < order.size(); ++i)
        setTabOrder(order.at(i - 1), order.at(i));
}

void frmNewNote::connectControls()
{
    connect(m_name, &QLineEdit::textChanged, m_ok,
            [this](const QString &text) { m_ok->setEnabled(!text.isEmpty()); });
    connect(m_location, &QLineEdit::textChanged, m_active,
            [this](const QString &text) { m_active->setEnabled(!text.isEmpty()); });
    connect(m_apply, &QCheckBox::clicked, this, &frmNewNote::applyClicked);
    connect(m_ok, &QPushButton::clicked, this, &frmNewNote::okClicked);
    connect(m_cancel, &QPushButton::clicked, this, &frmNewNote::reject);
}

void frmNewNote::setName(const QString &name)
{
    m_name->setText(name);
    m_name->selectAll();
}

void frmNewNote::setLocation(const QString &location)
{
    m_location->setText(location);
}

void frmNewNote::setApplyShown(bool shown)
{
    m_apply->setVisible(shown);
}

void frmNewNote::SetCatItem(int CAT_ID)
{
    m_category->SetCatItem(CAT_ID);
}

void frmNewNote::applyClicked()
{
    if (!m_drop)
        return;
    m_drop->applyToAll = m_apply->isChecked();
    if (m_drop->applyToAll)
        m_drop->appliedCategory = m_category->CAT_ID();
}

void frmNewNote::Command1_Click()
{
    if (m_drop && m_apply->isChecked())
        m_drop->appliedCategory = m_category->CAT_ID();
    m_location->clean();
    addNote(m_services.store, m_services.clock,
            {.FriendlyName = m_name->text(),
             .URL = m_location->text(),
             .CAT_ID = m_category->CAT_ID(),
             .ACTIVE = m_active->isEnabled() && m_active->isChecked()});
    // The note is there: a browser that fails to show it must not lead to a second one.
    const auto done = qScopeGuard([this] { unload(); });
    if (isVisible()) {
        m_services.browser.Refresh_Grid();
        m_services.browser.refreshAround();
    }
}

void frmNewNote::okClicked()
{
    try {
        Command1_Click();
    } catch (const RuntimeError &error) {
        showRuntimeError(m_services.edit.prompts, error);
    }
}

void frmNewNote::reject()
{
    if (m_drop)
        m_drop->newNoteCancelled = true;
    unload();
}

} // namespace norvane
