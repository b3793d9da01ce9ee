#pragma once

#include <QHash>
#include <QToolBar>

class QComboBox;

namespace norvane {

/// The tool bar `li` of NV_RTFEdit: buttons by key (an action's objectName), `Combo1` with the font
/// name and `Combo2` with the font size. It shows states and tells of presses; it changes no text.
/// Its pictures are those of the desktop's icon theme, with our own where that has none.
class EditToolBar : public QToolBar
{
    Q_OBJECT

public:
    struct ToolButton;

    explicit EditToolBar(QWidget *parent);

    /// Makes the bar a part of a paper: its colours are the palette's, its pictures our own in the
    /// palette's ink, since a theme's are made for the desktop's ground.
    void layOn(const QPalette &paper);

    /// The button of that key, or nullptr.
    QAction *button(const QString &key) const { return m_buttons.value(key); }
    /// Shows a button as pressed; a key without a button is ignored.
    void setPressed(const QString &key, bool pressed);
    /// Shows a button as neither pressed nor released.
    void setMixed(const QString &key, bool mixed);
    bool isMixed(const QString &key) const;

    void setFonts(const QStringList &families);
    /// Shows a font; a choice is not reported for it.
    void showFont(const QString &family, const QString &size);
    QComboBox *fontName() const { return m_fontName; }
    QComboBox *fontSize() const { return m_fontSize; }
    /// Gives the keyboard to the font's name, or to the first button where the bar has no room for that.
    void takeKeyboard();

signals:
    /// A button was pressed.
    void buttonClick(const QString &key);
    /// The user chose in a combo.
    void fontNameChosen(const QString &family);
    void fontSizeChosen(double points);
    /// Escape: the focus goes back to the text.
    void left();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void addButton(const ToolButton &tool);
    void addCombos();
    void setPictures(const QColor &ink);

    QHash<QString, QAction *> m_buttons;
    QComboBox *m_fontName = nullptr;
    QComboBox *m_fontSize = nullptr;
};

} // namespace norvane
