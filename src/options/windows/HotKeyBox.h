#pragma once

#include <QLineEdit>
#include <functional>

namespace norvane {

/// Shows a key combination and takes the one that is pressed in it, also those that windows use for
/// themselves. Backspace and Delete clear it; Tab, Enter and Escape alone stay with the window.
class HotKeyBox : public QLineEdit
{
    Q_OBJECT

public:
    /// @param keyOf the virtual key code of a key by its scan code; 0 for one without
    HotKeyBox(const QString &objectName, std::function<int(quint32)> keyOf);

    /// Virtual key code; 0 for none.
    int key() const { return m_key; }
    /// 1 Shift, 2 Ctrl, 4 Alt
    int modifiers() const { return m_modifiers; }
    /// Shows a combination without a word of it.
    void setCombination(int key, int modifiers);
    /// Chooses none.
    void clearCombination();

    QSize sizeHint() const override;

signals:
    /// Another combination, or the same, was chosen here.
    void chosen();
    /// A press was no combination, for that reason.
    void refused(const QString &reason);

protected:
    bool event(QEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    bool press(QKeyEvent &event);
    void choose(int key, int modifiers);
    void showHeld(int modifiers);

    std::function<int(quint32)> m_keyOf;
    int m_key = 0;
    int m_modifiers = 0;
    bool m_isHolding = false; ///< modifiers are held and stand in the box
};

} // namespace norvane
