#include "BrowserDesk.h"
#include "browser/CategoryBar.h"
#include "browser/SideStrip.h"
#include "browser/frmMain.h"
#include "browser/grid/NoteGrid.h"
#include "controls/gridview/vbalGrid.h"
#include "fakes/FakeTrayHost.h"
#include "shell/windows/StatusPanel.h"
#include "shell/windows/mdiMain.h"
#include "ui/drop_on.h"

#include <QMdiSubWindow>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <QToolButton>

using namespace norvane;
using namespace norvane::tests;

namespace {

class Browser : public testing::Test, protected BrowserDesk
{
protected:
    Browser()
    {
        frame = new mdiMain(forms, settings, clock, Twips(96, 96));
        frame->resize(900, 650);
        services.isFrameVisible = [this] { return frame->isVisible(); };
    }
    ~Browser() override
    {
        if (browser)
            browser->unload();
        frame->unload();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void open()
    {
        browser = new frmMain(services, *frame, host);
        browser->Refresh_tbCAT();
        frame->show();
        browser->bringUp();
        browser->Refresh_Grid();
    }
    QToolButton *button(const QString &name) const { return browser->findChild<QToolButton *>(name); }
    void click(const QString &name) const { QTest::mouseClick(button(name), Qt::LeftButton); }
    CategoryBar *bar() const { return browser->findChild<CategoryBar *>(); }
    void clickTab(int index, Qt::MouseButton with = Qt::LeftButton) const
    {
        QTest::mouseClick(bar(), with, {}, bar()->tabRect(index).center());
    }
    QStringList titles() const
    {
        QStringList result;
        for (int row = 1; row <= browser->grid()->Rows(); ++row)
            result.append(browser->grid()->GetCelText(row, 2));
        return result;
    }
    QString rowText() const { return browser->findChild<StatusPanel *>(u"ROW"_s)->panelText(); }

    /// Chooses an entry of the menu that @p open shows, by its object name and text.
    void choose(const QString &menu, const QString &entry, const QString &text,
                const std::function<void()> &open)
    {
        bool isChosen = false;
        QTimer::singleShot(0, browser, [&] {
            auto *popUp = browser->findChild<QMenu *>(menu);
            ASSERT_TRUE(popUp);
            for (QAction *action : popUp->findChildren<QAction *>(entry)) {
                if (action->text() != text)
                    continue;
                shownEntry = {action->isEnabled(), action->isChecked()};
                isChosen = true;
                auto *owner = qobject_cast<QMenu *>(action->parent());
                if (owner != popUp) {
                    popUp->setActiveAction(owner->menuAction());
                    QTest::keyClick(popUp, Qt::Key_Right);
                }
                owner->setActiveAction(action);
                QTest::keyClick(owner, Qt::Key_Return);
            }
            popUp->close();
        });
        open();
        EXPECT_TRUE(isChosen) << qPrintable(text);
    }
    void menuOfTab(const QString &entry, const QString &text)
    {
        choose(u"CATPOPUP"_s, entry, text, [this] { clickTab(bar()->currentIndex(), Qt::RightButton); });
    }

    mdiMain *frame = nullptr;
    QPointer<frmMain> browser;
    fakes::FakeTrayHost host{TrayHost::Kind::Clicks};
    std::pair<bool, bool> shownEntry; ///< of the chosen entry: enabled, checked
};

TEST_F(Browser, EachTabShowsItsNotes)
{
    const int letters = addCategory(u"Letters & \"more\""_s);
    addCategory(u"Empty"_s);
    for (const auto &name : {u"Bread"_s, u"Apples"_s, u"Dates"_s})
        setField(addNote(name, u"/home/me/a.txt"_s), u"CAT_ID"_s, letters);
    addNote(u"Cherries"_s);
    open();
    EXPECT_EQ(bar()->tabText(2), u"Letters && \"more\""_s);
    EXPECT_EQ(titles(), (QStringList{u"Apples"_s, u"Bread"_s, u"Cherries"_s, u"Dates"_s}));

    clickTab(2);
    EXPECT_EQ(titles(), (QStringList{u"Apples"_s, u"Bread"_s, u"Dates"_s}));
    EXPECT_EQ(rowText(), u"Row: 1 of 3"_s);
    EXPECT_EQ(browser->findChild<QLabel *>(u"lblCategory"_s)->text(), u" Letters & \"more\""_s);
    EXPECT_TRUE(button(u"btnOpenURL"_s)->isEnabled());
    clickTab(3);
    EXPECT_EQ(titles(), QStringList{u"Cherries"_s});
    EXPECT_EQ(browser->selectedCategory(), -1);
    clickTab(1);
    EXPECT_EQ(rowText(), u"Row: 0 of 0"_s);
    for (const auto &name :
         {u"btnOpenURL"_s, u"ARButton3"_s, u"ARButton5"_s, u"ARButton7"_s, u"ARButton8"_s, u"ARButton9"_s})
        EXPECT_FALSE(button(name)->isEnabled()) << qPrintable(name);
    EXPECT_TRUE(button(u"ARButton2"_s)->isEnabled());
    for (const QToolButton *each : browser->findChild<SideStrip *>()->findChildren<QToolButton *>())
        EXPECT_FALSE(each->icon().isNull()) << qPrintable(each->objectName());
    EXPECT_TRUE(bar()->isEnabled());

    // The keyboard goes from tab to tab, too.
    frame->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(frame));
    bar()->setFocus();
    for (int step = 0; step < 2; ++step)
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    EXPECT_EQ(bar()->currentIndex(), 3);
    EXPECT_TRUE(bar()->hasFocus());
}

TEST_F(Browser, TheButtonsFollowTheSelectedRow)
{
    addNote(u"A place"_s, u"http://a/"_s);
    addNote(u"No place"_s);
    addNote(u"Third"_s);
    open();
    browser->GRD_Refresh(0);
    EXPECT_EQ(rowText(), u"Row: 1 of 3"_s);
    EXPECT_TRUE(button(u"btnOpenURL"_s)->isEnabled());
    QTest::keyClick(browser->grid()->grid(), Qt::Key_Down);
    EXPECT_EQ(rowText(), u"Row: 2 of 3"_s);
    EXPECT_FALSE(button(u"btnOpenURL"_s)->isEnabled());
    QTest::keyClick(browser->grid()->grid(), Qt::Key_Up);
    click(u"btnOpenURL"_s);
    click(u"ARButton5"_s);
    click(u"ARButton3"_s);
    click(u"ARButton1"_s);
    click(u"ARButton6"_s);
    click(u"ARButton2"_s);
    prompts.answers.enqueue(Prompts::kYes);
    QTest::keyClick(browser->grid()->grid(), Qt::Key_Delete);
    EXPECT_EQ(rowText(), u"Row: 1 of 2"_s);
    EXPECT_EQ(shell.opened, QStringList{u"http://a/"_s});
    EXPECT_EQ(views.opened.size(), 5);
    EXPECT_EQ(views.opened.mid(2), (QStringList{u"search 0"_s, u"categories"_s, u"new note"_s}));
}

TEST_F(Browser, DropsOnStripAndListBecomeNotes)
{
    open();
    const auto drop = [](QWidget &place, const QString &link) {
        QMimeData data;
        data.setText(link);
        dropOn(place, data);
    };
    drop(*browser->findChild<SideStrip *>(), u"https://example.org/1"_s);
    drop(*browser->grid()->grid()->viewport(), u"https://example.org/2"_s);
    EXPECT_TRUE(views.opened.isEmpty()) << "not while the other program waits";
    QCoreApplication::processEvents();
    EXPECT_EQ(views.opened, (QStringList{u"drop https://example.org/1"_s, u"drop https://example.org/2"_s}));
}

TEST_F(Browser, CategoriesComeAndGoByTheMenu)
{
    const int full = addCategory(u"Full"_s);
    setField(addNote(u"Note"_s), u"CAT_ID"_s, full);
    open();
    menuOfTab(u"CATPOPUP_DELETE"_s, u"Remove"_s);
    EXPECT_FALSE(shownEntry.first) << "the fixed tabs stay";

    for (const QString &name : {u"R&D"_s, u"full"_s, u"a \" quote"_s, u"  "_s}) {
        prompts.inputs.enqueue(name);
        menuOfTab(u"CATPOPUP_NEW"_s, u"Add New"_s);
    }
    EXPECT_EQ(prompts.inputRequests.constFirst(), u"New Category Name:|Add New Category|New Category"_s);
    ASSERT_EQ(prompts.boxes.size(), 1);
    EXPECT_EQ(prompts.boxes.takeFirst().text,
              u"Category already exist. Please use a different name and try again."_s);
    EXPECT_EQ(browser->categoryTabCount(), 4);

    menuOfTab(u"CATPOPUP_SELECT_SUB"_s, u"R&&D"_s);
    EXPECT_EQ(titles(), QStringList());
    EXPECT_EQ(browser->findChild<QLabel *>(u"lblCategory"_s)->text(), u" R&D"_s);
    menuOfTab(u"CATPOPUP_DELETE"_s, u"Remove 'R&&D'"_s);
    EXPECT_EQ(browser->categoryTabCount(), 3);
    EXPECT_EQ(browser->selectedCategory(), 0);
    EXPECT_EQ(titles(), QStringList{u"Note"_s}) << "the list follows the new selection";

    bar()->setCurrentIndex(1);
    menuOfTab(u"CATPOPUP_DELETE"_s, u"Remove 'Full'"_s);
    ASSERT_EQ(prompts.boxes.size(), 1);
    EXPECT_EQ(prompts.boxes[0].text, u"This category can not be removed. It is in use by 1 Note(s)."_s);
    EXPECT_EQ(browser->categoryTabCount(), 3);
}

TEST_F(Browser, MenusAndStyleLeaveTheListAlone)
{
    addNote(u"Note"_s);
    open();
    const quint64 before = store.database()->statementCount();
    menuOfTab(u"CATPOPUP_VIEW_STYLE_BUTTONS"_s, u"Buttons"_s);
    EXPECT_EQ(settings.values[u"NoteBrowser"_s][u"CategoryBarStyle"_s], u"2"_s);
    menuOfTab(u"CATPOPUP_VIEW_STYLE_BUTTONS"_s, u"Buttons"_s);
    EXPECT_EQ(settings.values[u"NoteBrowser"_s][u"CategoryBarStyle"_s], u"0"_s) << "both entries turn it";
    menuOfTab(u"CATPOPUP_CANCEL"_s, u"Cancel"_s);
    EXPECT_EQ(store.database()->statementCount(), before);
    clickTab(1);
    EXPECT_EQ(titles(), QStringList{u"Note"_s}) << "and the next click counts";

    auto *caption = browser->findChild<QLabel *>(u"lblCategory"_s);
    choose(u"CATPOPUP2"_s, u"CATPOPUP_SELECT_SUB2"_s, u"(All Categories)"_s,
           [caption] { QTest::mouseClick(caption, Qt::LeftButton, Qt::ShiftModifier); });
    EXPECT_EQ(browser->selectedCategory(), 0);
}

} // namespace
