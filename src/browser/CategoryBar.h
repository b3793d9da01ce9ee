#pragma once

#include "browser/category_tabs.h"

#include <QTabBar>

namespace norvane {

/// The category bar `tbCat`: one tab of it is selected and tells which notes the list shows.
class CategoryBar : public QTabBar
{
    Q_OBJECT

public:
    enum Style { kTabs = 0, kButtons = 2 };

    explicit CategoryBar(QWidget *parent = nullptr);

    /// Replaces the tabs. The selected one stays if its key is still there; else the first is selected, and
    /// tabClick() raised.
    void setTabs(const QVector<CategoryTab> &tabs);
    /// Filter value of the selected tab.
    int filter() const;
    /// Name on the selected tab.
    QString filterName() const;
    /// Selects the first tab of a filter value, which raises tabClick() also when it is selected already.
    /// Nothing happens without such a tab.
    void selectFilter(int filter);

    /// Flat buttons are wrapped in no frame; another number than kTabs means buttons.
    void setBarStyle(int style);
    Style barStyle() const { return m_style; }

    QSize minimumSizeHint() const override;

signals:
    /// A tab was selected, by hand or from the program.
    void tabClick();
    /// A menu is asked for by the right button or by key.
    /// @param shift whether any of Shift, Ctrl and Alt is held
    void menuAsked(const QPoint &screenPosition, bool shift);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    Style m_style = kTabs;
};

} // namespace norvane
