#include "platform/RuntimeError.h"
#include "shell/windows/Application.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QShortcut>
#include <QStringList>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <gmock/gmock.h>

using namespace norvane;

namespace {

Application &application()
{
    return *static_cast<Application *>(QCoreApplication::instance());
}

TEST(ApplicationErrors, AreToldOneByOneAndTheProgramGoesOn)
{
    QStringList told;
    const auto raise = [](int number) { throw RuntimeError(number, QStringLiteral("Something is wrong.")); };
    application().setErrorReport([&](const RuntimeError &error) {
        told.append(QString::number(error.number()) + u' ' + error.description());
        // As in a box that waits for its button.
        QTimer::singleShot(0, [&] { raise(76); });
        QCoreApplication::processEvents();
    });
    QTimer::singleShot(0, [&] { raise(75); });
    QCoreApplication::processEvents();
    EXPECT_EQ(told, QStringList{QStringLiteral("75 Something is wrong.")}) << "no box upon the box";

    QTimer::singleShot(0, [&] { raise(77); });
    QCoreApplication::processEvents();
    EXPECT_EQ(told.size(), 2);
    application().setErrorReport({});
}

/// Takes keys away as the toolkit's bridge to the accessibility bus does: those that come from the keyboard.
class Bridge : public QObject
{
public:
    Bridge() { application().installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
        if (isKey && watched->isWindowType())
            ++seen;
        return isKey && event->spontaneous();
    }

    int seen = 0;
};

TEST(ApplicationKeys, GoStraightToTheWindowWhereNobodyElseListens)
{
    QLineEdit box;
    bool isListening = false;
    application().setKeysAreListenedTo([&] { return isListening; });
    int pressed = 0;
    const QShortcut shortcut(QKeySequence(Qt::CTRL | Qt::Key_N), &box, [&] { ++pressed; });
    QMenu menu;
    const QAction *item =
        menu.addAction(QStringLiteral("&Open"), &box, [&] { box.setText(QStringLiteral("Open")); });
    box.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&box));
    const Bridge bridge;

    QTest::keyClick(box.windowHandle(), Qt::Key_A);
    QTest::keyClick(box.windowHandle(), Qt::Key_B);
    EXPECT_EQ(box.text(), QStringLiteral("ab"));
    EXPECT_EQ(bridge.seen, 4) << "presses and releases, once each";
    QTest::keyClick(box.windowHandle(), Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(pressed, 1);
    menu.popup(box.mapToGlobal(QPoint()));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&menu));
    QTest::keyClick(box.windowHandle(), Qt::Key_O);
    EXPECT_EQ(box.text(), item->text().mid(1)) << "the open menu has the keyboard";

    isListening = true;
    QTest::keyClick(box.windowHandle(), Qt::Key_C);
    EXPECT_EQ(box.text(), QStringLiteral("Open")) << "the bridge has it";
    application().setKeysAreListenedTo({});
    QTest::keyClick(box.windowHandle(), Qt::Key_D);
    EXPECT_EQ(box.text(), QStringLiteral("Open"));
}

} // namespace

int main(int argc, char **argv)
{
    const Application application(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
