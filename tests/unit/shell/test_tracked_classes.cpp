#include "fakes/MemorySettings.h"
#include "platform/RuntimeError.h"
#include "shell/settings_keys.h"
#include "shell/tracked_classes.h"

#include <gtest/gtest.h>

using namespace norvane;

namespace {

TEST(TrackedClasses, areThirteenWithoutSettings)
{
    const QStringList classes = trackedClasses(fakes::MemorySettings());
    ASSERT_EQ(classes.size(), 13);
    EXPECT_EQ(classes.at(0), QStringLiteral("IEFrame"));
    EXPECT_EQ(classes.at(6), QStringLiteral("Outlook Express Browser Class"));
    EXPECT_EQ(classes.at(12), QStringLiteral("Afx:400000:b:10011:"));
}

TEST(TrackedClasses, followTheUsersOwnAndPassOverEmptyOnes)
{
    fakes::MemorySettings settings;
    settings.save(QStringLiteral("ClassEx"), QStringLiteral("Items"), QStringLiteral("11 classes"));
    settings.save(QStringLiteral("ClassEx"), QStringLiteral("01"), QStringLiteral("First"));
    settings.save(QStringLiteral("ClassEx"), QStringLiteral("02"), QString());
    settings.save(QStringLiteral("ClassEx"), QStringLiteral("11"), QStringLiteral("Eleventh"));
    settings.save(QStringLiteral("ClassEx"), QStringLiteral("12"), QStringLiteral("Beyond the number"));
    EXPECT_EQ(trackedClasses(settings).mid(13),
              QStringList({QStringLiteral("First"), QStringLiteral("Eleventh")}));
}

TEST(TrackedClasses, refuseANumberThatNoOneCanHaveMeant)
{
    fakes::MemorySettings settings;
    settings.save(QStringLiteral("ClassEx"), QStringLiteral("Items"), QStringLiteral("2000000000"));
    EXPECT_THROW(trackedClasses(settings), RuntimeError);
}

TEST(SettingsKeys, giveTheirDefaultsOnlyWhereNothingIsStored)
{
    fakes::MemorySettings settings;
    EXPECT_EQ(settings::read(settings, settings::kLastCategory), QStringLiteral("1"));
    EXPECT_EQ(settings::read(settings, settings::kBrowserWidth), QStringLiteral("10000"));
    EXPECT_EQ(settings::read(settings, settings::kMainWidth, QStringLiteral("15360")),
              QStringLiteral("15360"));
    settings::save(settings, settings::kLastCategory, QString());
    EXPECT_EQ(settings::read(settings, settings::kLastCategory), QString());
}

} // namespace
