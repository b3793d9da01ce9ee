#pragma once

#include <QDialog>

class QCheckBox;
class QLineEdit;
class QPushButton;

namespace norvane {

struct FindState;

/// The find dialog of the rich text editor. It shows what the find state remembers and leaves there
/// what it ended with; it searches nothing itself. Closing it is cancelling it.
class frmFind : public QDialog
{
    Q_OBJECT

public:
    /// @param state must outlive the dialog
    explicit frmFind(FindState &state, QWidget *parent = nullptr);

    /// Puts a text in place of the remembered one.
    void setText(const QString &text);

public slots:
    void reject() override;

protected:
    void showEvent(QShowEvent *event) override;

private:
    void end(bool cancelled);

    FindState &m_state;
    QLineEdit *m_text;      ///< `Text1`
    QCheckBox *m_matchCase; ///< `Check1`
    QCheckBox *m_wholeWord; ///< `Check2`
    QPushButton *m_find;    ///< `Command1`
    QPushButton *m_cancel;  ///< `Command2`
};

} // namespace norvane
