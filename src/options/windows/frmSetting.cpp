#include "options/windows/frmSetting.h"

#include "browser/editor/note_editors.h"
#include "controls/named_button.h"
#include "controls/page_keys.h"
#include "options/HotKeyModel.h"
#include "options/settings/OptionsHost.h"
#include "options/settings/SettingsChange.h"
#include "options/windows/AboutPage.h"
#include "options/windows/CategoryPage.h"
#include "options/windows/DatabasePage.h"
#include "options/windows/HotKeyPage.h"
#include "options/windows/OptionsServices.h"
#include "options/windows/ProgramsPage.h"
#include "richtext/EditServices.h"
#include "shell/windows/form_icon.h"
#include "shell/windows/frmPassword.h"

#include <QHBoxLayout>
#include <QPointer>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>
#include <utility>

namespace norvane {

namespace {

/// The hot keys are withdrawn before any page looks at them.
WindowHandle withdrawHotKeys(const OptionsServices &services)
{
    const WindowHandle owner = services.host.hotKeyOwner();
    services.hotKeys.UnregisterHotKeys(owner);
    return owner;
}

} // namespace

void frmSetting::ShowOptions(const OptionsServices &services, Page page, QWidget *parent)
{
    const QVector<Form *> loaded = services.browser.forms.named(QStringLiteral("frmSetting"));
    if (!loaded.isEmpty()) {
        if (auto *form = dynamic_cast<frmSetting *>(loaded.constFirst())) {
            form->raise();
            form->activateWindow();
        }
        return;
    }
    auto *form = new frmSetting(services, parent);
    form->showPage(page);
    form->showModal();
}

frmSetting::frmSetting(const OptionsServices &services, QWidget *parent)
    : NoteDialog(services.browser, QStringLiteral("frmSetting"), parent), m_options(services),
      m_hotKeyOwner(withdrawHotKeys(services)), m_tabs(new QTabWidget),
      m_database(new DatabasePage(services)), m_categories(new CategoryPage(services)),
      m_hotKeys(new HotKeyPage(services.hotKeys, m_hotKeyOwner)),
      m_ok(namedButton(QStringLiteral("cmdOK"), tr("&OK"))),
      m_apply(namedButton(QStringLiteral("cmdApply"), tr("&Apply"))),
      m_close(namedButton(QStringLiteral("Command3"), tr("&Close")))
{
    setWindowTitle(tr("Norvane Options"));
    SetFormIcon(this);
    arrange();
    const auto canSave = [this] { SaveMode(1); };
    connect(m_database, &DatabasePage::changed, this, canSave);
    connect(m_categories, &CategoryPage::changed, this, canSave);
    connect(m_hotKeys, &HotKeyPage::changed, this, canSave);
    connect(m_ok, &QPushButton::clicked, this, [this] {
        apply();
        unload();
    });
    connect(m_apply, &QPushButton::clicked, this, [this] {
        if (apply())
            SaveMode(0);
        else
            unload();
    });
    connect(m_close, &QPushButton::clicked, this, &frmSetting::unload);
    m_services.forms.add(this);
    m_categories->fill();
    SaveMode(0);
}

frmSetting::~frmSetting()
{
    frmSetting::unload();
}

void frmSetting::arrange()
{
    m_tabs->setObjectName(QStringLiteral("SSTab1"));
    m_tabs->addTab(m_database, tr("Database"));
    m_tabs->addTab(m_categories, tr("Note Categories"));
    m_tabs->addTab(m_hotKeys, tr("Hotkeys"));
    m_tabs->addTab(new AboutPage(m_services.shell, m_services.edit.prompts, m_options.version),
                   tr("About Norvane"));
    m_tabs->addTab(new ProgramsPage(m_options), tr("Programs"));
    turnPagesByKeys(m_tabs, this);
    showPage(kAbout);
    m_ok->setDefault(true);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_ok);
    buttons->addWidget(m_apply);
    buttons->addWidget(m_close);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_tabs, 1);
    layout->addLayout(buttons);
    m_tabs->setFocus();
}

void frmSetting::showPage(Page page)
{
    m_tabs->setCurrentIndex(page);
}

void frmSetting::SaveMode(int Mode)
{
    m_ok->setEnabled(Mode == 1);
    m_apply->setEnabled(Mode == 1);
}

bool frmSetting::apply()
{
    SettingsChoice choice;
    m_database->read(choice);
    m_categories->read(choice);
    choice.hotKeys = m_hotKeys->chosen();
    const QPointer<frmSetting> self(this);
    const BrowserServices &services = m_services;
    const SettingsChangeParts parts{
        .database = {.store = services.store,
                     .databases = m_options.databases,
                     .settings = services.settings,
                     .prompts = services.edit.prompts,
                     .events = services.events,
                     .timer = services.timer,
                     .watch = m_options.watch,
                     .askPassword =
                         [self, &services](PasswordDialogModel &model) {
                             askForPassword(services.forms, model, SelectDatabaseButton::Hidden, self);
                         },
                     .editorsMayClose = [&services] { return EditorsMayClose(services.forms); }},
        .shell = services.shell,
        .watch = m_options.watch,
        .hotKeys = m_options.hotKeys,
        .host = m_options.host};
    const DatabaseChange::Outcome outcome = ApplySettings(parts, choice);
    if (!self)
        return false;
    if (outcome == DatabaseChange::Outcome::Changed) {
        m_database->showDatabase();
        m_categories->fill();
    }
    return outcome != DatabaseChange::Outcome::Failed;
}

void frmSetting::unload()
{
    if (!std::exchange(m_withdrawn, false))
        return;
    const QVector<HotKeyId> refused = m_options.hotKeys.registerAll(m_hotKeyOwner);
    NoteDialog::unload();
    m_options.host.hotKeysRegistered(refused);
}

} // namespace norvane
