#include "Editing.h"

#include <QApplication>
#include <QComboBox>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

using namespace norvane;

namespace {

class RtfEditTest : public testing::Test, public UserAtEditor
{
protected:
    void SetUp() override { edit.resize(700, 300); }

    void show()
    {
        edit.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&edit));
    }
    QComboBox *combo(const QString &name) { return edit.findChild<QComboBox *>(name); }
};

} // namespace

TEST_F(RtfEditTest, NewTextIsInTheControlsFont)
{
    show();
    EXPECT_EQ(edit.SelFontName(), u"Arial"_qs);
    EXPECT_EQ(edit.SelFontSize(), 10.0);
    edit.setFont(QFont(u"Courier New"_qs, 14));
    const QFont desktop = QApplication::font();
    QApplication::setFont(QFont(u"Times New Roman"_qs, 20)); // the desktop's font is another thing
    QTest::keyClicks(edit.box(), u"x"_qs);
    QApplication::setFont(desktop);
    EXPECT_EQ(edit.SelFontName(), u"Courier New"_qs);
    EXPECT_TRUE(edit.TextRTF().contains("Courier New")) << edit.TextRTF().toStdString();
    EXPECT_TRUE(edit.TextRTF().contains("\\fs28"));
}

TEST_F(RtfEditTest, ToolBarFollowsTheSelection)
{
    show();
    edit.setTextRTF("{\\rtf1{\\fonttbl{\\f0 Arial;}}\\fs20 a{\\b\\i\\ul\\fs41 b}\\par"
                    "\\qr{\\pntext x}{\\*\\pn\\pnlvlblt}c\\par\\pard\\qc d\\par}");
    select(0, 1);
    EXPECT_EQ(combo(u"Combo2"_qs)->currentText(), u"10"_qs);
    EXPECT_FALSE(button(u"C_BOLD"_qs)->isChecked());
    EXPECT_TRUE(button(u"C_LEFT"_qs)->isChecked());
    select(1, 1);
    EXPECT_EQ(combo(u"Combo2"_qs)->currentText(), u"21"_qs); // 20.5, whole
    EXPECT_TRUE(button(u"C_BOLD"_qs)->isChecked());
    EXPECT_TRUE(button(u"C_ITALIC"_qs)->isChecked());
    EXPECT_TRUE(button(u"C_UNDR"_qs)->isChecked());
    select(0, 2); // mixed: the combos stay as the caret had them, the buttons are released
    EXPECT_EQ(combo(u"Combo2"_qs)->currentText(), u"10"_qs);
    EXPECT_FALSE(button(u"C_BOLD"_qs)->isChecked());
    select(4, 1);
    EXPECT_TRUE(button(u"C_RIGHT"_qs)->isChecked());
    EXPECT_FALSE(button(u"C_LEFT"_qs)->isChecked());
    EXPECT_TRUE(button(u"C_BULLET"_qs)->isChecked());
    select(7, 1);
    EXPECT_TRUE(button(u"C_CENTER"_qs)->isChecked());
    EXPECT_FALSE(button(u"C_BULLET"_qs)->isChecked());
    EXPECT_FALSE(button(u"C_BULLET"_qs)->property("mixed").toBool());
    select(4, 4);
    EXPECT_TRUE(button(u"C_BULLET"_qs)->property("mixed").toBool());
    EXPECT_FALSE(button(u"C_CENTER"_qs)->isChecked());
    select(4, 1);
    EXPECT_FALSE(button(u"C_BULLET"_qs)->property("mixed").toBool());
    EXPECT_TRUE(button(u"C_BULLET"_qs)->isChecked());
}

TEST_F(RtfEditTest, ButtonsAndCombosChangeTheSelection)
{
    show();
    edit.setText(u"some text"_qs);
    select(0, 4);
    press(u"C_BOLD"_qs);
    press(u"C_UNDR"_qs);
    press(u"C_CENTER"_qs);
    EXPECT_EQ(edit.SelBold(), true);
    EXPECT_EQ(edit.SelUnderline(), true);
    EXPECT_EQ(edit.SelAlignment(), 2);
    press(u"C_BOLD"_qs);
    EXPECT_EQ(edit.SelBold(), false);
    EXPECT_FALSE(button(u"C_BOLD"_qs)->isChecked());
    press(u"C_CENTER"_qs); // not a toggle
    EXPECT_EQ(edit.SelAlignment(), 2);
    EXPECT_TRUE(button(u"C_CENTER"_qs)->isChecked());
    press(u"C_BULLET"_qs);
    EXPECT_EQ(edit.SelBullet(), true);

    QComboBox *size = combo(u"Combo2"_qs);
    EXPECT_EQ(size->count(), 32);
    emit size->textActivated(u"24"_qs);
    EXPECT_EQ(edit.SelFontSize(), 24.0);
    emit combo(u"Combo1"_qs)->textActivated(u"Courier New"_qs);
    EXPECT_EQ(edit.SelFontName(), u"Courier New"_qs);
}

TEST_F(RtfEditTest, RaisesEventsInTheirOrder)
{
    show();
    edit.ContextMenu(false);
    edit.SetFocus();
    QStringList events;
    QObject::connect(&edit, &NV_RTFEdit::KeyDown,
                     [&](int code, int shift) { events += u"down %1 %2"_qs.arg(code).arg(shift); });
    QObject::connect(&edit, &NV_RTFEdit::KeyPress, [&](int &key) { events += u"press %1"_qs.arg(key); });
    QObject::connect(&edit, &NV_RTFEdit::KeyUp,
                     [&](int code, int shift) { events += u"up %1 %2"_qs.arg(code).arg(shift); });
    QObject::connect(&edit, &NV_RTFEdit::Change, [&] { events += u"change"_qs; });
    QObject::connect(&edit, &NV_RTFEdit::SelChange, [&] { events += u"selchange"_qs; });
    QObject::connect(&edit, &NV_RTFEdit::Click, [&] { events += u"click"_qs; });
    QObject::connect(&edit, &NV_RTFEdit::DblClick, [&] { events += u"dblclick"_qs; });
    QObject::connect(&edit, &NV_RTFEdit::MouseDown, [&](int button, int shift, double x, double y) {
        events += u"mousedown %1 %2 %3 %4"_qs.arg(button).arg(shift).arg(x).arg(y);
    });
    QObject::connect(&edit, &NV_RTFEdit::MouseUp,
                     [&](int button, int, double, double) { events += u"mouseup %1"_qs.arg(button); });

    QTest::keyClick(edit.box(), Qt::Key_A, Qt::ShiftModifier);
    EXPECT_EQ(events.join(u", "_qs).toStdString(),
              "down 16 1, down 65 1, press 97, change, up 65 1, up 16 0");
    events.clear();
    QTest::keyClick(edit.box(), Qt::Key_F5, Qt::ControlModifier | Qt::AltModifier); // not one of the box's
    EXPECT_EQ(events.join(u", "_qs).toStdString(),
              "down 17 2, down 18 6, down 116 6, up 116 6, up 18 2, up 17 0");
    events.clear();
    QTest::mouseClick(edit.box()->viewport(), Qt::LeftButton, Qt::ControlModifier, QPoint(20, 10));
    EXPECT_EQ(events.join(u", "_qs).toStdString(), "mousedown 1 2 300 150, mouseup 1, click");
    events.clear();
    QTest::mouseDClick(edit.box()->viewport(), Qt::LeftButton, {}, QPoint(20, 10));
    EXPECT_EQ(events.count(u"dblclick"_qs), 1);
    events.clear();
    QTest::mouseClick(edit.box()->viewport(), Qt::RightButton, {}, QPoint(20, 10));
    EXPECT_EQ(events.join(u", "_qs).toStdString(), "mousedown 2 0 300 150, mouseup 2");
}
