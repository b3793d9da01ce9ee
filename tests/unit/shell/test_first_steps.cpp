#include "fakes/FakePrompts.h"
#include "fakes/FakeShellWindows.h"
#include "fakes/MemorySettings.h"
#include "platform/Notifier.h"
#include "shell/AccessibilityOffer.h"
#include "shell/FirstStartNotice.h"

#include <QCoreApplication>
#include <QVector>
#include <gtest/gtest.h>

using namespace norvane;

namespace {

class Offer : public testing::Test
{
protected:
    /// One run of the program that meets two browser windows without a location.
    void run()
    {
        AccessibilityOffer offer(settings, prompts, shellWindows);
        offer.noticeBrowserWithoutLocation();
        offer.noticeBrowserWithoutLocation();
        EXPECT_EQ(prompts.boxes.size(), asked)
            << "a question within the call would stand open in a watch pass";
        QCoreApplication::processEvents();
        asked = prompts.boxes.size();
    }

    fakes::MemorySettings settings;
    fakes::FakePrompts prompts;
    fakes::FakeShellWindows shellWindows;
    qsizetype asked = 0;
};

class FakeNotifier : public Notifier
{
public:
    bool works = true;
    QVector<QString> texts;

    void notify(const QString &, const QString &text, const std::function<void(bool)> &done) override
    {
        texts.append(text);
        done(works);
    }
};

} // namespace

TEST_F(Offer, AsksOnceAndRemembersYes)
{
    shellWindows.accessibilityNeeded = true;
    prompts.answers.enqueue(Prompts::kYes);
    run();
    ASSERT_EQ(asked, 1);
    EXPECT_EQ(prompts.boxes[0].style, Prompts::kYesNo | Prompts::kQuestion);
    EXPECT_FALSE(shellWindows.accessibilityNeeded);

    shellWindows.accessibilityNeeded = true; // a new session
    run();
    EXPECT_EQ(asked, 1);
    EXPECT_FALSE(shellWindows.accessibilityNeeded);
}

TEST_F(Offer, AsksOnceAndRemembersNo)
{
    shellWindows.accessibilityNeeded = true;
    prompts.answers.enqueue(Prompts::kNo);
    run();
    run();
    EXPECT_EQ(asked, 1);
    EXPECT_TRUE(shellWindows.accessibilityNeeded);
}

TEST_F(Offer, DoesNotAskWhereNothingIsMissing)
{
    run();
    EXPECT_EQ(asked, 0);
    EXPECT_TRUE(settings.values.isEmpty());
}

TEST(FirstStart, TellsTheTwoKeysOnceEver)
{
    fakes::MemorySettings settings;
    FakeNotifier notifier;
    int otherwise = 0;
    for (int start = 0; start < 2; ++start) {
        FirstStartNotice notice(settings, notifier);
        notice.show(QStringLiteral("Ctrl+Alt+A"), QStringLiteral("Ctrl+Alt+W"),
                    [&](const QString &) { ++otherwise; });
    }
    ASSERT_EQ(notifier.texts.size(), 1);
    EXPECT_TRUE(notifier.texts[0].contains(u"Ctrl+Alt+A"));
    EXPECT_TRUE(notifier.texts[0].contains(u"Ctrl+Alt+W"));
    EXPECT_EQ(otherwise, 0);
}

TEST(FirstStart, FindsAnotherWayOnADesktopWithoutNotifications)
{
    fakes::MemorySettings settings;
    FakeNotifier notifier;
    notifier.works = false;
    QString shown;
    FirstStartNotice notice(settings, notifier);
    notice.show(QStringLiteral("Ctrl+Alt+A"), QStringLiteral("Ctrl+Alt+W"),
                [&](const QString &text) { shown = text; });
    EXPECT_TRUE(shown.contains(u"Ctrl+Alt+A"));
}
