#include "FakeTrayHost.h"
#include "error_of.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeEventLoop.h"
#include "fakes/FakeFileSystem.h"
#include "fakes/FakeHotKeys.h"
#include "fakes/FakeSound.h"
#include "fakes/FakeWindowSystem.h"
#include "fakes/MemorySettings.h"
#include "options/HotKeyModel.h"
#include "platform/errors.h"
#include "platform/sqlite/SqliteEngine.h"
#include "shell/windows/ShellForms.h"
#include "shell/windows/StatusPanel.h"
#include "shell/windows/TrayIcon.h"
#include "shell/windows/frmMain.h"
#include "shell/windows/frmMessage.h"
#include "shell/windows/mdiMain.h"
#include "store/NoteStore.h"

#include <QMdiSubWindow>
#include <QSignalSpy>
#include <QTabBar>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

using namespace norvane;
using namespace Qt::StringLiterals;

namespace {

struct OptionsForm : Form
{
    QString formName() const override { return u"frmSetting"_s; }
    WindowHandle hWnd() const override { return 1; }
    void unload() override {}
};

class ShellWindowsTest : public testing::Test
{
protected:
    ~ShellWindowsTest() override
    {
        for (Form *form : forms.all()) {
            if (forms.contains(form) && form != shell.frame())
                form->unload();
        }
        if (shell.frame() != nullptr)
            shell.frame()->unload();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    /// The steps of start-up.
    void start()
    {
        shell.showSplash();
        EXPECT_TRUE(forms.FormIsLoaded(u"frmLogo"_s));
        frameWindow = shell.loadFrame();
        shell.moveFrame(QRectF(150, 300, 9000, 7500));
        shell.minimiseFrame();
        shell.showBrowser();
        shell.Refresh_tbCAT();
        shell.selectCategoryTab(2);
        shell.pressPreviewButton();
        shell.unloadSplash();
    }
    QMdiSubWindow *browserWindow() const
    {
        return qobject_cast<QMdiSubWindow *>(shell.browser()->parentWidget());
    }

    FormList forms;
    std::unique_ptr<dao::Engine> engine = dao::makeSqliteEngine();
    fakes::FakeFileSystem files;
    NoteStore store{*engine, files};
    fakes::MemorySettings settings;
    fakes::FakeClock clock;
    fakes::FakeEventLoop events;
    fakes::FakeWindowSystem windows;
    fakes::FakeSound sound;
    fakes::FakeTrayHost host{TrayHost::Kind::Clicks};
    fakes::FakeHotKeys keys;
    HotKeyModel hotKeys{keys};
    ShellForms shell{{forms, store, settings, clock, events, windows, sound, host, hotKeys, Twips(96, 96),
                      QVersionNumber(1, 2, 3)}};
    WindowHandle frameWindow = kNoWindow;
};

TEST_F(ShellWindowsTest, StartUpLeavesAHiddenFrameWithTheBrowserInIt)
{
    settings.save(u"HotKeys"_s, u"Attach.1"_s, u"66"_s);
    start();
    ASSERT_NE(shell.frame(), nullptr);
    ASSERT_NE(shell.browser(), nullptr);
    EXPECT_EQ(shell.frame()->hWnd(), frameWindow);
    EXPECT_FALSE(shell.frame()->isFrameVisible());
    EXPECT_FALSE(forms.FormIsLoaded(u"frmLogo"_s));
    EXPECT_TRUE(shell.browser()->trayIcon()->isShown());
    EXPECT_NE(shell.browser()->hWnd(), frameWindow) << "the hot keys have a window of their own";
    EXPECT_EQ(keys.registered.size(), 6);
    EXPECT_EQ(keys.registered.value({shell.browser()->hWnd(), 3}), (std::pair<int, int>(3, 'B')));

    EXPECT_EQ(shell.categoryTabCount(), 2);
    EXPECT_EQ(shell.browser()->selectedCategory(), -1);
    EXPECT_TRUE(shell.browser()->findChild<QToolButton *>(u"ARButton10"_s)->isChecked());
    shell.Refresh_tbCAT();
    EXPECT_EQ(shell.categoryTabCount(), 2);
    EXPECT_EQ(shell.browser()->selectedCategory(), 0);
}

TEST_F(ShellWindowsTest, AHotKeyThatNoKeyCanBeIsAnErrorOfTheStart)
{
    settings.save(u"HotKeys"_s, u"Attach.1"_s, u"99999999999"_s);
    shell.loadFrame();
    EXPECT_EQ(errorOf([this] { shell.showBrowser(); }), kErrorOverflow);
}

TEST_F(ShellWindowsTest, TogglesTheFrame)
{
    start();
    shell.ToggleBrowser();
    EXPECT_TRUE(shell.frame()->isFrameVisible());
    EXPECT_EQ(QRect(shell.frame()->pos(), shell.frame()->size()), QRect(10, 20, 600, 500));
    EXPECT_TRUE(windows.actions.contains(u"setForegroundWindow %1"_s.arg(frameWindow)));
    EXPECT_EQ(shell.browser()->findChild<StatusPanel *>(u"ROW"_s)->panelText(), u"Row: 0 of 0");
    EXPECT_TRUE(browserWindow()->isVisible());
    const auto *tabs = shell.browser()->findChild<QTabBar *>(u"tbCat"_s);
    EXPECT_TRUE(QTest::qWaitFor([tabs] { return tabs->height() >= tabs->fontMetrics().height(); }));
    shell.ToggleBrowser();
    EXPECT_FALSE(shell.frame()->isFrameVisible());

    OptionsForm options;
    forms.add(&options);
    shell.ToggleBrowser();
    EXPECT_FALSE(shell.frame()->isFrameVisible()) << "not while the options stand open";
    forms.remove(&options);
}

TEST_F(ShellWindowsTest, TheBrowserHidesInsteadOfClosingAndKeepsItsPlaceAndTab)
{
    start();
    shell.ToggleBrowser();
    const WindowHandle owner = shell.browser()->hWnd();
    browserWindow()->close();
    ASSERT_NE(shell.browser(), nullptr);
    EXPECT_FALSE(browserWindow()->isVisible());
    EXPECT_TRUE(shell.browser()->trayIcon()->isShown());
    QTest::mouseClick(shell.frame()->findChild<QToolButton *>(u"NOTEBROWSER"_s), Qt::LeftButton);
    EXPECT_TRUE(browserWindow()->isVisible() && shell.browser()->isVisible());
    EXPECT_EQ(events.yields, 1);
    EXPECT_EQ(shell.browser()->hWnd(), owner);

    EXPECT_EQ(browserWindow()->geometry(), QRect(0, 0, 667, 467)) << "the default size in twips";
    browserWindow()->setGeometry(20, 30, 400, 300);
    shell.browser()->unload();
    EXPECT_EQ(shell.browser(), nullptr);
    EXPECT_EQ(settings.values[u"NoteBrowser"_s], (QMap<QString, QString>{{u"Left"_s, u"300"_s},
                                                                         {u"Top"_s, u"450"_s},
                                                                         {u"Width"_s, u"6000"_s},
                                                                         {u"Height"_s, u"4500"_s},
                                                                         {u"WindowState"_s, u"0"_s},
                                                                         {u"LastCategory"_s, u"2"_s}}));
}

TEST_F(ShellWindowsTest, HandsOnWhatTheTrayMenuAsksFor)
{
    start();
    QSignalSpy shutDowns(&shell, &ShellForms::shutDownRequested);
    QSignalSpy commands(&shell, &ShellForms::commandTriggered);
    TrayIcon *tray = shell.browser()->trayIcon();
    for (const QString &name : {u"mnu_ControlPanel"_s, u"mnu_Search"_s, u"mnu_exit"_s})
        emit tray->commandTriggered(name);
    EXPECT_TRUE(shell.frame()->isFrameVisible());
    EXPECT_EQ(shutDowns.size(), 1);
    ASSERT_EQ(commands.size(), 1);
    EXPECT_EQ(commands[0][0], u"mnu_Search"_s);
}

TEST_F(ShellWindowsTest, ShowsOneNoticeAtATime)
{
    EXPECT_TRUE(shell.showNotice());
    EXPECT_FALSE(shell.showNotice(u"Another one"_s));
    const QVector<Form *> notices = forms.named(u"frmMessage"_s);
    ASSERT_EQ(notices.size(), 1);
    EXPECT_EQ(static_cast<frmMessage *>(notices[0])->text(), u"Norvane does not support this window type.");
}

} // namespace
