#pragma once

#include "options/settings/SettingsChange.h"

#include <QWidget>

class QCheckBox;
class QGroupBox;
class QLineEdit;
class QPushButton;

namespace norvane {

class FolderBox;
class StatusPanel;
struct OptionsServices;

/// The page "Database": which database is open, how the program starts and matches, and the password.
class DatabasePage : public QWidget
{
    Q_OBJECT

public:
    explicit DatabasePage(const OptionsServices &services);

    /// Fills in what this page collects.
    void read(SettingsChoice &choice) const;
    /// Shows the folder of the open database.
    void showDatabase();

signals:
    /// Something was chosen that waits for "&OK" or "&Apply".
    void changed();

private:
    QGroupBox *databaseFrame();
    QGroupBox *importFrame();
    QGroupBox *securityFrame();
    void browse();
    void browseImport();
    void importClicked();
    void changePasswordClicked();
    void passwordsChanged();

    const OptionsServices &m_services;
    StatusPanel *m_current;
    QCheckBox *m_startup;
    QCheckBox *m_exact;
    FolderBox *m_folder;
    QCheckBox *m_default;
    FolderBox *m_import;
    QLineEdit *m_currentPassword;
    QLineEdit *m_newPassword;
    QLineEdit *m_confirmPassword;
    QPushButton *m_changePassword;
};

} // namespace norvane
