#include "harness/MainJob.h"
#include "harness/PageServer.h"

#include <gtest/gtest.h>

using namespace norvane::test;

namespace {

/// The main job with one program; the demo shows the same steps.
void doMainJobWith(Target &target)
{
    VirtualDesktop desktop;
    VirtualDesktop::Options options;
    options.tray = true;
    ASSERT_TRUE(desktop.start(options)) << qPrintable(desktop.error());
    MainJob job(desktop, target, QStringLiteral(NORVANE_PROGRAM));
    EXPECT_TRUE(job.run()) << qPrintable(job.report());
}

class MainJobInBrowser : public testing::Test
{
protected:
    PageServer pages;
    QString first = pages.addPage(QStringLiteral("/reading"), QStringLiteral("Reading list"),
                                  QStringLiteral("Books for the autumn."));
    QString second = pages.addPage(QStringLiteral("/garden"), QStringLiteral("Garden plan"),
                                   QStringLiteral("Beds, seeds and dates."));
};

TEST_F(MainJobInBrowser, Firefox)
{
    doMainJobWith(*firefoxTarget(first, second));
}

TEST_F(MainJobInBrowser, Chromium)
{
    doMainJobWith(*chromiumTarget(first, second));
}

TEST(MainJobInFolder, Pcmanfm)
{
    doMainJobWith(*folderTarget(QStringLiteral("pcmanfm")));
}

TEST(MainJobInFolder, Thunar)
{
    doMainJobWith(*folderTarget(QStringLiteral("thunar")));
}

TEST(MainJobInEditor, Mousepad)
{
    doMainJobWith(*mousepadTarget());
}

} // namespace
