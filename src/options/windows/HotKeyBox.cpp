#include "options/windows/HotKeyBox.h"

#include "options/hot_key_text.h"
#include "options/settings/hot_key_choice.h"
#include "richtext/virtual_keys.h"

#include <QAction>
#include <QKeyEvent>
#include <QStyle>

namespace norvane {

namespace {

/// The modifier that a key is, as an event has it among the others; 0 for any other key.
Qt::KeyboardModifiers modifierOf(int key)
{
    switch (key) {
    case Qt::Key_Shift:
        return Qt::ShiftModifier;
    case Qt::Key_Control:
        return Qt::ControlModifier;
    case Qt::Key_Alt:
        return Qt::AltModifier;
    case Qt::Key_Meta:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
    case Qt::Key_AltGr:
    case Qt::Key_Mode_switch:
        return Qt::MetaModifier;
    default:
        return {};
    }
}

} // namespace

HotKeyBox::HotKeyBox(const QString &objectName, std::function<int(quint32)> keyOf) : m_keyOf(std::move(keyOf))
{
    setObjectName(objectName);
    setReadOnly(true);
    setContextMenuPolicy(Qt::PreventContextMenu);
    setAttribute(Qt::WA_InputMethodEnabled, false); // it would eat keys
    setToolTip(tr("Press the keys; Delete for none"));
    QAction *clear = addAction(style()->standardIcon(QStyle::SP_LineEditClearButton), TrailingPosition);
    clear->setObjectName(objectName + QStringLiteral("_Clear"));
    clear->setToolTip(tr("None"));
    connect(clear, &QAction::triggered, this, &HotKeyBox::clearCombination);
    setCombination(0, 0);
}

void HotKeyBox::setCombination(int key, int modifiers)
{
    m_key = key;
    m_modifiers = modifiers;
    showHeld(0);
}

void HotKeyBox::clearCombination()
{
    choose(0, 0);
}

QSize HotKeyBox::sizeHint() const
{
    constexpr int kShownCharacters = 24;
    return {fontMetrics().averageCharWidth() * kShownCharacters, QLineEdit::sizeHint().height()};
}

bool HotKeyBox::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride: {
        // Every key is the box's before it is a shortcut of the window.
        const auto &pressed = static_cast<const QKeyEvent &>(*event);
        if (pressed.key() == Qt::Key_Escape && pressed.modifiers() == Qt::NoModifier)
            break;
        event->accept();
        return true;
    }
    case QEvent::KeyPress:
        if (press(static_cast<QKeyEvent &>(*event)))
            return true;
        break;
    case QEvent::KeyRelease: {
        const auto &released = static_cast<const QKeyEvent &>(*event);
        if (m_isHolding)
            showHeld(shiftState(released.modifiers() & ~modifierOf(released.key())));
        return true;
    }
    default:
        break;
    }
    return QLineEdit::event(event);
}

/// @return whether the press is the box's
bool HotKeyBox::press(QKeyEvent &event)
{
    const Qt::KeyboardModifiers own = modifierOf(event.key());
    if (own) {
        showHeld(shiftState(event.modifiers() | own));
        event.accept();
        return true;
    }
    const int modifiers = shiftState(event.modifiers());
    const bool isOther = event.modifiers() & (Qt::MetaModifier | Qt::GroupSwitchModifier);
    int key = m_keyOf(event.nativeScanCode());
    if (key == 0)
        key = virtualKeyCode(event);
    switch (meaningOf(key, modifiers, isOther)) {
    case HotKeyPress::Leave:
        return false;
    case HotKeyPress::Clear:
        choose(0, 0);
        break;
    case HotKeyPress::Take:
        choose(key, modifiers);
        break;
    case HotKeyPress::Refuse:
        showHeld(0);
        if (!event.isAutoRepeat())
            emit refused(refusalOf(key, modifiers, isOther));
        break;
    }
    event.accept();
    return true;
}

void HotKeyBox::choose(int key, int modifiers)
{
    setCombination(key, modifiers);
    emit chosen();
}

/// While modifiers are held, they stand in the box.
void HotKeyBox::showHeld(int modifiers)
{
    m_isHolding = modifiers != 0;
    setText(modifiers == 0 ? HotKeyName(m_key, m_modifiers) : HotKeyName(0, modifiers));
}

void HotKeyBox::focusOutEvent(QFocusEvent *event)
{
    showHeld(0);
    QLineEdit::focusOutEvent(event);
}

void HotKeyBox::mouseDoubleClickEvent(QMouseEvent *) {} // nothing of it is to be marked

} // namespace norvane
