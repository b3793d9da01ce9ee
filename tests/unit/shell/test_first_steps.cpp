#include "fakes/FakeNotifier.h"
#include "fakes/FakePrompts.h"
#include "fakes/FakeShellWindows.h"
#include "fakes/MemorySettings.h"
#include "shell/AccessibilityOffer.h"
#include "shell/FirstNotices.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

using namespace norvane;
using namespace Qt::StringLiterals;

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

TEST_F(Offer, AsksOnceAndRemembersTheAnswer)
{
    run();
    EXPECT_EQ(asked, 0) << "nothing is missing";
    for (const bool accepted : {true, false}) {
        settings.values.clear();
        asked = 0;
        prompts.boxes.clear();
        prompts.answers.enqueue(accepted ? Prompts::kYes : Prompts::kNo);
        for (int session = 0; session < 2; ++session) {
            shellWindows.accessibilityNeeded = true;
            run();
            EXPECT_EQ(asked, 1);
            EXPECT_EQ(shellWindows.accessibilityNeeded, !accepted);
        }
    }
}

class Notices : public testing::Test
{
protected:
    void run()
    {
        FirstNotices notices(settings, notifier, [this](const QString &text) {
            otherwise.append(text);
            return otherwise.size() == 1; // nothing is queued
        });
        notices.tellKeys(u"Ctrl+Alt+A"_s, u"Ctrl+Alt+W"_s);
        notices.tellOnlyX();
    }

    fakes::MemorySettings settings;
    fakes::FakeNotifier notifier;
    QStringList otherwise;
};

TEST_F(Notices, AreGivenOnceEver)
{
    run();
    run();
    ASSERT_EQ(notifier.shown.size(), 2);
    EXPECT_TRUE(notifier.shown[0].contains(u"Ctrl+Alt+A") && notifier.shown[0].contains(u"Ctrl+Alt+W"));
    EXPECT_TRUE(notifier.shown[1].contains(u"Wayland"));
    EXPECT_TRUE(otherwise.isEmpty());
}

TEST_F(Notices, TellsKeysOfOthersUntilTheyAreTold)
{
    FirstNotices notices(settings, notifier, [](const QString &) { return false; });
    notices.tellRefused({});
    EXPECT_TRUE(notifier.shown.isEmpty());
    notices.tellRefused({u"Ctrl+Alt+D"_s});
    notices.tellRefused({u"Ctrl+Alt+D"_s});
    ASSERT_EQ(notifier.shown.size(), 1);
    notices.tellRefused({u"Ctrl+Alt+D"_s, u"Ctrl+Alt+L"_s});
    ASSERT_EQ(notifier.shown.size(), 2);
    EXPECT_TRUE(notifier.shown[1].contains(u"Ctrl+Alt+D, Ctrl+Alt+L"));
}

TEST_F(Notices, FindAnotherWayOnADesktopWithoutNotifications)
{
    notifier.available = false;
    run();
    EXPECT_EQ(otherwise.size(), 2);
    run();
    ASSERT_EQ(otherwise.size(), 3) << "the second had no room and comes at the next start";
    EXPECT_TRUE(otherwise[0].contains(u"Ctrl+Alt+A"));
    EXPECT_EQ(otherwise[2], otherwise[1]);
}

} // namespace
