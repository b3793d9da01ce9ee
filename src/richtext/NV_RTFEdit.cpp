#include "richtext/NV_RTFEdit.h"

#include "richtext/EditToolBar.h"
#include "richtext/format_conversion.h"
#include "richtext/virtual_keys.h"

#include <QAction>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QMenu>

namespace norvane {
namespace {

const QString kSave = QStringLiteral("C_SAVE");
const QString kBold = QStringLiteral("C_BOLD");
const QString kItalic = QStringLiteral("C_ITALIC");
const QString kUnderline = QStringLiteral("C_UNDR");
const QString kLeft = QStringLiteral("C_LEFT");
const QString kCenter = QStringLiteral("C_CENTER");
const QString kRight = QStringLiteral("C_RIGHT");
const QString kBullet = QStringLiteral("C_BULLET");
constexpr int kRightButton = 2;

} // namespace

NV_RTFEdit::NV_RTFEdit(FileSystem &files, QWidget *parent)
    : QWidget(parent), m_box(new RichTextBox(files, this)), m_toolBar(new EditToolBar(this))
{
    m_box->setObjectName(QStringLiteral("RichTextBox1"));
    m_box->setAccessibleName(tr("Text"));
    setFocusProxy(m_box);

    connect(m_toolBar, &EditToolBar::buttonClick, this, &NV_RTFEdit::toolBarClick);
    connect(m_toolBar, &EditToolBar::fontNameChosen, this, [this](const QString &family) {
        setSelFontName(family);
        SetFocus();
    });
    connect(m_toolBar, &EditToolBar::fontSizeChosen, this, [this](double points) {
        setSelFontSize(points);
        SetFocus();
    });

    connect(m_box, &RichTextBox::SelChange, this, &NV_RTFEdit::RefreshControls);
    connect(m_box, &RichTextBox::KeyDown, this, &NV_RTFEdit::KeyDown);
    connect(m_box, &RichTextBox::KeyPress, this, &NV_RTFEdit::KeyPress);
    connect(m_box, &RichTextBox::KeyUp, this, &NV_RTFEdit::KeyUp);
    connect(m_box, &RichTextBox::Click, this, &NV_RTFEdit::Click);
    connect(m_box, &RichTextBox::DblClick, this, &NV_RTFEdit::DblClick);
    connect(m_box, &RichTextBox::MouseDown, this, &NV_RTFEdit::MouseDown);
    connect(m_box, &RichTextBox::MouseMove, this, &NV_RTFEdit::MouseMove);
    connect(m_box, &RichTextBox::MouseUp, this, &NV_RTFEdit::boxMouseUp);
    connect(m_box, &RichTextBox::MenuKey, this, &NV_RTFEdit::popUpMenu);
    connect(m_box, &RichTextBox::Change, this, &NV_RTFEdit::Change);
}

NV_RTFEdit::~NV_RTFEdit() = default;

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

void NV_RTFEdit::toolBarClick(const QString &key)
{
    if (key == kSave) {
        emit SaveMe();
    } else if (key == kBold) {
        setSelBold(!SelBold().value_or(false));
    } else if (key == kItalic) {
        setSelItalic(!SelItalic().value_or(false));
    } else if (key == kUnderline) {
        setSelUnderline(!SelUnderline().value_or(false));
    } else if (key == kLeft) {
        setSelAlignment(0);
    } else if (key == kCenter) {
        setSelAlignment(2);
    } else if (key == kRight) {
        setSelAlignment(1);
    } else if (key == kBullet) {
        if (!SelBullet())
            setSelBullet(false);
        setSelBullet(!SelBullet().value_or(false));
    }
    // A press has toggled the button by itself: show what the text says.
    RefreshControls();
}

void NV_RTFEdit::boxMouseUp(int button, int shift, double x, double y)
{
    emit MouseUp(button, shift, x, y);
    if (button == kRightButton)
        popUpMenu((QPointF(x, y) / twipsPerPixel()).toPoint());
}

void NV_RTFEdit::popUpMenu(const QPoint &position)
{
    if (!m_contextMenu)
        return;
    const std::unique_ptr<QMenu> menu(m_box->createStandardContextMenu());
    menu->setPalette(QPalette()); // the desktop's, not the paper's
    menu->exec(m_box->viewport()->mapToGlobal(position));
}

void NV_RTFEdit::keyPressEvent(QKeyEvent *event)
{
    // Keys that the box did not want come here too: their events have been raised.
    if (!m_box->hasFocus()) {
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
