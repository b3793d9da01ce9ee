#include "richtext/NV_RTFEdit.h"

#include "richtext/EditMenu.h"
#include "richtext/EditToolBar.h"
#include "richtext/edit_keys.h"
#include "richtext/virtual_keys.h"

#include <QAction>
#include <QComboBox>
#include <QFontDatabase>
#include <QKeyEvent>

namespace norvane {
using namespace edit_keys;

NV_RTFEdit::NV_RTFEdit(const EditServices &services, QWidget *parent)
    : QWidget(parent), m_services(services), m_box(new RichTextBox(services.files, this)),
      m_toolBar(new EditToolBar(this)), m_menu(new EditMenu(this))
{
    m_box->setObjectName(QStringLiteral("RichTextBox1"));
    m_box->setAccessibleName(tr("Text"));
    setFocusProxy(m_box);

    connect(m_toolBar, &EditToolBar::buttonClick, this, &NV_RTFEdit::toolBarClick);
    connect(m_toolBar, &EditToolBar::fontNameChosen, this, [this](const QString &family) {
        if (m_box->mayChangeSelection())
            setSelFontName(family);
        SetFocus();
    });
    connect(m_toolBar, &EditToolBar::fontSizeChosen, this, [this](double points) {
        if (m_box->mayChangeSelection())
            setSelFontSize(points);
        SetFocus();
    });
    connect(m_toolBar, &EditToolBar::left, this, &NV_RTFEdit::SetFocus);
    connect(m_menu, &EditMenu::itemClick, this, &NV_RTFEdit::menuClick);
    connect(m_menu, &EditMenu::textChosen, this, &NV_RTFEdit::replaceSelection);
    connectBox();
}

NV_RTFEdit::~NV_RTFEdit() = default;

void NV_RTFEdit::connectBox()
{
    connect(m_box, &RichTextBox::SelChange, this, &NV_RTFEdit::RefreshControls);
    connect(m_box, &RichTextBox::KeyDown, this, &NV_RTFEdit::boxKeyDown);
    connect(m_box, &RichTextBox::KeyPress, this, &NV_RTFEdit::boxKeyPress);
    connect(m_box, &RichTextBox::KeyUp, this, &NV_RTFEdit::KeyUp);
    connect(m_box, &RichTextBox::Click, this, &NV_RTFEdit::boxClick);
    connect(m_box, &RichTextBox::DblClick, this, &NV_RTFEdit::DblClick);
    connect(m_box, &RichTextBox::ObjectDblClick, this, &NV_RTFEdit::openLater);
    connect(m_box, &RichTextBox::MouseDown, this, &NV_RTFEdit::MouseDown);
    connect(m_box, &RichTextBox::MouseMove, this, &NV_RTFEdit::boxMouseMove);
    connect(m_box, &RichTextBox::MouseUp, this, &NV_RTFEdit::boxMouseUp);
    connect(m_box, &RichTextBox::MenuKey, this, &NV_RTFEdit::popUpMenu);
    connect(m_box, &RichTextBox::Change, this, &NV_RTFEdit::Change);
}

void NV_RTFEdit::setTextRTF(const QByteArray &rtf)
{
    m_box->setTextRTF(rtf);
    layOut();
}

void NV_RTFEdit::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    layOut();
}

void NV_RTFEdit::layOut()
{
    const int top = ToolBar() ? m_toolBar->sizeHint().height() : 0;
    m_toolBar->setGeometry(0, 0, width(), top);
    m_box->setGeometry(0, top, width(), qMax(0, height() - top));
}

void NV_RTFEdit::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    prepareToolBar();
}

/// Fonts are looked up when the tool bar is first seen: a note without it opens at once.
void NV_RTFEdit::prepareToolBar()
{
    if (m_fontsFilled || !ToolBar() || !isVisible())
        return;
    In_SetFonts();
    RefreshControls();
}

void NV_RTFEdit::ShowToolbar(bool visible)
{
    m_toolBar->setVisible(visible);
    prepareToolBar();
    RefreshControls();
    layOut();
}

void NV_RTFEdit::setBackColor(quint32 color)
{
    m_box->setBackColor(color);
    setToolBarOnPaper(m_toolBarOnPaper);
}

void NV_RTFEdit::setToolBarOnPaper(bool on)
{
    m_toolBarOnPaper = on;
    if (on)
        m_toolBar->layOn(m_box->palette());
}

bool NV_RTFEdit::ToolBar() const
{
    return !m_toolBar->isHidden();
}

void NV_RTFEdit::In_SetFonts()
{
    m_fontsFilled = true;
    m_toolBar->setFonts(QFontDatabase::families());
    const auto name = SelFontName();
    const auto size = SelFontSize();
    if (name && size)
        m_toolBar->showFont(*name, QString::number(qRound(*size)));
}

void NV_RTFEdit::RefreshControls()
{
    if (!ToolBar())
        return; // shown, it is brought up to date first
    const auto name = SelFontName();
    const auto size = SelFontSize();
    if (name && size)
        m_toolBar->showFont(*name, QString::number(qRound(*size)));
    m_toolBar->setPressed(kBold, SelBold().value_or(false));
    m_toolBar->setPressed(kItalic, SelItalic().value_or(false));
    m_toolBar->setPressed(kUnderline, SelUnderline().value_or(false));
    m_toolBar->setPressed(kLeft, SelAlignment() == 0);
    m_toolBar->setPressed(kRight, SelAlignment() == 1);
    m_toolBar->setPressed(kCenter, SelAlignment() == 2);
    const std::optional<bool> bullet = SelBullet();
    m_toolBar->setMixed(kBullet, !bullet);
    if (bullet)
        m_toolBar->setPressed(kBullet, *bullet);
}

bool NV_RTFEdit::EnableSaveButton() const
{
    return m_toolBar->button(kSave)->isEnabled();
}

void NV_RTFEdit::setEnableSaveButton(bool enabled)
{
    m_toolBar->button(kSave)->setEnabled(enabled);
}

/// The usual keys of formats, and of the way to the tool bar.
bool NV_RTFEdit::formatKey(const QKeyEvent &event)
{
    if (event.modifiers() != Qt::ControlModifier)
        return false;
    switch (event.key()) {
    case Qt::Key_B:
        toolBarClick(kBold);
        return true;
    case Qt::Key_I:
        toolBarClick(kItalic);
        return true;
    case Qt::Key_U:
        toolBarClick(kUnderline);
        return true;
    case Qt::Key_F:
        toolBarClick(kFind);
        return true;
    case Qt::Key_Tab:
        if (ToolBar())
            m_toolBar->takeKeyboard();
        return ToolBar();
    default:
        return false;
    }
}

void NV_RTFEdit::keyPressEvent(QKeyEvent *event)
{
    // Keys that the box did not want come here too: their events have been raised.
    if (m_box->hasFocus()) {
        if (formatKey(*event))
            return;
    } else {
        emit KeyDown(virtualKeyCode(*event), shiftState(event->modifiers()));
        const QString text = event->text();
        for (const QChar unit : text) {
            int key = unit.unicode();
            emit KeyPress(key);
        }
    }
    QWidget::keyPressEvent(event);
}

void NV_RTFEdit::keyReleaseEvent(QKeyEvent *event)
{
    if (!m_box->hasFocus())
        emit KeyUp(virtualKeyCode(*event), shiftState(event->modifiers()));
    QWidget::keyReleaseEvent(event);
}

} // namespace norvane
