#include "platform/qt/QtEventLoop.h"
#include "platform/qt/QtWatchTimer.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTest>
#include <gmock/gmock.h>
#include <memory>

using namespace norvane;

namespace {

constexpr int kNever = 60000; // an interval that no test lives to see
constexpr int kPatience = 20000;

class QtWatchTimerTest : public testing::Test
{
protected:
    QtWatchTimerTest()
    {
        m_clock.start();
        QObject::connect(&timer, &WatchTimer::tick, &timer, [this] {
            starts.append(m_clock.elapsed());
            ++depth;
            deepest = std::max(deepest, depth);
            if (onTick)
                onTick();
            --depth;
            ends.append(m_clock.elapsed());
        });
    }

    /// Requests a tick every millisecond until so many ticks were made.
    bool storm(int count)
    {
        QTimer requests;
        QObject::connect(&requests, &QTimer::timeout, &timer, [this] { timer.requestTick(); });
        requests.start(1);
        return waitForTicks(count);
    }
    bool waitForTicks(int count)
    {
        return QTest::qWaitFor([&] { return starts.size() >= count; }, kPatience);
    }
    /// Lets the event loop run that long; what must not happen has had its chance.
    void pass(int milliseconds)
    {
        QElapsedTimer clock;
        clock.start();
        ASSERT_TRUE(QTest::qWaitFor([&] { return clock.elapsed() >= milliseconds; }, kPatience));
    }
    /// The same, but the program sleeps between its events.
    static void sleep(int milliseconds)
    {
        QEventLoop sleeping;
        QTimer::singleShot(milliseconds, Qt::PreciseTimer, &sleeping, &QEventLoop::quit);
        sleeping.exec();
    }
    /// Sleeps until so many ticks have come, and long enough for one too many.
    void sleepThrough(qsizetype ticks)
    {
        QElapsedTimer clock;
        clock.start();
        while (starts.size() < ticks && clock.elapsed() < kPatience)
            sleep(10);
        sleep(120);
    }
    void run(int interval)
    {
        timer.setInterval(interval);
        timer.setEnabled(true);
    }

    QtEventLoop loop;
    QtWatchTimer timer{loop};
    QVector<qint64> starts;
    QVector<qint64> ends;
    int depth = 0;
    int deepest = 0;
    std::function<void()> onTick;

private:
    QElapsedTimer m_clock;
};

TEST_F(QtWatchTimerTest, DoesNotTickWhileItIsOff)
{
    timer.setInterval(1);
    timer.requestTick();
    pass(60);
    timer.setEnabled(true);
    timer.setInterval(0);
    timer.requestTick();
    pass(60);
    timer.setInterval(kNever);
    timer.requestTick();
    timer.setEnabled(false);
    timer.setEnabled(true);
    pass(60);
    EXPECT_TRUE(starts.isEmpty()) << "a request outlived the switch";
    timer.requestTick();
    EXPECT_TRUE(waitForTicks(1));
}

TEST_F(QtWatchTimerTest, RequestsBringTheNextTickForwardAsOne)
{
    run(kNever);
    for (int i = 0; i < 50; ++i)
        timer.requestTick();
    EXPECT_TRUE(starts.isEmpty()) << "a request ticks by itself";
    ASSERT_TRUE(waitForTicks(1));
    pass(60);
    EXPECT_EQ(starts.size(), 1);
}

TEST_F(QtWatchTimerTest, TicksAtItsIntervalWhichStartsAnewAfterARequest)
{
    run(300);
    pass(150);
    timer.requestTick();
    ASSERT_TRUE(waitForTicks(2));
    EXPECT_GE(starts[1] - ends[0], 280);
}

TEST_F(QtWatchTimerTest, StormOfRequestsKeepsTicksApart)
{
    run(kNever);
    ASSERT_TRUE(storm(12));
    for (int i = 1; i < 12; ++i)
        EXPECT_GE(starts[i] - ends[i - 1], QtWatchTimer::kLeastGapMs - 1) << i;
}

TEST_F(QtWatchTimerTest, SlowTicksRestLongerThanTheyTake)
{
    run(kNever);
    onTick = [] {
        QElapsedTimer work;
        work.start();
        while (work.elapsed() < 20) {
        }
    };
    ASSERT_TRUE(storm(4));
    for (int i = 1; i < 4; ++i)
        EXPECT_GE(starts[i] - ends[i - 1], 3 * (ends[i - 1] - starts[i - 1])) << i;
}

TEST_F(QtWatchTimerTest, TickDueInsideATickComesAfterIt)
{
    run(10);
    onTick = [this] {
        if (starts.size() > 1)
            return;
        timer.setInterval(10);
        pass(60); // a nested event loop in which the interval is over
        EXPECT_EQ(starts.size(), 1);
        timer.setInterval(0);
        timer.requestTick();
        timer.setInterval(kNever);
    };
    ASSERT_TRUE(waitForTicks(2));
    EXPECT_EQ(deepest, 1);
}

TEST_F(QtWatchTimerTest, TickDueInsideAYieldComesAfterIt)
{
    run(kNever);
    bool yielded = false;
    // Runs inside the yield, and keeps it long enough for the requested tick to fall due.
    QTimer::singleShot(0, &timer, [&] {
        ASSERT_TRUE(loop.yielding());
        timer.requestTick();
        pass(40);
        loop.yield();
        EXPECT_TRUE(loop.yielding()) << "a nested yield ended the outer one";
        yielded = true;
    });
    loop.yield();
    ASSERT_TRUE(yielded);
    EXPECT_FALSE(loop.yielding());
    EXPECT_TRUE(starts.isEmpty());
    EXPECT_TRUE(waitForTicks(1));
}

TEST_F(QtWatchTimerTest, RestsUntilARequestOrASetting)
{
    run(10);
    int requests = 1;
    onTick = [&] {
        if (requests-- > 0)
            timer.requestTick();
        timer.rest();
    };
    sleepThrough(2);
    EXPECT_EQ(starts.size(), 2) << "a request that was made in the tick counts";
    const std::vector<std::function<void()>> causes = {
        [&] { timer.requestTick(); },
        [&] { timer.setInterval(20); },
        [&] {
            timer.setEnabled(false);
            timer.setEnabled(true);
        },
    };
    for (const auto &cause : causes) {
        const auto before = starts.size();
        cause();
        sleepThrough(before + 1);
        EXPECT_EQ(starts.size(), before + 1);
    }
    EXPECT_EQ(timer.interval(), 20);
    EXPECT_TRUE(timer.isEnabled());
}

TEST_F(QtWatchTimerTest, SaysBeforeItSleepsThatItRests)
{
    run(10);
    bool changed = false;
    int rests = 0;
    QObject::connect(&timer, &WatchTimer::aboutToSleep, &timer, [&] {
        ++rests;
        if (std::exchange(changed, false))
            timer.setInterval(10);
    });
    onTick = [&] { timer.rest(); };
    sleepThrough(1);
    ASSERT_EQ(starts.size(), 1);
    EXPECT_GE(rests, 1);
    // By what runs in the program, be it the last that runs before it sleeps.
    QMetaObject::invokeMethod(
        &timer, [&] { changed = true; }, Qt::QueuedConnection);
    sleepThrough(2);
    EXPECT_EQ(starts.size(), 2);
    timer.setInterval(0);
    rests = 0;
    sleep(30);
    EXPECT_EQ(rests, 0) << "a timer that is off does not rest";
}

TEST_F(QtWatchTimerTest, ADialogThatOpensInsideATickOrAYieldDoesNotStopIt)
{
    run(10);
    int inDialog = 0;
    onTick = [&] {
        if (starts.size() > 1)
            return;
        timer.requestTick(); // left over from before the dialog
        QTimer::singleShot(0, &timer, [&] {
            QEventLoop dialog;
            QTimer::singleShot(kPatience, &dialog, &QEventLoop::quit);
            QTimer ticks;
            QObject::connect(&ticks, &QTimer::timeout, &dialog, [&] {
                EXPECT_FALSE(loop.yielding());
                if (starts.size() >= 4)
                    dialog.quit();
            });
            ticks.start(1);
            dialog.exec();
            inDialog = static_cast<int>(starts.size());
        });
        loop.yield();
        EXPECT_FALSE(loop.yielding());
    };
    ASSERT_TRUE(waitForTicks(6));
    EXPECT_GE(inDialog, 4);
    EXPECT_EQ(deepest, 2) << "a tick inside a tick of the dialog";
}

TEST_F(QtWatchTimerTest, MayBeDestroyedByItsTick)
{
    auto doomed = std::make_unique<QtWatchTimer>(loop);
    QObject::connect(doomed.get(), &WatchTimer::tick, &loop, [&] { doomed.reset(); });
    doomed->setInterval(5);
    doomed->setEnabled(true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !doomed; }, kPatience));
}

} // namespace
