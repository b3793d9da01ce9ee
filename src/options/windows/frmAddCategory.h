#pragma once

#include "shell/Forms.h"

#include <QDialog>

class QListWidget;

namespace norvane {

/// Proposes categories; any number of them can be chosen.
class frmAddCategory : public QDialog, public Form
{
    Q_OBJECT

public:
    /// Adds itself to @p forms, which must outlive it.
    frmAddCategory(FormList &forms, QWidget *parent);
    ~frmAddCategory() override;

    /// The selected names, in the order of the list.
    QStringList selected() const;

    QString formName() const override;
    WindowHandle hWnd() const override;
    void unload() override;
    /// "&Cancel" and closing: unloads it.
    void reject() override;

private:
    FormList &m_forms;
    QListWidget *m_list;
};

/// Shows the dialog and waits for its end. @return the chosen names; none when it was cancelled
QStringList ChooseCategories(FormList &forms, QWidget *parent);

} // namespace norvane
