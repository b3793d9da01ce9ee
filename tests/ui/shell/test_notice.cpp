#include "fakes/FakeSound.h"
#include "fakes/FakeWindowSystem.h"
#include "shell/Twips.h"
#include "shell/windows/frmLogo.h"
#include "shell/windows/frmMessage.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPointer>
#include <QScreen>
#include <QTest>
#include <gtest/gtest.h>

using namespace norvane;
using namespace Qt::StringLiterals;

namespace {

class Notice : public testing::Test
{
protected:
    ~Notice() override { delete notice; }

    FormList forms;
    fakes::FakeWindowSystem windows;
    fakes::FakeSound sound;
    QPointer<frmMessage> notice = new frmMessage(forms, windows, sound);
};

TEST_F(Notice, ComesToTheFrontWithABeepAndItsStandingText)
{
    notice->Show();
    EXPECT_EQ(notice->findChild<QLabel *>(u"Label1"_s)->text(),
              u"Norvane does not support this window type.");
    EXPECT_EQ(sound.beeps, 1);
    EXPECT_TRUE(windows.actions.contains(u"setForegroundWindow %1"_s.arg(notice->hWnd())));
    const auto *timer = notice->findChild<QTimer *>(u"Timer1"_s);
    EXPECT_EQ(timer->interval(), 3000);
    EXPECT_TRUE(timer->isActive());
}

TEST_F(Notice, GoesByItselfAtAKeyAndAtAClickOnAnyPart)
{
    const auto click = [this](const QString &name) {
        QTest::mouseClick(notice->findChild<QLabel *>(name), Qt::LeftButton);
    };
    const std::function<void()> ways[] = {[this] { notice->setDuration(1), notice->Show(); },
                                          [this] { QTest::keyClick(notice, Qt::Key_Space); },
                                          [&] { click(u"Label1"_s); }, [&] { click(u"Image1"_s); }};
    for (const auto &way : ways) {
        if (!notice)
            notice = new frmMessage(forms, windows, sound);
        notice->Show();
        way();
        EXPECT_TRUE(QTest::qWaitFor([this] { return !notice; }));
        EXPECT_FALSE(forms.FormIsLoaded(u"frmMessage"_s));
    }
}

TEST(Splash, FitsItsPictureInTheMiddleOfTheScreen)
{
    FormList forms;
    const frmLogo logo(forms, QVersionNumber(1, 20, 3), Twips(96, 96));
    EXPECT_EQ(logo.size(), logo.findChild<QWidget *>(u"Picture2"_s)->size() + QSize(2, 2));
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    EXPECT_EQ(logo.pos(), QPoint((screen.width() - logo.width()) / 2, (screen.height() - logo.height()) / 2));
    EXPECT_EQ(logo.findChild<QLabel *>(u"lblVersion"_s)->text(), u"version: 1.20.3");
    EXPECT_TRUE(forms.FormIsLoaded(u"frmLogo"_s));
}

} // namespace
