#include "WindowListDesk.h"
#include "windowlist/windows/FTaskMgr.h"
#include "windowlist/windows/MRunDialog.h"
#include "windowlist/windows/TaskViews.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHeaderView>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <QTreeView>
#include <gtest/gtest.h>

using namespace norvane;
using namespace norvane::tests;
using namespace Qt::StringLiterals;

namespace {

class WindowList : public testing::Test, protected WindowListDesk
{
protected:
    ~WindowList() override
    {
        for (Form *form : forms.all()) {
            if (dynamic_cast<QWidget *>(form) && forms.contains(form))
                form->unload();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void open()
    {
        ShowWindowList(services);
        window = dynamic_cast<FTaskMgr *>(forms.named(u"FTaskMgr"_s).value(0));
        ASSERT_TRUE(window);
        ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    }
    void openThree()
    {
        letter = openDocument(u"letter.txt"_s, u"/usr/bin/mousepad"_s);
        docs = openFolder(u"docs"_s, u"/home/user/docs/"_s);
        page = openPage(u"Garden"_s, u"https://garden.example/"_s);
        open();
    }
    template <typename Widget> Widget *find(const QString &name) const
    {
        return window->findChild<Widget *>(name);
    }
    QToolButton *button(const QString &key) const { return find<QToolButton>(key); }
    void press(const QString &key) { button(key)->click(); }
    QAction *entry(const QString &key) const { return window->findChild<QAction *>(key); }
    TaskViews *list() const { return find<TaskViews>(u"ListView1"_s); }
    QAbstractItemView *shown() const { return qobject_cast<QAbstractItemView *>(list()->currentWidget()); }
    QAbstractItemModel *model() const { return shown()->model(); }
    /// The next tick of the list's own timer.
    void refresh()
    {
        auto *own = find<QTimer>(u"Timer1"_s);
        EXPECT_EQ(own->interval(), 1000);
        QSignalSpy ticks(own, &QTimer::timeout);
        own->start(0);
        EXPECT_TRUE(QTest::qWaitFor([&] { return ticks.count() > 0; }));
        own->start(1000);
    }
    QString setting(const QString &key) const { return userSettings.values[u"TaskList"_s].value(key); }
    static QString act(const char *name, WindowHandle on)
    {
        return QString::fromLatin1(name) + u' ' + QString::number(on);
    }

    QPointer<FTaskMgr> window;
    WindowHandle letter = kNoWindow;
    WindowHandle docs = kNoWindow;
    WindowHandle page = kNoWindow; ///< in front, so the first row
};

} // namespace

TEST_F(WindowList, KeepsItsPlaceAndItsView)
{
    for (const auto &[key, value] : {std::pair{u"Left"_s, u"300"_s},
                                     {u"Top"_s, u"150"_s},
                                     {u"Width"_s, u"7500"_s},
                                     {u"Height"_s, u"4500"_s},
                                     {u"LastListView"_s, u"1"_s}})
        userSettings.save(u"TaskList"_s, key, value);
    openThree();
    EXPECT_EQ(window->windowTitle(), u"Window List"_s);
    EXPECT_EQ(QRect(window->pos(), window->size()), QRect(20, 10, 500, 300));
    EXPECT_EQ(list()->view(), TaskViews::kSmallIcons);
    window->move(40, 30);
    window->resize(520, 320);
    press(u"TB_VIEW"_s);
    QTest::keyClick(shown(), Qt::Key_Escape);
    EXPECT_FALSE(forms.FormIsLoaded(u"FTaskMgr"_s));
    EXPECT_EQ(setting(u"Left"_s) + u' ' + setting(u"Top"_s) + u' ' + setting(u"Width"_s) + u' ' +
                  setting(u"Height"_s) + u' ' + setting(u"LastListView"_s),
              u"600 450 7800 4800 2"_s);

    // Of a screen that is not there any more; and a view that there never was.
    userSettings.save(u"TaskList"_s, u"Left"_s, u"999999"_s);
    userSettings.save(u"TaskList"_s, u"LastListView"_s, u"77"_s);
    open();
    EXPECT_TRUE(window->screen()->availableVirtualGeometry().contains(window->frameGeometry().center()));
    EXPECT_EQ(list()->view(), TaskViews::kDetails);
    window->findChild<QPushButton *>(u"cmdExit"_s)->click();
    EXPECT_FALSE(forms.FormIsLoaded(u"FTaskMgr"_s));
}

TEST_F(WindowList, AttachesDetachesAndSwitches)
{
    const int ID = addNote(u"Garden"_s, u"https://garden.example/"_s);
    openThree();
    tick(2);
    ASSERT_TRUE(note(ID));
    EXPECT_EQ(list()->selectedRow(), 0) << "the first row";
    press(u"TB_DETACH"_s);
    EXPECT_FALSE(note(ID));
    EXPECT_EQ(windows.actions.last(), act("setForegroundWindow", page));

    list()->selectRow(1);
    press(u"TB_ATTACH"_s);
    EXPECT_EQ(attached, QStringList(u"docs|"_s + QString::number(docs)));
    press(u"TB_DETACH"_s); // without a note it only comes to the front
    EXPECT_EQ(windows.actions.last(), act("setForegroundWindow", docs));

    windows.setMinimized(letter, true);
    list()->selectRow(2);
    press(u"TB_SWITCH"_s);
    EXPECT_TRUE(windows.actions.contains(act("restoreWindow", letter)));
    EXPECT_EQ(windows.foreground, letter);
    EXPECT_TRUE(forms.FormIsLoaded(u"FTaskMgr"_s));

    const QRect row = shown()->visualRect(model()->index(0, 0));
    QTest::mouseClick(shown()->viewport(), Qt::LeftButton, {}, row.center());
    QTest::mouseDClick(shown()->viewport(), Qt::LeftButton, {}, row.center());
    EXPECT_EQ(windows.foreground, page);
    EXPECT_FALSE(forms.FormIsLoaded(u"FTaskMgr"_s));
}

TEST_F(WindowList, AsksForASelectionAndNeverTakesAnotherWindowForTheOneThatHasGone)
{
    openThree();
    list()->selectRow(1);
    windows.destroy(docs);
    refresh();
    EXPECT_EQ(model()->rowCount(), 2);
    EXPECT_EQ(list()->selectedRow(), -1);
    press(u"TB_ATTACH"_s);
    press(u"TB_DETACH"_s);
    press(u"TB_SWITCH"_s);
    const QString asked = u"modal: Please select a window from the list"_s;
    EXPECT_EQ(notices.shown, QStringList({asked, asked}));
    EXPECT_TRUE(attached.isEmpty());
    EXPECT_EQ(windows.foreground, window->hWnd() == windows.foreground ? window->hWnd() : kNoWindow);
}

TEST_F(WindowList, SelectsTheFirstRowWhenTheProgramComesBackToIt)
{
    openThree();
    list()->selectRow(2);
    windows.setCaption(page, u"Weeds"_s);
    refresh();
    EXPECT_EQ(list()->selectedRow(), 2);
    QMenu *menu = button(u"TB_VIEW"_s)->menu();
    menu->popup({});
    ASSERT_TRUE(QTest::qWaitForWindowActive(menu));
    menu->hide();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    EXPECT_EQ(list()->selectedRow(), 2) << "a menu is no other window";

    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    for (const WindowHandle each : {letter, docs, page})
        windows.destroy(each);
    refresh();
    EXPECT_TRUE(button(u"TB_ATTACH"_s)->isEnabled()) << "not before it is activated";
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    for (const QString &key : {u"TB_ATTACH"_s, u"TB_DETACH"_s, u"TB_SWITCH"_s})
        EXPECT_FALSE(button(key)->isEnabled()) << key.toStdString();
    EXPECT_TRUE(button(u"TB_RUN"_s)->isEnabled());

    openPage(u"Garden"_s, u"https://garden.example/"_s);
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    EXPECT_EQ(list()->selectedRow(), 0);
    EXPECT_TRUE(button(u"TB_ATTACH"_s)->isEnabled());
}

TEST_F(WindowList, ShowsTheSameRowsInFourViews)
{
    openThree();
    EXPECT_EQ(list()->view(), TaskViews::kDetails);
    const auto *header = find<QTreeView>(u"ListView1_Details"_s)->header();
    EXPECT_EQ(model()->headerData(0, Qt::Horizontal).toString() + u'|' +
                  model()->headerData(1, Qt::Horizontal).toString(),
              u"Window|Location/URL"_s);
    EXPECT_NEAR(header->sectionSize(0), 0.4 * shown()->viewport()->width(), 2);
    list()->selectRow(1);
    const QAbstractItemModel *rows = model();
    for (const int expected :
         {TaskViews::kLargeIcons, TaskViews::kSmallIcons, TaskViews::kList, TaskViews::kDetails}) {
        press(u"TB_VIEW"_s);
        EXPECT_EQ(list()->view(), expected);
        EXPECT_EQ(model(), rows);
        EXPECT_EQ(list()->selectedRow(), 1);
        for (int row = 0; row < 3; ++row)
            EXPECT_TRUE(shown()->viewport()->rect().intersects(shown()->visualRect(rows->index(row, 0))));
    }
    const QStringList keys{u"BM_LARGE"_s, u"BM_SMALL"_s, u"BM_LIST"_s, u"BM_DETAILS"_s};
    for (const QString &key : keys) {
        entry(key)->trigger();
        EXPECT_EQ(list()->view(), keys.indexOf(key));
        EXPECT_TRUE(entry(key)->isChecked());
    }
    const QPoint heading(header->sectionViewportPosition(0) + 20, header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, heading);
    EXPECT_EQ(model()->index(0, 0).data().toString(), u"docs"_s);
    EXPECT_EQ(list()->selectedRow(), 0) << "the selection goes with its row";
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, heading);
    EXPECT_EQ(model()->index(0, 0).data().toString(), u"letter.txt"_s);
}

TEST_F(WindowList, StaysOnTopUntilATaskIsRun)
{
    openThree();
    QAction *onTop = entry(u"BM_ONTOP"_s);
    EXPECT_EQ(onTop->text(), u"Stay on top"_s);
    onTop->trigger();
    EXPECT_EQ(onTop->text(), u"Do not stay on top"_s);
    EXPECT_EQ(windows.actions.last(), act("setTopMost", window->hWnd()));
    onTop->trigger();
    EXPECT_EQ(windows.actions.last(), act("setNotTopMost", window->hWnd()));
    onTop->trigger();
    press(u"TB_RUN"_s);
    EXPECT_EQ(onTop->text(), u"Stay on top"_s);
    EXPECT_TRUE(windows.actions.contains(act("setNotTopMost", window->hWnd())));
    EXPECT_TRUE(forms.FormIsLoaded(u"MRunDialog"_s));
}

TEST_F(WindowList, KeepsSelectionAndScrollPlaceWhileWindowsComeGoAndChange)
{
    QVector<WindowHandle> many;
    for (int i = 0; i < 100; ++i)
        many.prepend(openDocument(u"file %1.txt"_s.arg(i), u"/usr/bin/mousepad"_s));
    open();
    ASSERT_EQ(model()->rowCount(), 100);
    const auto scrolled = [this] {
        return shown()->verticalScrollBar()->value() + shown()->horizontalScrollBar()->value();
    };
    for (const QString &key : {u"BM_DETAILS"_s, u"BM_LARGE"_s}) {
        entry(key)->trigger();
        list()->selectRow(50);
        QCoreApplication::processEvents();
        const int place = scrolled();
        EXPECT_GT(place, 0);
        const QString selected = model()->index(50, 0).data().toString();
        for (int i = 0; i < 100; i += 7)
            windows.setCaption(many[i], u"changed %1 by %2"_s.arg(i).arg(key));
        many.append(openDocument(u"later by "_s + key, u"/usr/bin/mousepad"_s));
        windows.destroy(many.takeAt(99));
        refresh();
        QCoreApplication::processEvents();
        EXPECT_EQ(scrolled(), place) << key.toStdString();
        EXPECT_EQ(list()->selectedRow(), 50);
        EXPECT_EQ(model()->index(50, 0).data().toString(), selected);
        EXPECT_EQ(model()->rowCount(), 100);
    }
}

TEST_F(WindowList, ReadsAnIconOnceAndShowsOneForWindowsWithout)
{
    letter = openDocument(u"letter.txt"_s, u"/usr/bin/mousepad"_s);
    docs = openFolder(u"docs"_s, u"/home/user/docs/"_s);
    windows.at(letter).smallIcon = windows.at(letter).largeIcon = 5;
    windows.iconImages[5] = {64, 64, QVector<quint32>(64 * 64, 0xff00ff00)};
    open();
    const auto colour = [&](int row, int side) {
        const QIcon icon = model()->index(row, 0).data(Qt::DecorationRole).value<QIcon>();
        return QColor(icon.pixmap(QSize(side, side), 1.0).toImage().pixel(side / 2, side / 2));
    };
    EXPECT_EQ(colour(1, 16), QColor(0, 255, 0));
    EXPECT_EQ(colour(1, 32), QColor(0, 255, 0));
    EXPECT_FALSE(model()->index(0, 0).data(Qt::DecorationRole).value<QIcon>().isNull());
    const int before = windows.roundTrips;
    window->repaint();
    colour(1, 16);
    colour(0, 16);
    EXPECT_EQ(windows.roundTrips, before);
}

TEST_F(WindowList, IsToggled)
{
    ToggleWindowList(services);
    EXPECT_TRUE(forms.FormIsLoaded(u"FTaskMgr"_s));
    ShowWindowList(services);
    EXPECT_EQ(forms.named(u"FTaskMgr"_s).size(), 1);
    ToggleWindowList(services);
    EXPECT_FALSE(forms.FormIsLoaded(u"FTaskMgr"_s));
}
