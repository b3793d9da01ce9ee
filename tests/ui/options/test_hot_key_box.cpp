#include "options/windows/HotKeyBox.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

using namespace norvane;
using namespace Qt::StringLiterals;

namespace {

/// A box between two buttons, one of which has a key that the box takes first.
class HotKeyBoxes : public testing::Test
{
protected:
    HotKeyBoxes()
    {
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(&button);
        layout->addWidget(&box);
        window.show();
        window.activateWindow();
        box.setFocus();
    }
    void SetUp() override { ASSERT_TRUE(QTest::qWaitForWindowActive(&window)); }

    /// A key as the desktop sends it, with its place on the keyboard.
    void pressAt(quint32 scanCode, int key, Qt::KeyboardModifiers modifiers)
    {
        QKeyEvent press(QEvent::KeyPress, key, modifiers, scanCode, 0, 0);
        QCoreApplication::sendEvent(&box, &press);
    }

    QWidget window;
    QPushButton button{u"&Apply"_s};
    HotKeyBox box{u"HKC_Main"_s, [](quint32 scanCode) { return scanCode == 10 ? int('1') : 0; }};
    QSignalSpy chosen{&box, &HotKeyBox::chosen};
    QSignalSpy refused{&box, &HotKeyBox::refused};
};

TEST_F(HotKeyBoxes, TakeTheCombinationsThatWindowsUse)
{
    EXPECT_EQ(box.text(), u"None");
    QSignalSpy clicks(&button, &QPushButton::clicked);
    const std::pair<Qt::Key, Qt::KeyboardModifiers> combinations[] = {
        {Qt::Key_A, Qt::AltModifier},
        {Qt::Key_Tab, Qt::ControlModifier},
        {Qt::Key_Left, Qt::AltModifier | Qt::ControlModifier},
        {Qt::Key_F1, Qt::NoModifier},
        {Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier},
    };
    QStringList texts;
    for (const auto &[key, modifiers] : combinations) {
        QTest::keyClick(&box, key, modifiers);
        texts.append(box.text());
    }
    EXPECT_EQ(texts.join(u' '), u"Alt+A Ctrl+ Ctrl+Alt+Left F1 Ctrl+Shift+C");
    EXPECT_EQ(chosen.size(), 5);
    EXPECT_TRUE(clicks.isEmpty() && box.hasFocus());
    EXPECT_EQ(box.key(), 'C');
    EXPECT_EQ(box.modifiers(), 3);

    // The key counts, not what it types with Shift.
    pressAt(10, Qt::Key_Exclam, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(box.text(), u"Ctrl+Shift+1");
}

TEST_F(HotKeyBoxes, ClearRefuseAndLetGo)
{
    box.setCombination('W', 6);
    for (const auto &[key, modifiers] : std::initializer_list<std::pair<Qt::Key, Qt::KeyboardModifiers>>{
             {Qt::Key_X, Qt::NoModifier},
             {Qt::Key_X, Qt::ControlModifier | Qt::AltModifier | Qt::ShiftModifier},
             {Qt::Key_X, Qt::MetaModifier | Qt::ControlModifier}})
        QTest::keyClick(&box, key, modifiers);
    EXPECT_EQ(refused.size(), 3);
    EXPECT_NE(refused[0][0], refused[1][0]);
    EXPECT_EQ(box.text(), u"Ctrl+Alt+W") << "it keeps what it had";

    QTest::keyPress(&box, Qt::Key_Control);
    QTest::keyPress(&box, Qt::Key_Alt, Qt::ControlModifier);
    EXPECT_EQ(box.text(), u"Ctrl+Alt+") << "what is held";
    QTest::keyRelease(&box, Qt::Key_Alt, Qt::ControlModifier);
    QTest::keyRelease(&box, Qt::Key_Control);
    EXPECT_EQ(box.text(), u"Ctrl+Alt+W");

    QTest::keyClick(&box, Qt::Key_Backspace);
    EXPECT_EQ(box.text(), u"None");
    EXPECT_EQ(box.key(), 0);
    box.setCombination('W', 6);
    box.findChild<QAction *>(u"HKC_Main_Clear"_s)->trigger();
    EXPECT_EQ(box.text(), u"None");
    EXPECT_EQ(chosen.size(), 2);
    QTest::keyClick(&box, Qt::Key_Tab);
    EXPECT_TRUE(button.hasFocus());
}

} // namespace
