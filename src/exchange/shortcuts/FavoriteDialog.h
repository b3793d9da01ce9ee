#pragma once

#include <QDialog>

class QLineEdit;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace norvane {

class FileSystem;
class Prompts;

/// Asks for the name of a favorite and for the folder that it goes to, which may be a new one.
class FavoriteDialog : public QDialog
{
    Q_OBJECT

public:
    /// @param title  is proposed as the name
    /// @param folder that of all favorites, ending in a separator
    FavoriteDialog(FileSystem &files, Prompts &prompts, const QString &title, const QString &folder,
                   QWidget *parent);

    /// The file that the favorite goes to, native. Once accepted it does not exist, or may be replaced.
    QString path() const;

    void accept() override;

private:
    void addFolders(QTreeWidgetItem *above);
    void newFolder();
    QString folder() const;

    FileSystem &m_files;
    Prompts &m_prompts;
    QLineEdit *m_name;
    QTreeWidget *m_folders;
    QPushButton *m_ok;
};

/// Shows the dialog and waits for its end. @return path(); empty when it was cancelled
QString ChooseFavorite(FileSystem &files, Prompts &prompts, const QString &title, const QString &folder,
                       QWidget *parent);

} // namespace norvane
