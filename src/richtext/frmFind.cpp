#include "richtext/frmFind.h"

#include "controls/GroupBox.h"
#include "richtext/commands/EditState.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>

namespace norvane {

frmFind::frmFind(FindState &state, QWidget *parent)
    : QDialog(parent), m_state(state), m_text(new QLineEdit), m_matchCase(new QCheckBox(tr("&Match Case"))),
      m_wholeWord(new QCheckBox(tr("&Whole Word"))), m_find(new QPushButton(tr("&Find"))),
      m_cancel(new QPushButton(tr("&Cancel")))
{
    setObjectName(QStringLiteral("frmFind"));
    setWindowTitle(tr("Find Text"));
    m_text->setObjectName(QStringLiteral("Text1"));
    m_text->setAccessibleName(tr("Text to find"));
    m_text->setMinimumWidth(fontMetrics().averageCharWidth() * 36);
    m_matchCase->setObjectName(QStringLiteral("Check1"));
    m_wholeWord->setObjectName(QStringLiteral("Check2"));
    m_find->setObjectName(QStringLiteral("Command1"));
    m_find->setDefault(true);
    m_cancel->setObjectName(QStringLiteral("Command2"));
    m_cancel->setAutoDefault(false);

    auto *frame = new GroupBox(tr(" Find "));
    auto *options = new QHBoxLayout;
    options->addWidget(m_matchCase);
    options->addWidget(m_wholeWord);
    options->addStretch();
    auto *inFrame = new QVBoxLayout(frame);
    inFrame->addWidget(m_text);
    inFrame->addLayout(options);
    auto *buttons = new QVBoxLayout;
    buttons->addWidget(m_find);
    buttons->addWidget(m_cancel);
    buttons->addStretch();
    auto *layout = new QHBoxLayout(this);
    layout->addWidget(frame);
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    connect(m_text, &QLineEdit::textChanged, m_find,
            [this](const QString &text) { m_find->setEnabled(!text.isEmpty()); });
    connect(m_find, &QPushButton::clicked, this, [this] { end(false); });
    connect(m_cancel, &QPushButton::clicked, this, [this] { end(true); });

    m_matchCase->setChecked(state.matchCase != 0);
    m_wholeWord->setChecked(state.wholeWord != 0);
    m_text->setText(state.text);
    m_text->selectAll();
    m_find->setEnabled(!state.text.isEmpty());
}

void frmFind::setText(const QString &text)
{
    m_text->setText(text);
    m_text->selectAll();
}

void frmFind::reject()
{
    end(true);
}

void frmFind::end(bool cancelled)
{
    m_state.matchCase = m_matchCase->isChecked() ? 1 : 0;
    m_state.wholeWord = m_wholeWord->isChecked() ? 1 : 0;
    m_state.text = m_text->text();
    m_state.cancelled = cancelled;
    done(cancelled ? Rejected : Accepted);
}

void frmFind::showEvent(QShowEvent *event)
{
    const QRect screenRect = screen()->geometry();
    move(screenRect.topLeft() +
         QPoint((screenRect.width() - width()) / 2, (screenRect.height() - height()) / 2));
    QDialog::showEvent(event);
}

} // namespace norvane
