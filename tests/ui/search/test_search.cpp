#include "browser/grid/NoteGrid.h"
#include "controls/gridview/vbalGrid.h"
#include "search/SearchAnimation.h"
#include "search/frmSearch.h"
#include "ui/browser/BrowserDesk.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QImage>
#include <QLineEdit>
#include <QPointer>
#include <QProcess>
#include <QPushButton>
#include <QStatusBar>
#include <QTabWidget>
#include <QTest>

using namespace norvane;
using namespace norvane::tests;

namespace {

class Search : public testing::Test, protected BrowserDesk
{
protected:
    Search() { shell.folder = folder.path(); }
    ~Search() override
    {
        if (window)
            window->unload();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    int addDated(const QString &title)
    {
        const int note = addNote(title);
        setField(note, u"DateCreated"_s, clock.now());
        setField(note, u"LastUpdate"_s, clock.now());
        return note;
    }
    void open(std::optional<int> category = {})
    {
        ShowSearch(services, category);
        const QVector<Form *> opened = forms.named(u"frmSearch"_s);
        window = opened.isEmpty() ? nullptr : dynamic_cast<frmSearch *>(opened.constFirst());
        ASSERT_TRUE(window);
        ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    }
    template <typename Widget> Widget *part(const QString &name) const
    {
        return window->findChild<Widget *>(name);
    }
    void press(const QString &name) { QTest::mouseClick(part<QPushButton>(name), Qt::LeftButton); }
    QComboBox *text() const { return part<QComboBox>(u"cmbSearch"_s); }
    QComboBox *category() const { return part<QComboBox>(u"cmbCat"_s); }
    QDateEdit *picker(int number) const { return part<QDateEdit>(u"DTPicker%1"_s.arg(number)); }
    /// Types the text and Enter.
    void find(const QString &what)
    {
        part<QTabWidget>(u"Frame1"_s)->setCurrentIndex(0);
        text()->lineEdit()->setText(what);
        text()->setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    }
    NoteGrid *list() const { return part<NoteGrid>(u"DBGrid1"_s); }
    /// By name: rows that the list counts as equal may stand in any order.
    QString titles() const
    {
        QStringList result;
        for (int row = 1; row <= list()->Rows(); ++row)
            result.append(list()->GetCelText(row, 2));
        result.sort();
        return result.join(u' ');
    }
    QString status() const { return part<QStatusBar>(u"StatusBar1"_s)->currentMessage(); }
    QStringList history() const
    {
        QStringList texts;
        for (int i = 0; i < text()->count(); ++i)
            texts.append(text()->itemText(i));
        return texts;
    }
    bool isAnimated() const
    {
        const auto *animation = part<SearchAnimation>(u"Animation1"_s);
        return animation->isVisible() && animation->isPlaying();
    }

    QPointer<frmSearch> window;
};

TEST_F(Search, findsShowsAndStartsAnew)
{
    const int letters = addCategory(u"Letters"_s);
    setField(addDated(u"Cat"_s), u"CAT_ID"_s, letters);
    addDated(u"Catalogue"_s);
    addDated(u"Dog"_s);
    open();
    EXPECT_EQ(QApplication::focusWidget(), text());
    EXPECT_EQ(list()->Rows(), 0);
    EXPECT_FALSE(part<QWidget>(u"Animation1"_s)->isVisible());

    find(u"cat"_s);
    EXPECT_EQ(titles(), u"Cat Catalogue"_s);
    EXPECT_EQ(status(), u"2 Item(s) found"_s);
    EXPECT_TRUE(list()->grid()->hasFocus());
    EXPECT_FALSE(part<QWidget>(u"Animation1"_s)->isVisible());
    QTest::keyClick(list()->grid(), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(part<QTabWidget>(u"Frame1"_s)->currentIndex(), 1) << "pages turn from everywhere";
    QTest::keyClick(list()->grid(), Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(part<QTabWidget>(u"Frame1"_s)->currentIndex(), 0);
    find(u"cat"_s);
    find(u"CATALOGUES"_s);
    EXPECT_EQ(status(), u"0 Item(s) found"_s);
    EXPECT_EQ(QApplication::focusWidget(), text()) << "nothing to go to";
    EXPECT_EQ(text()->currentText(), u"CATALOGUES"_s) << "what was typed stays";
    EXPECT_EQ(history(), (QStringList{u"cat"_s, u"cat"_s, u"CATALOGUES"_s}));

    category()->setCurrentIndex(category()->findText(u"Letters"_s));
    part<QCheckBox>(u"Check3"_s)->setChecked(true);
    find({});
    EXPECT_EQ(titles(), u"Cat"_s);
    EXPECT_EQ(history().size(), 4);

    press(u"Command3"_s);
    EXPECT_EQ(list()->Rows(), 0);
    EXPECT_EQ(text()->count() + category()->currentIndex(), 0);
    EXPECT_EQ(text()->currentText() + status(), u""_s);
    EXPECT_TRUE(part<QCheckBox>(u"Check3"_s)->isChecked());
}

TEST_F(Search, narrowsByDaysAndWidensAgain)
{
    const QDate days[] = {{1999, 12, 31}, {2024, 2, 29}, {2025, 1, 1}};
    for (const QDate &day : days) {
        const int note = addNote(u"N%1"_s.arg(day.year()));
        setField(note, u"DateCreated"_s, day.startOfDay());
        setField(note, u"LastUpdate"_s, QDateTime(day, QTime(23, 59)));
    }
    open();
    for (const int first : {1, 3}) {
        EXPECT_EQ(picker(first)->date(), days[0]);
        EXPECT_EQ(picker(first + 1)->date(), days[2]);
        EXPECT_EQ(QDate::fromString(picker(first)->text(), picker(first)->displayFormat()), days[0])
            << "all digits of the year";
    }
    picker(1)->setDate(days[1]);
    picker(4)->setDate(days[1]);
    find({});
    EXPECT_EQ(titles(), u"N2024"_s);
    part<QTabWidget>(u"Frame1"_s)->setCurrentIndex(1);
    press(u"Command2"_s);
    press(u"Command1"_s);
    EXPECT_EQ(list()->Rows(), 3);
    picker(1)->setDate(days[2]);
    picker(2)->setDate(days[0]);
    find({});
    EXPECT_EQ(status(), u"0 Item(s) found"_s);
    EXPECT_TRUE(prompts.boxes.isEmpty());
}

TEST_F(Search, tellsOfCriteriaThatAreNoneAndLosesNothing)
{
    addDated(u"Cat"_s);
    open();
    find(u"cat"_s);
    for (const QString &wrong : {u"say \"x"_s, u"[a"_s, u'"' + QString(10'000, u'*')}) {
        prompts.boxes.clear();
        find(wrong);
        ASSERT_EQ(prompts.boxes.size(), 1) << qPrintable(wrong.left(9));
        EXPECT_EQ(prompts.boxes[0].text, u"Please check your criteria and try again."_s);
        EXPECT_EQ(prompts.boxes[0].style, 48);
        EXPECT_EQ(prompts.boxes[0].title, u"Norvane"_s);
        EXPECT_EQ(titles(), u"Cat"_s);
        EXPECT_EQ(status(), u"1 Item(s) found"_s);
        EXPECT_EQ(text()->currentText(), wrong);
        EXPECT_TRUE(isAnimated());
    }
    find(QString(10'000, u'x'));
    EXPECT_FALSE(isAnimated());
    EXPECT_EQ(prompts.boxes.size(), 1);
    EXPECT_EQ(history().size(), 5);
}

TEST_F(Search, thatTakesLongCanBeStopped)
{
    const int first = addDated(u"Cat"_s);
    open();
    find(u"cat"_s);
    // So many are read in several pieces, however fast the machine is.
    const QString more = u"with recursive n(i) as (select 1 union all select i + 1 from n where i < 6000) "
                         "insert into Memos(WindowName, CAT_ID, DateCreated, LastUpdate) select 'w', 0, "
                         "DateCreated, LastUpdate from n join Memos on ID = %1"_s.arg(first);
    ASSERT_EQ(QProcess::execute(u"sqlite3"_s, {store.DatabaseFile, more}), 0);

    auto *stop = part<QPushButton>(u"cmdStop"_s);
    QElapsedTimer running;
    running.start();
    events.duringYield = [&] {
        find(u"again"_s); // while one runs, there is no second one
        if (stop->isVisible())
            QTest::mouseClick(stop, Qt::LeftButton);
        else
            EXPECT_TRUE(QTest::qWaitFor([&running] { return running.elapsed() > 400; }));
    };
    find(u"w"_s);
    EXPECT_EQ(status(), u"The search was stopped."_s);
    EXPECT_EQ(titles(), u"Cat"_s);
    EXPECT_FALSE(isAnimated() || stop->isVisible());

    events.duringYield = [this] { QTest::keyClick(window, Qt::Key_Escape); };
    find(u"w"_s);
    EXPECT_EQ(titles(), u"Cat"_s);

    events.duringYield = {};
    find(u"w"_s);
    EXPECT_EQ(status(), u"6000 Item(s) found"_s);
    EXPECT_EQ(history(), (QStringList{u"cat"_s, u"w"_s, u"w"_s, u"w"_s}));

    events.duringYield = [this] {
        store.close();
        window->unload();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    find(u"w"_s);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(window) << "the end of the program";
    EXPECT_TRUE(prompts.boxes.isEmpty());
}

TEST_F(Search, itsRowsHaveTheirCommandsAndTheBrowserFollows)
{
    setField(addDated(u"Cat"_s), u"URL"_s, u"http://cat/"_s);
    addDated(u"Catalogue"_s);
    open();
    find(u"cat"_s);
    if (list()->GetCelText(1, 2) != u"Cat")
        QTest::keyClick(list()->grid(), Qt::Key_Down);
    QTest::keyClick(list()->grid(), Qt::Key_Return);
    EXPECT_EQ(shell.opened, QStringList{u"http://cat/"_s});
    QTest::keyClick(list()->grid(), Qt::Key_A, Qt::AltModifier);
    EXPECT_EQ(browserView.refreshes, 1);
    prompts.answers.enqueue(Prompts::kYes);
    QTest::keyClick(list()->grid(), Qt::Key_Delete);
    EXPECT_EQ(titles(), u"Catalogue"_s);
    EXPECT_EQ(noteCount(), 1);
    EXPECT_EQ(browserView.refreshes, 2);
    EXPECT_EQ(browserView.aroundRefreshes, 2);
}

TEST_F(Search, isOneWindowThatKeepsItsOptionsAlone)
{
    const int letters = addCategory(u"Letters"_s);
    settings.save(u"Search"_s, u"IncludeURL"_s, u"0"_s);
    open(letters);
    EXPECT_FALSE(part<QCheckBox>(u"Check1"_s)->isChecked());
    EXPECT_TRUE(part<QCheckBox>(u"Check2"_s)->isChecked());
    EXPECT_EQ(category()->currentText(), u"Letters"_s);
    EXPECT_FALSE(window->isModal());
    find(u"x"_s);

    const frmSearch *before = window;
    addCategory(u"Later"_s);
    open();
    EXPECT_EQ(window, before);
    EXPECT_EQ(category()->currentText(), u"Letters"_s) << "as chosen";
    EXPECT_EQ(category()->count(), 4);
    open(-1);
    EXPECT_EQ(category()->currentText(), u"(No Category)"_s);
    open(0);
    EXPECT_EQ(category()->currentText(), u"(All Categories)"_s);
    open(4711);
    EXPECT_EQ(category()->currentText(), u"(All Categories)"_s);

    part<QCheckBox>(u"Check2"_s)->setChecked(false);
    QTest::keyClick(list()->grid(), Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(window);
    EXPECT_FALSE(forms.FormIsLoaded(u"frmSearch"_s));
    EXPECT_EQ(settings.get(u"Search"_s, u"IncludeNoteText"_s, {}), u"0"_s);
    open();
    EXPECT_EQ(text()->count(), 0);
    window->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(window);

    store.close();
    ShowSearch(services, {});
    EXPECT_TRUE(prompts.boxes.isEmpty());
}

TEST_F(Search, playsAClipThatLiesBesideTheProgram)
{
    addDated(u"Cat"_s);
    QImage clip(8, 8, QImage::Format_RGB32);
    clip.fill(QColor(0, 200, 0));
    for (const bool isClip : {false, true}) {
        const QString file = folder.filePath(u"Mmr2.dll"_s);
        if (isClip)
            clip.save(file, "PNG");
        else
            files.write(file, "MZ no clip");
        open();
        find(u"\""_s);
        auto *animation = part<SearchAnimation>(u"Animation1"_s);
        EXPECT_TRUE(isAnimated());
        const QColor middle = animation->grab().toImage().pixelColor(animation->rect().center());
        EXPECT_EQ(middle == QColor(0, 200, 0), isClip);
        window->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

} // namespace
