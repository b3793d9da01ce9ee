#include "fakes/FakeWindowSystem.h"
#include "platform/linux/LocationTracker.h"

#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

using namespace norvane;
using namespace Qt::StringLiterals;
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

    /// A browser window of process 7 that has been asked about once.
    WindowHandle asked()
    {
        const WindowHandle window = windows.open(u"IEFrame"_s, u"One"_s, 7);
        tracker.location(window);
        return window;
    }
    /// The same, and its location is known.
    WindowHandle known()
    {
        const WindowHandle window = asked();
        tracker.arrived(window, found(first));
        return window;
    }
    State stateOf(WindowHandle window) { return tracker.location(window).state; }
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
    const QString first = u"http://a/1"_s;
    const QString second = u"http://a/2"_s;
};

} // namespace

TEST_F(LocationTrackerTest, AWindowIsUnknownUntilItsProgramAnswers)
{
    const WindowHandle window = windows.open(u"IEFrame"_s, u"One"_s, 7);
    windows.foreground = window;
    EXPECT_EQ(stateOf(window), State::Unknown);
    ASSERT_EQ(requests.size(), 1);
    EXPECT_EQ(requests[0].processId, 7);
    EXPECT_EQ(requests[0].rect, QRect(200, 200, 1600, 1200));
    EXPECT_TRUE(requests[0].browser);
    EXPECT_TRUE(requests[0].foreground);
    EXPECT_EQ(stateOf(window), State::Unknown);
    EXPECT_EQ(requests.size(), 1) << "one look-up at a time";

    tracker.arrived(window, found(first));
    EXPECT_TRUE(isKnown(window, first));
    EXPECT_TRUE(told.isEmpty()) << "never from within a call";
    EXPECT_TRUE(QTest::qWaitFor([&] { return told == QVector<WindowHandle>{window}; }));
}

TEST_F(LocationTrackerTest, OtherWindowsHaveNoLocation)
{
    const WindowHandle window = windows.open(u"Mousepad"_s, u"One"_s, 7);
    EXPECT_TRUE(isKnown(window, {}));
    EXPECT_TRUE(requests.isEmpty());
    hasProvider = false;
    EXPECT_TRUE(isKnown(windows.open(u"CabinetWClass"_s, u"x"_s, 8), {}));
}

TEST_F(LocationTrackerTest, ANewCaptionIsAskedForAtOnceAndTheSameAnswerConfirmed)
{
    const WindowHandle window = known();
    windows.setCaption(window, u"Two"_s);
    ASSERT_EQ(requests.size(), 2);
    EXPECT_EQ(requests[1].lastLocation, first);
    EXPECT_FALSE(requests[1].sameCaption);
    EXPECT_EQ(stateOf(window), State::Unknown);
    tracker.arrived(window, found(first));
    EXPECT_EQ(stateOf(window), State::Unknown) << "may be the address of before";
    ASSERT_TRUE(QTest::qWaitFor([&] { return requests.size() == 3; }));
    tracker.arrived(window, found(second));
    EXPECT_TRUE(isKnown(window, second));

    windows.setCaption(window, u"(1) Two"_s);
    answer = [this](const LookUpRequest &) { return found(second); };
    tracker.arrived(window, found(second));
    EXPECT_TRUE(QTest::qWaitFor([&] { return isKnown(window, second); }));
}

TEST_F(LocationTrackerTest, AnAnswerToAnEarlierCaptionDoesNotCount)
{
    const WindowHandle window = asked();
    windows.setCaption(window, u"Two"_s);
    tracker.arrived(window, found(first));
    EXPECT_EQ(stateOf(window), State::Unknown);
    ASSERT_EQ(requests.size(), 2);
    EXPECT_EQ(requests[1].caption, u"Two"_s);
    tracker.arrived(window, found(second));
    EXPECT_TRUE(isKnown(window, second));
}

TEST_F(LocationTrackerTest, AProgramThatIsNotReadyIsAskedAgain)
{
    answer = [this](const LookUpRequest &) {
        return requests.size() < 3 ? LookUpResult{Outcome::NotReady, {}} : found(first);
    };
    const WindowHandle window = asked();
    EXPECT_TRUE(QTest::qWaitFor([&] { return isKnown(window, first); }));
    EXPECT_EQ(requests.size(), 3);
}

TEST_F(LocationTrackerTest, AProgramThatNeverAnswersIsKnownToHaveNoLocation)
{
    answer = [](const LookUpRequest &) { return LookUpResult{Outcome::NoAnswer, {}}; };
    const WindowHandle folder = windows.open(u"CabinetWClass"_s, u"x"_s, 7);
    const WindowHandle browser = windows.open(u"IEFrame"_s, u"One"_s, 8);
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
    const WindowHandle window = windows.open(u"IEFrame"_s, u"One"_s, 7);
    const WindowHandle behind = windows.open(u"IEFrame"_s, u"Two"_s, 7);
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
    const WindowHandle window = asked();
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
    const WindowHandle window = asked();
    EXPECT_TRUE(tracker.hasWindowsOf(7));
    windows.destroy(window);
    EXPECT_EQ(forgotten.size(), 1);
    EXPECT_FALSE(tracker.hasWindowsOf(7));
    tracker.arrived(window, found(first));
    EXPECT_TRUE(isKnown(window, {}));
}
