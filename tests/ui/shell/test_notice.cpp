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
#include <QTimer>
#include <gtest/gtest.h>

using namespace norvane;

namespace {

class Notice : public testing::Test
{
protected:
    ~Notice() override { delete notice; }

    bool gone() const
    {
        return !forms.FormIsLoaded(QStringLiteral("frmMessage")) &&
               QTest::qWaitFor([this] { return !notice; });
    }

    FormList forms;
    fakes::FakeWindowSystem windows;
    fakes::FakeSound sound;
    QPointer<frmMessage> notice = new frmMessage(forms, windows, sound);
};

} // namespace

TEST_F(Notice, ComesToTheFrontWithABeepAndItsStandingText)
{
    notice->Show();
    EXPECT_EQ(notice->findChild<QLabel *>(QStringLiteral("Label1"))->text(),
              QStringLiteral("Norvane does not support this window type."));
    EXPECT_EQ(sound.beeps, 1);
    EXPECT_TRUE(windows.actions.contains(QStringLiteral("setForegroundWindow %1").arg(notice->hWnd())))
        << windows.actions.join(u',').toStdString();
    const auto *timer = notice->findChild<QTimer *>(QStringLiteral("Timer1"));
    EXPECT_EQ(timer->interval(), 3000);
    EXPECT_TRUE(timer->isActive());
}

TEST_F(Notice, GoesByItselfAfterItsTime)
{
    notice->setDuration(1);
    notice->Show();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !notice; }));
    EXPECT_FALSE(forms.FormIsLoaded(QStringLiteral("frmMessage")));
}

TEST_F(Notice, GoesAtAKey)
{
    notice->Show();
    QTest::keyClick(notice, Qt::Key_Space);
    EXPECT_TRUE(gone());
}

TEST_F(Notice, GoesAtAClickOnItsTextOrIcon)
{
    for (const char *name : {"Label1", "Image1"}) {
        if (!notice)
            notice = new frmMessage(forms, windows, sound);
        notice->Show();
        QTest::mouseClick(notice->findChild<QLabel *>(QString::fromLatin1(name)), Qt::LeftButton);
        EXPECT_TRUE(gone()) << name;
    }
}

TEST_F(Notice, HoldsALongTextWithoutCuttingIt)
{
    notice->setText(QStringLiteral("Can not attach to active window. (Code 3163) ").repeated(12));
    notice->Show();
    const auto *label = notice->findChild<QLabel *>(QStringLiteral("Label1"));
    EXPECT_GE(label->height(), label->heightForWidth(label->width()));
    EXPECT_LT(notice->width(), 500);
}

TEST(Splash, IsAsLargeAsItsPictureAndATouchMoreInTheMiddleOfTheScreen)
{
    FormList forms;
    frmLogo logo(forms, QVersionNumber(1, 20, 3), Twips(96, 96));
    const auto *picture = logo.findChild<QWidget *>(QStringLiteral("Picture2"));
    EXPECT_EQ(logo.size(), picture->size() + QSize(2, 2));
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    EXPECT_EQ(logo.pos(), QPoint((screen.width() - logo.width()) / 2, (screen.height() - logo.height()) / 2));
    EXPECT_EQ(logo.findChild<QLabel *>(QStringLiteral("lblVersion"))->text(),
              QStringLiteral("version: 1.20.3"));
    EXPECT_TRUE(forms.FormIsLoaded(QStringLiteral("frmLogo")));
}
