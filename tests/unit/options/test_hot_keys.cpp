#include "fakes/FakeHotKeys.h"
#include "fakes/MemorySettings.h"
#include "options/HotKeyModel.h"
#include "options/hot_key_text.h"
#include "platform/RuntimeError.h"
#include "platform/errors.h"

#include <gmock/gmock.h>

using namespace norvane;
using testing::ElementsAre;

namespace {

constexpr WindowHandle kBrowser = 77;

struct NameRow
{
    int key;
    int modifiers; // 1 Shift, 2 Ctrl, 4 Alt
    const char *text;
};

class HotKeyNames : public testing::TestWithParam<NameRow>
{
};

TEST_P(HotKeyNames, AreShown)
{
    EXPECT_EQ(HotKeyName(GetParam().key, GetParam().modifiers).toStdString(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, HotKeyNames,
    testing::Values(NameRow{0, 0, "None"}, NameRow{0, 2, "Ctrl+"}, NameRow{87, 6, "Ctrl+Alt+W"},
                    NameRow{57, 7, "Ctrl+Shift+Alt+9"}, NameRow{96, 1, "Shift+Num 0"},
                    NameRow{105, 0, "Num 9"}, NameRow{112, 0, "F1"}, NameRow{127, 4, "Alt+F16"},
                    NameRow{128, 2, "Ctrl+"}, NameRow{33, 2, "Ctrl+Page Up"},
                    NameRow{46, 6, "Ctrl+Alt+Delete"}, NameRow{110, 0, "Num Del"}, NameRow{108, 0, ""},
                    NameRow{144, 0, "Num Lock"}, NameRow{145, 0, "Scroll Lock"}, NameRow{186, 0, ";"},
                    NameRow{187, 0, "="}, NameRow{188, 0, ","}, NameRow{189, 0, "-"}, NameRow{190, 0, "."},
                    NameRow{191, 0, "/"}, NameRow{192, 0, "`"}, NameRow{219, 0, "["}, NameRow{220, 0, "\\"},
                    NameRow{221, 0, "]"}, NameRow{222, 0, "'"}, NameRow{8, 2, "Ctrl+"},
                    NameRow{-5, 1, "Shift+"}, NameRow{2000000000, 2, "Ctrl+"}));

TEST(SwapModifiers, ConvertsBothWaysAndLeavesTheRestEmpty)
{
    for (int value = 1; value <= 6; ++value) {
        const int swapped = SwapModifiers(value).value_or(0);
        EXPECT_EQ((swapped & 2) != 0, (value & 2) != 0) << value;
        EXPECT_EQ((swapped & 4) != 0, (value & 1) != 0) << value;
        EXPECT_EQ((swapped & 1) != 0, (value & 4) != 0) << value;
    }
    for (int value : {-1, 0, 7, 8})
        EXPECT_FALSE(SwapModifiers(value).has_value()) << value;
}

TEST(HotKeyRecords, LoadWithDefaultsAndByNumericPrefix)
{
    fakes::MemorySettings settings;
    settings.save(QStringLiteral("HotKeys"), QStringLiteral("Search.0"), QStringLiteral("6 keys"));
    settings.save(QStringLiteral("HotKeys"), QStringLiteral("Search.1"), QStringLiteral("F"));
    HotKeyRecords records;
    records[HotKeyId::Main] = {1, 1};
    records.load(settings);
    EXPECT_EQ(records[HotKeyId::Main], (HotKeyRecord{3, 87}));
    EXPECT_EQ(records[HotKeyId::AttachDetachWindow], (HotKeyRecord{3, 76}));
    EXPECT_EQ(records[HotKeyId::Attach], (HotKeyRecord{3, 65}));
    EXPECT_EQ(records[HotKeyId::Detach], (HotKeyRecord{3, 68}));
    EXPECT_EQ(records[HotKeyId::Search], (HotKeyRecord{6, 0}));
    EXPECT_EQ(records[HotKeyId::Delete], (HotKeyRecord{3, 88}));
}

TEST(HotKeyRecords, ComeBackAsSaved)
{
    fakes::MemorySettings settings;
    HotKeyRecords records;
    records[HotKeyId::Delete] = {5, 222};
    records.save(settings);
    EXPECT_EQ(settings.list(QStringLiteral("HotKeys")).size(), 12);
    EXPECT_EQ(settings.get(QStringLiteral("HotKeys"), QStringLiteral("Delete.1"), QString()),
              QStringLiteral("222"));
    HotKeyRecords loaded;
    loaded.load(settings);
    EXPECT_EQ(loaded, records);
}

TEST(HotKeyRecords, NumberThatDoesNotFitLeavesThemAsTheyWere)
{
    fakes::MemorySettings settings;
    settings.save(QStringLiteral("HotKeys"), QStringLiteral("Main.0"), QStringLiteral("5"));
    settings.save(QStringLiteral("HotKeys"), QStringLiteral("Delete.1"), QStringLiteral("99999999999"));
    HotKeyRecords records;
    try {
        records.load(settings);
        FAIL() << "no error";
    } catch (const RuntimeError &error) {
        EXPECT_EQ(error.number(), kErrorOverflow);
    }
    EXPECT_EQ(records, HotKeyRecords());
}

TEST(HotKeyModel, TextReadsTheRecordInTheOtherCoding)
{
    fakes::FakeHotKeys keys;
    HotKeyModel model(keys);
    EXPECT_EQ(model.text(HotKeyId::Attach), QStringLiteral("Ctrl+Alt+A"));
    model.records[HotKeyId::Attach] = {4, 113};
    EXPECT_EQ(model.text(HotKeyId::Attach), QStringLiteral("Shift+F2"));
    model.records[HotKeyId::Attach] = {7, 113};
    EXPECT_EQ(model.text(HotKeyId::Attach), QStringLiteral("F2"));
}

TEST(HotKeyModel, RefusedKeyTakesItsIdAndLeavesTheOthersWorking)
{
    fakes::FakeHotKeys keys;
    keys.taken.insert({3, 'L'});
    HotKeyModel model(keys);
    model.records[HotKeyId::Detach] = model.records[HotKeyId::Attach];
    model.records[HotKeyId::Search] = {0, 0};
    model.registerAll(kBrowser);

    EXPECT_THAT(keys.registered.keys(), ElementsAre(std::pair<WindowHandle, int>(kBrowser, 1),
                                                    std::pair<WindowHandle, int>(kBrowser, 3),
                                                    std::pair<WindowHandle, int>(kBrowser, 6)));
    EXPECT_EQ(keys.registered.value({kBrowser, 6}), (std::pair<int, int>(3, 'X')));
}

TEST(HotKeyModel, UnregisterWithdrawsAllIdsAndStartsAgainAtOne)
{
    fakes::FakeHotKeys keys;
    HotKeyModel model(keys);
    model.UnregisterHotKeys(kBrowser);
    EXPECT_TRUE(keys.calls.isEmpty());

    EXPECT_TRUE(model.RegHotKey(kBrowser, 3, 'W'));
    EXPECT_FALSE(model.RegHotKey(kBrowser, 3, 'W'));
    model.UnregisterHotKeys(kBrowser);
    EXPECT_TRUE(keys.registered.isEmpty());
    EXPECT_TRUE(model.RegHotKey(kBrowser, 2, 'Q'));
    EXPECT_EQ(keys.calls, QStringList({QStringLiteral("register 1"), QStringLiteral("register 2"),
                                       QStringLiteral("unregister 1"), QStringLiteral("unregister 2"),
                                       QStringLiteral("register 1")}));
}

} // namespace
