#include "NoteGridWindow.h"

#include <QRandomGenerator>

using namespace norvane;
using namespace norvane::tests;

namespace {

QString titleOfAllKinds()
{
    QString title = u"\"A\"\n<b>&'"_qs + QString::fromUtf8("\xF0\x9F\x98\x80");
    return title + QString(255 - title.size(), u'x');
}

TEST_F(NoteGridWindow, showsWhatANoteIs)
{
    const QDateTime created(QDate(2024, 3, 5), QTime(17, 4, 9));
    const auto category = store.database()->openRecordset(u"select * from Category"_qs);
    category->addNew();
    category->setField(u"Name"_qs, u"R&D \"x\""_qs);
    const int categoryId = category->field(u"ID"_qs).toInt();
    category->update();
    store.CategorySet()->requery();
    const int id = addNote(titleOfAllKinds(), u"HTTPS://a/"_qs,
                           {{u"DateCreated"_qs, created}, {u"CAT_ID"_qs, categoryId}});
    addNote(u"b plain"_qs, QString(), {{u"Active"_qs, QVariant()}});
    addNote(u"c document"_qs, u"/home/ann/a.pdf"_qs, {{u"Active"_qs, false}});
    addNote(u"d folder"_qs, u"/home/ann"_qs);
    addNote(u"e path"_qs, u"/home/http://x"_qs, {{u"CAT_ID"_qs, 4711}});
    show();
    ASSERT_EQ(list->Rows(), 5);
    EXPECT_EQ(list->GetCelText(1, kColumnTitle), titleOfAllKinds());
    EXPECT_EQ(list->GetCelText(1, kColumnLocation), u"HTTPS://a/"_qs);
    EXPECT_EQ(list->GetCelText(1, kColumnCategory), u"R&D \"x\""_qs);
    const QLocale locale = QLocale::system();
    EXPECT_EQ(list->GetCelText(1, kColumnDateCreated),
              locale.toString(created.date(), QLocale::ShortFormat) + u"  "_qs +
                  locale.toString(created.time(), QLocale::ShortFormat));
    EXPECT_EQ(grid().CellText(1, kColumnDC).toDateTime(), created);
    EXPECT_EQ(grid().CellItemData(1, kColumnDateCreated).toInt(), 45357) << "past noon: the next day";
    EXPECT_EQ(grid().CellForeColor(1, kColumnTitle), 0x800000);
    EXPECT_EQ(grid().RowKey(1), QString::number(id));
    EXPECT_EQ(list->RowID(), id);

    const struct
    {
        QString type;
        int icon;
        int mark;
        QString category;
        QString shellKey;
    } rows[] = {
        {u"HTML document"_qs, kNoGridIcon, kIconActive, u"R&D \"x\""_qs, u".HTM"_qs},
        {u"Norvane"_qs, kIconNote, kNoGridIcon, {}, {}},
        {u"PDF File"_qs, kNoGridIcon, kNoGridIcon, {}, u"/home/ann/a.pdf"_qs},
        {u"File Folder"_qs, kIconFolder, kIconActive, {}, {}},
        {u"HTML document"_qs, kNoGridIcon, kIconActive, {}, u".HTM"_qs},
    };
    for (int row = 1; row <= 5; ++row) {
        const auto &expected = rows[row - 1];
        EXPECT_EQ(list->GetCelText(row, kColumnType), expected.type) << row;
        EXPECT_EQ(grid().CellIcon(row, kColumnType), expected.icon) << row;
        EXPECT_EQ(grid().CellExtraIcon(row, kColumnType),
                  expected.shellKey.isEmpty() ? kNoGridIcon : kShellIcon);
        EXPECT_EQ(grid().CellItemData(row, kColumnType).toString(), expected.shellKey) << row;
        EXPECT_EQ(grid().CellIcon(row, kColumnActive), expected.mark) << row;
        EXPECT_EQ(list->GetCelText(row, kColumnCategory), expected.category) << row;
    }
    EXPECT_EQ(list->GetCelText(0, 1) + list->GetCelText(6, 1) + list->GetCelText(1, 11), QString());
    for (const int icon :
         {kIconOpen, kIconEdit, kIconDelete, kIconSaveAs, kIconProperties, kIconNew, kIconNote, kIconActivate,
          kIconSearch, kIconActive, kIconMail, kIconFolder, kIconFavorites})
        EXPECT_FALSE(grid().imageList()->icon(icon).isNull()) << icon;
    EXPECT_FALSE(grid().headerImageList()->icon(0).isNull());
    (void)list->grab();
}

TEST_F(NoteGridWindow, filtersByCategoryAndSaysSo)
{
    addNote(u"a"_qs, u"x"_qs, {{u"CAT_ID"_qs, 7}});
    addNote(u"b"_qs, u"x"_qs, {{u"CAT_ID"_qs, 0}});
    addNote(u"c"_qs, u"x"_qs, {{u"CAT_ID"_qs, 8}});
    show();
    QLabel *caption = label(u"lblCategory"_qs);
    EXPECT_FALSE(caption->isVisible());
    EXPECT_EQ(caption->text(), QString());
    list->setShowCategoryBar(true);
    list->Refresh_Grid();
    EXPECT_TRUE(caption->isVisible() && list->ShowCategoryBar());
    EXPECT_EQ(caption->text(), u" All Categories"_qs);
    EXPECT_EQ(list->Rows(), 3);
    list->FilterCategory = -1;
    list->Refresh_Grid();
    EXPECT_EQ(caption->text(), u" No Category"_qs);
    EXPECT_EQ(titles(), QStringList{u"b"_qs});
    list->FilterCategory = 7;
    list->FilterCategoryText = u" A & <b>B</b>"_qs;
    list->Refresh_Grid();
    EXPECT_EQ(titles(), QStringList{u"a"_qs});
    EXPECT_EQ(caption->text(), list->FilterCategoryText);
    const QImage shown = caption->grab().toImage();
    caption->setText(u" A  <b>B</b>"_qs);
    EXPECT_NE(shown, caption->grab().toImage()) << "the ampersand can be seen";

    list->FilterCategory = 0;
    list->setGridRS(store.database()->openRecordset(u"select * from Memos where FriendlyName='c'"_qs,
                                                    dao::RecordsetType::Snapshot));
    caption->setText(u"found"_qs);
    for (int turn = 0; turn < 2; ++turn) {
        list->Refresh_Grid();
        EXPECT_EQ(titles(), QStringList{u"c"_qs});
        EXPECT_EQ(caption->text(), u"found"_qs);
    }
    elsewhere(u"select * from Memos where FriendlyName='c'"_qs)->remove();
    list->Refresh_Grid();
    EXPECT_EQ(list->Rows(), 0) << "the ready rows are read anew";
    EXPECT_FALSE(label(u"lblEmpty"_qs)->isVisible()) << "a search that finds nothing is no first start";

    QVector<double> mouse;
    QObject::connect(list.get(), &NoteGrid::CatBarMouseUp, [&](int button, int shift, double x, double y) {
        mouse = {double(button), double(shift), x, y};
    });
    QTest::mouseClick(caption, Qt::RightButton, Qt::ShiftModifier, {10, 4});
    EXPECT_EQ(mouse, (QVector<double>{2, 1, 150, 60}));
}

TEST_F(NoteGridWindow, keepsRowAndPlaceOverARefresh)
{
    for (int i = 0; i < 150; ++i)
        addNote(u"Note %1"_qs.arg(i, 3, 10, QChar(u'0')), u"http://a/"_qs);
    show();
    list->setGridDB(store.database()); // so that all is read
    list->Refresh_Grid();
    EXPECT_EQ(told, QStringList({u"working 'Working...'"_qs, u"working ''"_qs}));
    EXPECT_EQ(list->Row(), 1);
    click(3);
    EXPECT_EQ(told.last(), u"row 3 2 %1"_qs.arg(list->RowID()));
    key(Qt::Key_End);
    EXPECT_EQ(list->Row(), 150);
    const int scroll = grid().vScrollValue();
    ASSERT_GT(scroll, 0);
    list->Refresh_Grid();
    EXPECT_EQ(list->Row(), 150);
    EXPECT_EQ(grid().SelectedCol(), 2);
    EXPECT_EQ(grid().vScrollValue(), scroll);
    elsewhere(u"select * from Memos where FriendlyName='Note 007'"_qs)->remove();
    list->Refresh_Grid();
    EXPECT_EQ(list->Row(), 149) << "the new last row";
    EXPECT_TRUE(list->Redraw());

    // Nothing happens behind a hidden frame, but only in the browser's list.
    elsewhere(u"select * from Memos where FriendlyName='Note 008'"_qs)->remove();
    isFrameVisible = false;
    list->Refresh_Grid();
    EXPECT_EQ(list->Rows(), 149);
    list->setObjectName(u"NoteGrid1"_qs);
    told.clear();
    list->Refresh_Grid();
    EXPECT_EQ(list->Rows(), 148);
    EXPECT_FALSE(told.contains(u"working 'Working...'"_qs));
}

/// All that the list shows, row by row.
QStringList shownBy(const NoteGrid &list)
{
    const vbalGrid &grid = *list.grid();
    QStringList rows{u"%1 %2 %3"_qs.arg(grid.SelectedRow()).arg(grid.SelectedCol()).arg(grid.vScrollValue())};
    for (int row = 1; row <= grid.Rows(); ++row) {
        QString text = grid.RowKey(row);
        for (int column = 1; column <= grid.Columns(); ++column) {
            const cGridCell cell = grid.Cell(row, column);
            text += u"|%1 %2 %3"_qs.arg(cell.Text.toString(), cell.ItemData.toString())
                        .arg(grid.CellSelected(row, column)) +
                    u" %1 %2 %3 %4 %5"_qs.arg(cell.TextAlign)
                        .arg(cell.IconIndex)
                        .arg(cell.ExtraIconIndex)
                        .arg(cell.BackColor)
                        .arg(cell.ForeColor);
        }
        rows.append(text);
    }
    return rows;
}

TEST_F(NoteGridWindow, takesOverWhatChangedAsAReadingWould)
{
    QRandomGenerator random(5);
    const auto any = [&random](int count) { return static_cast<int>(random.bounded(count)); };
    const QDateTime day(QDate(2024, 10, 27), QTime(2, 0));
    const auto title = [&] { return u"Note %1"_qs.arg(any(9)); };
    const auto values = [&] {
        return QMap<QString, QVariant>{
            {u"CAT_ID"_qs, any(2) * 7},
            {u"Active"_qs, any(2) == 0},
            {u"DateCreated"_qs, day.addSecs(any(5) * 30)},
            {u"LastUpdate"_qs, any(4) == 0 ? QVariant() : QVariant(day.addDays(any(5)))}};
    };
    const auto place = [&] {
        return QStringList{QString(), u"http://a/"_qs, u"/a.pdf"_qs, u"/b"_qs}.value(any(4));
    };
    QVector<int> ids;
    for (int i = 0; i < 60; ++i)
        ids.append(addNote(title(), place(), values()));
    show();
    NoteGrid fresh(services);
    fresh.setGridDB(store.database());
    fresh.resize(list->size());
    fresh.show();
    const auto both = [&](const auto &does) {
        does(*list);
        does(fresh);
    };
    fresh.Refresh_Grid();
    for (int turn = 0; turn < 150; ++turn) {
        SCOPED_TRACE(turn);
        const auto rows = store.database()->openRecordset(u"select * from Memos"_qs);
        for (int edits = any(4); edits > 0; --edits) {
            const int id = ids[any(static_cast<int>(ids.size()))];
            rows->findFirst(u"ID=%1"_qs.arg(id));
            switch (any(6)) {
            case 0:
                ids.append(addNote(title(), place(), values()));
                break;
            case 1:
                rows->remove();
                ids.removeAll(id);
                break;
            default:
                rows->edit();
                rows->setField(u"FriendlyName"_qs, any(3) == 0 ? QVariant() : title());
                rows->setField(u"URL"_qs, place());
                const auto written = values();
                for (auto value = written.begin(); value != written.end(); ++value)
                    rows->setField(value.key(), value.value());
                rows->update();
            }
        }
        if (const int column = QVector<int>{1, 2, 3, 4, 5, 6, 10, 0, 0, 0, 0, 0}[any(12)]; column != 0)
            both([column](NoteGrid &of) { emit of.grid()->ColumnClick(column); });
        if (const int row = any(70); row > 0 && row <= list->Rows() && list->Rows() == fresh.Rows())
            both([row](NoteGrid &of) {
                of.grid()->setSelectedRow(row);
                of.grid()->select(row / 2 + 1, 2, GridSelect::Extend);
            });
        if (const int category = any(20); category < 3)
            both([category](NoteGrid &of) { of.FilterCategory = QVector<int>{0, -1, 7}[category]; });
        if (any(20) == 0)
            elsewhere(u"select * from Memos where ID=%1"_qs.arg(ids.takeFirst()))->remove();
        list->Refresh_Grid();
        fresh.setGridDB(store.database()); // reads all
        fresh.Refresh_Grid();
        ASSERT_EQ(list->Rows(), fresh.Rows());
        const QStringList shown = shownBy(*list);
        const QStringList expected = shownBy(fresh);
        for (int row = 0; row < shown.size(); ++row)
            ASSERT_EQ(shown[row].toStdString(), expected[row].toStdString());
    }
}

TEST_F(NoteGridWindow, aSavedNoteCostsItsRow)
{
    for (int i = 0; i < 20; ++i)
        addNote(u"Note %1"_qs.arg(i), u"http://a/"_qs);
    show();
    grid().setCellIndent(5, kColumnTitle, 3); // stays with a row that is not read again
    const int id = list->GetCelText(9, kColumnID).toInt();
    const auto note = store.database()->openRecordset(u"select * from Memos where ID=%1"_qs.arg(id));
    note->edit();
    note->setField(u"FriendlyName"_qs, u"A"_qs);
    note->update();
    list->Refresh_Grid();
    EXPECT_EQ(list->GetCelText(1, kColumnTitle), u"A"_qs);
    EXPECT_EQ(grid().CellIndent(6, kColumnTitle), 3);
    elsewhere(u"select * from Memos where ID=%1"_qs.arg(id))->remove();
    list->Refresh_Grid();
    EXPECT_EQ(list->Rows(), 19);
    EXPECT_EQ(grid().CellIndent(5, kColumnTitle), 0) << "someone else wrote: all was read";
}

TEST_F(NoteGridWindow, aFaultLeavesTheListUsable)
{
    addNote(u"a"_qs, u"x"_qs);
    show();
    store.close();
    list->setGridDB(nullptr);
    EXPECT_THROW(list->Refresh_Grid(), RuntimeError);
    EXPECT_TRUE(list->Redraw());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(list->Rows(), 1);
    for (const char *command : {"active", "DELETE", "Edit", "nothing", ""})
        list->RunGridMenu(QString::fromLatin1(command));
    EXPECT_TRUE(grid().hasFocus());
}

TEST_F(NoteGridWindow, saysHowToMakeTheFirstNote)
{
    makeList();
    list->setEmptyHint(u"Ctrl+Alt+A"_qs);
    show();
    QLabel *hint = label(u"lblEmpty"_qs);
    EXPECT_TRUE(hint->isVisible());
    EXPECT_TRUE(hint->text().contains(u"Ins"_qs) && hint->text().contains(u"Ctrl+Alt+A"_qs));
    EXPECT_TRUE(grid().viewport()->geometry().contains(hint->geometry()));
    EXPECT_EQ(list->Rows() + list->Row() + list->RowID() + list->SelectedRows(), 0);
    views.duringNewNote = [this] {
        addNote(u"first"_qs, {});
        list->Refresh_Grid();
    };
    QTest::keyClick(&grid(), Qt::Key_Insert);
    EXPECT_FALSE(hint->isVisible());
    EXPECT_TRUE(grid().hasFocus());
}

TEST_F(NoteGridWindow, sortsByHeaders)
{
    const QDate day(2024, 3, 5);
    addDated(u"b"_qs, {day, {10, 0}}, {day, {9, 0}});
    addDated(u"A"_qs, {day, {9, 0}}, {day.addDays(-40), {23, 0}});
    const int last = addDated(u"c"_qs, {day.addDays(1), {8, 0}}, {day.addDays(300), {1, 0}});
    show();
    select(u"c"_qs);
    told.clear();
    clickHeader(kColumnTitle);
    EXPECT_EQ(told, QStringList{u"changed"_qs});
    EXPECT_EQ(titles(), QStringList({u"A"_qs, u"b"_qs, u"c"_qs}));
    clickHeader(kColumnTitle);
    EXPECT_EQ(titles(), QStringList({u"c"_qs, u"b"_qs, u"A"_qs}));
    EXPECT_EQ(list->RowID(), last) << "the selected row goes along";
    EXPECT_EQ(grid().ColumnSortOrder(kColumnTitle), kSortDescending);
    clickHeader(kColumnDateCreated);
    EXPECT_EQ(titles(), QStringList({u"A"_qs, u"b"_qs, u"c"_qs})) << "by date, not by its text";
    EXPECT_EQ(grid().SortObject().SortColumn(1), kColumnDC);
    EXPECT_EQ(grid().ColumnSortOrder(kColumnTitle), kSortNone);
    EXPECT_EQ(grid().ColumnSortOrder(kColumnDateCreated), kSortAscending);
    clickHeader(kColumnLastUpdate);
    clickHeader(kColumnLastUpdate);
    EXPECT_EQ(titles(), QStringList({u"c"_qs, u"b"_qs, u"A"_qs}));
    list->Refresh_Grid();
    EXPECT_EQ(titles(), QStringList({u"c"_qs, u"b"_qs, u"A"_qs})) << "a refresh keeps the order";
    clickHeader(kColumnActive);
    EXPECT_EQ(grid().SortObject().SortType(1), kSortIcon);
    EXPECT_EQ(grid().SortObject().SortOrder(1), kSortAscending);
}

TEST_F(NoteGridWindow, keepsWidthsExceptTheLastColumns)
{
    stored.save(u"NoteBrowser"_qs, u"ColumnTitleWidth"_qs, u"180 px"_qs);
    stored.save(u"NoteBrowser"_qs, u"ColumnTypeWidth"_qs, u"99999999999"_qs);
    stored.save(u"NoteBrowser"_qs, u"ColumnCategoryWidth"_qs, u"140"_qs);
    addNote(u"a"_qs, {});
    show();
    EXPECT_EQ(grid().ColumnWidth(kColumnTitle), 180);
    EXPECT_EQ(grid().ColumnWidth(kColumnType), 120);
    EXPECT_EQ(grid().ColumnWidth(kColumnCategory), 140);
    const auto drag = [this](int column, int by) {
        QWidget *header = grid().headerWidget();
        const int end = grid().CellBoundary(1, column).right();
        QTest::mousePress(header, Qt::LeftButton, {}, {end, 5});
        QTest::mouseMove(header, {end + by, 5});
        QTest::mouseRelease(header, Qt::LeftButton, {}, {end + by, 5});
    };
    drag(kColumnTitle, 20);
    EXPECT_EQ(grid().ColumnWidth(kColumnTitle), 200);
    const QString width = u"ColumnTitleWidth"_qs;
    EXPECT_EQ(stored.get(u"NoteBrowser"_qs, width, {}), u"180 px"_qs) << "not this list's business";
    list->SaveColumnWidth = true;
    drag(kColumnTitle, 5);
    drag(kColumnLastUpdate, 30);
    drag(kColumnCategory, 7);
    drag(kColumnActive, 9);
    EXPECT_EQ(stored.get(u"NoteBrowser"_qs, width, {}), u"205"_qs);
    EXPECT_EQ(stored.get(u"NoteBrowser"_qs, u"ColumnLastUpdateWidth"_qs, {}), u"120"_qs);
    EXPECT_EQ(stored.get(u"NoteBrowser"_qs, u"ColumnCategoryWidth"_qs, {}), u"140"_qs);
    EXPECT_EQ(grid().ColumnWidth(kColumnCategory), 147);
    EXPECT_EQ(grid().ColumnWidth(kColumnActive), 20);
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, Qt::ControlModifier | Qt::AltModifier, {50, 50});
    EXPECT_EQ(grid().ColumnWidth(kColumnTitle), 250);
    EXPECT_EQ(grid().ColumnWidth(kColumnCategory), 120);
    EXPECT_EQ(stored.get(u"NoteBrowser"_qs, width, {}), u"250"_qs) << "and stays so";
}

TEST_F(NoteGridWindow, searchesInTheSelectedColumn)
{
    addNote(u"apple"_qs, u"zebra"_qs);
    addNote(u"pear"_qs, u"http://a"_qs);
    addNote(u"zoo"_qs, u"quince"_qs);
    show();
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, cell(1, kColumnActive));
    key(Qt::Key_Z);
    EXPECT_EQ(list->Row(), 3);
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, cell(2, kColumnLocation));
    key(Qt::Key_Z);
    EXPECT_EQ(list->Row(), 1);
    key(Qt::Key_Q, Qt::ShiftModifier);
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, cell(2, kColumnCategory));
    key(Qt::Key_P);
    EXPECT_EQ(list->Row(), 2) << "the last column is not searched";
}

} // namespace
