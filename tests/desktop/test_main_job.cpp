#include "harness/MainJob.h"
#include "harness/PageServer.h"

#include <gtest/gtest.h>

using namespace norvane::test;

namespace {

/// The main job with one program; the demo shows the same steps.
void doMainJobWith(Target &target)
{
    VirtualDesktop desktop;
    ASSERT_TRUE(desktop.start({.tray = true})) << qPrintable(desktop.error());
    MainJob job(desktop, target, QStringLiteral(NORVANE_PROGRAM));
    EXPECT_TRUE(job.run()) << qPrintable(job.report());
}

TEST(MainJobInBrowser, Firefox)
{
    PageServer pages;
    doMainJobWith(*firefoxTarget(pages));
}

TEST(MainJobInBrowser, Chromium)
{
    PageServer pages;
    doMainJobWith(*chromiumTarget(pages));
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
