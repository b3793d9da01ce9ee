#pragma once

#include "controls/ImageList.h"
#include "controls/gridview/GridHeader.h"
#include "controls/gridview/vbalGrid.h"

#include <QApplication>
#include <QScrollBar>
#include <QTest>
#include <gtest/gtest.h>

namespace norvane {

/// A grid of notes with a mark, a title, a place and a hidden number, as wide as its columns.
class GridOnScreen : public testing::Test
{
protected:
    GridOnScreen()
    {
        grid.setImageList(&icons);
        grid.AddColumn(u"Active"_qs, {}, kAlignCenter, kNoGridIcon, 20);
        grid.AddColumn(u"Name"_qs, u"Title"_qs, kAlignLeft, kNoGridIcon, 150);
        grid.AddColumn(u"ID"_qs, {}, kAlignLeft, kNoGridIcon, 50, false);
        grid.AddColumn(u"Location"_qs, u"Location"_qs, kAlignLeft, kNoGridIcon, 100);
        grid.setRowMode(true);
        grid.setMultiSelect(true);
        grid.setGridLines(true);
        grid.setKeySearchColumn(2);
        grid.setDefaultRowHeight(20);
        grid.setBorderStyle(false);
        grid.resize(300, 220);
        QObject::connect(&grid, &vbalGrid::SelectionChange, [this](int row, int) { told.append(row); });
    }
    void addRows(const QStringList &titles)
    {
        grid.setRedraw(false);
        for (const QString &title : titles) {
            grid.AddRow(-1, title);
            grid.CellDetails(grid.Rows(), 2, title);
            grid.CellDetails(grid.Rows(), 3, grid.Rows());
        }
        grid.setRedraw(true);
    }
    void addRows(int count)
    {
        QStringList titles;
        for (int i = 1; i <= count; ++i)
            titles.append(u"Note %1"_qs.arg(i));
        addRows(titles);
    }
    void show()
    {
        grid.show();
        grid.activateWindow();
        grid.setFocus();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&grid));
    }
    QString selected() const
    {
        QString rows;
        for (int row = 1; row <= grid.Rows(); ++row)
            rows += grid.CellSelected(row, 2) ? u'x' : u'-';
        return rows;
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&grid, key, modifiers); }
    void click(int row, Qt::KeyboardModifiers modifiers = {}, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(grid.viewport(), button, modifiers, grid.CellBoundary(row, 2).center());
    }
    QPoint headerEnd(int column) const
    {
        const QRect section = header()->section(column);
        return {grid.isRightToLeft() ? section.left() + 1 : section.right() - 1, section.center().y()};
    }
    void drag(QPoint from, QPoint to)
    {
        QTest::mousePress(header(), Qt::LeftButton, {}, from);
        QTest::mouseMove(header(), to);
        QTest::mouseRelease(header(), Qt::LeftButton, {}, to);
    }
    GridHeader *header() const { return static_cast<GridHeader *>(grid.headerWidget()); }
    static QIcon square(const QColor &color)
    {
        QPixmap picture(16, 16);
        picture.fill(color);
        return QIcon(picture);
    }

    IconList icons{{square(Qt::red), square(Qt::green)}};
    vbalGrid grid;
    QVector<int> told; ///< the selected row at each change of the selection
};

} // namespace norvane
