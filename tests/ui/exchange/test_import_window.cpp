#include "ImportDesk.h"
#include "shell/windows/StatusPanel.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

using namespace norvane;
using namespace norvane::tests;

namespace {

class ImportWindow : public testing::Test, protected ImportDesk
{
protected:
    ImportWindow()
    {
        timer.setInterval(watch.WatchInterval);
        timer.setEnabled(true);
    }
    ~ImportWindow() override
    {
        if (window)
            window->unload();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void open()
    {
        window = makeWindow();
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    }
    template <typename Widget> Widget *part(const QString &name) const
    {
        return window->findChild<Widget *>(name);
    }
    QPushButton *button(const QString &name) const { return part<QPushButton>(name); }
    void press(const QString &name) { QTest::mouseClick(button(name), Qt::LeftButton); }
    bool canImport() const { return button(u"Command1"_s)->isEnabled(); }
    QTreeView *list() const { return part<QTreeView>(u"ListView1"_s); }
    /// The rows as they are shown, each with "+" where it is checked.
    QStringList rows(int column = 0) const
    {
        QStringList texts;
        for (int row = 0; row < list()->model()->rowCount(); ++row) {
            const bool isChecked = list()->model()->index(row, 0).data(Qt::CheckStateRole) == Qt::Checked;
            texts.append((isChecked ? u"+"_s : QString()) +
                         list()->model()->index(row, column).data().toString());
        }
        return texts;
    }
    void clickHeader(int column)
    {
        const QHeaderView *header = list()->header();
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                          QPoint(header->sectionViewportPosition(column) + 12, header->height() / 2));
    }
    /// The last box as "style text".
    QString lastBox() const
    {
        return prompts.boxes.isEmpty()
                   ? QString()
                   : u"%1 %2"_s.arg(prompts.boxes.last().style).arg(prompts.boxes.last().text);
    }

    QPointer<frmImport> window;
};

TEST_F(ImportWindow, ListsChecksAndSorts)
{
    const int b = addOther(u"b"_s, u"u:1"_s);
    addOther(u"a"_s, u"u:2"_s);
    setOther(b, u"CAT_ID"_s, addOtherCategory(u"Work"_s));
    open();
    EXPECT_EQ(window->windowTitle(), u"Norvane Import");
    EXPECT_TRUE(forms.FormIsLoaded(u"frmImport"_s));
    EXPECT_EQ(part<StatusPanel>(u"lblCurrentDatabase"_s)->panelText(), other.store.DatabaseFolder);
    EXPECT_EQ(rows(), QStringList({u"a"_s, u"b"_s}));
    EXPECT_EQ(rows(1), QStringList({QString(), u"Work"_s}));
    EXPECT_FALSE(canImport());

    EXPECT_EQ(QApplication::focusWidget(), list());
    QTest::keyClick(list(), Qt::Key_Space);
    EXPECT_EQ(rows(), QStringList({u"+a"_s, u"b"_s}));
    EXPECT_TRUE(canImport());
    QTest::keyClick(list(), Qt::Key_Down);
    QTest::keyClick(list(), Qt::Key_Space);
    const QRect first = list()->visualRect(list()->model()->index(0, 0));
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, QPoint(first.left() + 10, first.center().y()));
    EXPECT_EQ(rows(), QStringList({u"a"_s, u"+b"_s}));
    clickHeader(0);
    EXPECT_EQ(rows(), QStringList({u"+b"_s, u"a"_s})) << "it was the key already";
    clickHeader(2);
    EXPECT_EQ(rows(2), QStringList({u"+u:1"_s, u"u:2"_s}));
    clickHeader(2);
    EXPECT_EQ(rows(2), QStringList({u"u:2"_s, u"+u:1"_s}));
    list()->actions().at(2)->trigger();
    EXPECT_EQ(rows(2), QStringList({u"+u:1"_s, u"u:2"_s})) << "without a mouse";
    list()->actions().at(2)->trigger();
    EXPECT_EQ(rows(2), QStringList({u"u:2"_s, u"+u:1"_s}));

    press(u"Command4"_s);
    EXPECT_EQ(rows(), QStringList({u"+a"_s, u"+b"_s}));
    press(u"Command5"_s);
    EXPECT_FALSE(canImport());
    press(u"Command5"_s);
    EXPECT_TRUE(canImport());
    press(u"Command3"_s);
    EXPECT_FALSE(canImport());
    EXPECT_EQ(rows(), QStringList({u"a"_s, u"b"_s}));
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_FALSE(forms.FormIsLoaded(u"frmImport"_s));
    EXPECT_FALSE(engine->isLocked(other.store.DatabaseFile));
}

TEST_F(ImportWindow, HasNothingToDoForAnEmptySource)
{
    open();
    for (const QString &name : {u"Command1"_s, u"Command3"_s, u"Command4"_s, u"Command5"_s})
        EXPECT_FALSE(button(name)->isEnabled());
    EXPECT_TRUE(button(u"Command2"_s)->isEnabled());
}

TEST_F(ImportWindow, ImportsTwiceAndReports)
{
    const int work = addCategory(u"Work"_s);
    addOthers(3);
    open();
    auto *reset = part<QCheckBox>(u"chkCat"_s);
    auto *category = part<QComboBox>(u"cmbCat"_s);
    EXPECT_FALSE(category->isEnabled());
    reset->click();
    EXPECT_TRUE(category->isEnabled());
    EXPECT_EQ(category->currentText(), u"(No Category)");
    category->setCurrentText(u"Work"_s);
    press(u"Command4"_s);
    QTest::keyClick(list(), Qt::Key_Space); // not the first

    prompts.duringBox = [&](const auto &) {
        EXPECT_TRUE(timer.isEnabled());
        EXPECT_EQ(window->cursor().shape(), Qt::ArrowCursor);
    };
    press(u"Command1"_s);
    EXPECT_EQ(lastBox(), u"64 2 Note(s) has been successfully imported.");
    EXPECT_EQ(store.NoteSet()->recordCount(), 2);
    EXPECT_EQ(store.NoteIndex()->recordCount(), 2);
    EXPECT_EQ(field(1, u"CAT_ID"_s), work);
    EXPECT_EQ(files.read(store.bodyFile(1)), "{\\rtf1 note 2}");
    EXPECT_EQ(browserView.refreshes, 1);
    EXPECT_EQ(rows(), QStringList({u"note 1"_s, u"+note 2"_s, u"+note 3"_s}));
    EXPECT_FALSE(canImport());
    EXPECT_EQ(part<QLabel>(u"lblStatus"_s)->text(), u"2 of 2 note(s) imported, 0 identical bypassed.");

    watch.WatchInterval = 0; // nobody watches
    prompts.duringBox = [&](const auto &) { EXPECT_FALSE(timer.isEnabled()); };
    press(u"Command4"_s);
    press(u"Command1"_s);
    EXPECT_EQ(lastBox(), u"64 1 Note(s) has been successfully imported.\r\n2 Identical note(s) bypassed.");
    EXPECT_EQ(noteCount(), 3);
}

TEST_F(ImportWindow, TellsAFailureAndHowFarItCame)
{
    addOthers(2);
    addOther(u"note \" quoted"_s, u"u:\"3"_s);
    open();
    clickHeader(2); // the quoted one last
    press(u"Command4"_s);
    press(u"Command1"_s);
    EXPECT_TRUE(lastBox().startsWith(u"16 Error Importing Records.\r\n\r\n2 of 3 note(s) imported, "
                                     "0 identical bypassed.\r\n"))
        << lastBox().toStdString();
    EXPECT_EQ(noteCount(), 2);
    EXPECT_EQ(browserView.refreshes, 0);
    EXPECT_FALSE(timer.isEnabled()) << "it stays as it is";
    EXPECT_EQ(window->cursor().shape(), Qt::WaitCursor) << "this, too";
    EXPECT_TRUE(canImport());
}

TEST_F(ImportWindow, StopsALongImportAndGoesOnLater)
{
    constexpr int kNotes = 1000;
    addOthers(kNotes);
    open();
    press(u"Command4"_s);
    QString progress;
    events.duringYield = [&] {
        EXPECT_FALSE(canImport() || list()->isEnabled() || button(u"Command2"_s)->isEnabled());
        EXPECT_FALSE(timer.isEnabled());
        EXPECT_TRUE(part<QProgressBar>(u"prgImport"_s)->isVisible());
        progress = part<QProgressBar>(u"prgImport"_s)->text();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    };
    press(u"Command1"_s);
    ASSERT_EQ(events.yields, 1);
    const int imported = noteCount();
    EXPECT_EQ(progress, u"%1 of %2"_s.arg(imported).arg(kNotes));
    EXPECT_EQ(
        lastBox(),
        u"64 %1 Note(s) has been successfully imported.\r\nStopped: %2 selected note(s) left."_s.arg(imported)
            .arg(kNotes - imported));
    EXPECT_TRUE(canImport());
    EXPECT_FALSE(button(u"cmdStop"_s)->isVisible() || part<QProgressBar>(u"prgImport"_s)->isVisible());
    EXPECT_TRUE(window->isVisible());

    // The program ends meanwhile.
    events.duringYield = [&] {
        window->unload();
        store.close();
    };
    press(u"Command1"_s);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(window.isNull());
    EXPECT_EQ(prompts.boxes.size(), 1);
    EXPECT_FALSE(engine->isLocked(other.store.DatabaseFile));
}

} // namespace
