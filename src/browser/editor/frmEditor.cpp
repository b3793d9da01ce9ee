#include "browser/editor/frmEditor.h"

#include "browser/editor/TitleStrip.h"
#include "browser/editor/editor_icons.h"
#include "controls/plain_tool_tip.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/Prompts.h"
#include "platform/RuntimeError.h"
#include "richtext/EditServices.h"
#include "richtext/NV_RTFEdit.h"
#include "shell/internal_error.h"
#include "shell/windows/StatusPanel.h"
#include "shell/windows/form_icon.h"
#include "store/NoteRescue.h"
#include "store/NoteStore.h"
#include "store/note_row.h"
#include "watcher/NoteGridView.h"

#include <QAction>
#include <QCloseEvent>
#include <QMdiSubWindow>
#include <QPointer>
#include <QStatusBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace norvane {

namespace {

constexpr int kSingleLine = 1; // BorderStyle
constexpr QSize kRoomy(700, 480);

} // namespace

frmEditor::frmEditor(const BrowserServices &services, NoteRescue &rescue, Kind kind)
    : m_services(services), m_rescue(rescue), m_kind(kind), m_title(new TitleStrip(this)),
      m_text(new NV_RTFEdit(services.edit, this)), m_location(new StatusPanel(QStringLiteral("Panel1")))
{
    setObjectName(frmEditor::formName());
    setWindowTitle(tr("Norvane Editor"));
    SetFormIcon(this);

    m_text->setObjectName(QStringLiteral("RTFEdit1"));
    m_text->setAccessibleName(tr("Note"));
    m_text->setToolBar(true);
    m_text->setBorderStyle(kSingleLine);
    makeActions();
    auto *status = new QStatusBar;
    status->setObjectName(QStringLiteral("ST1"));
    status->setSizeGripEnabled(false);
    status->addWidget(m_location, 1);
    m_location->setContentsMargins(4, 0, 4, 0);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_title);
    layout->addWidget(m_text, 1);
    layout->addWidget(status);
    setFocusProxy(m_text->box());

    setDirty(false);
    connect(m_text, &NV_RTFEdit::Change, this, &frmEditor::textChanged);
    connect(m_text, &NV_RTFEdit::SaveMe, this, &frmEditor::save);
    resize(frmEditor::sizeHint());
    m_services.forms.add(this);
}

frmEditor::~frmEditor()
{
    m_services.forms.remove(this);
}

void frmEditor::makeActions()
{
    m_save = m_title->addButton(QStringLiteral("cmdSave"), editorIcon(EditorIcon::Save), tr("Save Note"));
    connect(m_save, &QToolButton::clicked, this, &frmEditor::save);
    QToolButton *exit =
        m_title->addButton(QStringLiteral("cmdExit"), editorIcon(EditorIcon::Close), tr("Close Editor"));
    connect(exit, &QToolButton::clicked, this, &frmEditor::closeWindow);

    const auto addKey = [this](QKeySequence::StandardKey key, auto command) {
        auto *action = new QAction(this);
        action->setShortcuts(key);
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        connect(action, &QAction::triggered, this, command);
        addAction(action);
    };
    addKey(QKeySequence::Save, [this] {
        if (isDirty())
            save();
    });
    if (m_kind == Kind::Free) // the frame has such keys for its children
        addKey(QKeySequence::Close, &frmEditor::closeWindow);
}

QSize frmEditor::sizeHint() const
{
    return kRoomy.expandedTo(QWidget::sizeHint());
}

QString frmEditor::formName() const
{
    return m_kind == Kind::FrameChild ? QStringLiteral("frmEditor") : QStringLiteral("frmEditor2");
}

WindowHandle frmEditor::hWnd() const
{
    return isWindow() ? static_cast<WindowHandle>(winId()) : kNoWindow;
}

/// What stands on the screen for this window: that of the frame around it, or it itself.
QWidget *frmEditor::outerWindow()
{
    auto *child = qobject_cast<QMdiSubWindow *>(parentWidget());
    return child ? child : static_cast<QWidget *>(this);
}

void frmEditor::bringUp()
{
    QWidget *onScreen = outerWindow();
    if (onScreen->isMinimized())
        onScreen->showNormal();
    show();
    onScreen->show();
    onScreen->raise();
    onScreen->activateWindow();
    m_text->SetFocus();
}

// ---- The note ----

void frmEditor::load(int ID, const QString &title, const QString &location)
{
    const NoteStore &store = m_services.store;
    const auto row = openNoteRow(store, ID);
    m_title->setTitle(u' ' + title);
    m_title->setTitleToolTip(title.trimmed());
    setAccessibleDescription(title.trimmed()); // all editors have the same caption
    m_location->setPanelText(tr("Location: ") + location);
    m_id = ID;
    m_bodyFile = store.bodyFile(ID);
    if (store.files().exists(m_bodyFile))
        m_text->LoadFile(m_bodyFile, RichTextBox::kRichText);
    m_text->setAutoURLDetect(row->field(QStringLiteral("AutoURLDetect")).toBool());
    m_text->setBackColor(static_cast<quint32>(row->field(QStringLiteral("BackColor")).toInt()));
    m_text->setSelStart(0); // links were looked for down to the end
    setDirty(false);
}

void frmEditor::textChanged()
{
    ++m_changes;
    setDirty(true);
}

bool frmEditor::isDirty() const
{
    return m_save->isEnabled();
}

void frmEditor::setDirty(bool dirty)
{
    m_save->setEnabled(dirty);
    m_text->setEnableSaveButton(dirty);
}

void frmEditor::save()
{
    const BrowserServices &services = m_services;
    try {
        SaveNoteText(services.store, m_id, m_text->Text(), services.clock.now());
        m_text->SaveFile(m_bodyFile, RichTextBox::kRichText);
        setDirty(false);
        // Events may run in these, and the editor go or be typed into.
        services.browser.Refresh_Grid();
        services.browser.refreshPreview();
    } catch (const RuntimeError &error) {
        showRuntimeError(services.edit.prompts, error);
    }
}

// ---- The end ----

bool frmEditor::mayClose()
{
    if (!isDirty() || m_left)
        return true;
    if (m_asking)
        return false;
    m_asking = true;
    const QPointer<frmEditor> self(this);
    bringUp(); // which of the notes it is
    const bool mayBeLost =
        ask(m_services.edit.prompts, tr("Are you sure you want to close without saving this note?"),
            Prompts::kQuestion);
    if (!self)
        return true;
    m_asking = false;
    if (m_left) { // everything ended meanwhile
        outerWindow()->deleteLater();
        return true;
    }
    return mayBeLost;
}

bool frmEditor::closeWindow()
{
    return outerWindow()->close();
}

void frmEditor::closeEvent(QCloseEvent *event)
{
    const QPointer<frmEditor> self(this);
    if (!mayClose()) {
        event->ignore();
        return;
    }
    event->accept();
    if (self && !m_left) {
        dropChanges();
        leave();
    }
}

void frmEditor::rescueChanges()
{
    if (!isDirty() || m_settled == m_changes)
        return;
    m_settled = m_changes;
    m_rescue.rescue(m_title->title().trimmed(), m_text->TextRTF());
}

void frmEditor::unload()
{
    rescueChanges();
    leave();
}

void frmEditor::leave()
{
    if (m_left)
        return;
    m_left = true;
    m_services.forms.remove(this);
    outerWindow()->hide();
    // Behind a question there is a close event that is not done with the window.
    if (!m_asking)
        outerWindow()->deleteLater();
}

} // namespace norvane
