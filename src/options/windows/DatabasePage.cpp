#include "options/windows/DatabasePage.h"

#include "browser/dialogs/dialog_parts.h"
#include "controls/GroupBox.h"
#include "controls/named_button.h"
#include "exchange/import/start_import.h"
#include "exchange/windows/frmImport.h"
#include "options/settings/PasswordChange.h"
#include "options/settings/RecentFolders.h"
#include "options/windows/FolderBox.h"
#include "options/windows/OptionsServices.h"
#include "options/windows/enter_key.h"
#include "platform/FileSystem.h"
#include "platform/Prompts.h"
#include "platform/Shell.h"
#include "richtext/EditServices.h"
#include "shell/path_rules.h"
#include "shell/windows/StatusPanel.h"
#include "shell/windows/frmPassword.h"
#include "store/NoteStore.h"
#include "store/note_schema.h"
#include "store/offer_new_database.h"
#include "watcher/WatchSettings.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>

namespace norvane {

namespace {

/// The rows of all frames begin at the same place.
QGridLayout *rows(QGroupBox *frame)
{
    auto *grid = new QGridLayout(frame);
    grid->setColumnMinimumWidth(
        0, frame->fontMetrics().horizontalAdvance(DatabasePage::tr("Current Password:")));
    grid->setColumnStretch(1, 1);
    return grid;
}

QLineEdit *passwordBox(const QString &name, const QString &accessibleName)
{
    auto *box = new QLineEdit;
    box->setObjectName(name);
    box->setAccessibleName(accessibleName);
    box->setEchoMode(QLineEdit::Password);
    return box;
}

QString askForFolder(Prompts &prompts)
{
    return withSeparator(prompts.chooseFolder(DatabasePage::tr("Select Norvane Database Folder:"), {}));
}

} // namespace

DatabasePage::DatabasePage(const OptionsServices &services)
    : m_services(services), m_current(new StatusPanel(QStringLiteral("lblCurrentDatabase"))),
      m_startup(namedButton<QCheckBox>(QStringLiteral("chkStartup"), tr("Run Norvane at Windows startup"))),
      m_exact(namedButton<QCheckBox>(QStringLiteral("chkExactWindowName"),
                                     tr("Enable Exact Window/URL matching"))),
      m_folder(new FolderBox(QStringLiteral("txtDBName"), tr("Database Path"))),
      m_default(namedButton<QCheckBox>(QStringLiteral("chkDefaultDatabase"), tr("Default Database"))),
      m_import(new FolderBox(QStringLiteral("cmbImport"), tr("Database Path of the notes to import"))),
      m_currentPassword(passwordBox(QStringLiteral("txtCurrentPassword"), tr("Current Password"))),
      m_newPassword(passwordBox(QStringLiteral("txtNewPassword"), tr("New Password"))),
      m_confirmPassword(passwordBox(QStringLiteral("txtConfirmPassword"), tr("Confirm Password"))),
      m_changePassword(namedButton(QStringLiteral("Command5"), tr("Add/Change Password")))
{
    m_startup->setToolTip(tr("When your desktop session begins"));
    m_default->setToolTip(tr("Norvane starts with this database from now on"));
    auto *current = new QGridLayout;
    current->addWidget(new QLabel(tr("Current Database:")), 0, 0);
    current->addWidget(m_current, 0, 1);
    current->setColumnStretch(1, 1);

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(current);
    layout->addWidget(m_startup);
    layout->addWidget(m_exact);
    layout->addWidget(databaseFrame());
    layout->addWidget(importFrame());
    layout->addWidget(securityFrame());
    layout->addStretch();

    const QStringList recent = RecentFolders(m_services.browser.settings).list();
    m_folder->addItems(recent);
    m_import->addItems(recent);
    m_import->setFolder({});
    m_startup->setChecked(m_services.browser.shell.startsWithSession());
    m_exact->setChecked(m_services.watch.ExactWindowName);
    showDatabase();
    m_folder->setFolder(m_services.browser.store.DatabaseFolder);
    passwordsChanged();
    for (QLineEdit *box : {m_currentPassword, m_newPassword, m_confirmPassword}) {
        pressOnEnter(box, m_changePassword);
        connect(box, &QLineEdit::textChanged, this, &DatabasePage::passwordsChanged);
    }
    connect(m_startup, &QCheckBox::clicked, this, &DatabasePage::changed);
    connect(m_folder, &FolderBox::dropDown, this, [this] {
        for (QLineEdit *box : {m_currentPassword, m_newPassword, m_confirmPassword})
            box->clear();
        emit changed();
    });
}

QGroupBox *DatabasePage::databaseFrame()
{
    auto *frame = new GroupBox(tr("Create/Open Database"));
    frame->setObjectName(QStringLiteral("Frame2"));
    QPushButton *browseFolders = browseButton(QStringLiteral("Command2"), tr("Browse"));
    browseFolders->setToolTip(tr("Browse"));
    auto *restore = namedButton(QStringLiteral("Command4"), tr("Restore Default Database"));
    QGridLayout *grid = rows(frame);
    grid->addWidget(caption(tr("Database Path:"), m_folder), 0, 0);
    grid->addWidget(m_folder, 0, 1, 1, 2);
    grid->addWidget(browseFolders, 0, 3);
    grid->addWidget(m_default, 1, 1);
    grid->addWidget(restore, 1, 2, 1, 2);
    connect(browseFolders, &QPushButton::clicked, this, &DatabasePage::browse);
    connect(restore, &QPushButton::clicked, this, [this] {
        m_folder->setFolder(
            withSeparator(withSeparator(m_services.browser.store.programFolder) + QStringLiteral("Notes")));
        emit changed();
    });
    return frame;
}

QGroupBox *DatabasePage::importFrame()
{
    auto *frame = new GroupBox(tr("Import Notes"));
    frame->setObjectName(QStringLiteral("Frame3"));
    QPushButton *browseFolders = browseButton(QStringLiteral("Command6"), tr("Browse for notes to import"));
    browseFolders->setToolTip(tr("Browse"));
    auto *import = namedButton(QStringLiteral("Command7"), tr("&Import"));
    QGridLayout *grid = rows(frame);
    grid->addWidget(caption(tr("Database Path:"), m_import), 0, 0);
    grid->addWidget(m_import, 0, 1);
    grid->addWidget(browseFolders, 0, 2);
    grid->addWidget(import, 0, 3);
    connect(browseFolders, &QPushButton::clicked, this, &DatabasePage::browseImport);
    connect(import, &QPushButton::clicked, this, &DatabasePage::importClicked);
    return frame;
}

QGroupBox *DatabasePage::securityFrame()
{
    auto *frame = new GroupBox(tr("Security"));
    frame->setObjectName(QStringLiteral("Frame1"));
    auto *note = new QLabel(tr("The password locks the database with titles, locations and search texts.\n"
                               "The files beside it, which hold the notes themselves, stay unencrypted."));
    note->setObjectName(QStringLiteral("lblUnencrypted"));
    QGridLayout *grid = rows(frame);
    grid->addWidget(caption(tr("Current Password:"), m_currentPassword), 0, 0);
    grid->addWidget(m_currentPassword, 0, 1);
    grid->addWidget(caption(tr("New Password:"), m_newPassword), 1, 0);
    grid->addWidget(m_newPassword, 1, 1);
    grid->addWidget(caption(tr("Confirm Password:"), m_confirmPassword), 2, 0);
    grid->addWidget(m_confirmPassword, 2, 1);
    grid->addWidget(m_changePassword, 2, 2);
    grid->addWidget(note, 3, 0, 1, 3);
    connect(m_changePassword, &QPushButton::clicked, this, &DatabasePage::changePasswordClicked);
    return frame;
}

void DatabasePage::read(SettingsChoice &choice) const
{
    choice.startsWithSession = m_startup->isChecked();
    choice.exactWindowName = m_exact->isChecked();
    choice.databaseFolder = m_folder->folder();
    choice.isDefaultDatabase = m_default->isChecked();
}

void DatabasePage::showDatabase()
{
    m_current->setPanelText(m_services.browser.store.DatabaseFolder);
}

void DatabasePage::browse()
{
    const NoteStore &store = m_services.browser.store;
    Prompts &prompts = m_services.browser.edit.prompts;
    const QString folder = askForFolder(prompts);
    if (folder.isEmpty())
        return;
    const QString file = databaseFileIn(folder);
    if (store.files().exists(file) || offerNewDatabase(store, prompts, file))
        m_folder->setFolder(folder);
    emit changed();
}

void DatabasePage::browseImport()
{
    const QString folder = askForFolder(m_services.browser.edit.prompts);
    if (!folder.isEmpty())
        m_import->setFolder(folder);
}

void DatabasePage::importClicked()
{
    const BrowserServices &services = m_services.browser;
    const StartImportParts parts{.store = services.store,
                                 .prompts = services.edit.prompts,
                                 .events = services.events,
                                 .askPassword = [this](PasswordDialogModel &model) {
                                     askForPassword(m_services.browser.forms, model,
                                                    SelectDatabaseButton::Disabled, window());
                                 }};
    const QPointer<DatabasePage> self(this);
    const std::optional<ImportPlace> place = startImport(parts, m_import->folder(), m_folder->folder());
    if (!place || !self)
        return;
    RecentFolders(services.settings).AddMRU(place->folder);
    ShowImport(services, *place, window());
}

void DatabasePage::changePasswordClicked()
{
    if (!changePassword(m_services.browser.store, m_services.browser.edit.prompts, m_currentPassword->text(),
                        m_newPassword->text(), m_confirmPassword->text()))
        return;
    for (QLineEdit *box : {m_currentPassword, m_newPassword, m_confirmPassword})
        box->clear();
}

void DatabasePage::passwordsChanged()
{
    m_changePassword->setEnabled(
        !(m_currentPassword->text() + m_newPassword->text() + m_confirmPassword->text()).isEmpty());
}

} // namespace norvane
