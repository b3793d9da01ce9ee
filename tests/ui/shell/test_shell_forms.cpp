#include "browser/frmMain.h"
#include "error_of.h"
#include "fakes/FakeHotKeys.h"
#include "fakes/FakeTrayHost.h"
#include "options/HotKeyModel.h"
#include "platform/errors.h"
#include "shell/forms/ShellForms.h"
#include "shell/windows/StatusPanel.h"
#include "shell/windows/TrayIcon.h"
#include "shell/windows/frmMessage.h"
#include "shell/windows/mdiMain.h"
#include "ui/browser/BrowserDesk.h"

#include <QMdiSubWindow>
#include <QSignalSpy>
#include <QTabBar>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

using namespace norvane;
using namespace norvane::tests;
using namespace Qt::StringLiterals;

namespace {

struct OptionsForm : Form
{
    QString formName() const override { return u"frmSetting"_s; }
    WindowHandle hWnd() const override { return 1; }
    void unload() override {}
};

class ShellWindowsTest : public testing::Test, protected BrowserDesk
{
protected:
    ShellWindowsTest()
    {
        services.isFrameVisible = [this] { return shellForms.isFrameVisible(); };
    }
    ~ShellWindowsTest() override
    {
        for (Form *form : forms.all()) {
            if (forms.contains(form) && form != shellForms.frame())
                form->unload();
        }
        if (shellForms.frame() != nullptr)
            shellForms.frame()->unload();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    /// The steps of start-up.
    void start()
    {
        shellForms.showSplash();
        EXPECT_TRUE(forms.FormIsLoaded(u"frmLogo"_s));
        frameWindow = shellForms.loadFrame();
        shellForms.moveFrame(QRectF(150, 300, 9000, 7500));
        shellForms.minimiseFrame();
        shellForms.showBrowser();
        shellForms.Refresh_tbCAT();
        shellForms.selectCategoryTab(2);
        shellForms.pressPreviewButton();
        shellForms.unloadSplash();
    }
    QMdiSubWindow *browserWindow() const
    {
        return qobject_cast<QMdiSubWindow *>(shellForms.browser()->parentWidget());
    }

    fakes::FakeTrayHost host{TrayHost::Kind::Clicks};
    fakes::FakeHotKeys keys;
    HotKeyModel hotKeys{keys};
    ShellForms shellForms{{services, host, hotKeys, QVersionNumber(1, 2, 3)}};
    WindowHandle frameWindow = kNoWindow;
};

TEST_F(ShellWindowsTest, StartUpLeavesAHiddenFrameWithTheBrowserInIt)
{
    settings.save(u"HotKeys"_s, u"Attach.1"_s, u"66"_s);
    start();
    ASSERT_NE(shellForms.frame(), nullptr);
    ASSERT_NE(shellForms.browser(), nullptr);
    EXPECT_EQ(shellForms.frame()->hWnd(), frameWindow);
    EXPECT_FALSE(shellForms.frame()->isFrameVisible());
    EXPECT_FALSE(forms.FormIsLoaded(u"frmLogo"_s));
    EXPECT_TRUE(shellForms.browser()->trayIcon()->isShown());
    EXPECT_NE(shellForms.browser()->hWnd(), frameWindow) << "the hot keys have a window of their own";
    EXPECT_EQ(keys.registered.size(), 6);
    EXPECT_EQ(keys.registered.value({shellForms.browser()->hWnd(), 3}), (std::pair<int, int>(3, 'B')));

    EXPECT_EQ(shellForms.categoryTabCount(), 2);
    EXPECT_EQ(shellForms.browser()->selectedCategory(), -1);
    EXPECT_TRUE(shellForms.browser()->findChild<QToolButton *>(u"ARButton10"_s)->isChecked());
    shellForms.Refresh_tbCAT();
    EXPECT_EQ(shellForms.categoryTabCount(), 2);
    EXPECT_EQ(shellForms.browser()->selectedCategory(), -1) << "it is still there";
}

TEST_F(ShellWindowsTest, AHotKeyThatNoKeyCanBeIsAnErrorOfTheStart)
{
    settings.save(u"HotKeys"_s, u"Attach.1"_s, u"99999999999"_s);
    shellForms.loadFrame();
    EXPECT_EQ(errorOf([this] { shellForms.showBrowser(); }), kErrorOverflow);
}

TEST_F(ShellWindowsTest, TogglesTheFrame)
{
    start();
    shellForms.ToggleBrowser();
    EXPECT_TRUE(shellForms.frame()->isFrameVisible());
    EXPECT_EQ(QRect(shellForms.frame()->pos(), shellForms.frame()->size()), QRect(10, 20, 600, 500));
    EXPECT_TRUE(windows.actions.contains(u"setForegroundWindow %1"_s.arg(frameWindow)));
    EXPECT_EQ(shellForms.browser()->findChild<StatusPanel *>(u"ROW"_s)->panelText(), u"Row: 0 of 0");
    EXPECT_TRUE(browserWindow()->isVisible());
    const auto *tabs = shellForms.browser()->findChild<QTabBar *>(u"tbCat"_s);
    EXPECT_TRUE(QTest::qWaitFor([tabs] { return tabs->height() >= tabs->fontMetrics().height(); }));
    shellForms.ToggleBrowser();
    EXPECT_FALSE(shellForms.frame()->isFrameVisible());

    OptionsForm options;
    forms.add(&options);
    shellForms.ToggleBrowser();
    EXPECT_FALSE(shellForms.frame()->isFrameVisible()) << "not while the options stand open";
    forms.remove(&options);
}

TEST_F(ShellWindowsTest, TheBrowserHidesInsteadOfClosingAndKeepsItsPlaceAndTab)
{
    start();
    shellForms.ToggleBrowser();
    const WindowHandle owner = shellForms.browser()->hWnd();
    browserWindow()->close();
    ASSERT_NE(shellForms.browser(), nullptr);
    EXPECT_FALSE(browserWindow()->isVisible());
    EXPECT_TRUE(shellForms.browser()->trayIcon()->isShown());
    QTest::mouseClick(shellForms.frame()->findChild<QToolButton *>(u"NOTEBROWSER"_s), Qt::LeftButton);
    EXPECT_TRUE(browserWindow()->isVisible() && shellForms.browser()->isVisible());
    EXPECT_GT(events.yields, 0);
    EXPECT_EQ(shellForms.browser()->hWnd(), owner);

    EXPECT_EQ(browserWindow()->geometry(), QRect(0, 0, 667, 467)) << "the default size in twips";
    browserWindow()->setGeometry(20, 30, 400, 300);
    shellForms.browser()->unload();
    EXPECT_EQ(shellForms.browser(), nullptr);
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
    QSignalSpy shutDowns(&shellForms, &ShellForms::shutDownRequested);
    QSignalSpy commands(&shellForms, &ShellForms::commandTriggered);
    TrayIcon *tray = shellForms.browser()->trayIcon();
    for (const QString &name : {u"mnu_ControlPanel"_s, u"mnu_Search"_s, u"mnu_exit"_s})
        emit tray->commandTriggered(name);
    EXPECT_TRUE(shellForms.frame()->isFrameVisible());
    EXPECT_EQ(shutDowns.size(), 1);
    ASSERT_EQ(commands.size(), 1);
    EXPECT_EQ(commands[0][0], u"mnu_Search"_s);
}

TEST_F(ShellWindowsTest, ShowsOneNoticeAtATime)
{
    EXPECT_TRUE(shellForms.showNotice());
    EXPECT_FALSE(shellForms.showNotice(u"Another one"_s));
    const QVector<Form *> notices = forms.named(u"frmMessage"_s);
    ASSERT_EQ(notices.size(), 1);
    EXPECT_EQ(static_cast<frmMessage *>(notices[0])->text(), u"Norvane does not support this window type.");
}

} // namespace
