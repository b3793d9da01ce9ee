#include "platform/RuntimeError.h"
#include "platform/errors.h"
#include "watcher/clsClips.h"
#include "watcher/clsWindows.h"

#include <gmock/gmock.h>

using namespace norvane;

namespace {

template <typename Action> int errorOf(Action &&action)
{
    try {
        action();
    } catch (const RuntimeError &error) {
        return error.number();
    }
    return 0;
}

} // namespace

TEST(Registries, WindowsByHandlePositionAndKey)
{
    clsWindows windows;
    windows.Clear();
    windows.Add(10, 0, u"IEFrame"_qs, u"title"_qs, u"http://a/"_qs, 0, true, 0, 0, 0, 0, u"stripped"_qs);
    windows.Add(11, 0, u"OMain"_qs, u"b"_qs, u"/b"_qs, 0, true, 1, 2, 3, 4, u"b"_qs, u"Key"_qs);
    const clsWindow *found = windows.GetByHwnd(10);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->WindowTitle, u"title"_qs);
    EXPECT_EQ(found->DocumentName, u"http://a/"_qs);
    EXPECT_EQ(found->StrippedTitle, u"stripped"_qs);
    EXPECT_EQ(windows.GetByHwnd(12), nullptr);
    EXPECT_EQ(&windows.Item(2), &windows.Item(u"KEY"_qs));
    EXPECT_EQ(errorOf([&] { windows.Item(0); }), kErrorItemNotFound);
    EXPECT_EQ(errorOf([&] { windows.Item(3); }), kErrorItemNotFound);
    EXPECT_EQ(errorOf([&] { windows.Item(QString()); }), kErrorItemNotFound) << "no key is not a key";
    EXPECT_EQ(errorOf([&] { windows.Add(12, 0, {}, {}, {}, 0, true, 0, 0, 0, 0, {}, u"key"_qs); }),
              kErrorDuplicateKey);
    windows.Clear();
    EXPECT_EQ(windows.Count(), 0);
}

TEST(Registries, ClipsByNoteAndWindow)
{
    clsClips clips;
    clips.Add(u"name"_qs, 10, 1, 100, u"IEFrame"_qs, u"saved"_qs, u"http://a/"_qs);
    clips.Add(u"other"_qs, 10, 2, 101, u"IEFrame"_qs, u"other"_qs, u"http://b/"_qs);
    EXPECT_EQ(clips.GetHwnd(2), 101u);
    EXPECT_EQ(clips.GetHwnd(3), kNoWindow);
    EXPECT_EQ(clips.Item(1).SavedTitle, u"saved"_qs);

    const quint64 before = clips.changeCount();
    clips.RemoveByHwnd(999);
    EXPECT_EQ(clips.changeCount(), before);
    clips.RemoveByHwnd(100);
    ASSERT_EQ(clips.Count(), 1);
    EXPECT_EQ(clips.Item(1).ID, 2);
    EXPECT_NE(clips.changeCount(), before);
}
