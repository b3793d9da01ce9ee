#include "FakeTrayHost.h"
#include "PasswordEngine.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeEventLoop.h"
#include "fakes/FakeFileSystem.h"
#include "fakes/FakeHotKeys.h"
#include "fakes/FakeSound.h"
#include "fakes/FakeWindowSystem.h"
#include "fakes/MemorySettings.h"
#include "options/HotKeyModel.h"
#include "platform/RuntimeError.h"
#include "platform/errors.h"
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

namespace {

class OptionsForm : public Form
{
public:
    QString formName() const override { return QStringLiteral("frmSetting"); }
    WindowHandle hWnd() const override { return 1; }
    void unload() override {}
};

class ShellWindowsTest : public testing::Test
{
protected:
    ShellWindowsTest() { store.DatabaseFolder = QStringLiteral("/notes/"); }
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
        EXPECT_TRUE(forms.FormIsLoaded(QStringLiteral("frmLogo")));
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
    fakes::PasswordEngine engine;
    fakes::FakeFileSystem files;
    NoteStore store{engine, files};
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

} // namespace

TEST_F(ShellWindowsTest, StartUpLeavesAHiddenFrameWithTheBrowserInIt)
{
    start();
    ASSERT_NE(shell.frame(), nullptr);
    ASSERT_NE(shell.browser(), nullptr);
    EXPECT_EQ(shell.frame()->hWnd(), frameWindow);
    EXPECT_FALSE(shell.frame()->isFrameVisible());
    EXPECT_FALSE(forms.FormIsLoaded(QStringLiteral("frmLogo")));
    EXPECT_NE(shell.browser()->hWnd(), frameWindow) << "the hot keys have a window of their own";
    EXPECT_TRUE(shell.browser()->trayIcon()->isShown());

    EXPECT_EQ(shell.categoryTabCount(), 2);
    EXPECT_EQ(shell.browser()->selectedCategory(), -1);
    EXPECT_TRUE(shell.browser()->findChild<QToolButton *>(QStringLiteral("ARButton10"))->isChecked());
    shell.Refresh_tbCAT();
    EXPECT_EQ(shell.categoryTabCount(), 2);
    EXPECT_EQ(shell.browser()->selectedCategory(), 0);
}

TEST_F(ShellWindowsTest, RegistersTheStoredHotKeysOnTheBrowsersWindow)
{
    settings.save(QStringLiteral("HotKeys"), QStringLiteral("Attach.1"), QStringLiteral("66"));
    start();
    EXPECT_EQ(keys.registered.size(), 6);
    EXPECT_EQ(keys.registered.value({shell.browser()->hWnd(), 3}), (std::pair<int, int>(3, 'B')));
}

TEST_F(ShellWindowsTest, AHotKeyThatNoKeyCanBeIsAnErrorOfTheStart)
{
    settings.save(QStringLiteral("HotKeys"), QStringLiteral("Attach.1"), QStringLiteral("99999999999"));
    shell.loadFrame();
    try {
        shell.showBrowser();
        FAIL() << "no error";
    } catch (const RuntimeError &error) {
        EXPECT_EQ(error.number(), kErrorOverflow);
    }
}

TEST_F(ShellWindowsTest, TogglesTheFrame)
{
    start();
    shell.ToggleBrowser();
    EXPECT_TRUE(shell.frame()->isFrameVisible());
    EXPECT_EQ(QRect(shell.frame()->pos(), shell.frame()->size()), QRect(10, 20, 600, 500));
    EXPECT_TRUE(windows.actions.contains(QStringLiteral("setForegroundWindow %1").arg(frameWindow)));
    EXPECT_EQ(shell.browser()->findChild<StatusPanel *>(QStringLiteral("ROW"))->panelText(),
              QStringLiteral("Row: 0 of 0"));
    EXPECT_TRUE(browserWindow()->isVisible());
    const auto *tabs = shell.browser()->findChild<QTabBar *>(QStringLiteral("tbCat"));
    EXPECT_TRUE(QTest::qWaitFor([tabs] { return tabs->height() >= tabs->fontMetrics().height(); }));
    shell.ToggleBrowser();
    EXPECT_FALSE(shell.frame()->isFrameVisible());

    OptionsForm options;
    forms.add(&options);
    shell.ToggleBrowser();
    EXPECT_FALSE(shell.frame()->isFrameVisible()) << "not while the options stand open";
    forms.remove(&options);
}

TEST_F(ShellWindowsTest, TheBrowserHidesInsteadOfClosingAndComesBackByItsButton)
{
    start();
    shell.ToggleBrowser();
    const WindowHandle hotKeys = shell.browser()->hWnd();
    browserWindow()->close();
    ASSERT_NE(shell.browser(), nullptr);
    EXPECT_FALSE(browserWindow()->isVisible());
    EXPECT_TRUE(shell.browser()->trayIcon()->isShown());

    QTest::mouseClick(shell.frame()->findChild<QToolButton *>(QStringLiteral("NOTEBROWSER")), Qt::LeftButton);
    EXPECT_TRUE(browserWindow()->isVisible());
    EXPECT_TRUE(shell.browser()->isVisible());
    EXPECT_EQ(events.yields, 1);
    EXPECT_EQ(shell.browser()->hWnd(), hotKeys);
}

TEST_F(ShellWindowsTest, TheBrowserKeepsItsPlaceAndTab)
{
    start();
    shell.ToggleBrowser();
    EXPECT_EQ(browserWindow()->geometry(), QRect(0, 0, 667, 467)) << "the default size in twips";
    browserWindow()->setGeometry(20, 30, 400, 300);
    shell.browser()->unload();
    EXPECT_EQ(shell.browser(), nullptr);
    EXPECT_EQ(settings.values[QStringLiteral("NoteBrowser")],
              (QMap<QString, QString>{{QStringLiteral("Left"), QStringLiteral("300")},
                                      {QStringLiteral("Top"), QStringLiteral("450")},
                                      {QStringLiteral("Width"), QStringLiteral("6000")},
                                      {QStringLiteral("Height"), QStringLiteral("4500")},
                                      {QStringLiteral("WindowState"), QStringLiteral("0")},
                                      {QStringLiteral("LastCategory"), QStringLiteral("2")}}));
}

TEST_F(ShellWindowsTest, HandsOnWhatTheTrayMenuAsksFor)
{
    start();
    QSignalSpy shutDowns(&shell, &ShellForms::shutDownRequested);
    QSignalSpy commands(&shell, &ShellForms::commandTriggered);
    TrayIcon *tray = shell.browser()->trayIcon();
    emit tray->commandTriggered(QStringLiteral("mnu_ControlPanel"));
    EXPECT_TRUE(shell.frame()->isFrameVisible());
    emit tray->commandTriggered(QStringLiteral("mnu_Search"));
    emit tray->commandTriggered(QStringLiteral("mnu_exit"));
    EXPECT_EQ(shutDowns.size(), 1);
    ASSERT_EQ(commands.size(), 1);
    EXPECT_EQ(commands[0][0].toString(), QStringLiteral("mnu_Search"));
}

TEST_F(ShellWindowsTest, ShowsOneNoticeAtATime)
{
    shell.showNotice();
    shell.showNotice(QStringLiteral("Another one"));
    const QVector<Form *> notices = forms.named(QStringLiteral("frmMessage"));
    ASSERT_EQ(notices.size(), 1);
    EXPECT_EQ(static_cast<frmMessage *>(notices[0])->text(),
              QStringLiteral("Norvane does not support this window type."));
    EXPECT_EQ(sound.beeps, 1);
}
