#include "exchange/shortcuts/FavoriteDialog.h"

#include "controls/named_button.h"
#include "controls/svg_icon.h"
#include "exchange/shortcuts/shortcuts.h"
#include "platform/FileSystem.h"
#include "platform/Prompts.h"
#include "platform/RuntimeError.h"
#include "shell/internal_error.h"
#include "shell/path_rules.h"
#include "shell/windows/form_icon.h"

#include <QDir>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QTreeWidget>

namespace norvane {

namespace {

constexpr int kPathRole = Qt::UserRole;       ///< native, ending in a separator
constexpr int kIsReadRole = Qt::UserRole + 1; ///< whether its folders are in the tree
constexpr int kShownRows = 10;

QString fileNameOf(const QString &title)
{
    QString name = favoriteName(title).trimmed();
    while (name.startsWith(u'.')) // it would be hidden
        name.remove(0, 1);
    return name;
}

QTreeWidgetItem *folderItem(const QString &name, const QString &path)
{
    auto *item = new QTreeWidgetItem({name});
    item->setIcon(0, svgIcon(QStringLiteral(":/norvane/icons/folder.svg")));
    item->setData(0, kPathRole, path);
    item->setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
    return item;
}

} // namespace

FavoriteDialog::FavoriteDialog(FileSystem &files, Prompts &prompts, const QString &title,
                               const QString &folder, QWidget *parent)
    : QDialog(parent), m_files(files), m_prompts(prompts), m_name(new QLineEdit(title.simplified())),
      m_folders(new QTreeWidget), m_ok(namedButton(QStringLiteral("OkButton"), tr("&OK")))
{
    setObjectName(QStringLiteral("FavoriteDialog"));
    setWindowTitle(tr("Add to Favorites"));
    SetFormIcon(this);
    m_name->setObjectName(QStringLiteral("FavoriteName"));
    m_folders->setObjectName(QStringLiteral("FavoriteFolders"));
    m_folders->setHeaderHidden(true);
    m_folders->setUniformRowHeights(true);
    m_ok->setDefault(true);
    auto *nameCaption = new QLabel(tr("Na&me:"));
    nameCaption->setBuddy(m_name);
    auto *folderCaption = new QLabel(tr("Create &in:"));
    folderCaption->setBuddy(m_folders);
    auto *newFolderButton = namedButton(QStringLiteral("NewFolderButton"), tr("&New Folder..."));
    newFolderButton->setAutoDefault(false);
    auto *cancel = namedButton(QStringLiteral("CancelButton"), tr("&Cancel"));

    auto *fields = new QGridLayout;
    fields->addWidget(nameCaption, 0, 0);
    fields->addWidget(m_name, 0, 1);
    fields->addWidget(folderCaption, 1, 0, Qt::AlignTop);
    fields->addWidget(m_folders, 1, 1);
    fields->setRowStretch(1, 1);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(newFolderButton);
    buttons->addStretch();
    buttons->addWidget(m_ok);
    buttons->addWidget(cancel);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(fields);
    layout->addLayout(buttons);

    auto *top = folderItem(tr("Favorites"), folder);
    m_folders->addTopLevelItem(top);
    addFolders(top);
    top->setExpanded(true);
    m_folders->setCurrentItem(top);
    constexpr int kShownCharacters = 50;
    m_folders->setMinimumSize(fontMetrics().averageCharWidth() * kShownCharacters,
                              m_folders->sizeHintForRow(0) * kShownRows);
    m_name->setFocus();
    m_name->selectAll();

    const auto enableOk = [this] { m_ok->setEnabled(!fileNameOf(m_name->text()).isEmpty()); };
    enableOk();
    connect(m_name, &QLineEdit::textChanged, m_ok, enableOk);
    connect(m_folders, &QTreeWidget::itemExpanded, this, &FavoriteDialog::addFolders);
    connect(newFolderButton, &QPushButton::clicked, this, &FavoriteDialog::newFolder);
    connect(m_ok, &QPushButton::clicked, this, &FavoriteDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

/// Puts the folders of a folder below it, once.
void FavoriteDialog::addFolders(QTreeWidgetItem *above)
{
    if (above->data(0, kIsReadRole).toBool())
        return;
    above->setData(0, kIsReadRole, true);
    above->setChildIndicatorPolicy(QTreeWidgetItem::DontShowIndicatorWhenChildless);
    const QDir folder(above->data(0, kPathRole).toString());
    QList<QTreeWidgetItem *> below;
    for (const QString &name :
         folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase))
        below.append(folderItem(name, withSeparator(folder.filePath(name))));
    above->addChildren(below);
}

void FavoriteDialog::newFolder()
{
    const QString name =
        fileNameOf(m_prompts.inputBox(tr("Name of the new folder:"), tr("New Folder"), tr("New Folder")));
    if (name.isEmpty())
        return;
    QTreeWidgetItem *above = m_folders->currentItem();
    above->setExpanded(true); // which reads its folders
    addFolders(above);
    try {
        m_files.makeFolder(folder() + name);
    } catch (const RuntimeError &error) {
        showRuntimeError(m_prompts, error);
        return;
    }
    auto *item = folderItem(name, withSeparator(folder() + name));
    above->addChild(item);
    addFolders(item);
    m_folders->setCurrentItem(item);
    above->setExpanded(true);
}

QString FavoriteDialog::folder() const
{
    return m_folders->currentItem()->data(0, kPathRole).toString();
}

QString FavoriteDialog::path() const
{
    return folder() + fileNameOf(m_name->text()) + QStringLiteral(".url");
}

void FavoriteDialog::accept()
{
    if (m_files.exists(path()) && !ask(m_prompts,
                                       tr("'%1' is among the favorites already. Do you want to replace it?")
                                           .arg(fileNameOf(m_name->text())),
                                       Prompts::kQuestion))
        return;
    QDialog::accept();
}

QString ChooseFavorite(FileSystem &files, Prompts &prompts, const QString &title, const QString &folder,
                       QWidget *parent)
{
    const QPointer<FavoriteDialog> dialog = new FavoriteDialog(files, prompts, title, folder, parent);
    const bool isAccepted = dialog->exec() == QDialog::Accepted;
    if (!dialog) // it went with its parent
        return {};
    const QString path = dialog->path();
    dialog->deleteLater();
    return isAccepted ? path : QString();
}

} // namespace norvane
