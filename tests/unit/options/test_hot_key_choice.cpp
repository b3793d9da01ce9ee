#include "fakes/FakeHotKeys.h"
#include "options/HotKeyModel.h"
#include "options/settings/hot_key_choice.h"

#include <gtest/gtest.h>

using namespace norvane;
using namespace Qt::StringLiterals;

namespace {

constexpr int kShift = 1;
constexpr int kCtrl = 2;
constexpr int kAlt = 4;
constexpr WindowHandle kOwner = 7;

TEST(HotKeyChoice, TakesWhatCanBeAHotKey)
{
    struct Case
    {
        int key;
        int modifiers;
        HotKeyPress meaning;
    };
    constexpr HotKeyPress kTake = HotKeyPress::Take;
    constexpr HotKeyPress kRefuse = HotKeyPress::Refuse;
    for (const Case &each : std::initializer_list<Case>{
             {'N', kCtrl | kAlt, kTake},
             {'N', kCtrl | kShift | kAlt, kRefuse},
             {'N', 0, kRefuse},
             {'N', kShift, kRefuse},
             {0, kCtrl, kRefuse},
             {37, 0, kRefuse},
             {37, kAlt, kTake},
             {123, 0, kTake},
             {123, kShift, kTake},
             {9, 0, HotKeyPress::Leave},
             {9, kShift, HotKeyPress::Leave},
             {9, kCtrl, kTake},
             {13, 0, HotKeyPress::Leave},
             {27, kCtrl, kTake},
             {46, 0, HotKeyPress::Clear},
             {8, 0, HotKeyPress::Clear},
             {46, kCtrl, kTake},
         })
        EXPECT_EQ(meaningOf(each.key, each.modifiers, false), each.meaning)
            << each.key << " with " << each.modifiers;
    EXPECT_EQ(meaningOf('N', kCtrl, true), HotKeyPress::Refuse);
    EXPECT_NE(refusalOf('N', 7, false), refusalOf('N', 0, false));
    EXPECT_EQ(recordOf('N', kCtrl | kShift), (HotKeyRecord{6, 'N'}));
}

TEST(HotKeyChoice, RemarksOnKeysThatAreTakenOrTheSame)
{
    fakes::FakeHotKeys keyboard;
    HotKeyModel hotKeys(keyboard);
    HotKeyRecords chosen;
    chosen[HotKeyId::Delete] = chosen[HotKeyId::Search];
    chosen[HotKeyId::Detach] = chosen[HotKeyId::Main] = {};
    keyboard.taken.insert({3, 'A'});
    const auto remark = [&](HotKeyId id) { return remarkOn(id, chosen, hotKeys, kOwner); };
    EXPECT_TRUE(remark(HotKeyId::Delete).contains(u"Open search window"));
    EXPECT_TRUE(remark(HotKeyId::Search).contains(u"Delete Note"));
    EXPECT_TRUE(remark(HotKeyId::Attach).contains(u"Another program"));
    EXPECT_TRUE(remark(HotKeyId::AttachDetachWindow).isEmpty());
    EXPECT_TRUE(remark(HotKeyId::Main).isEmpty()) << "two boxes may both be empty";
    EXPECT_TRUE(keyboard.registered.isEmpty());

    hotKeys.records = chosen;
    const QVector<HotKeyId> refused = hotKeys.registerAll(kOwner);
    EXPECT_EQ(refused, QVector<HotKeyId>({HotKeyId::Attach, HotKeyId::Delete}));
    EXPECT_TRUE(refusedNotice(refused, hotKeys).contains(u"Ctrl+Alt+A, Ctrl+Alt+S"));
    EXPECT_TRUE(refusedNotice({}, hotKeys).isEmpty());
    EXPECT_TRUE(keyboard.registered.contains({kOwner, 2})) << "ids stay in order";
}

} // namespace
