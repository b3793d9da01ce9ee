#include "error_of.h"
#include "fakes/FakeHotKeys.h"
#include "fakes/MemorySettings.h"
#include "options/HotKeyModel.h"
#include "options/hot_key_text.h"
#include "platform/errors.h"

#include <gmock/gmock.h>

using namespace norvane;
using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

constexpr WindowHandle kBrowser = 77;

TEST(HotKeyName, TellsModifiersAndKey)
{
    const struct
    {
        int key;
        int modifiers; // 1 Shift, 2 Ctrl, 4 Alt
        QStringView text;
    } rows[] = {
        {0, 0, u"None"},         {0, 2, u"Ctrl+"}, {87, 6, u"Ctrl+Alt+W"}, {57, 7, u"Ctrl+Shift+Alt+9"},
        {96, 1, u"Shift+Num 0"}, {108, 0, u""},    {127, 4, u"Alt+F16"},   {2000000000, 2, u"Ctrl+"},
        {-5, 1, u"Shift+"}};
    for (const auto &row : rows)
        EXPECT_EQ(HotKeyName(row.key, row.modifiers), row.text) << row.key;
}

TEST(SwapModifiers, ConvertsBothWaysAndLeavesTheRestEmpty)
{
    QVector<int> swapped;
    for (int value = -1; value <= 8; ++value)
        swapped.append(SwapModifiers(value).value_or(-1));
    EXPECT_THAT(swapped, ElementsAre(-1, -1, 4, 2, 6, 1, 5, 3, -1, -1));
}

TEST(HotKeyRecords, LoadWithDefaultsAndComeBackAsSaved)
{
    fakes::MemorySettings settings;
    settings.values[u"HotKeys"_s] = {{u"Search.0"_s, u"6 keys"_s}, {u"Search.1"_s, u"F"_s}};
    HotKeyRecords records;
    records[HotKeyId::Main] = {1, 1};
    records.load(settings);
    const HotKeyRecord expected[] = {{3, 'W'}, {3, 'L'}, {3, 'A'}, {3, 'D'}, {6, 0}, {3, 'X'}};
    for (int id = 1; id <= 6; ++id)
        EXPECT_EQ(records[static_cast<HotKeyId>(id)], expected[id - 1]) << id;

    records[HotKeyId::Delete] = {5, 222};
    records.save(settings);
    EXPECT_EQ(settings.list(u"HotKeys"_s).size(), 12);
    EXPECT_EQ(settings.get(u"HotKeys"_s, u"Delete.1"_s, {}), u"222");
    HotKeyRecords loaded;
    loaded.load(settings);
    EXPECT_EQ(loaded, records);

    settings.save(u"HotKeys"_s, u"Main.0"_s, u"5"_s);
    settings.save(u"HotKeys"_s, u"Delete.1"_s, u"99999999999"_s);
    EXPECT_EQ(errorOf([&] { loaded.load(settings); }), kErrorOverflow);
    EXPECT_EQ(loaded, records) << "they are as they were";
}

TEST(HotKeyModel, TextReadsTheRecordInTheOtherCoding)
{
    fakes::FakeHotKeys keys;
    HotKeyModel model(keys);
    const std::pair<HotKeyRecord, QStringView> rows[] = {
        {{3, 'A'}, u"Ctrl+Alt+A"}, {{4, 113}, u"Shift+F2"}, {{7, 113}, u"F2"}};
    for (const auto &[record, text] : rows) {
        model.records[HotKeyId::Attach] = record;
        EXPECT_EQ(model.text(HotKeyId::Attach), text);
    }
}

TEST(HotKeyModel, ARefusedKeyTakesItsIdAndLeavesTheOthersWorking)
{
    fakes::FakeHotKeys keys;
    keys.taken.insert({3, 'L'});
    HotKeyModel model(keys);
    model.UnregisterHotKeys(kBrowser);
    EXPECT_TRUE(keys.calls.isEmpty());
    model.records[HotKeyId::Detach] = model.records[HotKeyId::Attach];
    model.records[HotKeyId::Search] = {0, 0};
    model.registerAll(kBrowser);
    using Owner = std::pair<WindowHandle, int>;
    EXPECT_THAT(keys.registered.keys(),
                ElementsAre(Owner(kBrowser, 1), Owner(kBrowser, 3), Owner(kBrowser, 6)));
    EXPECT_EQ(keys.registered.value({kBrowser, 6}), (std::pair<int, int>(3, 'X')));

    keys.calls.clear();
    model.UnregisterHotKeys(kBrowser);
    EXPECT_TRUE(keys.registered.isEmpty());
    EXPECT_EQ(keys.calls.size(), 6);
    EXPECT_TRUE(model.RegHotKey(kBrowser, 2, 'Q'));
    EXPECT_FALSE(model.RegHotKey(kBrowser, 2, 'Q'));
    EXPECT_EQ(keys.registered.keys(), QList<Owner>({{kBrowser, 1}}));
}

} // namespace
