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
using Which = LocationTracker::Which;

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

    /// Opens a browser's window and asks for its location for the first time.
    WindowHandle openPage(const QString &caption, qint64 process = 7)
    {
        const WindowHandle window = windows.open(u"IEFrame"_qs, caption, process);
        tracker.location(window);
        return window;
    }
    bool isUnknown(WindowHandle window) { return tracker.location(window).state == State::Unknown; }
    bool isKnown(WindowHandle window, const QString &location)
    {
        const ShellWindows::Answer now = tracker.location(window);
        return now.state == State::Known && now.location == location;
    }
    bool becomes(WindowHandle window, const QString &location, int timeoutMs = 5000)
    {
        return QTest::qWaitFor([&] { return isKnown(window, location); }, timeoutMs);
    }
    static LookUpResult found(const QString &location) { return {Outcome::Found, location}; }
    void answerAlways(const QString &location)
    {
        answer = [location](const LookUpRequest &) { return found(location); };
    }

    FakeWindowSystem windows;
    QVector<LookUpRequest> requests;
    QVector<WindowHandle> told;
    std::function<LookUpResult(const LookUpRequest &)> answer;
    bool hasProvider = true;
    LocationTracker tracker{windows, 2, [this](const LookUpRequest &request) { return start(request); }};
    const QString first = u"http://a/1"_qs;
    const QString second = u"http://a/2"_qs;
};

} // namespace

TEST_F(LocationTrackerTest, AWindowIsUnknownUntilItsProgramAnswers)
{
    const WindowHandle window = openPage(u"One"_qs);
    ASSERT_EQ(requests.size(), 1);
    EXPECT_EQ(requests[0].processId, 7);
    EXPECT_EQ(requests[0].rect, QRect(200, 200, 1600, 1200));
    EXPECT_TRUE(requests[0].browser);
    EXPECT_FALSE(requests[0].foreground);
    EXPECT_TRUE(isUnknown(window));
    EXPECT_EQ(requests.size(), 1) << "one look-up at a time";

    tracker.arrived(window, found(first));
    EXPECT_TRUE(isKnown(window, first));
    EXPECT_TRUE(told.isEmpty()) << "never from within a call";
    EXPECT_TRUE(QTest::qWaitFor([&] { return told == QVector<WindowHandle>{window}; }));

    // Windows of other families, and those that nobody can be asked about.
    EXPECT_TRUE(isKnown(windows.open(u"Mousepad"_qs, u"One"_qs, 7), {}));
    EXPECT_EQ(requests.size(), 1);
    hasProvider = false;
    EXPECT_TRUE(isKnown(windows.open(u"CabinetWClass"_qs, u"x"_qs, 8), {}));
}

TEST_F(LocationTrackerTest, ANewCaptionIsAskedForAndTheSameAnswerConfirmed)
{
    const WindowHandle window = openPage(u"One"_qs);
    tracker.arrived(window, found(first));
    windows.setCaption(window, u"Two"_qs);
    ASSERT_EQ(requests.size(), 2);
    EXPECT_EQ(requests[1].lastLocation, first);
    EXPECT_FALSE(requests[1].sameCaption);
    tracker.arrived(window, found(first));
    EXPECT_TRUE(isUnknown(window)) << "may be the address of before";
    ASSERT_TRUE(QTest::qWaitFor([&] { return requests.size() == 3; }));
    tracker.arrived(window, found(second));
    EXPECT_TRUE(isKnown(window, second));

    windows.setCaption(window, u"(1) Two"_qs);
    answerAlways(second);
    tracker.arrived(window, found(second));
    EXPECT_TRUE(becomes(window, second));
}

TEST_F(LocationTrackerTest, AnAnswerToAnEarlierCaptionDoesNotCount)
{
    const WindowHandle window = openPage(u"One"_qs);
    windows.setCaption(window, u"Two"_qs);
    tracker.arrived(window, found(first));
    EXPECT_TRUE(isUnknown(window));
    ASSERT_EQ(requests.size(), 2);
    EXPECT_EQ(requests[1].caption, u"Two"_qs);
    tracker.arrived(window, found(second));
    EXPECT_TRUE(isKnown(window, second));
}

TEST_F(LocationTrackerTest, AProgramThatIsNotReadyIsAskedAgain)
{
    answer = [this](const LookUpRequest &) {
        return requests.size() < 3 ? LookUpResult{Outcome::NotReady, {}} : found(first);
    };
    EXPECT_TRUE(becomes(openPage(u"One"_qs), first));
    EXPECT_EQ(requests.size(), 3);
}

TEST_F(LocationTrackerTest, AProgramThatNeverAnswersIsKnownToHaveNoLocation)
{
    answer = [](const LookUpRequest &) { return LookUpResult{Outcome::NoAnswer, {}}; };
    const WindowHandle folder = windows.open(u"CabinetWClass"_qs, u"x"_qs, 7);
    tracker.location(folder);
    const WindowHandle browser = openPage(u"One"_qs, 8);
    EXPECT_TRUE(becomes(folder, {}, 2500));
    EXPECT_TRUE(becomes(browser, {}, 4000));
    EXPECT_TRUE(tracker.browserWithoutLocation());
    EXPECT_LT(requests.size(), 20);

    // The program is there again: its events, or the regular look, bring the location.
    answerAlways(first);
    tracker.programChanged(8, Which::Foreground);
    EXPECT_TRUE(becomes(browser, first));
    EXPECT_FALSE(tracker.browserWithoutLocation());
}

TEST_F(LocationTrackerTest, AnEventFindsAnAddressThatChangedUnderTheSameCaption)
{
    answerAlways(first);
    const WindowHandle window = openPage(u"One"_qs);
    const WindowHandle behind = openPage(u"Two"_qs);
    windows.foreground = window;
    ASSERT_TRUE(becomes(window, first) && becomes(behind, first));
    told.clear();
    requests.clear();
    answer = [this](const LookUpRequest &request) {
        return request.foreground ? found(second) : LookUpResult{Outcome::NoAnswer, {}};
    };
    const auto wasAsked = [this](WindowHandle which) {
        return std::any_of(requests.cbegin(), requests.cend(),
                           [which](const LookUpRequest &request) { return request.window == which; });
    };
    tracker.programChanged(7, Which::Foreground);
    EXPECT_TRUE(QTest::qWaitFor([&] { return isKnown(window, second) && told.contains(window); }));
    EXPECT_FALSE(wasAsked(behind));
    // Silence under the same caption is no news.
    tracker.programChanged(7, Which::All);
    EXPECT_TRUE(QTest::qWaitFor([&] { return wasAsked(behind); }));
    EXPECT_TRUE(isKnown(behind, first));
}

TEST_F(LocationTrackerTest, ACaptionThatNeverRestsIsAskedForNowAndThen)
{
    answerAlways(first);
    const WindowHandle window = openPage(u"One"_qs);
    ASSERT_TRUE(becomes(window, first));
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
    EXPECT_TRUE(becomes(window, first));
}

TEST_F(LocationTrackerTest, AWindowThatHasGoneIsForgotten)
{
    QSignalSpy forgotten(&tracker, &LocationTracker::windowForgotten);
    const WindowHandle window = openPage(u"One"_qs);
    EXPECT_TRUE(tracker.hasWindowsOf(7));
    windows.destroy(window);
    EXPECT_EQ(forgotten.size(), 1);
    EXPECT_FALSE(tracker.hasWindowsOf(7));
    tracker.arrived(window, found(first));
    EXPECT_TRUE(isKnown(window, {}));
}
