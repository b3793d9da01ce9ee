#pragma once

#include <QMenu>
#include <array>

namespace norvane {

/// The context menu `mnu` of NV_RTFEdit: its items by objectName. It shows states and tells of
/// choices; it changes no text. The shortcuts that it shows are keys of the text box.
class EditMenu : public QMenu
{
    Q_OBJECT

public:
    explicit EditMenu(QWidget *parent);

    /// The item of that name, or nullptr. Sub items are "mnu_Insert_Date_Sub(0)" and so on.
    QAction *item(const QString &name) const;
    /// Gives the sub items of an insert item their texts.
    /// @param name "mnu_Insert_Date_Sub" or "mnu_Insert_Time_Sub"
    void setTexts(const QString &name, const std::array<QString, 3> &texts);

signals:
    void itemClick(const QString &name);
    /// A sub item of the insert items was chosen, with the text that it showed.
    void textChosen(const QString &text);

private:
    QAction *addItem(QMenu *menu, const QString &name, const QString &caption,
                     const QKeySequence &shortcut = {});
    QMenu *addSubMenu(QMenu *menu, const QString &name, const QString &caption);
    void addSeparator(QMenu *menu, const QString &name);
    void addTexts(QMenu *menu, const QString &name);
};

} // namespace norvane
