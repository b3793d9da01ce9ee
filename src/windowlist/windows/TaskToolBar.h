#pragma once

#include <QHash>
#include <QWidget>

class QAction;
class QMenu;
class QToolButton;

namespace norvane {

/// The tool bar of the Window List, with the menu of its views.
class TaskToolBar : public QWidget
{
    Q_OBJECT

public:
    explicit TaskToolBar(QWidget *parent = nullptr);

    /// Enables "TB_SWITCH", "TB_ATTACH" and "TB_DETACH".
    void setRowCommandsEnabled(bool enabled);
    /// Shows which view the list has, 0 to 3.
    void showView(int view);
    /// The caption of "BM_ONTOP": what it would do.
    QString onTopCaption() const;
    void setOnTopCaption(const QString &caption);

signals:
    /// The key of a button, "TB_ATTACH" and so on, or of an entry of the menu, "BM_LARGE" and so on.
    void commandTriggered(const QString &key);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QToolButton *addButton(const QString &key, const QString &caption, const QString &toolTip,
                           const QIcon &icon);
    QMenu *viewMenu();

    QHash<QString, QToolButton *> m_buttons;
    QVector<QAction *> m_views;
    QAction *m_onTop = nullptr;
};

} // namespace norvane
