#include "shell/windows/frmPassword.h"

#include "controls/GroupBox.h"
#include "shell/windows/form_icon.h"

#include <QFocusEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

namespace norvane {

namespace {

constexpr int kIconSide = 48;
constexpr int kTextWidth = 330;

QPushButton *button(const QString &name, const QString &text)
{
    auto *result = new QPushButton(text);
    result->setObjectName(name);
    result->setAutoDefault(false);
    return result;
}

} // namespace

frmPassword::frmPassword(FormList &forms, PasswordDialogModel &model, QWidget *parent)
    : QDialog(parent), m_forms(forms), m_model(model), m_explanation(new QLabel), m_password(new QLineEdit),
      m_selectDatabase(button(QStringLiteral("Command3"), tr("&Select Database")))
{
    setObjectName(QStringLiteral("frmPassword"));
    setWindowTitle(tr("Norvane Password"));
    SetFormIcon(this);

    auto *icon = new QLabel;
    icon->setPixmap(applicationIcon().pixmap(QSize(kIconSide, kIconSide), devicePixelRatioF()));
    icon->setAccessibleName(QStringLiteral("Norvane"));
    m_explanation->setObjectName(QStringLiteral("lblExplanation"));
    m_explanation->setTextFormat(Qt::PlainText);
    m_explanation->setWordWrap(true);
    m_explanation->setMinimumWidth(kTextWidth);
    auto *top = new QHBoxLayout;
    top->setSpacing(16);
    top->addWidget(icon, 0, Qt::AlignTop);
    top->addWidget(m_explanation, 1);

    m_password->setObjectName(QStringLiteral("txtPassword"));
    m_password->setAccessibleName(tr("Password"));
    m_password->setEchoMode(QLineEdit::Password);
    m_password->installEventFilter(this);
    auto *frame = new GroupBox(tr("Password"));
    frame->setObjectName(QStringLiteral("Frame1"));
    auto *inFrame = new QVBoxLayout(frame);
    inFrame->addWidget(m_password);

    QPushButton *ok = button(QStringLiteral("Command1"), tr("&OK"));
    ok->setDefault(true);
    QPushButton *cancel = button(QStringLiteral("Command2"), tr("&Cancel"));
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_selectDatabase);
    buttons->addSpacing(24);
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(cancel);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(18, 18, 18, 14);
    layout->setSpacing(12);
    layout->addLayout(top);
    layout->addWidget(frame);
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    setTabOrder(ok, cancel);
    setTabOrder(cancel, m_selectDatabase);
    m_password->setFocus();

    connect(ok, &QPushButton::clicked, this, [this] { follow(m_model.Command1_Click(m_password->text())); });
    connect(cancel, &QPushButton::clicked, this, &frmPassword::reject);
    connect(m_selectDatabase, &QPushButton::clicked, this, [this] {
        const PasswordDialogModel::Next next = m_model.Command3_Click();
        showFile();
        follow(next);
    });
    showFile();
    m_forms.add(this);
}

frmPassword::~frmPassword()
{
    m_forms.remove(this);
}

void frmPassword::setSelectDatabase(SelectDatabaseButton button)
{
    m_selectDatabase->setEnabled(button == SelectDatabaseButton::Enabled);
    m_selectDatabase->setVisible(button != SelectDatabaseButton::Hidden);
}

QString frmPassword::formName() const
{
    return QStringLiteral("frmPassword");
}

WindowHandle frmPassword::hWnd() const
{
    return static_cast<WindowHandle>(winId());
}

void frmPassword::unload()
{
    m_forms.remove(this);
    hide();
    deleteLater();
}

void frmPassword::reject()
{
    follow(m_model.Command2_Click());
}

void frmPassword::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        m_password->setToolTip(m_model.toolTip());
}

bool frmPassword::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_password && event->type() == QEvent::FocusIn) {
        m_password->setToolTip(m_model.toolTip());
        // At once: keys that are under way already belong behind the selection. Only a click has to put
        // the cursor down first.
        if (static_cast<QFocusEvent *>(event)->reason() == Qt::MouseFocusReason)
            QMetaObject::invokeMethod(m_password, &QLineEdit::selectAll, Qt::QueuedConnection);
        else
            m_password->selectAll();
    }
    return QDialog::eventFilter(watched, event);
}

void frmPassword::follow(PasswordDialogModel::Next next)
{
    switch (next) {
    case PasswordDialogModel::Next::Hide:
        done(m_model.password().isEmpty() ? Rejected : Accepted);
        break;
    case PasswordDialogModel::Next::SelectText:
        m_password->selectAll();
        m_password->setFocus();
        break;
    case PasswordDialogModel::Next::FocusText:
        m_password->setFocus();
        break;
    case PasswordDialogModel::Next::Stay:
        break;
    }
}

void frmPassword::showFile()
{
    m_explanation->setText(m_model.explanation());
    m_password->setToolTip(m_model.toolTip());
}

void askForPassword(FormList &forms, PasswordDialogModel &model, SelectDatabaseButton button, QWidget *parent)
{
    // On the heap: it goes with its parent when the program ends under it.
    const QPointer<frmPassword> dialog = new frmPassword(forms, model, parent);
    dialog->setSelectDatabase(button);
    dialog->exec();
    delete dialog.data();
}

} // namespace norvane
