#include "fakes/MemorySettings.h"
#include "platform/RuntimeError.h"
#include "shell/tracked_classes.h"

#include <gtest/gtest.h>

using namespace norvane;
using namespace Qt::StringLiterals;

TEST(TrackedClasses, AreThirteenAndTheUsersOwn)
{
    fakes::MemorySettings settings;
    const QStringList builtIn = trackedClasses(settings);
    EXPECT_EQ(builtIn.size(), 13);
    EXPECT_EQ(builtIn.at(12), u"Afx:400000:b:10011:");

    settings.values[u"ClassEx"_s] = {{u"Items"_s, u"11 classes"_s},
                                     {u"01"_s, u"First"_s},
                                     {u"02"_s, QString()},
                                     {u"11"_s, u"Eleventh"_s},
                                     {u"12"_s, u"Beyond the number"_s}};
    EXPECT_EQ(trackedClasses(settings), builtIn + QStringList({u"First"_s, u"Eleventh"_s}));
    settings.save(u"ClassEx"_s, u"Items"_s, u"2000000000"_s);
    EXPECT_THROW(trackedClasses(settings), RuntimeError);
}
