#include "browser/editor/frmOpen.h"

#include "browser/grid/NoteGrid.h"
#include "platform/FileSystem.h"
#include "platform/RuntimeError.h"
#include "richtext/EditServices.h"
#include "richtext/NV_RTFEdit.h"
#include "shell/internal_error.h"
#include "shell/windows/form_icon.h"
#include "store/NoteStore.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <memory>

namespace norvane {

namespace {

constexpr QSize kRoomy(640, 420);

} // namespace

frmOpen::frmOpen(const BrowserServices &services)
    : FormWindow(services.forms, QStringLiteral("frmOpen")), m_services(services),
      m_notes(new NoteGrid(services, this)), m_picked(new RichTextBox(services.edit.files, this)),
      m_fault(new QLabel(this))
{
    setWindowTitle(tr("Open Note"));
    SetFormIcon(this);

    m_notes->setObjectName(QStringLiteral("NoteGrid1"));
    m_picked->setObjectName(QStringLiteral("RichTextBox1"));
    m_picked->hide();
    m_fault->setObjectName(QStringLiteral("lblFault"));
    m_fault->setTextFormat(Qt::PlainText);
    m_fault->setWordWrap(true);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_notes, 1);
    layout->addWidget(m_fault);
    makeButtons();
    setFocusProxy(m_notes);

    connect(m_notes, &NoteGrid::RowChange, this, [this](int, int, int ID) { rowChanged(ID); });
    resize(kRoomy);
    listNotes();
    enableButtons();
    m_services.forms.add(this);
}

void frmOpen::makeButtons()
{
    auto *row = new QHBoxLayout;
    row->addStretch();
    const auto add = [&](const QString &name, const QString &text) {
        auto *button = new QPushButton(text);
        button->setObjectName(name);
        button->setAutoDefault(true);
        button->setMinimumWidth(button->sizeHint().width() + fontMetrics().height()); // long captions
        row->addWidget(button);
        return button;
    };
    m_replace = add(QStringLiteral("Command1"), tr("&Replace with current note"));
    m_inset = add(QStringLiteral("Command3"), tr("&Inset into current note"));
    QPushButton *cancel = add(QStringLiteral("Command2"), tr("&Cancel"));
    connect(m_replace, &QPushButton::clicked, this, [this] { insert(&NV_RTFEdit::setTextRTF); });
    connect(m_inset, &QPushButton::clicked, this, [this] { insert(&NV_RTFEdit::setSelRTF); });
    connect(cancel, &QPushButton::clicked, this, &frmOpen::unload);
    qobject_cast<QVBoxLayout *>(layout())->addLayout(row);
}

void frmOpen::listNotes()
{
    m_notes->setGridDB(m_services.store.database());
    m_notes->Refresh_Grid();
}

void frmOpen::bringUp()
{
    bringToFront(m_services.windows);
    m_notes->SetFocus();
}

void frmOpen::setRTFObj(NV_RTFEdit *editor)
{
    m_editor = editor;
    if (editor)
        // When it is said, the pointer still leads to what is left of it.
        connect(editor, &QObject::destroyed, this, &frmOpen::enableButtons, Qt::QueuedConnection);
    enableButtons();
}

void frmOpen::rowChanged(int ID)
{
    m_isReadable = true;
    m_picked->setText({});
    try {
        const QString body = m_services.store.bodyFile(ID);
        if (m_services.edit.files.exists(body))
            m_picked->LoadFile(body, RichTextBox::kRichText);
    } catch (const RuntimeError &error) {
        // An empty text in its place would empty the note that asked.
        m_isReadable = false;
        m_fault->setText(error.description());
    }
    enableButtons();
}

void frmOpen::enableButtons()
{
    m_replace->setEnabled(m_editor && m_isReadable);
    m_inset->setEnabled(m_editor && m_isReadable);
    m_fault->setVisible(!m_isReadable);
}

void frmOpen::insert(void (NV_RTFEdit::*write)(const QByteArray &))
{
    if (m_editor)
        (m_editor->*write)(m_picked->TextRTF());
    unload();
}

void frmOpen::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        unload();
    else
        QWidget::keyPressEvent(event);
}

void frmOpen::unloading()
{
    m_editor = nullptr;
}

void ShowOpenNote(const BrowserServices &services, NV_RTFEdit &RTFObj, const QString &caption)
{
    const QVector<Form *> open = services.forms.named(QStringLiteral("frmOpen"));
    auto *picker = open.isEmpty() ? nullptr : dynamic_cast<frmOpen *>(open.first());
    try {
        if (picker)
            picker->listNotes(); // it may have been open for long
        else
            picker = std::make_unique<frmOpen>(services).release();
    } catch (const RuntimeError &error) {
        showRuntimeError(services.edit.prompts, error);
        return;
    }
    picker->setRTFObj(&RTFObj);
    picker->setWindowTitle(caption);
    picker->bringUp();
}

} // namespace norvane
