#pragma once

#include "shell/Forms.h"
#include "store/PasswordDialogModel.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

namespace norvane {

/// What stands for "&Select Database" in the dialog.
enum class SelectDatabaseButton { Enabled, Disabled, Hidden };

/// Asks for the password of a database, modally: exec() returns when it is hidden. What its buttons
/// do is the model's.
class frmPassword : public QDialog, public Form
{
    Q_OBJECT

public:
    /// Adds itself to @p forms; both must outlive it.
    frmPassword(FormList &forms, PasswordDialogModel &model, QWidget *parent = nullptr);
    ~frmPassword() override;

    void setSelectDatabase(SelectDatabaseButton button);

    QString formName() const override;
    WindowHandle hWnd() const override;
    void unload() override;

    void reject() override;

protected:
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void follow(PasswordDialogModel::Next next);
    void showFile();

    FormList &m_forms;
    PasswordDialogModel &m_model;
    QLabel *m_explanation;
    QLineEdit *m_password;
    QPushButton *m_selectDatabase;
};

/// Shows the dialog and returns when it is over, or when its parent is gone.
void askForPassword(FormList &forms, PasswordDialogModel &model, SelectDatabaseButton button,
                    QWidget *parent);

} // namespace norvane
