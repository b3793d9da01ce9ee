#include "NoteGridWindow.h"

#include "platform/errors.h"

#include <QMenuBar>
#include <QVBoxLayout>

using namespace norvane;
using namespace norvane::tests;

namespace {

class NoteGridCommands : public NoteGridWindow
{
protected:
    void SetUp() override
    {
        for (const char *title : {"a", "b", "c", "d"})
            ids.append(addNote(QString::fromLatin1(title), u"http://%1/"_qs.arg(QLatin1StringView(title))));
        show();
    }
    NVPopupMenu &menu() { return list->GRDMNU(); }
    QStringList enabled()
    {
        QStringList keys;
        for (const MenuItem &item : menu().items()) {
            if (item.Enabled && !item.ItemKey.isEmpty())
                keys.append(item.ItemKey);
        }
        return keys;
    }
    QString defaultKey()
    {
        QStringList keys;
        for (const MenuItem &item : menu().items()) {
            if (item.Default)
                keys.append(item.ItemKey);
        }
        return keys.join(u' ');
    }
    /// Opens the menu of a row by its right mouse button, acts, and closes it.
    void openMenu(int row, const std::function<void(MenuWindow *)> &act = {})
    {
        bool wasOpen = false;
        QTimer::singleShot(0, list.get(), [&] {
            const QPointer<MenuWindow> window = qobject_cast<MenuWindow *>(QApplication::activePopupWidget());
            wasOpen = window != nullptr;
            if (window && act)
                act(window);
            menu().closePopup();
        });
        QTest::mouseClick(grid().viewport(), Qt::RightButton, {}, cell(row));
        EXPECT_TRUE(wasOpen);
    }
    void openNote(int id)
    {
        openPage(u"page"_qs, noteField(id, u"URL"_qs).toString());
        tick();
        ASSERT_TRUE(note(id));
    }
    void putBody(int id) { files.files.insert(store.bodyFile(id), "{\\rtf1 text}"); }
    bool hasBody(int id) const { return files.files.contains(store.bodyFile(id)); }
    bool isActive(int id) const { return noteField(id, u"Active"_qs).toBool(); }

    QVector<int> ids;
};

TEST_F(NoteGridCommands, theMenuFollowsTheRows)
{
    const QStringList all{u"OPEN"_qs,   u"ACTIVE"_qs, u"NEW"_qs,       u"EDIT"_qs,   u"DELETE"_qs,
                          u"SAVEAS"_qs, u"EMAIL"_qs,  u"FAVORITES"_qs, u"SEARCH"_qs, u"PROPERTIES"_qs};
    openMenu(2, [](MenuWindow *window) { EXPECT_TRUE(window->isVisible()); });
    EXPECT_EQ(list->Row(), 2);
    EXPECT_EQ(enabled(), all);
    EXPECT_TRUE(menu().Caption(menu().IndexForKey(u"ACTIVE"_qs)).startsWith(u"De&activate"));

    addNote(u" e"_qs, u"  "_qs, {{u"Active"_qs, false}});
    list->Refresh_Grid();
    openMenu(1);
    EXPECT_FALSE(enabled().contains(u"FAVORITES"_qs));
    EXPECT_TRUE(enabled().contains(u"OPEN"_qs)) << "blanks are a location to it";
    EXPECT_EQ(defaultKey(), u"EDIT"_qs);
    EXPECT_EQ(menu().Caption(menu().IndexForKey(u"ACTIVE"_qs)), u"&Activate\tAlt+A"_qs);

    click(2);
    click(4, Qt::ShiftModifier);
    openMenu(3);
    EXPECT_EQ(list->SelectedRows(), 3) << "the right button keeps them";
    EXPECT_EQ(enabled(), QStringList({u"OPEN"_qs, u"NEW"_qs, u"DELETE"_qs, u"SEARCH"_qs, u"PROPERTIES"_qs}));

    settings.IEAvailable = false;
    openMenu(1);
    EXPECT_EQ(enabled(), QStringList({u"OPEN"_qs, u"ACTIVE"_qs, u"NEW"_qs, u"EDIT"_qs, u"DELETE"_qs,
                                      u"SAVEAS"_qs, u"EMAIL"_qs, u"SEARCH"_qs, u"PROPERTIES"_qs}));

    while (store.NoteSet()->recordCount() > 0)
        store.NoteSet()->remove(), store.requeryNoteSet();
    list->Refresh_Grid();
    QTimer::singleShot(0, list.get(), [this] { menu().closePopup(); });
    QTest::mouseClick(grid().viewport(), Qt::RightButton, {}, {50, 50});
    EXPECT_EQ(enabled(), QStringList({u"NEW"_qs, u"SEARCH"_qs}));
}

TEST_F(NoteGridCommands, aChosenEntryRunsAndTheMenuKeyOpensTheSameMenu)
{
    openMenu(3, [this](MenuWindow *window) {
        window->raise();
        QTest::keyClick(window, Qt::Key_E);
    });
    EXPECT_EQ(views.opened, QStringList{u"editor %1 c|http://c/"_qs.arg(ids[2])});
    EXPECT_EQ(told.last(), u"changed"_qs);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    QTimer::singleShot(0, list.get(), [this] {
        ASSERT_TRUE(menu().isOpen());
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_P);
    });
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint(), Qt::NoModifier);
    QApplication::sendEvent(grid().viewport(), &event);
    EXPECT_EQ(views.opened.last(), u"properties %1"_qs.arg(ids[2]));
}

TEST_F(NoteGridCommands, keysAndDoubleClickOpenLocations)
{
    for (const auto modifiers : {Qt::KeyboardModifiers(), Qt::KeyboardModifiers(Qt::ShiftModifier),
                                 Qt::ControlModifier | Qt::AltModifier}) {
        click(2);
        key(Qt::Key_Return, modifiers);
    }
    grid().selectAll();
    key(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(shell.opened, QStringList(4, u"http://b/"_qs)) << "the selected row's alone";
    QTest::mouseDClick(grid().viewport(), Qt::LeftButton, {}, cell(3));
    EXPECT_EQ(shell.opened.last(), u"http://c/"_qs);
    EXPECT_TRUE(prompts.boxes.isEmpty());
    shell.openResults.insert(u"http://c/"_qs, Shell::kNoAssociation);
    QTest::mouseDClick(grid().viewport(), Qt::LeftButton, {}, cell(3));
    EXPECT_EQ(prompts.boxes.last().text, u"No application is associated with this file type."_qs);

    addNote(u"  placeless"_qs, u" "_qs);
    list->Refresh_Grid();
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, cell(1));
    QTest::mouseDClick(grid().viewport(), Qt::LeftButton, {}, cell(1));
    EXPECT_TRUE(views.opened.last().startsWith(u"editor "_qs));
    for (const auto modifiers :
         {Qt::KeyboardModifiers(Qt::ShiftModifier), Qt::KeyboardModifiers(Qt::ControlModifier)}) {
        key(Qt::Key_Delete, modifiers);
        key(Qt::Key_Insert, modifiers);
        key(Qt::Key_A, modifiers | Qt::AltModifier);
    }
    EXPECT_EQ(views.opened.size(), 1);
    EXPECT_EQ(prompts.boxes.size(), 1);
}

TEST_F(NoteGridCommands, itsKeysComeBeforeTheAccessKeysOfMenus)
{
    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    QMenuBar bar;
    bar.addMenu(u"&Attach"_qs);
    bar.addMenu(u"&File"_qs);
    layout->addWidget(&bar);
    layout->addWidget(list.get());
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    list->SetFocus();
    select(u"a"_qs);
    key(Qt::Key_A, Qt::AltModifier);
    EXPECT_FALSE(isActive(ids[0]));
    EXPECT_TRUE(grid().hasFocus());
    list->setParent(nullptr);
}

TEST_F(NoteGridCommands, severalLocationsOpenOneByOneWithoutTicks)
{
    addNote(u"aa placeless"_qs, u" "_qs);
    list->Refresh_Grid();
    grid().selectAll();
    list->RunGridMenu(u"OPEN"_qs);
    EXPECT_TRUE(shell.opened.isEmpty() && timer.intervals.isEmpty());

    prompts.answers.enqueue(Prompts::kYes);
    // A note that saves itself reads the list anew, and only one row is selected then.
    prompts.duringBox = [this](const fakes::FakePrompts::Box &) { list->Refresh_Grid(); };
    int live = 0;
    QTimer::singleShot(200, list.get(), [&] {
        ++live;
        timer.setInterval(400); // as a note that closes does
        EXPECT_LT(shell.opened.size(), 4);
    });
    list->RunGridMenu(u"OPEN"_qs);
    EXPECT_EQ(shell.opened,
              QStringList({u"http://a/"_qs, u"http://b/"_qs, u"http://c/"_qs, u"http://d/"_qs}));
    EXPECT_EQ(live, 1) << "input is live meanwhile";
    EXPECT_EQ(timer.interval(), settings.WatchInterval);
    EXPECT_EQ(timer.intervals.count(0), 6) << "and again for each row";

    shell.opened.clear();
    shell.openResults.insert(u"http://b/"_qs, Shell::kFileNotFound);
    grid().selectAll();
    prompts.duringBox = {};
    prompts.answers.enqueue(Prompts::kYes);
    list->RunGridMenu(u"OPEN"_qs);
    EXPECT_EQ(shell.opened, QStringList({u"http://a/"_qs, u"http://b/"_qs})) << "ends without a word";
    EXPECT_EQ(prompts.boxes.size(), 3);
    EXPECT_EQ(timer.interval(), settings.WatchInterval);

    grid().setSelectedRow(4);
    list->RunGridMenu(u"OPEN"_qs);
    EXPECT_EQ(shell.opened.last(), u"http://c/"_qs);
    EXPECT_EQ(prompts.boxes.size(), 3);
}

TEST_F(NoteGridCommands, activeTogglesTheSelectedRowAndClosesItsNote)
{
    openNote(ids[1]);
    click(2);
    fakes::FakeStickyNote *open = note(ids[1]);
    click(1, Qt::ControlModifier);
    click(2, Qt::ControlModifier);
    click(2, Qt::ControlModifier);
    EXPECT_EQ(list->SelectedRows(), 2);
    told.clear();
    key(Qt::Key_A, Qt::AltModifier);
    EXPECT_TRUE(isActive(ids[0]));
    EXPECT_FALSE(isActive(ids[1]));
    EXPECT_EQ(grid().CellIcon(2, kColumnActive), kNoGridIcon);
    EXPECT_TRUE(open->calls.contains(u"mnuFile_Close_Click"_qs));
    EXPECT_EQ(told.last(), u"changed"_qs);
    store.NoteIndex()->findFirst(u"ID=%1"_qs.arg(ids[1]));
    EXPECT_FALSE(store.NoteIndex()->field(u"Active"_qs).toBool());
    key(Qt::Key_A, Qt::AltModifier);
    EXPECT_TRUE(isActive(ids[1]));
    EXPECT_EQ(grid().CellIcon(2, kColumnActive), kIconActive);

    // A row that is gone goes without a word.
    elsewhere(u"select * from Memos where ID=%1"_qs.arg(ids[1]))->remove();
    told.clear();
    key(Qt::Key_A, Qt::AltModifier);
    EXPECT_TRUE(prompts.boxes.isEmpty());
    EXPECT_EQ(titles(), QStringList({u"a"_qs, u"c"_qs, u"d"_qs}));
    EXPECT_EQ(told.last(), u"changed"_qs);
    EXPECT_TRUE(grid().hasFocus());
}

TEST_F(NoteGridCommands, deletesOneNoteWithAllThatIsItsOwn)
{
    putBody(ids[1]);
    openNote(ids[1]);
    fakes::FakeStickyNote *open = note(ids[1]);
    int rowsAtUnload = 0;
    open->onCall = [&](fakes::FakeStickyNote &, const QString &name) {
        if (name == u"unload"_qs)
            rowsAtUnload = list->Rows();
    };
    click(2);
    key(Qt::Key_Delete);
    EXPECT_EQ(prompts.boxes.last().text, u"Are you sure you want to delete 'b'?"_qs);
    EXPECT_TRUE(rowIsThere(ids[1]) && hasBody(ids[1]));

    // Whatever is selected when the answer comes, it is the note of the question.
    prompts.answers.enqueue(Prompts::kYes);
    prompts.duringBox = [this](const fakes::FakePrompts::Box &) { select(u"d"_qs); };
    key(Qt::Key_Delete);
    EXPECT_FALSE(rowIsThere(ids[1]));
    EXPECT_FALSE(hasBody(ids[1]));
    EXPECT_TRUE(open->unloaded);
    EXPECT_EQ(rowsAtUnload, 3) << "the list is read anew first";
    EXPECT_EQ(titles(), QStringList({u"a"_qs, u"c"_qs, u"d"_qs}));
    EXPECT_TRUE(grid().hasFocus());
    store.NoteIndex()->findFirst(u"ID=%1"_qs.arg(ids[1]));
    EXPECT_TRUE(store.NoteIndex()->noMatch());
}

TEST_F(NoteGridCommands, deletesWhatIsGoneAlreadyAndWhatIsYoungerThanTheHeldRows)
{
    putBody(ids[0]);
    elsewhere(u"select * from Memos where ID=%1"_qs.arg(ids[0]))->remove();
    const auto row = store.database()->openRecordset(u"select * from Memos"_qs);
    row->addNew();
    row->setField(u"FriendlyName"_qs, u"young"_qs);
    row->setField(u"WindowName"_qs, u"young"_qs);
    row->setField(u"CAT_ID"_qs, 0);
    const int young = row->field(u"ID"_qs).toInt();
    row->update();
    prompts.answers.enqueue(Prompts::kYes);
    prompts.answers.enqueue(Prompts::kYes);
    select(u"a"_qs);
    list->RunGridMenu(u"DELETE"_qs);
    EXPECT_FALSE(hasBody(ids[0]));
    EXPECT_EQ(titles(), QStringList({u"b"_qs, u"c"_qs, u"d"_qs, u"young"_qs})) << "and no other row went";
    select(u"young"_qs);
    list->RunGridMenu(u"DELETE"_qs);
    EXPECT_FALSE(rowIsThere(young));
    EXPECT_EQ(list->Row(), 3) << "the new last row";
}

TEST_F(NoteGridCommands, deletesSeveralAndReadsTheListOnce)
{
    for (const int id : ids)
        putBody(id);
    openNote(ids[2]);
    fakes::FakeStickyNote *open = note(ids[2]);
    int rowsAtUnload = 0;
    open->onCall = [&](fakes::FakeStickyNote &, const QString &) { rowsAtUnload = list->Rows(); };
    click(1);
    click(3, Qt::ShiftModifier);
    told.clear();
    prompts.answers.enqueue(Prompts::kYes);
    prompts.duringBox = [this](const fakes::FakePrompts::Box &) { list->Refresh_Grid(); };
    key(Qt::Key_Delete);
    EXPECT_EQ(prompts.boxes.last().text, u"Are you sure you want to delete 3 notes?"_qs);
    EXPECT_EQ(prompts.boxes.last().style, Prompts::kYesNo | Prompts::kExclamation);
    EXPECT_EQ(titles(), QStringList{u"d"_qs});
    EXPECT_TRUE(open->unloaded && rowsAtUnload == 4);
    EXPECT_EQ(told.last(), u"refresh 0"_qs);
    EXPECT_EQ(files.files.size(), 1);

    // What was deleted before a fault stays deleted.
    ids = {ids[3], addNote(u"e"_qs, {}), addNote(u"f"_qs, {})};
    putBody(ids[1]);
    files.removeErrors.insert(store.bodyFile(ids[1]), kErrorFileAccess);
    list->Refresh_Grid();
    grid().selectAll();
    prompts.duringBox = {};
    prompts.answers.enqueue(Prompts::kYes);
    list->RunGridMenu(u"DELETE"_qs);
    EXPECT_FALSE(rowIsThere(ids[0]) || rowIsThere(ids[1]));
    EXPECT_TRUE(rowIsThere(ids[2]));
}

TEST_F(NoteGridCommands, savesTheBodyAsADocument)
{
    const int id = addNote(u"a/b\\c:d*e?f\"g<h>i|j.k"_qs, {});
    files.addFolder(u"/out"_qs);
    list->Refresh_Grid();
    grid().setSelectedRow(2);
    ASSERT_EQ(list->RowID(), id);
    list->RunGridMenu(u"SAVEAS"_qs);
    EXPECT_EQ(prompts.boxes.last().text, u"Note is empty. There is nothing to save!"_qs);
    putBody(id);
    list->RunGridMenu(u"SAVEAS"_qs); // cancelled
    prompts.files.enqueue(u"/out/x.RTF"_qs);
    list->RunGridMenu(u"SAVEAS"_qs);
    EXPECT_EQ(files.files.value(u"/out/x.RTF"_qs), files.files.value(store.bodyFile(id)));
    EXPECT_EQ(prompts.saveRequests.last().name, u"a b c d e f g h i j k"_qs);
    EXPECT_EQ(prompts.boxes.size(), 1);
}

TEST_F(NoteGridCommands, aListThatGoesBehindItsDialogTakesNothingAlong)
{
    prompts.answers.enqueue(Prompts::kYes);
    prompts.duringBox = [this](const fakes::FakePrompts::Box &) { list.reset(); };
    click(1);
    NoteGrid *going = list.get();
    going->RunGridMenu(u"DELETE"_qs);
    EXPECT_FALSE(list);
    EXPECT_FALSE(rowIsThere(ids[0]));
}

} // namespace
