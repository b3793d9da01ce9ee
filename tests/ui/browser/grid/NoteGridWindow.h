#pragma once

#include "ui/WindowParts.h"
#include "unit/watcher/Desk.h"

#include "browser/grid/NoteGrid.h"
#include "browser/grid/note_columns.h"
#include "controls/gridview/vbalGrid.h"
#include "controls/menuview/MenuWindow.h"
#include "controls/menuview/NVPopupMenu.h"
#include "platform/RuntimeError.h"
#include "store/note_row.h"

#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace norvane::tests {

/// The browser's list of notes on the screen, with a database in a real file.
class NoteGridWindow : public testing::Test, protected Desk, protected WindowParts
{
protected:
    using Desk::settings;

    NoteGridWindow() : WindowParts(files, shell, clock)
    {
        shell.typeNames.insert(u".HTM"_qs, u"HTML document"_qs);
    }

    void makeList()
    {
        list = std::make_unique<NoteGrid>(services);
        list->setObjectName(u"GRD"_qs);
        list->setGridDB(store.database());
        list->resize(1000, 400);
        QObject::connect(list.get(), &NoteGrid::RowChange, list.get(), [this](int row, int column, int ID) {
            if (list->Redraw())
                told.append(u"row %1 %2 %3"_qs.arg(row).arg(column).arg(ID));
        });
        QObject::connect(list.get(), &NoteGrid::Changed, list.get(), [this] { told.append(u"changed"_qs); });
        QObject::connect(list.get(), &NoteGrid::Refresh, list.get(),
                         [this](int row) { told.append(u"refresh %1"_qs.arg(row)); });
        QObject::connect(list.get(), &NoteGrid::Working, list.get(),
                         [this](const QString &text) { told.append(u"working '%1'"_qs.arg(text)); });
    }
    void show()
    {
        if (!list)
            makeList();
        list->Refresh_Grid();
        list->show();
        list->activateWindow();
        list->SetFocus();
        ASSERT_TRUE(QTest::qWaitForWindowActive(list.get()));
        told.clear();
    }
    vbalGrid &grid() { return *list->grid(); }
    QLabel *label(const QString &name) { return list->findChild<QLabel *>(name); }
    void key(Qt::Key code, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(&grid(), code, modifiers);
    }
    /// The middle of a cell that is on the screen, in the viewport.
    QPoint cell(int row, int column = kColumnTitle) { return grid().CellBoundary(row, column).center(); }
    void click(int row, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseClick(grid().viewport(), Qt::LeftButton, modifiers, cell(row));
    }
    void clickHeader(int column)
    {
        const QRect place = grid().CellBoundary(1, column);
        QTest::mouseClick(grid().headerWidget(), Qt::LeftButton, {}, {place.center().x(), 5});
    }
    QStringList titles() const
    {
        QStringList texts;
        for (int row = 1; row <= list->Rows(); ++row)
            texts.append(list->GetCelText(row, kColumnTitle));
        return texts;
    }
    /// Selects the row of that title.
    void select(const QString &title)
    {
        grid().setSelectedRow(static_cast<int>(titles().indexOf(title)) + 1);
    }
    bool rowIsThere(int id) const { return !openNoteRow(store, id)->eof(); }
    /// Another process, as far as the database's file can tell.
    std::unique_ptr<dao::Recordset> elsewhere(const QString &statement)
    {
        otherDatabase = engine->workspace(0)->openDatabase(store.DatabaseFile, false, false, {});
        return otherDatabase->openRecordset(statement);
    }
    /// Sets the dates of a note.
    int addDated(const QString &title, const QDateTime &created, const QDateTime &updated = {})
    {
        return addNote(title, {}, {{u"DateCreated"_qs, created}, {u"LastUpdate"_qs, updated}});
    }

    fakes::MemorySettings &stored = WindowParts::settings;
    BrowserServices services = browserServices<Desk>(*this, settings);
    std::unique_ptr<dao::Database> otherDatabase;
    std::unique_ptr<NoteGrid> list;
    QStringList told;
};

} // namespace norvane::tests
