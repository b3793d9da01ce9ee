#include "ui/controls/GridOnScreen.h"

#include "controls/DropTarget.h"
#include "ui/drop_on.h"

#include <QHelpEvent>
#include <QSignalSpy>
#include <QSysInfo>
#include <QTextDocument>
#include <QToolTip>

namespace norvane {
namespace {

class GridInput : public GridOnScreen
{
};

TEST_F(GridInput, SelectsRowsByMouse)
{
    addRows(6);
    show();
    click(2);
    EXPECT_EQ(selected(), u"-x----"_qs);
    click(4, Qt::ShiftModifier);
    EXPECT_EQ(selected(), u"-xxx--"_qs);
    click(3, Qt::ControlModifier);
    click(6, Qt::ControlModifier);
    EXPECT_EQ(selected(), u"-x-x-x"_qs);
    EXPECT_EQ(grid.SelectedRow(), 6);
    click(4, {}, Qt::RightButton);
    EXPECT_EQ(selected(), u"-x-x-x"_qs) << "its menu is for all of them";
    EXPECT_EQ(grid.SelectedRow(), 4);
    click(1, {}, Qt::RightButton);
    EXPECT_EQ(selected(), u"x-----"_qs);
    click(5, Qt::ControlModifier);
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, {50, 6 * 20 + 30});
    EXPECT_EQ(selected(), u"----x-"_qs) << "beside the rows: the selected one remains";
    EXPECT_EQ(told, (QVector<int>{2, 4, 3, 6, 4, 1, 5, 5}));
}

TEST_F(GridInput, SelectsRowsByKeys)
{
    addRows(30);
    show();
    press(Qt::Key_Down);
    EXPECT_EQ(grid.SelectedRow(), 1);
    press(Qt::Key_Down);
    press(Qt::Key_Down, Qt::ShiftModifier);
    press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(selected().left(6), u"-xxx--"_qs);
    press(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(selected().left(6), u"-xx---"_qs);
    press(Qt::Key_Down, Qt::ControlModifier);
    press(Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(selected().left(6), u"-xx---"_qs);
    EXPECT_EQ(grid.SelectedRow(), 5);
    press(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(selected().left(6), u"-xx-x-"_qs);
    press(Qt::Key_Space);
    EXPECT_EQ(selected().left(6), u"----x-"_qs);
    press(Qt::Key_End);
    EXPECT_EQ(grid.SelectedRow(), 30);
    EXPECT_TRUE(grid.viewport()->rect().contains(grid.CellBoundary(30, 2)));
    press(Qt::Key_PageUp);
    const int above = grid.SelectedRow();
    EXPECT_LT(above, 30 - 5);
    EXPECT_GT(above, 30 - 12);
    EXPECT_TRUE(grid.viewport()->rect().contains(grid.CellBoundary(above, 2)));
    press(Qt::Key_Home, Qt::ShiftModifier);
    EXPECT_EQ(selected().count(u'x'), above);
    press(Qt::Key_Home);
    EXPECT_EQ(selected().count(u'x'), 1);
    press(Qt::Key_Up);
    EXPECT_EQ(grid.SelectedRow(), 1);
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(selected().count(u'x'), 30);
    EXPECT_EQ(grid.SelectedRow(), 1);
}

TEST_F(GridInput, StepsOverHiddenRowsAndHighOnes)
{
    addRows(8);
    grid.setRowVisible(1, false);
    grid.setRowVisible(3, false);
    grid.setRowVisible(8, false);
    grid.setRowHeight(5, 500);
    show();
    press(Qt::Key_Home);
    EXPECT_EQ(grid.SelectedRow(), 2);
    press(Qt::Key_Down);
    EXPECT_EQ(grid.SelectedRow(), 4);
    press(Qt::Key_PageDown);
    EXPECT_EQ(grid.SelectedRow(), 5);
    press(Qt::Key_PageDown);
    EXPECT_EQ(grid.SelectedRow(), 6) << "out of a row that is higher than a page";
    press(Qt::Key_End);
    EXPECT_EQ(grid.SelectedRow(), 7);
    press(Qt::Key_Down);
    EXPECT_EQ(grid.SelectedRow(), 7);
}

TEST_F(GridInput, FindsTypedLetters)
{
    addRows({u"apple"_qs, u"pear"_qs, u"Peach"_qs, u"plum pie"_qs, u"plum tart"_qs, u"Öl"_qs});
    show();
    const auto pause = [this] { press(Qt::Key_Right); }; // any key that is no letter ends the word
    QTest::keyClicks(&grid, u"p"_qs);
    EXPECT_EQ(grid.SelectedRow(), 2);
    QTest::keyClicks(&grid, u"l"_qs);
    EXPECT_EQ(grid.SelectedRow(), 4);
    QTest::keyClicks(&grid, u"um t"_qs);
    EXPECT_EQ(grid.SelectedRow(), 5) << "the blank is part of the word";
    EXPECT_EQ(selected(), u"----x-"_qs);
    pause();
    QTest::keyClicks(&grid, u"pe"_qs);
    EXPECT_EQ(grid.SelectedRow(), 2);
    pause();
    QTest::keyClicks(&grid, u"ppp"_qs);
    EXPECT_EQ(grid.SelectedRow(), 5) << "the same letter goes on from row to row";
    pause();
    QTest::sendKeyEvent(QTest::Click, &grid, Qt::Key_Odiaeresis, QChar(u'ö'), {});
    EXPECT_EQ(grid.SelectedRow(), 6);
    pause();
    QTest::keyClicks(&grid, u"x"_qs);
    EXPECT_EQ(grid.SelectedRow(), 6);
}

TEST_F(GridInput, AsksTheHostBeforeItActsOnAKey)
{
    addRows(3);
    show();
    QVector<int> keys;
    QObject::connect(&grid, &vbalGrid::KeyDown, [&](QKeyEvent *event) {
        keys.append(event->key());
        event->setAccepted(event->key() == Qt::Key_Down);
    });
    press(Qt::Key_Down);
    EXPECT_EQ(grid.SelectedRow(), 0);
    press(Qt::Key_End);
    EXPECT_EQ(grid.SelectedRow(), 3);
    EXPECT_EQ(keys, (QVector<int>{Qt::Key_Down, Qt::Key_End}));
}

TEST_F(GridInput, TellsMouseAndDoubleClick)
{
    addRows(3);
    show();
    int downs = 0;
    QObject::connect(&grid, &vbalGrid::MouseDown, [&] { ++downs; });
    QSignalSpy twice(&grid, &vbalGrid::DblClick);
    int rowAtRelease = 0;
    QObject::connect(&grid, &vbalGrid::MouseUp, [&] { rowAtRelease = grid.SelectedRow(); });
    click(2, {}, Qt::RightButton);
    EXPECT_EQ(downs, 1);
    EXPECT_EQ(rowAtRelease, 2) << "a menu is for the row that was clicked";
    QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, grid.CellBoundary(3, 4).center());
    QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, {50, 150});
    ASSERT_EQ(twice.size(), 1);
    EXPECT_EQ(twice[0], (QVariantList{3, 4}));
    QSignalSpy menu(&grid, &vbalGrid::MenuKey);
    QContextMenuEvent key(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(grid.viewport(), &key);
    ASSERT_EQ(menu.size(), 1);
    EXPECT_EQ(menu[0][0].toPoint(), QPoint(0, grid.CellBoundary(2, 2).bottom()));
}

TEST_F(GridInput, TellsAllOfACellThatIsCutOff)
{
    const QString title = u"<b>How</b> the invoices of the last three years work"_qs;
    addRows({title, u"Short"_qs});
    show();
    const auto point = [this](int row) {
        const QPoint at = grid.CellBoundary(row, 2).center();
        QHelpEvent event(QEvent::ToolTip, at, grid.viewport()->mapToGlobal(at));
        QApplication::sendEvent(grid.viewport(), &event);
    };
    point(1);
    EXPECT_TRUE(QToolTip::isVisible());
    QTextDocument shown;
    shown.setHtml(QToolTip::text());
    EXPECT_EQ(shown.toPlainText(), title) << "as it is written";
    point(2);
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
}

TEST_F(GridInput, ScrollsPixelByPixel)
{
    addRows(100);
    show();
    const auto wheel = [this](QPoint pixels, QPoint angle) {
        QWheelEvent event({50, 50}, grid.mapToGlobal(QPointF(50, 50)), pixels, angle, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(grid.viewport(), &event);
    };
    wheel({0, -7}, {0, -15});
    EXPECT_EQ(grid.vScrollValue(), 7);
    wheel({}, {0, -120});
    wheel({}, {0, -120}); // while the first still runs
    EXPECT_TRUE(QTest::qWaitFor([this] { return grid.vScrollValue() == 7 + 2 * 3 * 20; }));
    const int before = grid.vScrollValue();
    grid.setRedraw(false);
    grid.Clear();
    addRows(100);
    grid.setVScrollValue(before);
    grid.setRedraw(true);
    EXPECT_EQ(grid.vScrollValue(), before) << "kept over a filling anew";
    grid.EnsureVisible(100, 2);
    EXPECT_EQ(grid.vScrollValue(), grid.verticalScrollBar()->maximum());
}

TEST_F(GridInput, ChangesWidthsByMouse)
{
    addRows(3);
    grid.CellDetails(2, 2, u"a title of some length, to be seen whole"_qs);
    show();
    QSignalSpy changed(&grid, &vbalGrid::ColumnWidthChanged);
    QSignalSpy clicked(&grid, &vbalGrid::ColumnClick);
    QObject::connect(&grid, &vbalGrid::ColumnWidthStart,
                     [](int column, bool &cancel) { cancel = column == 1; });
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        grid.setLayoutDirection(direction);
        grid.setColumnWidth(2, 150);
        changed.clear();
        const QPoint end = headerEnd(2);
        QTest::mouseMove(header(), end);
        EXPECT_EQ(header()->cursor().shape(), Qt::SplitHCursor);
        const int forward = direction == Qt::LeftToRight ? 1 : -1;
        drag(end, end + QPoint(30 * forward, 0));
        EXPECT_EQ(grid.ColumnWidth(2), 180);
        ASSERT_EQ(changed.size(), 1);
        EXPECT_EQ(changed[0], (QVariantList{1, 2, 180})) << "the second of the headers that are shown";
        drag(headerEnd(2), headerEnd(2) - QPoint(500 * forward, 0));
        EXPECT_GT(grid.ColumnWidth(2), 0);
        QTest::mouseDClick(header(), Qt::LeftButton, {}, headerEnd(2));
        QTest::mouseRelease(header(), Qt::LeftButton, {}, headerEnd(2));
        EXPECT_GE(grid.ColumnWidth(2), grid.EvaluateTextWidth(2, 2));
        EXPECT_EQ(changed.size(), 3);
        drag(headerEnd(4), headerEnd(4) + QPoint(10 * forward, 0));
        EXPECT_EQ(changed.last()[0], QVariant(2)) << "hidden columns do not count";

        QTest::mouseMove(header(), headerEnd(1));
        EXPECT_EQ(header()->cursor().shape(), Qt::ArrowCursor);
        drag(headerEnd(1), headerEnd(1) + QPoint(30 * forward, 0));
        EXPECT_EQ(grid.ColumnWidth(1), 20) << "the host does not allow it";
    }
    EXPECT_EQ(clicked.size(), 0);
}

TEST_F(GridInput, ClicksAndMovesHeaders)
{
    show();
    QSignalSpy clicked(&grid, &vbalGrid::ColumnClick);
    const auto middle = [this](int column) { return header()->section(column).center(); };
    QTest::mouseClick(header(), Qt::LeftButton, {}, middle(2));
    QTest::mouseClick(header(), Qt::LeftButton, {}, middle(4));
    QTest::mouseDClick(header(), Qt::LeftButton, {}, middle(4));
    QTest::mouseRelease(header(), Qt::LeftButton, {}, middle(4));
    EXPECT_EQ(clicked.size(), 3) << "a double click is two";
    EXPECT_EQ(clicked[0][0], QVariant(2));
    drag(middle(2), middle(4));
    EXPECT_EQ(clicked.size(), 3) << "let go elsewhere";
    EXPECT_EQ(grid.ColumnOrder(2), 2);
    grid.setHeaderDragReOrderColumns(true);
    drag(middle(2), middle(4));
    EXPECT_EQ(grid.visibleColumns(), (QVector<int>{1, 4, 2}));
    drag(middle(2), middle(1));
    EXPECT_EQ(grid.visibleColumns(), (QVector<int>{2, 1, 4}));
    grid.setHeaderButtons(false);
    QTest::mouseClick(header(), Qt::LeftButton, {}, middle(2));
    EXPECT_EQ(clicked.size(), 3);
}

TEST_F(GridInput, HandsADropOn)
{
    show();
    QSignalSpy dropped(&grid, &vbalGrid::Dropped);
    const auto drop = [this](const QList<QUrl> &urls, const QString &text) {
        QMimeData data;
        if (!urls.isEmpty())
            data.setUrls(urls);
        if (!text.isEmpty())
            data.setText(text);
        tests::dropOn(*grid.viewport(), data);
    };
    drop({QUrl::fromLocalFile(u"/tmp/a b.txt"_qs)}, {});
    drop({QUrl(u"https://example.org/"_qs)}, u"https://example.org/"_qs);
    drop({QUrl(u"sftp://example.org/a%20b"_qs)}, {});
    EXPECT_EQ(dropped.size(), 0) << "not while the other program waits";
    ASSERT_TRUE(QTest::qWaitFor([&] { return dropped.size() == 3; }));
    EXPECT_EQ(dropped[0], (QVariantList{QStringList{u"/tmp/a b.txt"_qs}, QString()}));
    EXPECT_EQ(dropped[1], (QVariantList{QStringList(), u"https://example.org/"_qs}));
    EXPECT_EQ(dropped[2], (QVariantList{QStringList(), u"sftp://example.org/a%20b"_qs}));
}

TEST_F(GridInput, TellsDroppedFilesByTheirPaths)
{
    const QString here = QSysInfo::machineHostName();
    const std::pair<QByteArray, QStringList> rows[] = {
        {"file:///tmp/a%20b%25%23.txt", {u"/tmp/a b%#.txt"_qs}},
        {"file:///tmp/two%0Alines", {u"/tmp/two\nlines"_qs}},
        {"file:///tmp/caf%E9.txt", {u"file:///tmp/caf%E9.txt"_qs}},
        {"file:///tmp/a%22b/", {u"file:///tmp/a%22b"_qs}},
        {"file:///tmp/a%20", {u"file:///tmp/a%20"_qs}},
        {"file:///tmp/folder/", {u"/tmp/folder"_qs}},
        {"file:///", {u"/"_qs}},
        {"file://localhost/tmp/a", {u"/tmp/a"_qs}},
        {"file://" + here.toLatin1() + "/tmp/a", {u"/tmp/a"_qs}},
        {"file://elsewhere.example/tmp/a", {}},
        {"https://example.org/a", {}},
    };
    for (const auto &[address, files] : rows) {
        QMimeData data;
        data.setData(u"text/uri-list"_qs, address + "\r\n");
        EXPECT_EQ(droppedFiles(data), files) << address.toStdString();
    }
}

} // namespace
} // namespace norvane
