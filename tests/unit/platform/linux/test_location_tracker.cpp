#include "fakes/FakeWindowSystem.h"
#include "platform/linux/LocationTracker.h"

#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

using namespace norvane;
using norvane::fakes::FakeWindowSystem;

namespace {

using State = ShellWindows::State;
using Outcome = LookUpResult::Outcome;

/// A tracker whose look-ups the test answers, at once or when it likes.
class LocationTrackerTest : public testing::Test
{
protected:
    LocationTrackerTest()
    {
        QObject::connect(&tracker, &LocationTracker::locationChanged, &tracker,
                         [this](WindowHandle window) { told.append(window); });
    }

    bool start(const LookUpRequest &request)
    {
        if (!hasProvider)
            return false;
        requests.append(request);
        if (answer) {
            QMetaObject::invokeMethod(
                &tracker, [this, request] { tracker.arrived(request.window, answer(request)); },
                Qt::QueuedConnection);
        }
        return true;
    }

    bool isKnown(WindowHandle window, const QString &location)
    {
        const ShellWindows::Answer now = tracker.location(window);
        return now.state == State::Known && now.location == location;
    }

    static LookUpResult found(const QString &location) { return {Outcome::Found, location}; }

    FakeWindowSystem windows;
    QVector<LookUpRequest> requests;
    QVector<WindowHandle> told;
    std::function<LookUpResult(const LookUpRequest &)> answer;
    bool hasProvider = true;
    LocationTracker tracker{windows, 2, [this](const LookUpRequest &request) { return start(request); }};
    const QString first = QStringLiteral("http://a/1");
    const QString second = QStringLiteral("http://a/2");
};

} // namespace

TEST_F(LocationTrackerTest, AWindowIsUnknownUntilItsProgramAnswers)
{
    const WindowHandle window = windows.open(QStringLiteral("IEFrame"), QStringLiteral("One"), 7);
    windows.foreground = window;
    EXPECT_EQ(tracker.location(window).state, State::Unknown);
    ASSERT_EQ(requests.size(), 1);
    EXPECT_EQ(requests[0].processId, 7);
    EXPECT_EQ(requests[0].rect, QRect(200, 200, 1600, 1200));
    EXPECT_TRUE(requests[0].browser);
    EXPECT_TRUE(requests[0].foreground);
    EXPECT_EQ(tracker.location(window).state, State::Unknown);
    EXPECT_EQ(requests.size(), 1) << "one look-up at a time";

    tracker.arrived(window, found(first));
    EXPECT_TRUE(isKnown(window, first));
    EXPECT_TRUE(told.isEmpty()) << "never from within a call";
    EXPECT_TRUE(QTest::qWaitFor([&] { return told == QVector<WindowHandle>{window}; }));
}

TEST_F(LocationTrackerTest, OtherWindowsHaveNoLocation)
{
    const WindowHandle window = windows.open(QStringLiteral("Mousepad"), QStringLiteral("One"), 7);
    EXPECT_TRUE(isKnown(window, {}));
    EXPECT_TRUE(requests.isEmpty());
    hasProvider = false;
    EXPECT_TRUE(isKnown(windows.open(QStringLiteral("CabinetWClass"), QStringLiteral("x"), 8), {}));
}

TEST_F(LocationTrackerTest, ANewCaptionIsAskedForAtOnce)
{
    const WindowHandle window = windows.open(QStringLiteral("IEFrame"), QStringLiteral("One"), 7);
    tracker.location(window);
    tracker.arrived(window, found(first));
    windows.setCaption(window, QStringLiteral("Two"));
    ASSERT_EQ(requests.size(), 2);
    EXPECT_EQ(requests[1].lastLocation, first);
    EXPECT_FALSE(requests[1].sameCaption);
    EXPECT_EQ(tracker.location(window).state, State::Unknown);
    tracker.arrived(window, found(second));
    EXPECT_TRUE(isKnown(window, second));
}

TEST_F(LocationTrackerTest, TheSameAnswerUnderANewCaptionIsConfirmed)
{
    const WindowHandle window = windows.open(QStringLiteral("IEFrame"), QStringLiteral("One"), 7);
    tracker.location(window);
    tracker.arrived(window, found(first));
    windows.setCaption(window, QStringLiteral("Two"));
    tracker.arrived(window, found(first));
    EXPECT_EQ(tracker.location(window).state, State::Unknown) << "may be the address of before";
    ASSERT_TRUE(QTest::qWaitFor([&] { return requests.size() == 3; }));
    tracker.arrived(window, found(second));
    EXPECT_TRUE(isKnown(window, second));

    windows.setCaption(window, QStringLiteral("(1) Two"));
    answer = [this](const LookUpRequest &) { return found(second); };
    tracker.arrived(window, found(second));
    EXPECT_TRUE(QTest::qWaitFor([&] { return isKnown(window, second); }));
}

TEST_F(LocationTrackerTest, AnAnswerToAnEarlierCaptionDoesNotCount)
{
    const WindowHandle window = windows.open(QStringLiteral("IEFrame"), QStringLiteral("One"), 7);
    tracker.location(window);
    windows.setCaption(window, QStringLiteral("Two"));
    tracker.arrived(window, found(first));
    EXPECT_EQ(tracker.location(window).state, State::Unknown);
    ASSERT_EQ(requests.size(), 2);
    EXPECT_EQ(requests[1].caption, QStringLiteral("Two"));
    tracker.arrived(window, found(second));
    EXPECT_TRUE(isKnown(window, second));
}

TEST_F(LocationTrackerTest, AProgramThatIsNotReadyIsAskedAgain)
{
    answer = [this](const LookUpRequest &) {
        return requests.size() < 3 ? LookUpResult{Outcome::NotReady, {}} : found(first);
    };
    const WindowHandle window = windows.open(QStringLiteral("IEFrame"), QStringLiteral("One"), 7);
    tracker.location(window);
    EXPECT_TRUE(QTest::qWaitFor([&] { return isKnown(window, first); }));
    EXPECT_EQ(requests.size(), 3);
}

TEST_F(LocationTrackerTest, AProgramThatNeverAnswersIsKnownToHaveNoLocation)
{
    answer = [](const LookUpRequest &) { return LookUpResult{Outcome::NoAnswer, {}}; };
    const WindowHandle folder = windows.open(QStringLiteral("CabinetWClass"), QStringLiteral("x"), 7);
    const WindowHandle browser = windows.open(QStringLiteral("IEFrame"), QStringLiteral("One"), 8);
    tracker.location(folder);
    tracker.location(browser);
    EXPECT_TRUE(QTest::qWaitFor([&] { return isKnown(folder, {}); }, 2500));
    EXPECT_TRUE(QTest::qWaitFor([&] { return isKnown(browser, {}); }, 4000));
    EXPECT_TRUE(tracker.browserWithoutLocation());
    EXPECT_LT(requests.size(), 20);

    // The program is there again: its events, or the regular look, bring the location.
    answer = [this](const LookUpRequest &) { return found(first); };
    tracker.programChanged(8, LocationTracker::Which::Foreground);
    EXPECT_TRUE(QTest::qWaitFor([&] { return isKnown(browser, first); }));
    EXPECT_FALSE(tracker.browserWithoutLocation());
}

TEST_F(LocationTrackerTest, AnEventFindsAnAddressThatChangedUnderTheSameCaption)
{
    answer = [this](const LookUpRequest &) { return found(first); };
    const WindowHandle window = windows.open(QStringLiteral("IEFrame"), QStringLiteral("One"), 7);
    const WindowHandle behind = windows.open(QStringLiteral("IEFrame"), QStringLiteral("Two"), 7);
    windows.foreground = window;
    tracker.location(window);
    tracker.location(behind);
    ASSERT_TRUE(QTest::qWaitFor([&] { return isKnown(window, first) && isKnown(behind, first); }));
    told.clear();
    requests.clear();
    answer = [this](const LookUpRequest &request) {
        return request.window == windows.foreground ? found(second) : LookUpResult{Outcome::NoAnswer, {}};
    };
    tracker.programChanged(7, LocationTracker::Which::Foreground);
    EXPECT_TRUE(QTest::qWaitFor([&] { return isKnown(window, second) && told.contains(window); }));
    for (const LookUpRequest &request : requests)
        EXPECT_EQ(request.window, window);
    // Silence under the same caption is no news.
    tracker.programChanged(7, LocationTracker::Which::All);
    const auto ofBehind = [behind](const LookUpRequest &request) { return request.window == behind; };
    EXPECT_TRUE(QTest::qWaitFor([&] { return std::any_of(requests.cbegin(), requests.cend(), ofBehind); }));
    EXPECT_TRUE(isKnown(behind, first));
}

TEST_F(LocationTrackerTest, ACaptionThatNeverRestsIsAskedForNowAndThen)
{
    answer = [this](const LookUpRequest &) { return found(first); };
    const WindowHandle window = windows.open(QStringLiteral("IEFrame"), QStringLiteral("One"), 7);
    tracker.location(window);
    ASSERT_TRUE(QTest::qWaitFor([&] { return isKnown(window, first); }));
    requests.clear();
    int changes = 0;
    bool known = false;
    QTimer runningText;
    QObject::connect(&runningText, &QTimer::timeout, &tracker,
                     [&] { windows.setCaption(window, QString::number(++changes)); });
    QObject::connect(&tracker, &LocationTracker::locationChanged, &tracker,
                     [&] { known = known || isKnown(window, first); });
    QElapsedTimer elapsed;
    elapsed.start();
    runningText.start(5);
    ASSERT_TRUE(QTest::qWaitFor([&] { return changes > 150; }, 20000));
    runningText.stop();
    EXPECT_TRUE(known);
    EXPECT_LT(requests.size(), elapsed.elapsed() / 60 + 10);
    EXPECT_TRUE(QTest::qWaitFor([&] { return isKnown(window, first); }));
}

TEST_F(LocationTrackerTest, AWindowThatHasGoneIsForgotten)
{
    QSignalSpy forgotten(&tracker, &LocationTracker::windowForgotten);
    const WindowHandle window = windows.open(QStringLiteral("IEFrame"), QStringLiteral("One"), 7);
    tracker.location(window);
    EXPECT_TRUE(tracker.hasWindowsOf(7));
    windows.destroy(window);
    EXPECT_EQ(forgotten.size(), 1);
    EXPECT_FALSE(tracker.hasWindowsOf(7));
    tracker.arrived(window, found(first));
    EXPECT_TRUE(isKnown(window, {}));
}
