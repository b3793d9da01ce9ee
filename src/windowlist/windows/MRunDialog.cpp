#include "windowlist/windows/MRunDialog.h"

#include "controls/named_button.h"
#include "platform/Prompts.h"
#include "platform/RuntimeError.h"
#include "platform/WindowSystem.h"
#include "shell/internal_error.h"
#include "shell/windows/form_icon.h"
#include "windowlist/list/RunCommand.h"
#include "windowlist/list/RunHistory.h"
#include "windowlist/windows/CommandCompletion.h"
#include "windowlist/windows/WindowListServices.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>

namespace norvane {

namespace {

constexpr int kIconSide = 32;
constexpr int kLineCharacters = 46;

MRunDialog *loadedRunDialog(const FormList &forms)
{
    const QVector<Form *> loaded = forms.named(QStringLiteral("MRunDialog"));
    return loaded.isEmpty() ? nullptr : dynamic_cast<MRunDialog *>(loaded.constFirst());
}

} // namespace

MRunDialog::MRunDialog(const WindowListServices &services)
    : FormWindow(services.forms, QStringLiteral("MRunDialog")), m_services(services), m_picture(new QLabel),
      m_prompt(new QLabel), m_line(new QComboBox), m_ok(namedButton(QStringLiteral("cmdOK"), tr("OK"))),
      m_cancel(namedButton(QStringLiteral("cmdCancel"), tr("Cancel"))),
      m_browse(namedButton(QStringLiteral("cmdBrowse"), tr("&Browse...")))
{
    SetFormIcon(this);
    arrange();
    setTexts({}, {});
    setPicture({});

    const RunHistory history(m_services.settings);
    m_line->addItems(history.list());
    m_line->lineEdit()->selectAll();
    new CommandCompletion(*m_line->lineEdit(), m_services.shell, m_services.home);
    const auto enable = [this] { m_ok->setEnabled(!m_line->currentText().trimmed().isEmpty()); };
    connect(m_line, &QComboBox::editTextChanged, this, enable);
    enable();
    connect(m_ok, &QPushButton::clicked, this, &MRunDialog::accept);
    connect(m_cancel, &QPushButton::clicked, this, &MRunDialog::reject);
    connect(m_browse, &QPushButton::clicked, this, &MRunDialog::browse);
    m_services.forms.add(this);
}

void MRunDialog::arrange()
{
    m_picture->setObjectName(QStringLiteral("imgIcon"));
    m_picture->setAlignment(Qt::AlignTop);
    m_prompt->setObjectName(QStringLiteral("lblPrompt"));
    m_prompt->setWordWrap(true);
    m_prompt->setTextFormat(Qt::PlainText);
    m_line->setObjectName(QStringLiteral("cboOpen"));
    m_line->setEditable(true);
    m_line->setInsertPolicy(QComboBox::NoInsert);
    m_line->setCompleter(nullptr);
    m_line->setMaxVisibleItems(RunHistory::kLines);
    m_line->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_line->setMinimumContentsLength(kLineCharacters);
    auto *caption = new QLabel(tr("&Open:"));
    caption->setBuddy(m_line);
    m_ok->setDefault(true);

    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addStretch();
    for (QPushButton *each : {m_ok, m_cancel, m_browse})
        buttons->addWidget(each);
    auto *layout = new QGridLayout(this);
    layout->setColumnStretch(1, 1);
    layout->setHorizontalSpacing(12);
    layout->setVerticalSpacing(10);
    layout->addWidget(m_picture, 0, 0);
    layout->addWidget(m_prompt, 0, 1);
    layout->addWidget(caption, 1, 0);
    layout->addWidget(m_line, 1, 1);
    layout->addLayout(buttons, 2, 0, 1, 2);
    layout->setRowStretch(0, 1);
}

void MRunDialog::setTexts(const QString &title, const QString &prompt)
{
    setWindowTitle(title.isEmpty() ? tr("Run") : title);
    m_prompt->setText(
        prompt.isEmpty() ? tr("Type the name of a program, folder, document or address to open.") : prompt);
    m_line->setAccessibleDescription(m_prompt->text());
}

void MRunDialog::setPicture(const QIcon &icon)
{
    const QIcon shown = icon.isNull() ? applicationIcon() : icon;
    m_picture->setPixmap(shown.pixmap(QSize(kIconSide, kIconSide), devicePixelRatioF()));
}

void MRunDialog::bringUp(const QWidget *owner)
{
    if (!isVisible()) {
        adjustSize();
        const bool hasPlace = owner && owner->isVisible();
        const QRect room = hasPlace ? owner->frameGeometry() : screen()->availableGeometry();
        move(room.center() - rect().center());
    }
    bringToFront(m_services.windows);
    m_line->setFocus();
    m_line->lineEdit()->selectAll();
}

void MRunDialog::accept()
{
    const QString line = m_line->currentText().trimmed();
    if (line.isEmpty())
        return;
    try {
        const RunCommand command(line, m_services.shell, m_services.files, m_services.home);
        if (command.kind() == RunCommand::Kind::Nothing)
            return;
        command.start(m_services.shell);
    } catch (const RuntimeError &error) {
        tell(m_services.prompts, error.description());
        m_line->setFocus();
        m_line->lineEdit()->selectAll();
        return;
    }
    RunHistory(m_services.settings).add(line);
    unload();
}

void MRunDialog::browse()
{
    const QString path = m_services.prompts.openFile(tr("Browse"), tr("All Files|*"));
    if (path.isEmpty())
        return;
    m_line->setEditText(quotedPath(path));
    m_line->setFocus();
}

void RunDialog(const WindowListServices &services, const QWidget *owner, const QIcon &icon,
               const QString &title, const QString &prompt)
{
    MRunDialog *window = loadedRunDialog(services.forms);
    if (!window)
        window = new MRunDialog(services);
    window->setTexts(title, prompt);
    window->setPicture(icon);
    window->bringUp(owner);
}

void ShowNewTask(const WindowListServices &services, const QWidget *owner)
{
    RunDialog(services, owner, QIcon(), MRunDialog::tr("New Task"),
              MRunDialog::tr("Type the name of a folder, program, Internet resource, or document to run."));
}

} // namespace norvane
