// The commands of NV_RTFEdit: its tool bar, its context menu and the dialogs that they open.

#include "richtext/EditMenu.h"
#include "richtext/EditToolBar.h"
#include "richtext/NV_RTFEdit.h"
#include "richtext/commands/EditState.h"
#include "richtext/commands/document_kind.h"
#include "richtext/commands/named_formats.h"
#include "richtext/edit_keys.h"
#include "richtext/format_conversion.h"
#include "richtext/frmFind.h"

#include "platform/Clock.h"
#include "platform/Printing.h"
#include "platform/RuntimeError.h"
#include "shell/internal_error.h"

#include <QAction>
#include <QComboBox>
#include <QPointer>
#include <QTextCursor>
#include <QTimer>

namespace norvane {

using namespace edit_keys;

namespace {

constexpr int kRightButton = 2;
constexpr double kNewDocumentSize = 10; // points

} // namespace

void NV_RTFEdit::askLater(void (NV_RTFEdit::*command)())
{
    QTimer::singleShot(0, this, command);
}

// ---- Tool bar ----

void NV_RTFEdit::toolBarClick(const QString &key)
{
    const bool mayChange = m_box->mayChangeSelection();
    if (key == kOpen)
        askLater(&NV_RTFEdit::openDocument);
    else if (key == kSave)
        emit SaveMe();
    else if (key == kNew)
        askLater(&NV_RTFEdit::newDocument);
    else if (key == kBold && mayChange)
        setSelBold(!SelBold().value_or(false));
    else if (key == kItalic && mayChange)
        setSelItalic(!SelItalic().value_or(false));
    else if (key == kUnderline && mayChange)
        setSelUnderline(!SelUnderline().value_or(false));
    else if (key == kCopy)
        m_box->copy();
    else if (key == kPaste)
        mnu_Paste();
    else if (key == kCut)
        mnu_Cut();
    else if (key == kLeft)
        align(0);
    else if (key == kCenter)
        align(2);
    else if (key == kRight)
        align(1);
    else if (key == kColor)
        askLater(&NV_RTFEdit::chooseColor);
    else if (key == kPrint)
        askLater(&NV_RTFEdit::mnu_Print);
    else if (key == kFind)
        askLater(&NV_RTFEdit::mnu_Find);
    else if (key == kBullet && mayChange)
        toggleBullet();
    // A press has toggled the button by itself: show what the text says.
    RefreshControls();
}

void NV_RTFEdit::newDocument()
{
    const QPointer<NV_RTFEdit> self(this);
    const QString question =
        tr("You are going to replace the current document with a new one. Are you sure?");
    if (!ask(m_services.prompts, question, Prompts::kQuestion | Prompts::kForeground) || !self || Locked())
        return;
    setText({});
    resetLook(kNewDocumentSize);
}

void NV_RTFEdit::resetLook(double points)
{
    setSelAlignment(0);
    setSelBold(false);
    setSelFontSize(points);
    setSelBullet(false);
    setSelColor(0);
    setSelItalic(false);
    setSelUnderline(false);
    setMousePointer(0);
}

void NV_RTFEdit::openDocument()
{
    const QPointer<NV_RTFEdit> self(this);
    const QString path = m_services.prompts.openFile(
        tr("Open"), QStringLiteral("Rich Text Format (RTF)|*.rtf|Plain Text (TXT)|*.txt"));
    if (path.isEmpty() || !self || Locked())
        return;
    const QString extension = documentExtension(path);
    QString message;
    try {
        if (extension == u"TXT")
            LoadFile(path, RichTextBox::kPlainText);
        else if (extension == u"RTF")
            LoadFile(path, RichTextBox::kRichText);
        else
            message = tr("Unknown File Format");
    } catch (const RuntimeError &error) {
        message = error.description();
    }
    if (!message.isEmpty())
        tell(m_services.prompts, message);
}

void NV_RTFEdit::chooseColor()
{
    const QPointer<NV_RTFEdit> self(this);
    const std::optional<quint32> color = m_services.prompts.chooseColor(SelColor().value_or(0));
    if (color && self && m_box->mayChangeSelection())
        setSelColor(*color);
}

void NV_RTFEdit::toggleBullet()
{
    if (!SelBullet()) {
        m_toolBar->setMixed(kBullet, false);
        setSelBullet(false);
    }
    setSelBullet(!SelBullet().value_or(false));
}

// ---- Context menu ----

void NV_RTFEdit::boxMouseUp(int button, int shift, double x, double y)
{
    const QPointer<NV_RTFEdit> self(this);
    emit MouseUp(button, shift, x, y);
    if (self && button == kRightButton)
        popUpMenu((QPointF(x, y) / twipsPerPixel()).toPoint());
}

void NV_RTFEdit::popUpMenu(const QPoint &position)
{
    if (!m_contextMenu)
        return;
    const std::optional<int> alignment = SelAlignment();
    m_menu->item(QStringLiteral("mnu_Align_Left"))->setChecked(alignment == 0);
    m_menu->item(QStringLiteral("mnu_Align_Right"))->setChecked(alignment == 1);
    m_menu->item(QStringLiteral("mnu_Align_Center"))->setChecked(alignment == 2);

    const bool canUndo = m_box->CanUndo();
    QAction *undo = m_menu->item(QStringLiteral("mnu_Undo"));
    undo->setText(canUndo ? tr("&Undo") : tr("Can't Undo"));
    undo->setEnabled(canUndo);

    // A host disables commands by disabling their buttons.
    m_menu->item(QStringLiteral("mnu_Font"))->setEnabled(m_toolBar->fontSize()->isEnabled());
    const std::pair<const char *, QString> likeButtons[] = {{"mnu_Cut", kCut},
                                                            {"mnu_Copy", kCopy},
                                                            {"mnu_Paste", kPaste},
                                                            {"mnu_Find", kFind},
                                                            {"mnu_Print", kPrint},
                                                            {"mnu_Align_Left", kLeft},
                                                            {"mnu_Align_Center", kCenter},
                                                            {"mnu_Align_Right", kRight}};
    for (const auto &[name, key] : likeButtons)
        m_menu->item(QString::fromLatin1(name))->setEnabled(m_toolBar->button(key)->isEnabled());

    const QDateTime now = m_services.clock.now();
    m_menu->setTexts(QStringLiteral("mnu_Insert_Date_Sub"), namedDates(now.date(), QLocale::system()));
    m_menu->setTexts(QStringLiteral("mnu_Insert_Time_Sub"), namedTimes(now.time(), QLocale::system()));
    m_menu->popup(m_box->viewport()->mapToGlobal(position));
}

void NV_RTFEdit::menuClick(const QString &name)
{
    if (name == u"mnu_Undo")
        m_box->undo();
    else if (name == u"mnu_Cut")
        mnu_Cut();
    else if (name == u"mnu_Copy")
        m_box->copy();
    else if (name == u"mnu_Paste")
        mnu_Paste();
    else if (name == u"mnu_Del")
        replaceSelection({});
    else if (name == u"mnu_insert_obj")
        askLater(&NV_RTFEdit::mnu_insert_obj);
    else if (name == u"mnu_Find")
        askLater(&NV_RTFEdit::mnu_Find);
    else if (name == u"mnu_Font")
        askLater(&NV_RTFEdit::mnu_Font);
    else if (name == u"mnu_Align_Left")
        align(0);
    else if (name == u"mnu_Align_Right")
        align(1);
    else if (name == u"mnu_Align_Center")
        align(2);
    else if (name == u"mnu_Print")
        askLater(&NV_RTFEdit::mnu_Print);
}

void NV_RTFEdit::mnu_Cut()
{
    if (m_box->mayChangeSelection())
        m_box->cut();
}

void NV_RTFEdit::mnu_Paste()
{
    m_box->paste();
}

void NV_RTFEdit::replaceSelection(const QString &text)
{
    if (m_box->mayChangeSelection())
        setSelText(text);
}

void NV_RTFEdit::align(int alignment)
{
    if (m_box->mayChangeSelection())
        setSelAlignment(alignment);
    RefreshControls();
}

// ---- Dialogs ----

void NV_RTFEdit::mnu_Find()
{
    const QPointer<NV_RTFEdit> self(this);
    FindState &state = m_services.state.find;
    Prompts &prompts = m_services.prompts;
    for (bool isFirst = true;; isFirst = false) {
        // On the heap: its parent may be a note that goes while the dialog stands open.
        const QPointer<frmFind> dialog = new frmFind(state, window());
        if (isFirst)
            dialog->setText(SelText());
        dialog->exec();
        delete dialog.data();
        if (!self || state.cancelled)
            return;
        const int options = (state.matchCase != 0 ? RichTextBox::kMatchCase : 0) |
                            (state.wholeWord != 0 ? RichTextBox::kWholeWord : 0);
        if (m_box->Find(state.text, SelStart() + SelLength(), -1, options) != -1)
            return;
        prompts.messageBox(tr("Not Found"), Prompts::kOkOnly, tr("Find"));
        if (!self)
            return;
    }
}

void NV_RTFEdit::mnu_Font()
{
    // What the selection mixes stays as the dialog had it.
    FontChoice font = m_dialogFont;
    font.family = SelFontName().value_or(font.family);
    font.points = SelFontSize().value_or(font.points);
    font.bold = SelBold().value_or(font.bold);
    font.italic = SelItalic().value_or(font.italic);
    font.color = SelColor().value_or(font.color);
    font.strikeThru = SelStrikeThru().value_or(font.strikeThru);
    font.underline = SelUnderline().value_or(font.underline);

    const QPointer<NV_RTFEdit> self(this);
    const std::optional<FontChoice> chosen = m_services.prompts.chooseFont(font);
    if (!chosen || !self || !m_box->mayChangeSelection())
        return;
    m_dialogFont = *chosen;
    QTextCursor step(m_box->document());
    step.beginEditBlock(); // undone as one
    setSelFontName(chosen->family);
    setSelFontSize(chosen->points);
    setSelBold(chosen->bold);
    setSelItalic(chosen->italic);
    setSelColor(chosen->color);
    setSelStrikeThru(chosen->strikeThru);
    setSelUnderline(chosen->underline);
    step.endEditBlock();
    RefreshControls();
}

void NV_RTFEdit::mnu_Print()
{
    const QPointer<NV_RTFEdit> self(this);
    const std::unique_ptr<PrintJob> job = m_services.printing.choosePrinter(SelLength() != 0);
    if (!job || !self)
        return;
    if (job->selectionOnly())
        SelPrint(job->device());
    else
        m_box->printAll(job->device());
}

} // namespace norvane
