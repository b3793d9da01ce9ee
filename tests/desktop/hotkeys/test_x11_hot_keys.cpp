#include "Keyboard.h"

#include "harness/VirtualDesktop.h"
#include "platform/x11/hotkeys/X11HotKeys.h"

#include <QElapsedTimer>
#include <functional>
#include <gmock/gmock.h>
#include <memory>
#include <optional>
#include <utility>

using namespace norvane;
using namespace norvane::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr WindowHandle kBrowser = 0x1234;
constexpr WindowHandle kNote = 0x5678;
constexpr int kCtrlAlt = 3;
constexpr int kCtrlShift = 6;
constexpr int kCtrlAltShift = 7;
constexpr uint16_t kGrabbedCtrlAlt = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1;
constexpr uint16_t kCaps = XCB_MOD_MASK_LOCK;
constexpr uint16_t kNum = XCB_MOD_MASK_2;

class X11HotKeysTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(desktop.start({.accessibility = false, .windowManager = false}))
            << desktop.error().toStdString();
        keyboard.emplace(desktop.display());
        ASSERT_TRUE(keyboard->isReady());
        makeKeys();
    }
    void makeKeys()
    {
        keys = std::make_unique<X11HotKeys>(desktop.display().toLatin1());
        QObject::connect(keys.get(), &HotKeys::pressed, keys.get(), [this](WindowHandle owner, int id) {
            fired.append({owner, id});
            if (onFired)
                onFired();
        });
    }

    void pressCtrlAlt(xcb_keysym_t symbol) { keyboard->chord({XK_Control_L, XK_Alt_L, symbol}); }
    /// Presses a marker key at the end: all that came before it has been answered when it has fired.
    QVector<int> idsFired()
    {
        keyboard->chord({XK_Control_L, XK_F12});
        const bool marked = waitFor([&] { return fired.contains({kNote, kMarker}); });
        EXPECT_TRUE(marked) << "the marker key did not fire";
        QVector<int> ids;
        for (const auto &[owner, id] : std::exchange(fired, {})) {
            if (id != kMarker)
                ids.append(id);
        }
        return ids;
    }
    void registerMarker() { ASSERT_TRUE(keys->registerHotKey(kNote, kMarker, 2, 123)); }

    static constexpr int kMarker = 99;

    VirtualDesktop desktop;
    std::optional<Keyboard> keyboard;
    std::unique_ptr<X11HotKeys> keys;
    QVector<std::pair<WindowHandle, int>> fired;
    std::function<void()> onFired;
};

TEST_F(X11HotKeysTest, FiresWhateverTheLockKeysAre)
{
    registerMarker();
    ASSERT_TRUE(keys->registerHotKey(kBrowser, 3, kCtrlAlt, 'A'));
    ASSERT_TRUE(keys->registerHotKey(kBrowser, 4, kCtrlAltShift, 'A'));
    ASSERT_TRUE(keys->registerHotKey(kBrowser, 5, 0, 118));
    for (const xcb_keysym_t lock : {xcb_keysym_t(XK_VoidSymbol), xcb_keysym_t(XK_Caps_Lock),
                                    xcb_keysym_t(XK_Num_Lock), xcb_keysym_t(XK_Caps_Lock)}) {
        if (lock != XK_VoidSymbol)
            keyboard->tap(lock);
        pressCtrlAlt(XK_a);
        keyboard->chord({XK_Control_L, XK_Alt_L, XK_Shift_L, XK_a});
        keyboard->tap(XK_F7);
        keyboard->chord({XK_Control_L, XK_a});
        keyboard->chord({XK_Super_L, XK_Control_L, XK_Alt_L, XK_a});
        pressCtrlAlt(XK_b);
        EXPECT_THAT(idsFired(), ElementsAre(3, 4, 5)) << lock;
    }
}

TEST_F(X11HotKeysTest, KeysOfEveryKindAreFound)
{
    registerMarker();
    const QVector<std::pair<int, xcb_keysym_t>> rows{
        {'Z', XK_z},          {'7', XK_7},     {112, XK_F1},    {33, XK_Prior},        {37, XK_Left},
        {46, XK_Delete},      {96, XK_KP_0},   {105, XK_KP_9},  {107, XK_KP_Add},      {110, XK_KP_Decimal},
        {186, XK_semicolon},  {189, XK_minus}, {192, XK_grave}, {219, XK_bracketleft}, {220, XK_backslash},
        {222, XK_apostrophe}, {32, XK_space},  {27, XK_Escape}, {145, XK_Scroll_Lock},
    };
    for (const auto &[key, symbol] : rows) {
        // With Ctrl and Alt the server keeps some of them to itself.
        ASSERT_TRUE(keys->registerHotKey(kBrowser, key, kCtrlShift, key)) << key;
        keyboard->chord({XK_Control_L, XK_Shift_L, symbol});
        EXPECT_THAT(idsFired(), ElementsAre(key));
    }
}

TEST_F(X11HotKeysTest, KeyThatTheKeyboardLacksIsRefused)
{
    registerMarker();
    EXPECT_FALSE(keys->registerHotKey(kBrowser, 1, 0, 0));
    EXPECT_FALSE(keys->registerHotKey(kBrowser, 1, kCtrlAlt, 7));
    EXPECT_FALSE(keys->registerHotKey(kBrowser, 1, kCtrlAlt, -1));
    EXPECT_FALSE(keys->registerHotKey(kBrowser, 1, 8, 'A'));
    // A grab of key 0 would be one of every key.
    EXPECT_TRUE(keyboard->grab(XK_a, 0));
    EXPECT_TRUE(keyboard->grab(XK_q, kGrabbedCtrlAlt));
}

TEST_F(X11HotKeysTest, CombinationOfAnotherProgramIsRefusedWhole)
{
    registerMarker();
    ASSERT_TRUE(keyboard->grab(XK_l, kGrabbedCtrlAlt | kNum));
    EXPECT_FALSE(keys->registerHotKey(kBrowser, 2, kCtrlAlt, 'L'));
    EXPECT_TRUE(keys->registerHotKey(kBrowser, 3, kCtrlAlt, 'A'));

    // Nothing of the refused key is left behind.
    for (const uint16_t locks : {uint16_t(0), kCaps, uint16_t(kCaps | kNum)})
        EXPECT_TRUE(keyboard->grab(XK_l, kGrabbedCtrlAlt | locks)) << locks;
    pressCtrlAlt(XK_l);
    pressCtrlAlt(XK_a);
    EXPECT_THAT(idsFired(), ElementsAre(3));

    for (const uint16_t locks : {uint16_t(0), kCaps, kNum, uint16_t(kCaps | kNum)})
        keyboard->ungrab(XK_l, kGrabbedCtrlAlt | locks);
    EXPECT_TRUE(keys->registerHotKey(kBrowser, 2, kCtrlAlt, 'L'));
    pressCtrlAlt(XK_l);
    EXPECT_THAT(idsFired(), ElementsAre(2));
}

TEST_F(X11HotKeysTest, OwnDuplicatesAreRefusedAndTheFirstWorksOn)
{
    registerMarker();
    ASSERT_TRUE(keys->registerHotKey(kBrowser, 1, kCtrlAlt, 'W'));
    EXPECT_FALSE(keys->registerHotKey(kBrowser, 2, kCtrlAlt, 'W'));
    EXPECT_FALSE(keys->registerHotKey(kNote, 1, kCtrlAlt, 'W'));
    EXPECT_FALSE(keys->registerHotKey(kBrowser, 1, kCtrlAlt, 'E')) << "the id is in use";
    EXPECT_TRUE(keys->registerHotKey(kNote, 1, kCtrlAlt, 'E')) << "the id is another window's";
    pressCtrlAlt(XK_w);
    pressCtrlAlt(XK_e);
    EXPECT_EQ(idsFired().size(), 2);
    EXPECT_FALSE(keys->unregisterHotKey(kBrowser, 2));
    pressCtrlAlt(XK_w);
    EXPECT_THAT(idsFired(), ElementsAre(1));

    EXPECT_TRUE(keys->unregisterHotKey(kBrowser, 1));
    pressCtrlAlt(XK_w);
    EXPECT_THAT(idsFired(), IsEmpty());
    for (const uint16_t locks : {uint16_t(0), kCaps, kNum, uint16_t(kCaps | kNum)})
        EXPECT_TRUE(keyboard->grab(XK_w, kGrabbedCtrlAlt | locks)) << "free for others: " << locks;
}

TEST_F(X11HotKeysTest, KeysFollowAChangeOfTheKeyboard)
{
    registerMarker();
    ASSERT_TRUE(keys->registerHotKey(kBrowser, 1, kCtrlAlt, 'A'));
    ASSERT_TRUE(keys->registerHotKey(kBrowser, 2, kCtrlAlt, 'Q'));
    ASSERT_TRUE(keys->registerHotKey(kBrowser, 3, kCtrlAlt, 'Z'));
    const xcb_keycode_t oldZ = keyboard->keyOf(XK_z);
    keyboard->swapKeys(XK_a, XK_q);
    keyboard->swapKeys(XK_z, XK_y);
    ASSERT_NE(keyboard->keyOf(XK_z), oldZ);
    // The place that "z" has left is free when the keys have followed.
    ASSERT_TRUE(waitFor([&] { return keyboard->grab(XK_y, kGrabbedCtrlAlt); }));
    pressCtrlAlt(XK_a);
    pressCtrlAlt(XK_q);
    pressCtrlAlt(XK_z);
    EXPECT_THAT(idsFired(), ElementsAre(1, 2, 3));
    EXPECT_FALSE(keyboard->grab(XK_z, kGrabbedCtrlAlt | kNum)) << "not grabbed with Num Lock";
}

TEST_F(X11HotKeysTest, KeyIsFoundInEveryGroupOfTheKeyboard)
{
    ASSERT_TRUE(keyboard->setLayout(QStringLiteral("ru,gr,us")));
    makeKeys();
    registerMarker();
    ASSERT_TRUE(keys->registerHotKey(kBrowser, 1, kCtrlAlt, 'A'));
    for (int group = 0; group < 3; ++group) {
        keyboard->lockGroup(group);
        pressCtrlAlt(XK_a);
        EXPECT_THAT(idsFired(), ElementsAre(1)) << group;
    }
    keyboard->lockGroup(0);
    // A layout without the letter: the key is dead, and comes back with the letter.
    ASSERT_TRUE(keyboard->setLayout(QStringLiteral("ru")));
    ASSERT_TRUE(waitFor([&] { return keyboard->grab(XK_Cyrillic_ef, kGrabbedCtrlAlt); }));
    keyboard->ungrab(XK_Cyrillic_ef, kGrabbedCtrlAlt);
    EXPECT_FALSE(keys->registerHotKey(kBrowser, 2, kCtrlAlt, 'B'));
    ASSERT_TRUE(keyboard->setLayout(QStringLiteral("us")));
    ASSERT_TRUE(waitFor([&] {
        pressCtrlAlt(XK_a);
        return idsFired().contains(1);
    }));
}

TEST_F(X11HotKeysTest, HeldKeyCountsOnce)
{
    registerMarker();
    keyboard->openWindow();
    ASSERT_TRUE(keys->registerHotKey(kBrowser, 1, kCtrlAlt, 'A'));
    const auto hold = [&](xcb_keysym_t symbol, const std::function<bool()> &enough) {
        keyboard->down(keyboard->keyOf(XK_Control_L));
        keyboard->down(keyboard->keyOf(XK_Alt_L));
        keyboard->down(keyboard->keyOf(symbol));
        EXPECT_TRUE(waitFor(enough));
        keyboard->up(keyboard->keyOf(symbol));
        keyboard->up(keyboard->keyOf(XK_Alt_L));
        keyboard->up(keyboard->keyOf(XK_Control_L));
    };
    int repeats = 0;
    QElapsedTimer clock;
    clock.start();
    hold(XK_b, [&] { return (repeats += keyboard->takePresses(XK_b)) > 5; });
    const qint64 needed = clock.restart();
    hold(XK_a, [&] { return clock.elapsed() > 2 * needed; });
    EXPECT_THAT(idsFired(), ElementsAre(1));
    pressCtrlAlt(XK_a);
    EXPECT_THAT(idsFired(), ElementsAre(1)) << "the key still counts as held";
}

TEST_F(X11HotKeysTest, ReceiverMayWithdrawTheKeyOrDeleteTheObject)
{
    ASSERT_TRUE(keys->registerHotKey(kBrowser, 1, kCtrlAlt, 'A'));
    ASSERT_TRUE(keys->registerHotKey(kBrowser, 2, kCtrlAlt, 'B'));
    onFired = [this] {
        keys->unregisterHotKey(kBrowser, 1);
        EXPECT_TRUE(keys->registerHotKey(kBrowser, 1, kCtrlAlt, 'C'));
    };
    pressCtrlAlt(XK_a);
    ASSERT_TRUE(waitFor([&] { return fired.size() == 1; }));
    onFired = [this] { keys.reset(); };
    pressCtrlAlt(XK_c);
    pressCtrlAlt(XK_b);
    ASSERT_TRUE(waitFor([&] { return !keys; }));
    EXPECT_TRUE(waitFor([&] { return keyboard->grab(XK_b, kGrabbedCtrlAlt); }))
        << "a grab outlived its owner";
}

TEST_F(X11HotKeysTest, EndOfTheServerEndsNothingElse)
{
    ASSERT_TRUE(keys->registerHotKey(kBrowser, 1, kCtrlAlt, 'A'));
    ASSERT_TRUE(keys->registerHotKey(kBrowser, 2, kCtrlAlt, 'B'));
    desktop.killDisplay();
    // The loop must come to rest; a notifier on a dead connection would fire for ever.
    int rounds = 0;
    EXPECT_TRUE(waitFor([&] { return ++rounds > 5; }));
    keys->unregisterHotKey(kBrowser, 1);
    EXPECT_FALSE(keys->registerHotKey(kBrowser, 3, kCtrlAlt, 'C'));
    EXPECT_FALSE(keys->unregisterHotKey(kBrowser, 2));

    X11HotKeys without(desktop.display().toLatin1());
    EXPECT_FALSE(without.registerHotKey(kBrowser, 1, kCtrlAlt, 'A'));
}

TEST_F(X11HotKeysTest, TellsTheKeysThatItWouldGrab)
{
    const auto keyOf = [&](xcb_keysym_t symbol) { return keys->keyOf(keyboard->keyOf(symbol)); };
    EXPECT_EQ(keyOf(XK_w), 'W');
    EXPECT_EQ(keyOf(XK_exclam), '1');
    EXPECT_EQ(keyOf(XK_Tab), 9);
    EXPECT_EQ(keyOf(XK_F5), 116);
    EXPECT_EQ(keyOf(XK_KP_5), 101);
    EXPECT_EQ(keyOf(XK_Control_L), 0);
    EXPECT_EQ(keys->keyOf(0), 0);
    keyboard->swapKeys(XK_a, XK_q);
    EXPECT_TRUE(waitFor([&] { return keyOf(XK_a) == 'A'; }));
    EXPECT_EQ(keyOf(XK_q), 'Q');
}

} // namespace
