#include "Editing.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

using namespace norvane;

namespace {

constexpr quint32 kBlue = 0xFF0000;

class EditLinks : public testing::Test, public UserAtEditor
{
protected:
    /// The text with its stretches of the look of a link in braces.
    std::string marked()
    {
        QString result;
        bool linked = false;
        const QString text = edit.Text();
        const int caret = edit.SelStart();
        for (int i = 0; i < text.size(); ++i) {
            select(i, 1);
            const bool isLink = edit.SelColor() == kBlue && edit.SelUnderline() == true;
            if (text.at(i) != u'\r' && text.at(i) != u'\n' && isLink != linked) {
                result += isLink ? u'{' : u'}';
                linked = isLink;
            }
            result += text.at(i);
        }
        edit.setSelStart(caret);
        return (linked ? result + u'}' : result).toStdString();
    }
    void pointAt(int position) { QTest::mouseMove(edit.box()->viewport(), pointOf(position)); }
    void clickAt(int position, Qt::KeyboardModifiers keys = {})
    {
        QTest::mouseClick(edit.box()->viewport(), Qt::LeftButton, keys, pointOf(position));
        QCoreApplication::processEvents();
    }
};

} // namespace

TEST_F(EditLinks, SwitchingOnScansTheDocument)
{
    show();
    edit.setTextRTF(
        "{\\rtf1{\\colortbl;\\red255\\green0\\blue0;}see \\b www.a.org\\b0  or\\cf1  me@b.org\\cf0 .\\par "
        "\\par in the end http://c.org two words\\par}");
    QSignalSpy changes(&edit, &NV_RTFEdit::Change);
    edit.setAutoURLDetect(true);
    EXPECT_EQ(marked(), "see {www.a.org} or {me@b.org}.\r\n\r\nin the end {http://c.org two words}");
    EXPECT_EQ(edit.SelStart(), edit.Text().indexOf(u"http:"_qs) + 1);
    EXPECT_EQ(changes.count(), 1);
    EXPECT_FALSE(edit.box()->document()->isUndoAvailable());
    select(4, 9);
    EXPECT_EQ(edit.SelBold(), true); // the rest of the format stays

    edit.setAutoURLDetect(true); // nothing more to do
    EXPECT_EQ(changes.count(), 1);
    edit.setAutoURLDetect(false); // the look stays
    EXPECT_EQ(marked(), "see {www.a.org} or {me@b.org}.\r\n\r\nin the end {http://c.org two words}");
}

TEST_F(EditLinks, AScanOfAnEditedDocumentIsOneStepToUndo)
{
    show();
    QTest::keyClicks(edit.box(), u"www.a.org and www.b.org"_qs);
    edit.setAutoURLDetect(true);
    EXPECT_EQ(marked(), "{www.a.org and www.b.org}");
    edit.box()->undo();
    EXPECT_EQ(marked(), "www.a.org and www.b.org");
    edit.box()->redo();
    EXPECT_EQ(marked(), "{www.a.org and www.b.org}");
}

TEST_F(EditLinks, WhatIsTypedBecomesALinkAtBlankAndEnter)
{
    show();
    edit.setAutoURLDetect(true);
    edit.setSelBold(true);
    QTest::keyClicks(edit.box(), u"www.a.org x me@home"_qs);
    EXPECT_EQ(marked(), "{www.a.org} x me@home");
    QTest::keyClick(edit.box(), Qt::Key_Return);
    QTest::keyClicks(edit.box(), u"y"_qs);
    EXPECT_EQ(marked(), "{www.a.org} x {me@home\r\n}y");
    edit.box()->selectAll();
    EXPECT_EQ(edit.SelBold(), true);

    // In the middle of a text the look reaches further, by what stands before the word.
    edit.setText(u"12345 behind it all"_qs);
    select(6, 0);
    QTest::keyClicks(edit.box(), u"http:x "_qs);
    EXPECT_EQ(marked(), "12345 {http:x} {behind} it all");
}

TEST_F(EditLinks, OnlyWhileSwitchedOn)
{
    show();
    QTest::keyClicks(edit.box(), u"www.a.org "_qs);
    EXPECT_EQ(marked(), "www.a.org ");
    edit.setAutoURLDetect(true);
    pointAt(3);
    EXPECT_EQ(edit.MousePointer(), 99);
    state.CurrentURL.clear();
    edit.setAutoURLDetect(false);
    EXPECT_EQ(edit.MousePointer(), 0);
    pointAt(4);
    clickAt(3);
    EXPECT_EQ(edit.MousePointer(), 0);
    EXPECT_TRUE(shell.opened.isEmpty());
    EXPECT_TRUE(state.CurrentURL.isEmpty());
}

TEST_F(EditLinks, AKeyThatDoesNotGoInIsNotLookedAt)
{
    show();
    edit.setAutoURLDetect(true);
    QTest::keyClicks(edit.box(), u"www.a.org"_qs);
    edit.setLocked(true);
    QTest::keyClicks(edit.box(), u" "_qs);
    EXPECT_EQ(marked(), "www.a.org");
    edit.setLocked(false);
    QObject::connect(&edit, &NV_RTFEdit::KeyPress, [](int &key) { key = 0; }); // a host drops it
    QTest::keyClicks(edit.box(), u" "_qs);
    EXPECT_EQ(marked(), "www.a.org");
}

TEST_F(EditLinks, ThePointerIsAHandOverALink)
{
    show();
    edit.setText(u"go www.a.org now\r\nme@b.org"_qs);
    edit.setAutoURLDetect(true);
    edit.setToolTipText(u"tip"_qs);
    pointAt(6);
    EXPECT_EQ(edit.MousePointer(), 99);
    EXPECT_EQ(edit.box()->viewport()->cursor().shape(), Qt::PointingHandCursor);
    EXPECT_EQ(state.CurrentURL, u"www.a.org"_qs);
    EXPECT_EQ(edit.ToolTipText(), u"tip"_qs);
    pointAt(14);
    EXPECT_EQ(edit.MousePointer(), 0);
    EXPECT_EQ(state.CurrentURL, u"now"_qs);

    // Beside a line, and below the text, there is no link.
    for (const QPoint &empty :
         {QPoint(700, pointOf(6).y()), QPoint(700, pointOf(20).y()), QPoint(pointOf(20).x(), 250)}) {
        edit.setToolTipText(u"tip"_qs);
        pointAt(20);
        EXPECT_EQ(state.CurrentURL, u"me@b.org"_qs);
        EXPECT_EQ(edit.MousePointer(), 99);
        QTest::mouseMove(edit.box()->viewport(), empty);
        EXPECT_EQ(edit.MousePointer(), 0);
        EXPECT_TRUE(state.CurrentURL.isEmpty());
        EXPECT_TRUE(edit.ToolTipText().isEmpty());
    }
}

TEST_F(EditLinks, AClickOpens)
{
    show();
    edit.setText(u"go www.a.org now http://me@b.org x"_qs + u"\r\n"_qs);
    edit.setAutoURLDetect(true);
    int clicks = 0;
    QObject::connect(&edit, &NV_RTFEdit::Click, [&] {
        ++clicks;
        EXPECT_TRUE(shell.opened.isEmpty()); // the event comes first
    });
    pointAt(6);
    clickAt(6);
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(shell.opened, QStringList(u"http://www.a.org"_qs));
    shell.opened.clear();
    pointAt(20);
    clickAt(20);
    EXPECT_EQ(shell.opened, (QStringList{u"http://me@b.org"_qs, u"mailto:http://me@b.org"_qs}));
    shell.opened.clear();
    pointAt(14);
    clickAt(14);
    EXPECT_TRUE(shell.opened.isEmpty());
}

TEST_F(EditLinks, WithCtrlALinkIsClickedInto)
{
    show();
    edit.setText(u"go www.a.org now"_qs + u"\r\n"_qs);
    edit.setAutoURLDetect(true);
    pointAt(6);
    EXPECT_EQ(edit.MousePointer(), 99);
    QTest::keyPress(edit.box(), Qt::Key_Control);
    EXPECT_EQ(edit.MousePointer(), 0);
    clickAt(6, Qt::ControlModifier);
    EXPECT_TRUE(shell.opened.isEmpty());
    QTest::keyRelease(edit.box(), Qt::Key_Control);
    EXPECT_EQ(edit.MousePointer(), 0);
    pointAt(7);
    EXPECT_EQ(edit.MousePointer(), 99);
}

TEST_F(EditLinks, SelectingALinkByDraggingOpensNothing)
{
    show();
    edit.setText(u"go www.a.org now"_qs + u"\r\n"_qs);
    edit.setAutoURLDetect(true);
    QWidget *viewport = edit.box()->viewport();
    const QPoint from = pointOf(4);
    const QPoint to = pointOf(11);
    QTest::mouseMove(viewport, from);
    QTest::mousePress(viewport, Qt::LeftButton, {}, from);
    QMouseEvent move(QEvent::MouseMove, to, viewport->mapToGlobal(to), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(viewport, &move);
    QTest::mouseRelease(viewport, Qt::LeftButton, {}, to);
    QCoreApplication::processEvents();
    EXPECT_GT(edit.SelLength(), 4);
    EXPECT_TRUE(shell.opened.isEmpty());
}

TEST_F(EditLinks, AddressesThatTheDocumentItselfStoresOpenToo)
{
    show();
    QTextCursor cursor(edit.box()->document());
    cursor.insertHtml(u"see <a href='https://stored.org'>here</a>, or <a href='file:///bin/x'>run</a> "
                      "or <a href='javascript:x'>none</a> of it"_qs);
    edit.setAutoURLDetect(true);
    shell.programs.append(u"file:///bin/x"_qs);
    pointAt(5);
    EXPECT_EQ(edit.MousePointer(), 99);
    EXPECT_EQ(state.CurrentURL, u"here,"_qs);
    clickAt(5);
    EXPECT_EQ(shell.opened, QStringList(u"https://stored.org"_qs));
    pointAt(15);
    clickAt(15); // answered with No
    EXPECT_EQ(prompts.boxes.size(), 1);
    pointAt(22);
    clickAt(22);
    EXPECT_EQ(shell.opened.size(), 1);
}
