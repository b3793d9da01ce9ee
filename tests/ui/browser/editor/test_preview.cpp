#include "EditorDesk.h"

#include "browser/editor/frmQuickView.h"
#include "richtext/RichTextBox.h"
#include "watcher/note_forms.h"

#include <QLabel>
#include <QPointer>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSizeGrip>
#include <QTest>
#include <QToolButton>

using namespace norvane;
using namespace norvane::test;

namespace {

class Preview : public testing::Test, protected EditorDesk
{
protected:
    Preview() { browser.resize(800, 600); }

    void show()
    {
        preview = new frmQuickView(services, &browser);
        browser.show();
        preview->show();
    }
    void showNote(int ID) { preview->showNote(u"Letters"_s, ID, store.bodyFile(ID), 0x00C0FF); }
    QString text() const { return preview->RTF_View()->Text(); }
    QString title() const { return preview->findChild<QLabel *>(u"lblTitle"_s)->text(); }
    QToolButton *button(const QString &name) const { return preview->findChild<QToolButton *>(name); }

    QWidget browser;
    QPointer<frmQuickView> preview;
};

TEST_F(Preview, standsWhereItWasLeft)
{
    show();
    EXPECT_EQ(preview->geometry(), QRect(0, 0, 200, 133)) << "3000 by 2000 twips at the first start";
    QSignalSpy gone(preview, &frmQuickView::unloaded);
    preview->setGeometry(30, 40, 300, 200);
    QTest::mouseClick(button(u"ARButton1"_s), Qt::LeftButton);
    EXPECT_EQ(gone.size(), 1);
    EXPECT_FALSE(forms.FormIsLoaded(u"frmQuickView"_s));
    finishUnloading();
    EXPECT_FALSE(preview);
    EXPECT_EQ(settings.get(u"Preview"_s, u"Left"_s, {}), u"450");
    EXPECT_EQ(settings.get(u"Preview"_s, u"Top"_s, {}), u"600");
    EXPECT_EQ(settings.get(u"Preview"_s, u"Width"_s, {}), u"4500");
    EXPECT_EQ(settings.get(u"Preview"_s, u"Height"_s, {}), u"3000");
    show();
    EXPECT_EQ(preview->geometry(), QRect(30, 40, 300, 200));
}

TEST_F(Preview, showsANoteToBeReadOnly)
{
    show();
    const int ID = addNoteWithBody(u"Letters"_s, "stored text");
    showNote(ID);
    EXPECT_EQ(title(), u" Letters");
    EXPECT_EQ(preview->findChild<QLabel *>(u"lblTitle"_s)->toolTip(), title());
    EXPECT_EQ(text(), u"stored text");
    EXPECT_EQ(preview->RTF_View()->BackColor(), 0x00C0FFU);
    EXPECT_TRUE(isPreviewed(forms, ID));
    EXPECT_FALSE(isPreviewed(forms, ID + 1));
    QTest::keyClicks(preview->RTF_View(), u"typed"_s);
    EXPECT_EQ(text(), u"stored text");

    QSignalSpy edits(preview, &frmQuickView::editRequested);
    QSignalSpy opens(preview, &frmQuickView::openRequested);
    QTest::mouseClick(button(u"ARButton2"_s), Qt::LeftButton);
    QTest::mouseClick(button(u"ARButton3"_s), Qt::LeftButton);
    EXPECT_EQ(edits.size(), 1);
    EXPECT_EQ(opens.size(), 1);

    preview->showNothing();
    EXPECT_EQ(text(), u"");
    EXPECT_EQ(preview->RTF_View()->BackColor(), 0xC0FFFFU);
    EXPECT_EQ(preview->windowTitle(), u"Preview");
    EXPECT_FALSE(isPreviewed(forms, ID));
}

TEST_F(Preview, neverShowsOneNotesTextForAnother)
{
    show();
    const int good = addNoteWithBody(u"Good"_s, "good");
    const int empty = addNote(u"Empty"_s);
    const int damaged = addNote(u"Damaged"_s);
    files.write(store.bodyFile(damaged), "no rich text");
    const int huge = addNote(u"Huge"_s);
    files.write(store.bodyFile(huge), richText(QByteArray(qsizetype(17) << 20, 'x')));
    const struct
    {
        int ID;
        quint32 color;
    } cases[] = {{empty, 0xC0FFFF}, {damaged, 0x00C0FF}, {huge, 0x00C0FF}};
    for (const auto &each : cases) {
        showNote(good);
        ASSERT_EQ(text(), u"good");
        showNote(each.ID);
        EXPECT_LT(text().size(), 100) << each.ID;
        EXPECT_FALSE(text().contains(u"good"_s)) << each.ID;
        EXPECT_EQ(preview->RTF_View()->BackColor(), each.color) << each.ID;
    }
}

TEST_F(Preview, staysAtItsLineWhenItsNoteWasSaved)
{
    show();
    const int ID = addNoteWithBody(u"Long"_s, QByteArray("line\\par ").repeated(200));
    const int other = addNoteWithBody(u"Other"_s, QByteArray("line\\par ").repeated(200));
    showNote(ID);
    preview->RTF_View()->verticalScrollBar()->setValue(500);
    showNote(ID);
    EXPECT_EQ(preview->RTF_View()->verticalScrollBar()->value(), 500);
    showNote(other);
    EXPECT_EQ(preview->RTF_View()->verticalScrollBar()->value(), 0);
}

TEST_F(Preview, isMovedByItsStripAndSizedByItsGripWithinTheBrowser)
{
    show();
    auto *strip = preview->findChild<QWidget *>(u"Label1"_s);
    QTest::mousePress(strip, Qt::LeftButton, {}, {5, 5});
    QTest::mouseMove(strip, {105, 55});
    EXPECT_EQ(preview->pos(), QPoint(100, 50));
    QTest::mouseMove(strip, {2000, 2000});
    EXPECT_EQ(preview->geometry().bottomRight(), browser.rect().bottomRight());
    QTest::mouseMove(strip, {-2000, -2000});
    EXPECT_EQ(preview->pos(), QPoint(0, 0));
    QTest::mouseRelease(strip, Qt::LeftButton, {}, {5, 5});
    QTest::mouseMove(strip, {50, 50});
    EXPECT_EQ(preview->pos(), QPoint(0, 0));

    auto *grip = preview->findChild<QSizeGrip *>();
    const QSize before = preview->size();
    QTest::mousePress(grip, Qt::LeftButton, {}, {5, 5});
    QTest::mouseMove(grip, {65, 35});
    EXPECT_EQ(preview->size(), before + QSize(60, 30));
    QTest::mouseRelease(grip, Qt::LeftButton, {}, {5, 5});
}

TEST_F(Preview, followsAShrinkingBrowserAndStaysAboveWhatIsInIt)
{
    show();
    QWidget list(&browser);
    list.setGeometry(0, 0, 800, 560);
    list.show();
    preview->setGeometry(500, 300, 200, 150);
    browser.resize(600, 400);
    preview->keepInside(600, 380);
    EXPECT_EQ(preview->geometry(), QRect(400, 230, 200, 150));
    EXPECT_EQ(browser.childAt(410, 240)->window(), &browser);
    EXPECT_TRUE(preview->isAncestorOf(browser.childAt(410, 240)) || browser.childAt(410, 240) == preview);
    browser.resize(300, 100);
    preview->unload();
    finishUnloading();
    show();
    EXPECT_TRUE(browser.rect().contains(preview->pos())) << "a kept place beyond the browser";
}

} // namespace
