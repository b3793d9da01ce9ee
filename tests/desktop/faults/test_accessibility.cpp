#include "faults/NoteFaults.h"
#include "harness/MainJob.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusVariant>

using namespace norvane::test;

namespace {

const QString kConnection = QStringLiteral("switch");

/// Locations come over the accessibility bus, which may be switched off and may go.
class Accessibility : public NoteFaults
{
protected:
    void TearDown() override
    {
        NoteFaults::TearDown();
        QDBusConnection::disconnectFromBus(kConnection);
    }

    /// Asks the switch of the desktop's accessibility, or sets it.
    QDBusMessage askSwitch(const QString &method, const QVariantList &value = {}) const
    {
        QDBusMessage message =
            QDBusMessage::createMethodCall(QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
                                           QStringLiteral("org.freedesktop.DBus.Properties"), method);
        message.setArguments(QVariantList{QStringLiteral("org.a11y.Status"), QStringLiteral("IsEnabled")} +
                             value);
        return QDBusConnection::connectToBus(desktop.sessionBus(), kConnection).call(message);
    }
    bool isSwitchedOn() const
    {
        return QDBusReply<QDBusVariant>(askSwitch(QStringLiteral("Get"))).value().variant().toBool();
    }

    /// The offer on the screen; 0 when there is none. It is the one window of Norvane that can be seen
    /// as long as there is no note.
    xcb_window_t offer() const
    {
        const QVector<xcb_window_t> shown = norvane.shownWindows();
        return shown.isEmpty() ? 0 : shown.constFirst();
    }
};

TEST_F(Accessibility, SwitchedOffIsOfferedOnce)
{
    ASSERT_NO_FATAL_FAILURE(startPlainDesktop());
    ASSERT_FALSE(isSwitchedOn());
    OtherProgram browser(desktop, QStringLiteral("browser"));
    OtherProgram letters(desktop, QStringLiteral("letters"));
    ASSERT_TRUE(browser.start() && letters.start());

    // No window of a browser, no offer: here comes one, and notes go on while the question stands.
    ASSERT_TRUE(arm(norvane));
    const xcb_window_t letter = letters.open("Letters");
    ASSERT_NE(norvane.attach(letter), 0u);
    EXPECT_EQ(norvane.shownWindows().size(), 1);
    letters.close(letter);
    ASSERT_TRUE(waitFor([&] { return norvane.shownWindows().isEmpty(); }));
    const xcb_window_t page = browser.open("Page", "firefox");
    ASSERT_TRUE(waitFor([&] { return offer() != 0; }));
    EXPECT_EQ(desktop.x().title(offer()), QStringLiteral("Norvane"));
    EXPECT_FALSE(isSwitchedOn()) << "switched on without being asked";
    const xcb_window_t box = offer();
    const xcb_window_t second = letters.open("Letters");
    EXPECT_NE(noteThatComesTo(second), 0u);

    ASSERT_TRUE(norvane.bringToFront(box));
    desktop.x().press(QStringLiteral("alt+y"));
    EXPECT_TRUE(waitFor([&] { return isSwitchedOn(); }));
    EXPECT_TRUE(waitFor([&] { return !desktop.x().exists(box); }));
    browser.close(page);
    EXPECT_TRUE(norvane.end()) << qPrintable(norvane.errorOutput());

    // The answer is remembered: the switch is turned on again without a word.
    askSwitch(QStringLiteral("Set"), {QVariant::fromValue(QDBusVariant(false))});
    ASSERT_FALSE(isSwitchedOn());
    ASSERT_TRUE(arm(norvane));
    ASSERT_NE(browser.open("Page", "firefox"), 0u);
    EXPECT_TRUE(waitFor([&] { return isSwitchedOn(); }));
    EXPECT_NE(noteThatComesTo(second), 0u);
    EXPECT_EQ(norvane.shownWindows().size(), 1) << "the note alone";
    EXPECT_TRUE(norvane.end()) << qPrintable(norvane.errorOutput());
}

TEST_F(Accessibility, ABusThatGoesAndComesBackIsFoundAgain)
{
    ASSERT_NO_FATAL_FAILURE(startDesktop({}));
    const auto folders = folderTarget(QStringLiteral("thunar"));
    const auto openFolder = [&](QProcess *&process) {
        process = folders->start(desktop);
        xcb_window_t window = 0;
        waitFor([&] {
            window = desktop.x().findClient(folders->title(1), folders->wmClass());
            return window != 0 && desktop.x().isViewable(window);
        });
        return window;
    };
    OtherProgram letters(desktop, QStringLiteral("letters"));
    ASSERT_TRUE(letters.start());
    ASSERT_TRUE(arm(norvane));
    QProcess *thunar = nullptr;
    xcb_window_t folder = openFolder(thunar);
    ASSERT_NE(norvane.attach(folder), 0u);

    ASSERT_TRUE(desktop.stopAccessibility());
    EXPECT_NE(norvane.attach(letters.open("Invoice")), 0u);
    EXPECT_NE(norvane.noteOn(folder), 0u);
    desktop.x().closeWindow(folder);
    EXPECT_TRUE(waitFor([&] { return !desktop.x().exists(folder); }));
    desktop.end(thunar);

    // A program of today joins the bus when it starts.
    ASSERT_TRUE(desktop.startAccessibility());
    folder = openFolder(thunar);
    EXPECT_NE(noteThatComesTo(folder), 0u);
    EXPECT_TRUE(norvane.isRunning());
    EXPECT_TRUE(norvane.end()) << qPrintable(norvane.errorOutput());
}

} // namespace
